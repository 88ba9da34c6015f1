// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "number/read_number.h"

#include <charconv>
#include <clocale>
#include <cstdio>
#include <locale>
#include <sstream>

namespace nordika::detail {

namespace {

constexpr std::size_t kLongestNumberText = 50;

bool isSign(char c) {
  return c == '+' || c == '-';
}

// The number of characters that the extraction takes before it judges them.
std::size_t numberLength(std::string_view text) {
  std::size_t i = !text.empty() && isSign(text[0]) ? 1 : 0;
  bool digits = false;
  bool point = false;
  bool exponent = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (isDigit(c)) {
      digits = true;
    } else if (c == '.' && !point && !exponent) {
      point = true;
    } else if ((c == 'e' || c == 'E') && digits && !exponent) {
      exponent = true;
      if (i + 1 < text.size() && isSign(text[i + 1])) ++i;
    } else {
      break;
    }
  }
  return i;
}

// For malformed texts, overflow and underflow. std::from_chars() reports the last
// two alike.
std::optional<double> extractFromStream(std::string_view text) {
  std::istringstream stream{std::string(text)};
  stream.imbue(std::locale::classic());
  double value = 0;
  if (stream >> value) return value;
  return std::nullopt;
}

}  // namespace

std::optional<double> extractNumber(std::string_view& text) {
  std::string_view number = text.substr(0, numberLength(text));
  text.remove_prefix(number.size());
  if (!number.empty() && number[0] == '+') number.remove_prefix(1);
  double value = 0;
  const char* const end = number.data() + number.size();
  const auto [stop, error] = std::from_chars(number.data(), end, value);
  if (error == std::errc() && stop == end) return value;
  return extractFromStream(number);
}

double numberValue(const std::string& text) {
  double value = 0;
  if (text.size() <= kLongestNumberText) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error == std::errc() && stop == end) return value;
  }
  // Only a token made by hand holds blanks, signs, hexadecimal digits or
  // trailing characters. The conversion depends on the locale.
  static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
  const locale_t before = uselocale(classic);
  value = 0;
  const int count = std::sscanf(text.c_str(), "%50lg", &value);
  uselocale(before);
  return count == 1 ? value : 0;
}

}  // namespace nordika::detail
