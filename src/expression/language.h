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

/// A function: its name and what computes it. Angles are in radians. Outside the domain
/// of a function the result is that of the C library.
struct BuiltinFunction {
  std::string_view name;
  double (*compute)(double x);
};

/// All functions.
inline constexpr BuiltinFunction kFunctions[] = {
    {"sin", std::sin},     {"cos", std::cos},     {"tg", std::tan},      {"ctg", cotangent},
    {"arcsin", std::asin}, {"arccos", std::acos}, {"arctg", std::atan},  {"arcctg", arccotangent},
    {"exp", std::exp},     {"ln", std::log},      {"log10", std::log10}, {"log2", binaryLogarithm},
    {"abs", std::fabs},    {"sqrt", std::sqrt},   {"sinh", std::sinh},   {"cosh", std::cosh},
};

/// An operator of two operands: its sign, how tightly it binds, which of two equal
/// neighbours is computed first, and its value.
struct Operator {
  std::string_view name;
  int precedence;
  bool isRightAssociative;
  double (*compute)(double a, double b);
};

/// All operators, each of one character.
inline constexpr Operator kOperators[] = {
    {"+", 1, false, [](double a, double b) { return a + b; }},
    {"-", 1, false, [](double a, double b) { return a - b; }},
    {"*", 2, false, [](double a, double b) { return a * b; }},
    {"/", 2, false, [](double a, double b) { return a / b; }},
    {"^", 4, true, [](double a, double b) { return std::pow(a, b); }},
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
