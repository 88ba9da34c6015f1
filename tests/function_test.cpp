// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cctype>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "nordika/functions.h"
#include "outcome.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(Function, SeesArgumentsRoundedToSixDigitsInAnyLocale) {
  ASSERT_NE(std::setlocale(LC_ALL, "ru_RU.UTF-8"), nullptr);
  EXPECT_EQ(Function("x1*1.5+a", "a = 0.25")({0.1234567}), 0.123457 * 1.5 + 0.25);
  EXPECT_EQ(Expression("0").calculate({{" 2.5", Expression::number}}), 2.5);
  std::setlocale(LC_ALL, "C");
}

TEST(Function, BindsAllArgumentsOrNone) {
  Function f("1/(x1-1)+0*x2", "a = 4");
  EXPECT_THROW(f({1}), ExpressionUnknownVariable);
  EXPECT_THROW(f({1}), ExpressionUnknownVariable);
  EXPECT_THROW(f({1, 7, 9}), ExpressionBadResult);
  EXPECT_EQ(f.variables.at("x2"), 7);
  EXPECT_EQ(f.variables.at("x3"), 9);
  EXPECT_EQ(f({2}), 1);
  for (const double bad : {kNan, kInfinity, -kInfinity})
    EXPECT_THROW(f({5, bad}), ExpressionBadResult);
  EXPECT_EQ(f({}), 1);
}

TEST(Function, FollowsItsVariablesThroughEveryChange) {
  Function f("x1+b", "b = 1");
  EXPECT_EQ(f({1}), 2);
  f.variables["b"] = 10;
  EXPECT_EQ(f({1}), 11);
  f.set_variables("b = 20 x1 = 5");
  EXPECT_EQ(f({}), 25);
  Function copy = f;
  EXPECT_EQ(copy({2}), 22);
  EXPECT_EQ(f({}), 25);
  f.variables.erase("b");
  EXPECT_THROW(f({1}), ExpressionUnknownVariable);
  f.variables["b"] = 30;
  EXPECT_EQ(f({1}), 31);
  f = copy;
  EXPECT_EQ(f({3}), 23);
  Function moved = std::move(f);
  EXPECT_EQ(moved({4}), 24);
  // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
  EXPECT_THROW(f({4}), ExpressionWrongFormat);
  EXPECT_THROW(Function("x1", "a=1"), ExpressionWrongFormat);
}

TEST(Function, TakesVectorsOfAnyLength) {
  EXPECT_EQ(Function("x1+x10000")(std::vector<double>(10000, 1.5)), 3);
}

// A text, and its value by the meaning of its parts.
struct Sample {
  std::string text;
  std::function<double(const Function&)> value;
};

Sample randomSample(std::mt19937& random, int depth) {
  const char* const leaves[] = {"x1", "x2", "x3", "a", "pi", "2", "0.37", "1e-3", "1e9"};
  const char* const functions[] = {"sin",   "cos",    "tg",   "ctg", "arcsin", "arccos",
                                   "arctg", "arcctg", "exp",  "ln",  "log10",  "log2",
                                   "abs",   "sqrt",   "sinh", "cosh"};
  const char* const operators[] = {"+", "-", "*", "/", "^"};
  if (depth == 0) {
    const std::string leaf = leaves[random() % std::size(leaves)];
    return {leaf, [leaf](const Function& f) {
              if (std::isdigit(leaf[0])) return std::stod(leaf);
              if (!f.variables.contains(leaf)) throw ExpressionUnknownVariable(leaf);
              return f.variables.at(leaf);
            }};
  }
  const Sample left = randomSample(random, depth - 1);
  const std::string name = functions[random() % std::size(functions)];
  const std::string op = operators[random() % std::size(operators)];
  switch (random() % 6) {
    case 0:
      return {name + "(" + left.text + ")",
              [=](const Function& f) { return f.apply_function(name, left.value(f)); }};
    case 1:
      return {"(-" + left.text + ")",
              [=](const Function& f) { return f.apply_unary("-", left.value(f)); }};
    default:
      break;
  }
  const Sample right = randomSample(random, depth - 1);
  return {"(" + left.text + op + right.text + ")", [=](const Function& f) {
            const double first = left.value(f);
            return f.apply_binary(op, first, right.value(f));
          }};
}

// The value at x, with the arguments bound by way of text.
double valueOf(const Sample& sample, Function& f, const std::vector<double>& x) {
  for (std::size_t i = 0; i < x.size(); ++i) {
    char group[64];
    std::snprintf(group, sizeof group, "x%zu = %lg ", i + 1, x[i]);
    f.set_variables(group);
  }
  const double value = sample.value(f);
  checkValue(value);
  return value;
}

TEST(Function, HasTheValueOfItsText) {
  std::mt19937 random(4);
  std::uniform_real_distribution<double> value(-3, 3);
  std::uniform_int_distribution<int> exponent(-12, 12);
  int valued = 0;
  for (int round = 0; round < 5000; ++round) {
    const Sample sample = randomSample(random, 1 + static_cast<int>(random() % 4));
    Function fast(sample.text, "a = 1.25");
    Function slow = fast;
    // The second call may have fewer arguments than the first.
    for (int call = 0; call < 2; ++call) {
      std::vector<double> x(random() % 4);
      for (double& element : x)
        element = value(random) * std::pow(10.0, exponent(random) / 4);
      const std::string expected = outcomeOf([&] { return valueOf(sample, slow, x); });
      ASSERT_EQ(outcomeOf([&] { return fast(x); }), expected) << sample.text;
      ASSERT_EQ(outcomeOf([&] { return fast.calculate(fast.postfix); }), expected) << sample.text;
      if (expected[0] != 'b' && expected[0] != 'u') ++valued;
    }
  }
  EXPECT_GT(valued, 4000);
}

}  // namespace
