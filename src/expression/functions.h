// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// Functions of several variables given as text.

#ifndef NORDIKA_EXPRESSION_FUNCTIONS_H
#define NORDIKA_EXPRESSION_FUNCTIONS_H

#include <cstddef>
#include <string>
#include <vector>

#include "expression/expression.h"

/// A point checked and rounded once for all functions that are called with it.
class RoundedPoint {
 public:
  /// Rounds each element of x, of length n, to six significant digits.
  /// @throws ExpressionBadResult for an element that is NaN or infinite
  explicit RoundedPoint(const std::vector<double>& x);
  /// Not to be copied: data() points into the object.
  RoundedPoint(const RoundedPoint&) = delete;
  /// @copydoc RoundedPoint(const RoundedPoint&)
  RoundedPoint& operator=(const RoundedPoint&) = delete;

  /// The rounded elements.
  const double* data() const { return elements; }

  /// The number n of elements.
  std::size_t size() const { return n; }

 private:
  std::size_t n;
  double few[8];  // the elements, unless there are more
  std::vector<double> many;
  const double* elements;
};

/// A function of x1 .. xn and of fixed parameters, compiled from text.
class Function : public Expression {
 public:
  /// Compiles the text; no parameters are bound.
  /// @throws ExpressionWrongFormat for malformed text
  explicit Function(const std::string& expr);

  /// Compiles the text and binds the parameters, "a = 0.5 b = 2", with blanks
  /// around each "=".
  /// @throws ExpressionWrongFormat for a malformed text of either kind
  Function(const std::string& expr, const std::string& parameters);

  /// The value at x, whose elements are bound to the names x1, x2, ... and
  /// rounded to six significant digits. Bound values stay bound for later
  /// calls, also when this one throws; elements that the function does not
  /// use are bound as well.
  /// @throws ExpressionBadResult for an argument or a result that is NaN or
  ///   infinite; all arguments are checked before any is bound
  /// @throws ExpressionUnknownVariable for a variable that never got a value
  /// @throws ExpressionWrongFormat for an operator without a unary form that
  ///   leads the text or a parenthesis
  double operator()(const std::vector<double>& x);

  /// The same at a point that several functions share. Throws what operator()()
  /// throws, but for the arguments.
  double at(const RoundedPoint& x) { return evaluateAt(x.data(), x.size()); }
};

/// Passes finite values.
/// @throws ExpressionBadResult for NaN and infinities
void checkValue(double v);

/// Passes vectors of finite values.
/// @throws ExpressionBadResult for the first element that is NaN or infinite
void checkValue(const std::vector<double>& v);

#endif
