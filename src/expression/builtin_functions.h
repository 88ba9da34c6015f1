// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_EXPRESSION_BUILTIN_FUNCTIONS_H
#define NORDIKA_EXPRESSION_BUILTIN_FUNCTIONS_H

#include <algorithm>
#include <cmath>
#include <iterator>
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

/// A function of the language: its name and what computes it. Angles are in
/// radians. Outside the domain of a function the result is that of the C library.
struct BuiltinFunction {
  std::string_view name;
  double (*compute)(double);
};

/// All functions of the language.
inline constexpr BuiltinFunction kBuiltinFunctions[] = {
    {"sin", std::sin},     {"cos", std::cos},     {"tg", std::tan},      {"ctg", cotangent},
    {"arcsin", std::asin}, {"arccos", std::acos}, {"arctg", std::atan},  {"arcctg", arccotangent},
    {"exp", std::exp},     {"ln", std::log},      {"log10", std::log10}, {"log2", binaryLogarithm},
    {"abs", std::fabs},    {"sqrt", std::sqrt},   {"sinh", std::sinh},   {"cosh", std::cosh},
};

/// A constant of the language: its name and its value.
struct BuiltinConstant {
  std::string_view name;
  double value;
};

/// All constants of the language.
inline constexpr BuiltinConstant kBuiltinConstants[] = {{"pi", 3.141592653589793}};

/// The function of that name, std::end(kBuiltinFunctions) for an unknown one.
inline const BuiltinFunction* findFunction(std::string_view name) {
  return std::find_if(std::begin(kBuiltinFunctions), std::end(kBuiltinFunctions),
                      [name](const BuiltinFunction& function) { return function.name == name; });
}

}  // namespace nordika::detail

#endif
