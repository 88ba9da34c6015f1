// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/output.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace nordika {

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

std::string linesOf(const Outcome& outcome) {
  std::string lines;
  for (std::size_t i = 0; i < outcome.solution.size(); ++i) {
    lines.append("x").append(std::to_string(i + 1)).append(" = ");
    lines.append(shownNumber(outcome.solution[i])).append("\n");
  }
  return lines.append("iterations = ").append(std::to_string(outcome.iterations)).append("\n");
}

std::string lineOfAgreement(std::size_t elements) {
  return elements == 1 ? "1 element agrees\n" : std::to_string(elements) + " elements agree\n";
}

std::string lineOfJacobian(const std::vector<std::string>& texts) {
  const auto n = static_cast<std::size_t>(std::lround(std::sqrt(texts.size())));
  std::string line = "jacobian = [";
  for (std::size_t i = 0; i < texts.size(); ++i) {
    line += i % n > 0 ? ", " : i == 0 ? "[" : "], [";
    line += '"' + texts[i] + '"';
  }
  return line + "]]\n";
}

}  // namespace nordika
