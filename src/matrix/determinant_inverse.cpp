// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/matrix.h"

namespace {

struct Factors {
  explicit Factors(const Matrix& A) { LUPdecomposition(A, L, U, P, swaps); }

  Matrix L;
  Matrix U;
  Matrix P;
  int swaps = 0;
};

}  // namespace

double calcDeterminantWithLUP(const Matrix& A) {
  const Factors factors(A);
  double product = 1;
  for (int i = 0; i < A.dimension(); ++i)
    product *= factors.U(i, i);
  return factors.swaps % 2 == 0 ? product : -product;
}

Matrix calcInverseMatrixWithLUP(const Matrix& A) {
  const Factors factors(A);
  const int n = A.dimension();
  Matrix inverse(n);
  const Matrix identity = getIdentityMatrix(n);
  for (int i = 0; i < n; ++i)
    inverse.insertColumn(i, solveWithLUP(factors.L, factors.U, factors.P, identity[i]));
  return inverse;
}
