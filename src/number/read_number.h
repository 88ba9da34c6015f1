// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_NUMBER_READ_NUMBER_H
#define NORDIKA_NUMBER_READ_NUMBER_H

#include <optional>
#include <string>
#include <string_view>

namespace nordika::detail {

/// True for an ASCII digit, whatever the locale.
inline bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Reads a number from the front of `text` and removes it from there: a sign,
/// digits with at most one point among them, an exponent. Reads as the standard
/// library's formatted extraction of a double in the classic locale, but skips
/// no blanks. Like the extraction, it first takes the longest run of characters
/// that may belong to a number, then judges that run. A value too small for a
/// double reads as 0.
/// @return nothing for a run without a digit, with an empty exponent ("2e",
///   "1e+") or beyond the largest double; `text` is unspecified then
std::optional<double> extractNumber(std::string_view& text);

/// The value of a number token, read as the C conversion "%50lg" reads it: at
/// most 50 characters; 0 for text that does not read as a number.
double numberValue(const std::string& text);

}  // namespace nordika::detail

#endif
