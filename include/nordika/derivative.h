// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// Derivatives of expressions, as text.

#ifndef NORDIKA_DERIVATIVE_H
#define NORDIKA_DERIVATIVE_H

#include <string>

#include "nordika/expression.h"

namespace nordika {

/// The derivative of the expression by one variable, as a text of the language.
/// All other names are constant. A name that does not occur gives "0"; "pi" is a
/// name like any other here.
///
///     derivative(Expression("x1^3+x1*x2"), "x1")   // "3*x1^2+x2"
///     derivative(Expression("2*x1-cos(x2)"), "x2") // "sin(x2)"
///     derivative(Expression("a*pi"), "x1")         // "0"
///
/// The rules are those of any textbook, and @ref derivatives "a page" lists them.
/// The text always compiles. It is simplified plainly: 0 and 1 vanish, also in
/// "0*x"; numbers are computed where six digits hold the result exactly; signs and
/// numbers come first in a product. To simplify the text again changes nothing.
///
/// The result is a formula. Automatic differentiation computes values without one
/// (A. Griewank, A. Walther, Evaluating Derivatives, 2nd edition, SIAM 2008, chapter
/// 1), and its cost does not grow with the depth of the expression. The formula is
/// at worst quadratic in the length of the expression, as for nested functions or
/// products of many factors. Time is linear in both lengths. Nothing here recurses.
///
/// @throws ExpressionWrongFormat for an operator without a unary form that leads
///   the text or a parenthesis, and for an expression that was moved from
/// @throws std::length_error for a derivative of more than 16 million characters;
///   memory is linear in the length of the expression then
std::string derivative(const Expression& expression, const std::string& variable);

}  // namespace nordika

#endif
