// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_PROBLEM_H
#define NORDIKA_RUN_PROBLEM_H

#include <optional>
#include <string>
#include <vector>

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

}  // namespace nordika

#endif
