// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "number_text.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace nordika {

std::optional<double> readNumber(std::string_view text) {
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
  return value;
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
