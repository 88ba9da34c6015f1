// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// What the expression engine throws.

#ifndef NORDIKA_EXPRESSION_ERRORS_H
#define NORDIKA_EXPRESSION_ERRORS_H

#include <string>

/// An expression, a token sequence or an assignment text is malformed, or an
/// operator or function is not known.
class ExpressionWrongFormat {};

/// A value is NaN or infinite: the result of an evaluation or an argument.
class ExpressionBadResult {};

/// A variable has no value at evaluation.
class ExpressionUnknownVariable {
 public:
  /// The fault of the variable of that name.
  explicit ExpressionUnknownVariable(const std::string& variable) : name(variable) {}

  /// The variable's name.
  std::string name;
};

#endif
