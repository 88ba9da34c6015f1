// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "nordika/functions.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kMax = std::numeric_limits<double>::max();

TEST(Function, SeesArgumentsRoundedToSixDigits) {
  Function identity("x1", "");
  const double rows[][2] = {
      {0.1234567, 0.123457},
      {1.23456789, 1.23457},
      {-99.995, -99.995},
      {1234565, 1.23456e6},
      {1234575, 1.23458e6},
      {999999.5, 1e6},
      {kMax, 1.79769e308},
      {-kMax, -1.79769e308},
      {4.94e-324, 4.94066e-324},
      {2.2250738585072014e-308, 2.22507e-308},
      {1e-5, 1e-5},
  };
  for (const auto& row : rows)
    EXPECT_EQ(identity({row[0]}), row[1]);
  EXPECT_TRUE(std::signbit(identity({-0.0})));
}

TEST(Function, ChecksAllArgumentsBeforeItBindsAny) {
  Function f("x1+x2", "");
  EXPECT_EQ(f({1, 2}), 3);
  EXPECT_THROW(f({5, kNan}), ExpressionBadResult);
  EXPECT_THROW(f({5, -kInfinity}), ExpressionBadResult);
  EXPECT_EQ(f({}), 3);
}

TEST(Function, KeepsWhatAFailedCallHasBound) {
  Function f("1/(x1-1)+0*x2", "a = 4");
  EXPECT_THROW(f({1, 7, 9}), ExpressionBadResult);
  EXPECT_EQ(f.variables.at("x2"), 7);
  EXPECT_EQ(f.variables.at("x3"), 9);
  EXPECT_EQ(f({2}), 1);
}

TEST(Function, NamesTheVariableWithoutAValue) {
  Function f("x1*x2", "");
  for (int call = 0; call < 2; ++call) {
    try {
      f({3});
      FAIL();
    } catch (const ExpressionUnknownVariable& unknown) {
      EXPECT_EQ(unknown.name, "x2");
    }
  }
  EXPECT_EQ(f({3, 4}), 12);
  EXPECT_EQ(f({5}), 20);
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
  const int n = 10000;
  Function f("x1+x10000", "");
  std::vector<double> x(n, 0.0);
  x[0] = 1;
  x[n - 1] = 2;
  EXPECT_EQ(f(x), 3);
}

TEST(CheckValue, RefusesNanAndInfinities) {
  checkValue(kMax);
  checkValue(std::vector<double>{-0.0, -kMax});
  for (const double bad : {kNan, kInfinity, -kInfinity}) {
    EXPECT_THROW(checkValue(bad), ExpressionBadResult);
    EXPECT_THROW(checkValue(std::vector<double>{1, bad}), ExpressionBadResult);
  }
}

std::string randomExpression(std::mt19937& random, int depth) {
  const char* const leaves[] = {"x1", "x2", "x3", "a", "pi", "2", "0.37", "1e-3", "12345678"};
  const char* const functions[] = {"sin",   "cos",    "tg",   "ctg", "arcsin", "arccos",
                                   "arctg", "arcctg", "exp",  "ln",  "log10",  "log2",
                                   "abs",   "sqrt",   "sinh", "cosh"};
  const char* const operators[] = {"+", "-", "*", "/", "^"};
  if (depth == 0) return leaves[random() % std::size(leaves)];
  switch (random() % 6) {
    case 0:
      return functions[random() % std::size(functions)] +
             ("(" + randomExpression(random, depth - 1) + ")");
    case 1:
      return "(-" + randomExpression(random, depth - 1) + ")";
    default:
      return "(" + randomExpression(random, depth - 1) +
             operators[random() % std::size(operators)] + randomExpression(random, depth - 1) + ")";
  }
}

// The value of a function at x, walked token by token, with the arguments bound
// by way of text.
double walked(Function& f, const std::vector<double>& x) {
  std::string assignments;
  for (std::size_t i = 0; i < x.size(); ++i) {
    char group[64];
    std::snprintf(group, sizeof group, "x%zu = %lg ", i + 1, x[i]);
    assignments += group;
  }
  f.set_variables(assignments);
  std::vector<double> stack;
  const auto pop = [&stack] {
    const double top = stack.back();
    stack.pop_back();
    return top;
  };
  for (const Expression::token& t : f.postfix) {
    switch (t.type) {
      case Expression::number:
        stack.push_back(std::strtod(t.text.c_str(), nullptr));
        break;
      case Expression::variable:
        if (!f.variables.contains(t.text)) throw ExpressionUnknownVariable(t.text);
        stack.push_back(f.variables.at(t.text));
        break;
      case Expression::function:
        stack.push_back(f.apply_function(t.text, pop()));
        break;
      case Expression::unary_operator:
        stack.push_back(f.apply_unary(t.text, pop()));
        break;
      default: {
        const double right = pop();
        stack.push_back(f.apply_binary(t.text, pop(), right));
      }
    }
  }
  checkValue(stack.back());
  return stack.back();
}

template <typename Call>
std::string end(Call call) {
  try {
    return std::to_string(std::bit_cast<std::uint64_t>(static_cast<double>(call())));
  } catch (const ExpressionBadResult&) {
    return "bad result";
  } catch (const ExpressionUnknownVariable& unknown) {
    return "unknown " + unknown.name;
  }
}

TEST(Function, EqualsTheWalkOverItsPostfixTokens) {
  std::mt19937 random(4);
  std::uniform_real_distribution<double> value(-3, 3);
  std::uniform_int_distribution<int> exponent(-12, 12);
  int valued = 0;
  for (int round = 0; round < 5000; ++round) {
    const std::string text = randomExpression(random, 1 + static_cast<int>(random() % 4));
    Function fast(text, "a = 1.25");
    Function slow = fast;
    // The second call may have fewer arguments than the first.
    for (int call = 0; call < 2; ++call) {
      std::vector<double> x(random() % 4);
      for (double& element : x)
        element = value(random) * std::pow(10.0, exponent(random) / 4);
      const std::string expected = end([&] { return walked(slow, x); });
      ASSERT_EQ(end([&] { return fast(x); }), expected) << text;
      ASSERT_EQ(end([&] { return fast.calculate(fast.postfix); }), expected) << text;
      if (expected[0] != 'b' && expected[0] != 'u') ++valued;
    }
  }
  EXPECT_GT(valued, 4000);
}

TEST(Function, DoesNotDependOnTheLocale) {
  ASSERT_NE(std::setlocale(LC_ALL, "ru_RU.UTF-8"), nullptr);
  Function f("x1*1.5+a", "a = 0.25");
  EXPECT_EQ(f({1.5}), 2.5);
  std::setlocale(LC_ALL, "C");
}

}  // namespace
