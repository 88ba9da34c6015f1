// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_FOREIGN_H
#define NORDIKA_RUN_FOREIGN_H

#include <string_view>

namespace nordika {

/// Whether a character may stand in an expression: ASCII letters and digits, the decimal
/// point, operators, parentheses and blanks.
inline bool isOfLanguage(char32_t c) {
  return (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z') || (c >= U'0' && c <= U'9') ||
         std::u32string_view(U".+-*/^()\t \n\r").find(c) != std::u32string_view::npos;
}

}  // namespace nordika

#endif
