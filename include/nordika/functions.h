// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// Functions of several variables given as text.

#ifndef NORDIKA_FUNCTIONS_H
#define NORDIKA_FUNCTIONS_H

#include <string>
#include <vector>

#include "nordika/expression.h"

/// A function of x1 to xn and of fixed parameters, compiled from text.
class Function : public Expression {
 public:
  /// Compiles the text; no parameters are bound.
  /// @throws ExpressionWrongFormat for malformed text
  explicit Function(const std::string& expr);

  /// Compiles the text and binds the parameters, "a = 0.5 b = 2", with blanks
  /// around each "=".
  /// @throws ExpressionWrongFormat for a malformed text of either kind
  Function(const std::string& expr, const std::string& parameters);

  /// The value at x. The elements of x are rounded to six significant digits
  /// and bound to the names x1, x2, ..., used or not. They stay bound for later
  /// calls, also when this call throws.
  /// @throws ExpressionBadResult for an argument or a result that is NaN or
  ///   infinite; all arguments are checked before any is bound
  /// @throws ExpressionUnknownVariable for a variable that never got a value
  /// @throws ExpressionWrongFormat for an operator without a unary form that
  ///   leads the text or a parenthesis
  double operator()(const std::vector<double>& x) { return evaluateAt(x); }
};

/// Passes finite values.
/// @throws ExpressionBadResult for NaN and infinities
void checkValue(double v);

/// Passes vectors of finite values.
/// @throws ExpressionBadResult for the first element that is NaN or infinite
void checkValue(const std::vector<double>& v);

#endif
