// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_RUN_H
#define NORDIKA_RUN_RUN_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "nordika/functions.h"

namespace nordika {

/// A problem as its user gives it: the texts and numbers of n equations.
struct Problem {
  /// Newton's method instead of simple iterations.
  bool isNewton = false;
  /// The accuracy.
  double eps = 0;
  /// The parameter of the functions.
  double a = 0;
  /// The contraction constant, 1e-8 < q < 1 - 1e-8; only for simple iterations.
  double q = 0;
  /// The texts of the n functions.
  std::vector<std::string> functions;
  /// The initial approximation, of length n.
  std::vector<double> start;
  /// The n × n texts of the Jacobi matrix, row by row; only for Newton's method. A cell
  /// without a text makes the run fail when it is reached.
  std::vector<std::optional<std::string>> jacobian;
};

/// The functions of a problem, compiled.
struct System {
  /// The n functions.
  std::vector<Function> functions;
  /// The n × n elements of the Jacobi matrix; empty for simple iterations.
  std::vector<std::vector<Function>> jacobian;
};

/// Where a text stands: function `row`, or element (`row`, `column`) of the Jacobi matrix,
/// counted from 0.
struct TextPlace {
  bool isFunction;
  int row;
  int column;
};

/// Why a run failed.
struct Failure {
  /// The text for the user.
  std::string message;
  /// The text to blame, if there is one: the first malformed one.
  std::optional<TextPlace> place;
};

/// How a run ended.
struct Outcome {
  /// The solution, of length n; empty after a failure.
  std::vector<double> solution;
  /// The number of iterations.
  int iterations = 0;
  /// Why there is no solution.
  std::optional<Failure> failure;
};

/// The value of the parameter a as an assignment text, "a = 0.4"; six digits.
std::string parameterText(double a);

/// Compiles a text of the user with the parameters bound. An empty text is the
/// constant 0.
/// @throws ExpressionWrongFormat for malformed text
/// @throws int where there is no text
Function compile(const std::optional<std::string>& text, const std::string& parameters);

/// Compiles the texts of the problem, the functions first, and hands them to `use`. A
/// failure of either is written to the run log and returned.
std::optional<Failure> attempt(const Problem& problem, const std::function<void(System&)>& use);

/// Solves the problem by its method. A failure is written to the run log.
Outcome solve(const Problem& problem);

}  // namespace nordika

#endif
