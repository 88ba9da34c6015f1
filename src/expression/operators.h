// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_EXPRESSION_OPERATORS_H
#define NORDIKA_EXPRESSION_OPERATORS_H

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

namespace nordika::detail {

/// An operator of two operands: its sign, how tightly it binds, which of two equal
/// neighbours is computed first, and its value.
struct Operator {
  std::string_view sign;
  int precedence;
  bool isRightAssociative;
  double (*compute)(double a, double b);
};

/// All operators of the language, each of one character.
inline constexpr Operator kOperators[] = {
    {"+", 1, false, [](double a, double b) { return a + b; }},
    {"-", 1, false, [](double a, double b) { return a - b; }},
    {"*", 2, false, [](double a, double b) { return a * b; }},
    {"/", 2, false, [](double a, double b) { return a / b; }},
    {"^", 4, true, [](double a, double b) { return std::pow(a, b); }},
};

/// The precedence of an operator of one operand, whatever its sign.
inline constexpr int kUnaryPrecedence = 3;

/// The precedence of a function: it binds more tightly than any operator.
inline constexpr int kFunctionPrecedence = 5;

/// The operator of that sign, std::end(kOperators) for other texts.
constexpr const Operator* findOperator(std::string_view sign) {
  return std::find_if(std::begin(kOperators), std::end(kOperators),
                      [sign](const Operator& op) { return op.sign == sign; });
}

}  // namespace nordika::detail

#endif
