// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/derivative.h"

#include <cmath>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <utility>
#include <vector>

#include "expression/language.h"
#include "nordika/functions.h"
#include "number/six_digits.h"
#include "outcome.h"

namespace {

using nordika::derivative;
using nordika::detail::kFunctions;
using nordika::detail::roundToSixDigits;

// The derivative of a product by one of its factors is the other factor, simplified.
std::string simplified(const std::string& text) {
  return derivative(Expression("(" + text + ")*factor"), "factor");
}

TEST(Derivative, IsThatOfTheTable) {
  for (const auto& [text, variable, expected] : rowsOf<3>("derivatives.txt")) {
    const auto derive = [&t = text, &v = variable] { return derivative(Expression(t), v); };
    EXPECT_EQ(outcomeOf(derive), expected) << text;
    EXPECT_EQ(simplified(expected), expected);
  }
  Expression left("x");
  const Expression taken = std::move(left);
  // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
  EXPECT_EQ(outcomeOf([&] { return derivative(left, "x"); }), "format");
}

// A value and its derivative. `size` is the sum of all numbers that led there.
struct Dual {
  double value, slope, size;
};

Dual dual(double value, double slope, double size) {
  return {value, slope, std::abs(value) + std::abs(slope) + size};
}

Dual binary(char op, const Dual& u, const Dual& v) {
  const double size = u.size + v.size;
  if (op == '+') return dual(u.value + v.value, u.slope + v.slope, size);
  if (op == '-') return dual(u.value - v.value, u.slope - v.slope, size);
  if (op == '*') return dual(u.value * v.value, u.slope * v.value + u.value * v.slope, size);
  if (op == '/') {
    const double ratio = u.value / v.value;
    return dual(ratio, (u.slope - ratio * v.slope) / v.value, size + std::abs(1 / v.value));
  }
  const double power = std::pow(u.value, v.value);
  const double byExponent = v.slope == 0 ? 0 : v.slope * std::log(u.value);
  return dual(power, power * (byExponent + v.value * u.slope / u.value),
              size + std::abs(1 / u.value));
}

double slopeOf(std::string_view name, double u) {
  const double root = std::pow((1 - u) * (1 + u), -0.5);
  const double slopeOfLogarithm = u < 0 ? NAN : 1 / u;
  // clang-format off
  const std::map<std::string_view, double> slopes = {
      {"sin", std::cos(u)}, {"cos", -std::sin(u)}, {"sinh", std::cosh(u)}, {"cosh", std::sinh(u)},
      {"tg", 1 + std::pow(std::tan(u), 2)}, {"ctg", -1 - std::pow(std::tan(u), -2)},
      {"arctg", 1 / std::fma(u, u, 1)}, {"arcctg", -1 / std::fma(u, u, 1)},
      {"arcsin", root}, {"arccos", -root}, {"exp", std::exp(u)}, {"ln", slopeOfLogarithm},
      {"log10", std::log10(M_E) * slopeOfLogarithm}, {"log2", std::log2(M_E) * slopeOfLogarithm},
      {"abs", std::copysign(1, u)}, {"sqrt", std::pow(u, -0.5) / 2}};
  // clang-format on
  return slopes.at(name);
}

struct Derived {
  std::string text;
  Dual at;
};

// In parentheses, so that precedence plays no part.
Derived randomDerived(std::mt19937& random, int depth, const std::vector<Derived>& leaves) {
  if (depth == 0 || random() % 8 == 0) return leaves[random() % leaves.size()];
  const Derived u = randomDerived(random, depth - 1, leaves);
  if (random() % 3 == 0) {
    const auto& function = kFunctions[random() % std::size(kFunctions)];
    const double slope = slopeOf(function.name, u.at.value);
    return {std::string(function.name) + "(" + u.text + ")",
            dual(function.compute(u.at.value), slope * u.at.slope, u.at.size + std::abs(slope))};
  }
  const Derived v = randomDerived(random, depth - 1, leaves);
  const char op = "+-*/^"[random() % 5];
  return {"(" + u.text + op + v.text + ")", binary(op, u.at, v.at)};
}

TEST(Derivative, HasTheValueOfDualNumbers) {
  std::mt19937 random(23);
  std::uniform_real_distribution<double> value(-2, 2);
  int compared = 0;
  int undefined = 0;
  for (int i = 0; i < 10000; ++i) {
    const double x = roundToSixDigits(value(random));
    const double y = roundToSixDigits(value(random));
    const std::vector<Derived> leaves = {
        {"x1", {x, 1, 1}}, {"x1", {x, 1, 1}}, {"x2", {y, 0, 1}}, {"(-x1)", {-x, -1, 1}},
        {"0", {0, 0, 1}},  {"1", {1, 0, 1}},  {"2", {2, 0, 1}},  {"0.5", {0.5, 0, 1}}};
    const Derived sample = randomDerived(random, 1 + static_cast<int>(random() % 4), leaves);
    const std::string text = derivative(Expression(sample.text), "x1");
    ASSERT_EQ(simplified(text), text) << sample.text;
    if (!(sample.at.size < 1e4)) continue;  // undefined or near a pole
    try {
      EXPECT_NEAR(Function(text)({x, y}), sample.at.slope, 1e-9 * sample.at.size)
          << sample.text << " at " << x << ", " << y << ": " << text;
    } catch (const ExpressionBadResult&) {
      ++undefined;  // (-2)^(x1/x1) has the logarithm of -2 in its derivative
    }
    ++compared;
  }
  EXPECT_GT(compared, 5000);
  EXPECT_LT(undefined, 5);
}

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i)
    all += text;
  return all;
}

// Depth would overflow the stack of a recursion.
TEST(Derivative, IsLimitedByItsLengthAlone) {
  constexpr int kDepth = 30000;
  const std::string end = "x^2" + repeated(")", kDepth);
  const auto nested = [&end](const std::string& opening) {
    return derivative(Expression(repeated(opening, kDepth) + end), "x");
  };
  EXPECT_EQ(nested("("), "2*x");
  EXPECT_EQ(nested("-("), "2*x");
  EXPECT_EQ(nested("x-("), repeated("1-(", kDepth - 1) + "1-2*x" + repeated(")", kDepth - 1));
  rusage before{};
  rusage after{};
  getrusage(RUSAGE_SELF, &before);
  for (const char* const opening : {"sin(", "x*(", "x/(", "x^("})
    EXPECT_THROW(nested(opening), std::length_error) << opening;
  getrusage(RUSAGE_SELF, &after);
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 600'000)
      << "kilobytes, where the longest text would take 1.8 million";

  const auto product = [](int n) {
    return derivative(Expression(repeated("x*", n - 1) + "x"), "x");
  };
  EXPECT_EQ(Function(product(1000), "x = 1")({}), 1000);
  const auto factor = [](std::size_t length) {
    return derivative(Expression(std::string(length, 'a') + "*t"), "t");
  };
  EXPECT_EQ(factor(16'000'000).size(), 16'000'000);
  EXPECT_THROW(factor(16'000'001), std::length_error);
}

}  // namespace
