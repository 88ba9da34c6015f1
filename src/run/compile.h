// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_COMPILE_H
#define NORDIKA_RUN_COMPILE_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "nordika/functions.h"
#include "run/problem.h"

namespace nordika {

/// The functions of a problem, compiled.
struct System {
  std::vector<Function> functions;              ///< n functions
  std::vector<std::vector<Function>> jacobian;  ///< n × n; empty for simple iterations
};

/// The value of the parameter a as an assignment text, "a = 0.4"; six digits.
std::string parameterText(double a);

/// Compiles a text of the user with the parameters bound. An empty text is the
/// constant 0.
/// @throws ExpressionWrongFormat for malformed text
/// @throws int for a missing text, which the run reports as an undefined error
Function compile(const std::optional<std::string>& text, const std::string& parameters);

/// The texts of the derivatives by x1 .. xn; throws as derivative() does.
std::vector<std::string> derivedRow(const Function& function, std::size_t n);

/// The texts of the Jacobi matrix of n functions, n × n, row by row; throws as derivative()
/// does.
std::vector<std::string> derivedJacobian(const std::vector<Function>& functions);

/// Compiles the texts of the problem, the functions first. If Newton's method has no Jacobi
/// matrix, its texts are derived and put into the problem. Throws as compile() and
/// derivative() do.
System compileAll(Problem& problem);

}  // namespace nordika

#endif
