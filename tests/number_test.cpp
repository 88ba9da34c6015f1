// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "number/fixed_decimals.h"
#include "number/read_number.h"
#include "number/six_digits.h"
#include "outcome.h"

namespace {

using nordika::detail::extractNumber;
using nordika::detail::roundToSixDigits;
using nordika::detail::writeFixed;
using nordika::detail::writeSixDigits;

template <typename... Numbers>
std::string printed(const char* format, Numbers... numbers) {
  char text[512];
  std::snprintf(text, sizeof text, format, numbers...);
  return text;
}

// Values of every magnitude; ties of the seventh digit and of the third and sixth
// decimal, exact and not, with their neighbours; powers of ten and the limits
// between the ways to round. Others with each --gtest_repeat, if --gtest_shuffle is given.
std::vector<double> tellingValues() {
  std::mt19937_64 random(static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed()));
  using Limits = std::numeric_limits<double>;
  std::vector<double> values = {0, 4.9e-324, Limits::min(), Limits::max(), kInfinity, kNan};
  const auto addWithNeighbours = [&values](double x) {
    values.insert(values.end(), {x, std::nextafter(x, 0), std::nextafter(x, kInfinity)});
  };
  for (int exponent = -20; exponent < 25; ++exponent)
    addWithNeighbours(std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr));
  for (int i = 0; i < 8000; ++i) {
    const auto any = std::bit_cast<double>(random());
    if (std::isfinite(any)) values.push_back(any);
    const auto digits = static_cast<double>(100000 + random() % 900000);
    const int exponent = static_cast<int>(random() % 44) - 22;
    addWithNeighbours((digits + 0.5) * std::pow(10.0, exponent));
    addWithNeighbours((digits + 0.5) / std::pow(10.0, exponent));
    addWithNeighbours(std::ldexp(digits, -static_cast<int>(random() % 24)));
    values.push_back(std::ldexp(static_cast<double>(random()), -static_cast<int>(random() % 64)));
    values.push_back(std::strtod(printed("%.6e", any).c_str(), nullptr));
  }
  return values;
}

TEST(Numbers, AreWrittenAndRoundedAsTheCConversionsDoIt) {
  char six[nordika::detail::kSixDigitsLength];
  char fixed[nordika::detail::kFixedLength];
  for (const double magnitude : tellingValues()) {
    for (const double x : {magnitude, -magnitude}) {
      const std::string expected = printed("%g", x);
      ASSERT_EQ(std::string(six, writeSixDigits(six, x)), expected);
      ASSERT_EQ(std::bit_cast<std::uint64_t>(roundToSixDigits(x)),
                std::bit_cast<std::uint64_t>(std::strtod(expected.c_str(), nullptr)))
          << expected;
      for (const auto& [width, decimals] : {std::pair(7, 3), {10, 6}, {16, 1}, {0, 2}})
        ASSERT_EQ(std::string(fixed, writeFixed(fixed, x, width, decimals)),
                  printed("%*.*f", width, decimals, x));
    }
  }
}

// Every string over the characters that matter, against the library itself.
TEST(Number, IsReadAsTheStandardExtractionReadsIt) {
  const std::string alphabet = "01.eE+-x";
  std::vector<std::string> texts = {""};
  for (std::size_t i = 0; texts[i].size() < 6; ++i) {
    for (const char c : alphabet)
      texts.push_back(texts[i] + c);
  }
  // Both ends of the range, and ties.
  texts.insert(texts.end(), {"1e308", "2e308", "-2e308", "1e-320", "1e-5000", "1e99999999999",
                             "0e99999999999", "179769313486231580793e289", "4.9e-324",
                             "2.4703282292062327e-324", "9007199254740993"});
  for (const std::string& text : texts) {
    std::istringstream stream(text);
    double expected = 0;
    stream >> expected;
    std::string_view rest = text;
    const auto value = extractNumber(rest);
    ASSERT_EQ(value.has_value(), !stream.fail()) << text;
    if (!value) continue;
    ASSERT_EQ(*value, expected) << text;
    ASSERT_EQ(std::signbit(*value), std::signbit(expected)) << text;
    stream.clear();
    ASSERT_EQ(rest, std::string(std::istreambuf_iterator<char>(stream), {})) << text;
  }
}

}  // namespace
