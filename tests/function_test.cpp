// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cctype>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "expression/language.h"
#include "nordika/functions.h"
#include "outcome.h"

namespace {

using nordika::detail::BuiltinFunction;
using nordika::detail::kFunctions;

TEST(Function, SeesArgumentsRoundedToSixDigitsInAnyLocale) {
  ASSERT_NE(std::setlocale(LC_ALL, "ru_RU.KOI8-R"), nullptr);
  EXPECT_EQ(Function("x1*1.5+a+1.5e-400", "a = 0.12345678")({0.1234567}),
            0.123457 * 1.5 + 0.12345678);
  EXPECT_EQ(Expression("0").calculate({{" 2.5", Expression::number}}), 2.5);
  EXPECT_STREQ(std::localeconv()->decimal_point, ",");
  for (const char* const name : {"\xc1", "x\xc1"})  // a letter
    EXPECT_THROW(Expression{name}, ExpressionWrongFormat);
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
  for (const double bad : {kNan, kInfinity, -kInfinity}) {
    EXPECT_THROW(f({5, 0, 0, bad}), ExpressionBadResult);
    EXPECT_THROW(checkValue(bad), ExpressionBadResult);
    EXPECT_THROW(checkValue(std::vector<double>{0, bad}), ExpressionBadResult);
  }
  EXPECT_EQ(f({}), f.variables.contains("x4") ? 0 : 1);
  EXPECT_EQ(Function("x1+x10000")(std::vector<double>(10000, 1.5)), 3);
}

TEST(Function, FollowsItsVariablesThroughEveryChange) {
  Function f("x1+b", "b = 1 ");
  EXPECT_EQ(f({1}), 2);
  f.variables["b"] = 10;
  EXPECT_EQ(f({1}), 11);
  f.set_variables("b = 20 x1 = 5");
  EXPECT_EQ(f({}), 25);
  Function copy = f;
  EXPECT_EQ(copy({2}), 22);
  EXPECT_EQ(copy.calculate(copy.postfix), 22);
  EXPECT_TRUE(copy.is_operator("+") && copy.get_type({"sin"}) == Expression::function);
  EXPECT_EQ(f({}), 25);
  f.variables.erase("b");
  EXPECT_THROW(f({1}), ExpressionUnknownVariable);
  f.variables["b"] = 30;
  EXPECT_EQ(f({1}), 31);
  Function other("x1*x2*c+1", "c = 100");
  EXPECT_EQ(other({1, 2}), 201);
  f = other;
  EXPECT_EQ(f({3, 1}), 301);
  f = Function("x1-1");
  EXPECT_EQ(f({3}), 2);
  other.variables.clear();
  EXPECT_THROW(other({1, 2}), ExpressionUnknownVariable);
  other.variables["c"] = 2;
  EXPECT_EQ(other({1, 2}), 5);
  Function third("x1*c", "c = 3");
  third.variables.erase("b");
  EXPECT_EQ(third({1}), 3);
  Expression zero("0");
  zero.variables = std::move(third.variables);
  EXPECT_THROW(third({1}), ExpressionUnknownVariable);
  EXPECT_EQ(zero.variables.at("c"), 3);
  third = Function("c", "c = 3");
  EXPECT_EQ(third({}), 3);
  zero.variables = std::move(third.variables);
  third.variables.clear();
  EXPECT_THROW(third({}), ExpressionUnknownVariable);
  zero.variables.clear();
  third.variables = zero.variables;
  EXPECT_THROW(third({1}), ExpressionUnknownVariable);
  const auto taken = std::move(other.variables);
  EXPECT_THROW(other({1, 2}), ExpressionUnknownVariable);
  Function moved = std::move(f);
  EXPECT_EQ(moved({4}), 3);
  moved.variables.insert({"q", 2});
  moved.variables.insert({{"q", 5}, {"r", 7}});
  moved.variables.insert_or_assign("q", 3);
  const std::map<std::string, double>& values = moved.variables;
  EXPECT_EQ(values.at("x1") + values.at("q") + values.at("r"), 14);
  EXPECT_EQ(moved.variables.lower_bound("q")->first + moved.variables.upper_bound("q")->first,
            "qr");
  // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
  EXPECT_THROW(f({4}), ExpressionWrongFormat);
  EXPECT_THROW(Function("x1", "a=1"), ExpressionWrongFormat);
}

using Values = std::map<std::string, double>;

struct Operator {
  const char* name;
  int level;
  double (*compute)(double, double);
};

constexpr int kUnaryLevel = 3;
constexpr int kAtomLevel = 5;
constexpr Operator kOperators[] = {
    {"+", 1, [](double a, double b) { return a + b; }},
    {"-", 1, [](double a, double b) { return a - b; }},
    {"*", 2, [](double a, double b) { return a * b; }},
    {"/", 2, [](double a, double b) { return a / b; }},
    {"^", 4, [](double a, double b) { return std::pow(a, b); }},
};

// A text, how tightly its last operator binds, and its value by the meaning of its
// parts. Of the engine only the functions take part: tests/golden/expressions.txt has a
// value of each.
struct Sample {
  std::string text;
  int level;
  std::function<double(const Values&)> value;
};

Sample randomLeaf(std::mt19937& random) {
  const char* const leaves[] = {"x1", "x2", "x3", "a", "pi", "2", "1.01808", "1e-3", "1e9"};
  const std::string leaf = leaves[random() % std::size(leaves)];
  return {leaf, kAtomLevel, [leaf](const Values& values) {
            if (std::isdigit(leaf[0])) return std::stod(leaf);
            if (!values.contains(leaf)) throw ExpressionUnknownVariable(leaf);
            return values.at(leaf);
          }};
}

// Parentheses stand only where they must, and sometimes in vain.
Sample randomSample(std::mt19937& random, int depth) {
  const auto operand = [&](int level) {
    Sample sample = randomSample(random, depth - 1);
    if (sample.level < level || random() % 8 == 0) sample.text.insert(0, 1, '(').append(")");
    return sample;
  };
  if (depth == 0) return randomLeaf(random);
  switch (random() % 6) {
    case 0: {
      const BuiltinFunction builtin = kFunctions[random() % std::size(kFunctions)];
      const Sample x = operand(kAtomLevel + 1);
      return {std::string(builtin.name) + x.text, kAtomLevel,
              [=](const Values& values) { return builtin.compute(x.value(values)); }};
    }
    case 1: {
      const Sample x = operand(kUnaryLevel);
      return {std::string("(-").append(x.text).append(")"), kAtomLevel,
              [=](const Values& values) { return -x.value(values); }};
    }
    default: {
      const Operator op = kOperators[random() % std::size(kOperators)];
      const bool fromTheRight = *op.name == '^';
      const Sample left = operand(op.level + (fromTheRight ? 1 : 0));
      const Sample right = operand(op.level + (fromTheRight ? 0 : 1));
      return {left.text + op.name + right.text, op.level, [=](const Values& values) {
                const double first = left.value(values);
                return op.compute(first, right.value(values));
              }};
    }
  }
}

TEST(Function, HasTheValueOfItsText) {
  std::mt19937 random(4);
  std::uniform_real_distribution<double> value(-3, 3);
  std::uniform_int_distribution<int> exponent(-12, 12);
  int valued = 0;
  for (int round = 0; round < 10000; ++round) {
    const Sample sample = randomSample(random, 1 + static_cast<int>(random() % 4));
    Function f(sample.text, "a = 1.25");
    Values values = {{"a", 1.25}, {"pi", std::acos(-1)}};
    // The number of arguments grows and shrinks.
    for (int call = 0; call < 3; ++call) {
      std::vector<double> x(random() % 4);
      for (std::size_t i = 0; i < x.size(); ++i) {
        x[i] = value(random) * std::pow(10.0, exponent(random) / 4);
        char text[32];
        std::snprintf(text, sizeof text, "%g", x[i]);
        values[std::string("x").append(std::to_string(i + 1))] = std::stod(text);
      }
      const std::string expected = outcomeOf([&] {
        const double result = sample.value(values);
        if (!std::isfinite(result)) throw ExpressionBadResult();
        return result;
      });
      ASSERT_EQ(outcomeOf([&] { return f(x); }), expected) << sample.text;
      ASSERT_EQ(outcomeOf([&] { return f.calculate(f.postfix); }), expected) << sample.text;
      if (expected[0] != 'b' && expected[0] != 'u') ++valued;
    }
  }
  EXPECT_GT(valued, 12000);
}

TEST(Expression, AppliesEachOperatorAndFunction) {
  const Expression e("0");
  for (const auto& [name, compute, rule] : kFunctions)
    EXPECT_EQ(e.apply_function(std::string(name), 0.3), compute(0.3)) << name;
  for (const auto& [name, level, compute] : kOperators) {
    EXPECT_EQ(e.apply_binary(name, 5, 3), compute(5, 3)) << name;
    EXPECT_EQ(e.priority({name + std::string("x"), Expression::binary_operator}), level);
  }
  EXPECT_EQ(outcomeOf([&] { return e.apply_unary("-", 0); }), "-0");
  EXPECT_EQ(e.apply_unary("+", 2), 2);
}

}  // namespace
