// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_RUN_H
#define NORDIKA_RUN_RUN_H

#include <exception>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "run/blame.h"
#include "run/compile.h"
#include "run/problem.h"

namespace nordika {

/// Why a run failed.
struct Failure {
  std::string cause;           ///< as in the run log, without "Error: " and the full stop
  std::string message;         ///< the text for the user
  std::optional<Blame> blame;  ///< nothing where no single text is to blame
};

/// Thrown below attempt() by what knows the text to blame for an exception.
struct BlamedFault {
  std::exception_ptr cause;  ///< the exception
  Blame blame;               ///< the text
};

/// How far a run has come.
struct Course {
  std::vector<double> x;  ///< the approximation, of length n
  double estimate = 0;    ///< of the last iteration; 0 before the first
  double smallest = std::numeric_limits<double>::infinity();  ///< of all estimates
  int smallestAt = 0;    ///< the first iteration with that estimate; 0 before the first
  double sizeThere = 0;  ///< the norm of the approximation of that iteration
};

/// How a run ended.
struct Outcome {
  std::vector<double> solution;    ///< of length n; empty after a failure
  int iterations = 0;              ///< their number; 0 after a failure
  std::optional<Failure> failure;  ///< why there is no solution
  Course course;                   ///< how far it has come
};

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
