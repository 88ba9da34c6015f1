// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_EXPRESSION_NUMBER_H
#define NORDIKA_EXPRESSION_NUMBER_H

#include <optional>
#include <string>
#include <string_view>

/// Reads a number from the front of `text` and removes it from there, as the
/// C++ library's formatted extraction of a double does in the classic locale,
/// without its skipping of blanks: a sign, digits with at most one point among
/// them, an exponent. The longest run of characters that may belong to a
/// number is taken first and judged then.
/// @return nothing, with `text` in an unspecified state, where the extraction
///   fails: no digit, an exponent without digits ("2e", "1e+"), a value beyond
///   the largest double; a value too small for a double reads as 0
std::optional<double> extractNumber(std::string_view& text);

/// The value of a number token's text, read as the C conversion "%50lg" reads
/// it: 50 characters at most; 0 where the text does not read as a number.
double numberValue(const std::string& text);

#endif
