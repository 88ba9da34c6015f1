// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "trace/trace.h"

#include <bit>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <sys/resource.h>
#include <vector>

#include "capture.h"
#include "trace/six_digits.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string printed(const char* format, double x) {
  char text[512];
  std::snprintf(text, sizeof text, format, x);
  return text;
}

std::string sixDigits(double x) {
  char text[kSixDigitsLength];
  return {text, writeSixDigits(text, x)};
}

// The last nine are so near to a tie, without being one, that only text can tell
// their side. There are no other such doubles.
constexpr double kSpecialValues[] = {
    0.0,
    4.9e-324,
    2.2250738585072014e-308,
    0.5,
    999999.5,
    1e6,
    1e-4,
    0.00009999995,
    1e22,
    1e23,
    std::numeric_limits<double>::max(),
    9.088115e112,
    9.088115e113,
    9.088115e114,
    6.315025e124,
    1.263005e125,
    3.789015e125,
    6.315025e125,
    1.263005e126,
    2.920845e234,
};

// Values of every magnitude, decimal ties of the seventh digit and their
// neighbours among them.
std::vector<double> tellingValues(std::size_t count) {
  std::mt19937_64 random(6);
  std::vector<double> values(std::begin(kSpecialValues), std::end(kSpecialValues));
  while (values.size() < count) {
    const double any = std::bit_cast<double>(random());
    if (std::isfinite(any)) values.push_back(any);
    const auto digits = static_cast<double>(100000 + random() % 900000);
    const int exponent = static_cast<int>(random() % 40) - 20;
    const double tie = (digits + 0.5) * std::pow(10.0, exponent);
    for (const double x : {tie, std::nextafter(tie, 0), std::nextafter(tie, kInfinity)})
      values.push_back(x);
    values.push_back(std::strtod(printed("%.6e", any).c_str(), nullptr));
  }
  return values;
}

TEST(SixDigits, AreThoseOfTheCConversions) {
  for (const double magnitude : tellingValues(400000)) {
    for (const double x : {magnitude, -magnitude}) {
      const std::string expected = printed("%g", x);
      ASSERT_EQ(sixDigits(x), expected);
      const double back = std::strtod(expected.c_str(), nullptr);
      ASSERT_EQ(std::bit_cast<std::uint64_t>(roundToSixDigits(x)),
                std::bit_cast<std::uint64_t>(back))
          << expected;
    }
  }
  EXPECT_EQ(sixDigits(kInfinity), "inf");
  EXPECT_EQ(sixDigits(-kInfinity), "-inf");
  EXPECT_EQ(sixDigits(std::abs(std::nan(""))), "nan");
}

TEST(Trace, PrintsFixedNumbersAsTheCConversionsDo) {
  std::vector<double> values = tellingValues(100000);
  for (double x = -12; x < 12; x += 0.0625)
    values.push_back(x / 10);
  for (double x = -4000; x < 4000; x += 0.5)
    values.push_back(x / 1000);
  values.insert(values.end(), {kInfinity, -kInfinity, -0.0, -0.0001, 0.0005, 9999.9995, -999.9995});
  std::string expected;
  const std::string text = captureTrace([&] {
    Trace trace;
    for (const double x : values)
      trace.cell(x, 7, 3).cell(x, 10, 6) << "\n";
  });
  for (const double x : values)
    expected += printed("%7.3f ", x) + printed("%10.6f ", x) + "\n";
  EXPECT_EQ(text == expected, true);
}

TEST(Trace, KeepsProgramOrderWithTheStandardErrorStream) {
  const std::string text = captureTrace([] {
    static char buffer[256];
    std::setvbuf(stderr, buffer, _IOFBF, sizeof buffer);
    std::fputs("first ", stderr);
    Trace trace;
    trace << "second " << -7 << " " << 0.5;
    trace.flush();
    std::fputs(" third", stderr);
    std::fflush(stderr);
    std::setvbuf(stderr, nullptr, _IONBF, 0);
  });
  EXPECT_EQ(text, "first second -7 0.5 third");
}

TEST(Trace, IsWrittenAtFlushPointsAndWhenItsScopeEnds) {
  EXPECT_EQ(captureTrace([] {
              try {
                Trace trace;
                trace << "held";
                EXPECT_EQ(captureTrace([&] { trace.flush(); }), "held");
                trace << "left";
                throw 1;
              } catch (int) {
              }
            }),
            "left");
}

TEST(Trace, LosesWhatCannotBeWrittenButNoLineAfterIt) {
  const auto previous = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit small = {14, limit.rlim_max};
  Trace::takeLoss();
  const std::string text = captureTrace([&] {
    setrlimit(RLIMIT_FSIZE, &small);
    Trace trace;
    for (const char* const line : {"whole\n", "cut off here\n", "lost\n"}) {
      trace << line;
      trace.flush();
    }
    setrlimit(RLIMIT_FSIZE, &limit);
    trace << "whole again\n";
  });
  std::signal(SIGXFSZ, previous);
  EXPECT_EQ(text, "whole\ncut off \nwhole again\n");
  EXPECT_TRUE(Trace::takeLoss());
  EXPECT_FALSE(Trace::takeLoss());
}

}  // namespace
