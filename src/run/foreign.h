// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_FOREIGN_H
#define NORDIKA_RUN_FOREIGN_H

#include <string_view>

namespace nordika {

/// True if an expression may contain the character: an ASCII letter or digit, one of
/// . , + - * / ^ ( ) or a blank, tab, line feed or carriage return. All others make a text
/// malformed, however much they look like one of these.
inline bool isOfLanguage(char32_t c) {
  return (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z') || (c >= U'0' && c <= U'9') ||
         (c != 0 && std::u32string_view(U".,+-*/^() \t\n\r").find(c) != std::u32string_view::npos);
}

}  // namespace nordika

#endif
