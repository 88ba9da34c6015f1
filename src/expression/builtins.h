// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_EXPRESSION_BUILTINS_H
#define NORDIKA_EXPRESSION_BUILTINS_H

#include <string_view>

#include "expression/program.h"

/// A function of the language and what computes it.
struct BuiltinFunction {
  std::string_view name;
  Operation operation;
};

/// The functions of the language.
inline constexpr BuiltinFunction kBuiltinFunctions[] = {
    {"sin", Operation::sine},
    {"cos", Operation::cosine},
    {"tg", Operation::tangent},
    {"ctg", Operation::cotangent},
    {"arcsin", Operation::arcsine},
    {"arccos", Operation::arccosine},
    {"arctg", Operation::arctangent},
    {"arcctg", Operation::arccotangent},
    {"exp", Operation::exponential},
    {"ln", Operation::naturalLogarithm},
    {"log10", Operation::decimalLogarithm},
    {"log2", Operation::binaryLogarithm},
    {"abs", Operation::absolute},
    {"sqrt", Operation::squareRoot},
    {"sinh", Operation::hyperbolicSine},
    {"cosh", Operation::hyperbolicCosine},
};

/// An operator of the language; `unary` is Operation::fail where it has no
/// unary form.
struct BuiltinOperator {
  std::string_view name;
  Operation binary;
  Operation unary;
};

/// The operators of the language.
inline constexpr BuiltinOperator kBuiltinOperators[] = {
    {"+", Operation::add, Operation::identity},  {"-", Operation::subtract, Operation::negate},
    {"*", Operation::multiply, Operation::fail}, {"/", Operation::divide, Operation::fail},
    {"^", Operation::power, Operation::fail},
};

/// The operation of a function's name, Operation::fail for an unknown one.
constexpr Operation functionOperation(std::string_view name) {
  for (const BuiltinFunction& builtin : kBuiltinFunctions) {
    if (builtin.name == name) return builtin.operation;
  }
  return Operation::fail;
}

/// The operation of an operator with two operands, Operation::fail for an
/// unknown one.
constexpr Operation binaryOperation(std::string_view name) {
  for (const BuiltinOperator& builtin : kBuiltinOperators) {
    if (builtin.name == name) return builtin.binary;
  }
  return Operation::fail;
}

/// The operation of an operator with one operand, Operation::fail for one that
/// has no such form and for an unknown one.
constexpr Operation unaryOperation(std::string_view name) {
  for (const BuiltinOperator& builtin : kBuiltinOperators) {
    if (builtin.name == name) return builtin.unary;
  }
  return Operation::fail;
}

#endif
