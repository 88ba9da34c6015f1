// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "number/read_number.h"

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace nordika::detail {

namespace {

constexpr std::size_t kLongestNumberText = 50;

bool isSign(char c) {
  return c == '+' || c == '-';
}

// The number of characters that the extraction takes before it judges them.
std::size_t numberLength(std::string_view text) {
  std::size_t i = !text.empty() && isSign(text[0]) ? 1 : 0;
  bool point = false;
  bool exponent = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '.' && !point && !exponent) {
      point = true;
    } else if ((c == 'e' || c == 'E') && !exponent) {
      exponent = true;
      if (i + 1 < text.size() && isSign(text[i + 1])) ++i;
    } else if (!isDigit(c)) {
      break;
    }
  }
  return i;
}

// Runs a conversion of the C library, which depends on the locale of the thread.
template <typename Conversion>
void inClassicLocale(Conversion convert) {
  static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
  const locale_t before = uselocale(classic);
  convert();
  uselocale(before);
}

// The number that all of the text is, where std::from_chars() gives the nearest
// double. On i386 it computes with 80 bits and rounds twice.
std::optional<double> readAll([[maybe_unused]] std::string_view text) {
#ifndef __i386__
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error == std::errc() && stop == end) return value;
#endif
  return std::nullopt;
}

// The same on any machine. A value too small for a double is 0.
std::optional<double> readAllSlowly(const std::string& text) {
  char* stop = nullptr;
  double value = 0;
  inClassicLocale([&] { value = std::strtod(text.c_str(), &stop); });
  if (text.empty() || stop != text.c_str() + text.size() || std::isinf(value)) return std::nullopt;
  return value;
}

}  // namespace

std::optional<double> extractNumber(std::string_view& text) {
  std::string_view number = text.substr(0, numberLength(text));
  text.remove_prefix(number.size());
  if (!number.empty() && number[0] == '+') number.remove_prefix(1);
  if (const auto value = readAll(number)) return value;
  return readAllSlowly(std::string(number));
}

double numberValue(const std::string& text) {
  if (text.size() <= kLongestNumberText) {
    if (const auto value = readAll(text)) return *value;
  }
  // Only a token made by hand holds blanks, signs, hexadecimal digits or
  // trailing characters.
  double value = 0;
  int count = 0;
  inClassicLocale([&] { count = std::sscanf(text.c_str(), "%50lg", &value); });
  return count == 1 ? value : 0;
}

}  // namespace nordika::detail
