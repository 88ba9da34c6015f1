// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// The words of the language: a function, an operator or a constant is a row here. An
// operator also has two instructions in program.cpp.

#ifndef NORDIKA_EXPRESSION_LANGUAGE_H
#define NORDIKA_EXPRESSION_LANGUAGE_H

#include <cmath>
#include <cstddef>
#include <string_view>

namespace nordika::detail {

inline double cotangent(double x) {
  return 1.0 / std::tan(x);
}

inline double arccotangent(double x) {
  constexpr double kHalfPi = 1.5707963267948966;
  return kHalfPi - std::atan(x);
}

inline double binaryLogarithm(double x) {
  constexpr double kLn2 = 0.6931471805599453;
  return std::log(x) / kLn2;
}

/// The rule of a derivative, a text of the language. No row of a table can do without.
struct DerivativeRule {
  constexpr DerivativeRule(const char* rule) : text(rule) {}
  const char* text;
};

/// A function: its name, what computes it, and its derivative by the operand u, whose own
/// derivative is du. Angles are in radians. Outside the domain of a function the result is
/// that of the C library.
struct BuiltinFunction {
  std::string_view name;
  double (*compute)(double x);
  DerivativeRule derivative;
};

/// All functions.
inline constexpr BuiltinFunction kFunctions[] = {
    {"sin", std::sin, "du*cos(u)"},          {"cos", std::cos, "-du*sin(u)"},
    {"tg", std::tan, "du/cos(u)^2"},         {"ctg", cotangent, "-du/sin(u)^2"},
    {"arcsin", std::asin, "du/sqrt(1-u^2)"}, {"arccos", std::acos, "-du/sqrt(1-u^2)"},
    {"arctg", std::atan, "du/(1+u^2)"},      {"arcctg", arccotangent, "-du/(1+u^2)"},
    {"exp", std::exp, "du*exp(u)"},          {"ln", std::log, "du/u"},
    {"log10", std::log10, "du/(u*ln(10))"},  {"log2", binaryLogarithm, "du/(u*ln(2))"},
    {"abs", std::fabs, "du*u/abs(u)"},       {"sqrt", std::sqrt, "du/(2*sqrt(u))"},
    {"sinh", std::sinh, "du*cosh(u)"},       {"cosh", std::cosh, "du*sinh(u)"},
};

/// An operator of two operands: its sign, how tightly it binds, which of two equal
/// neighbours is computed first, its value, and its derivative. The operands of the rule
/// are u and v, their own derivatives du and dv.
struct Operator {
  std::string_view name;
  int precedence;
  bool isRightAssociative;
  double (*compute)(double a, double b);
  DerivativeRule derivative;
};

/// All operators, each of one character. The rule of a power is the sum of those for a
/// constant exponent and for a constant base. With dv or du equal to 0 one of them vanishes.
inline constexpr Operator kOperators[] = {
    {"+", 1, false, [](double a, double b) { return a + b; }, "du+dv"},
    {"-", 1, false, [](double a, double b) { return a - b; }, "du-dv"},
    {"*", 2, false, [](double a, double b) { return a * b; }, "du*v+u*dv"},
    {"/", 2, false, [](double a, double b) { return a / b; }, "du/v-u*dv/v^2"},
    {"^", 4, true, [](double a, double b) { return std::pow(a, b); }, "v*u^(v-1)*du+u^v*ln(u)*dv"},
};

/// The precedence of every operator of one operand.
inline constexpr int kUnaryPrecedence = 3;

/// The precedence of every function.
inline constexpr int kFunctionPrecedence = 5;

/// A constant: its name and its value.
struct Constant {
  std::string_view name;
  double value;
};

/// All constants.
inline constexpr Constant kConstants[] = {{"pi", 3.141592653589793}};

/// The row of that name in one of the tables, nullptr for an unknown name.
template <typename Row, std::size_t size>
constexpr const Row* findRow(const Row (&table)[size], std::string_view name) {
  for (const Row& row : table) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

}  // namespace nordika::detail

#endif
