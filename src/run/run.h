// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_RUN_H
#define NORDIKA_RUN_RUN_H

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "nordika/functions.h"
#include "nordika/solver.h"

namespace nordika {

/// A problem as its user gives it: the texts and numbers of n equations.
struct Problem {
  bool isNewton = false;               ///< Newton's method instead of simple iterations
  double eps = 0;                      ///< the accuracy
  double a = 0;                        ///< the parameter of the functions
  double q = 0;                        ///< 1e-8 < q < 1 - 1e-8; only for simple iterations
  std::vector<std::string> functions;  ///< the texts of the n functions
  std::vector<double> start;           ///< the initial approximation, of length n
  /// The n × n texts of the Jacobi matrix, row by row; only for Newton's method, which
  /// derives them if it has none. A cell without a text makes the run fail when it is
  /// reached.
  std::vector<std::optional<std::string>> jacobian;
  int maxIterations = kMaxIterations;  ///< the limit, 1 to kMaxIterations
};

/// The functions of a problem, compiled.
struct System {
  std::vector<Function> functions;              ///< n functions
  std::vector<std::vector<Function>> jacobian;  ///< n × n; empty for simple iterations
};

/// Where a text stands: function `row`, or element (`row`, `column`) of the Jacobi matrix,
/// counted from 0.
struct TextPlace {
  bool isFunction;
  int row;
  int column;
};

/// The text that made a run fail.
struct Blame {
  TextPlace place;        ///< where it stands
  std::string text;       ///< the text; empty where there is none
  std::vector<double> x;  ///< the approximation at which it failed; empty if it did not compile
};

/// Why a run failed.
struct Failure {
  std::string cause;           ///< as in the run log, without "Error: " and the full stop
  std::string message;         ///< the text for the user
  std::optional<Blame> blame;  ///< nothing where no single text is to blame
};

/// How far a run has come.
struct Course {
  std::vector<double> x;  ///< the approximation, of length n
  double estimate = 0;    ///< of the last iteration; 0 before the first
  double smallest = std::numeric_limits<double>::infinity();  ///< of all estimates
  int smallestAt = 0;  ///< the first iteration with that estimate; 0 before the first
};

/// How a run ended.
struct Outcome {
  std::vector<double> solution;    ///< of length n; empty after a failure
  int iterations = 0;              ///< their number; 0 after a failure
  std::optional<Failure> failure;  ///< why there is no solution
  Course course;                   ///< how far it has come
};

/// The value of the parameter a as an assignment text, "a = 0.4"; six digits.
std::string parameterText(double a);

/// Compiles a text of the user with the parameters bound. An empty text is the
/// constant 0.
/// @throws ExpressionWrongFormat for malformed text
/// @throws int for a missing text, which the run reports as an undefined error
Function compile(const std::optional<std::string>& text, const std::string& parameters);

/// Compiles the texts of the problem, the functions first, and hands them to `use`. A
/// failure of either is written to the run log and returned. Functions that fail in `use`
/// are looked for at the approximation that a method has reached there, or at the start.
std::optional<Failure> attempt(Problem problem, const std::function<void(System&)>& use);

/// @overload
/// @param course receives how far the run has come, also after a failure
std::optional<Failure> attempt(Problem problem, const std::function<void(System&)>& use,
                               Course& course);

/// Solves the problem by its method. A failure is written to the run log.
Outcome solve(const Problem& problem);

}  // namespace nordika

#endif
