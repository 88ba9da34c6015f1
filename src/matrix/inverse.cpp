// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "matrix/matrix.h"

double calcDeterminantWithLUP(const Matrix& A) {
  Matrix L;
  Matrix U;
  Matrix P;
  int swaps = 0;
  LUPdecomposition(A, L, U, P, swaps);
  double product = 1;
  for (int i = 0; i < U.dimension(); ++i)
    product *= U[i][static_cast<std::size_t>(i)];
  return swaps % 2 == 0 ? product : -product;
}

Matrix calcInverseMatrixWithLUP(const Matrix& A) {
  Matrix L;
  Matrix U;
  Matrix P;
  int swaps = 0;
  LUPdecomposition(A, L, U, P, swaps);
  const int n = A.dimension();
  Matrix inverse(n);
  std::vector<double> unit(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    unit[static_cast<std::size_t>(i)] = 1;
    inverse.insertColumn(i, solveWithLUP(L, U, P, unit));
    unit[static_cast<std::size_t>(i)] = 0;
  }
  return inverse;
}
