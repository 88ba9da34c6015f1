// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/matrix.h"

double calcDeterminantWithLUP(const Matrix& A) {
  Matrix L;
  Matrix U;
  Matrix P;
  int swaps = 0;
  LUPdecomposition(A, L, U, P, swaps);
  double product = 1;
  for (int i = 0; i < U.dimension(); ++i)
    product *= U(i, i);
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
  const Matrix identity = getIdentityMatrix(n);
  for (int i = 0; i < n; ++i)
    inverse.insertColumn(i, solveWithLUP(L, U, P, identity[i]));
  return inverse;
}
