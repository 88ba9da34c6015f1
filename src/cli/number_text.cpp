// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/number_text.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "number/read_number.h"

namespace nordika {

std::optional<double> readNumber(std::string_view text) {
  const std::optional<double> value = detail::extractNumber(text);
  return text.empty() ? value : std::nullopt;
}

std::string shownNumber(double x) {
  if (x == 0) return "0";
  // A double has at most 767 significant digits.
  char digits[800];
  char* const end = std::to_chars(digits, digits + sizeof digits, std::fabs(x),
                                  std::chars_format::scientific, 766)
                        .ptr;
  const std::string_view exact(digits, static_cast<std::size_t>(end - digits));
  // Behind the point, the sixth digit is the first one that is not shown.
  constexpr std::size_t kHidden = 7;
  const bool isHalf =
      exact[kHidden] == '5' && exact.find_first_not_of('0', kHidden + 1) == exact.find('e');
  // to_chars() rounds a half to an even digit.
  if (isHalf) x = std::nextafter(x, std::copysign(std::numeric_limits<double>::infinity(), x));
  char text[16];
  return {text, std::to_chars(text, text + sizeof text, x, std::chars_format::general, 6).ptr};
}

}  // namespace nordika
