// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cmath>

#include "matrix/matrix_trace.h"
#include "nordika/matrix.h"
#include "nordika/trace.h"

using nordika::Trace;
using nordika::detail::ElementFormat;
using nordika::detail::writeMatrix;

namespace {

constexpr double kSmallestPivot = 1e-8;
constexpr ElementFormat kFactorElements = {7, 3};  // "%7.3lf "

// Reuses the memory of a matrix that has the dimension already.
void makeIdentity(Matrix& a, int n) {
  if (a.dimension() != n) a = Matrix(n);
  for (int i = 0; i < n; ++i) {
    a[i].assign(static_cast<std::size_t>(n), 0.0);
    a(i, i) = 1;
  }
}

// The row of the largest element of column k on or below the diagonal, the
// upper one of equals; never that of a NaN.
int findPivot(const Matrix& U, int k) {
  double best = -1;
  int pivot = -1;
  for (int i = k; i < U.dimension(); ++i) {
    if (std::abs(U(i, k)) > best) {
      best = std::abs(U(i, k));
      pivot = i;
    }
  }
  if (kSmallestPivot > best) throw MatrixIsSingular();
  return pivot;
}

void eliminateBelow(Matrix& L, Matrix& U, int k) {
  const int n = U.dimension();
  const double* const pivotRow = U[k].data();
  for (int i = k + 1; i < n; ++i) {
    double* const row = U[i].data();
    const double multiplier = row[k] / pivotRow[k];
    L(i, k) = multiplier;
    for (int j = k; j < n; ++j)
      row[j] -= multiplier * pivotRow[j];
  }
}

}  // namespace

void LUPdecomposition(const Matrix& A, Matrix& L, Matrix& U, Matrix& P, int& swaps) {
  const int n = A.dimension();
  U = A;
  for (int i = 0; i < n; ++i)
    U[i].resize(static_cast<std::size_t>(n));  // a row of A may be longer
  makeIdentity(L, n);
  makeIdentity(P, n);
  swaps = 0;
  for (int k = 0; k < n; ++k) {
    const int pivot = findPivot(U, k);
    if (pivot != k) {
      U.swapRows(k, pivot);
      P.swapRows(k, pivot);
      // The stored multipliers move with their rows; the exchange of columns
      // puts the unit diagonal back.
      L.swapRows(k, pivot);
      L.swapColumns(k, pivot);
      ++swaps;
    }
    eliminateBelow(L, U, k);
  }
}

std::vector<double> solveWithLUP(const Matrix& L, const Matrix& U, const Matrix& P,
                                 const std::vector<double>& b) {
  std::vector<double> solution = P * b;
  const int n = P.dimension();
  if (L.dimension() != n || U.dimension() != n) throw MatrixWrongDimensions();
  double* const x = solution.data();
  for (int i = 1; i < n; ++i) {
    for (int j = 0; j < i; ++j)
      x[i] -= L(i, j) * x[j];
  }
  for (int i = n - 1; i >= 0; --i) {
    for (int j = i + 1; j < n; ++j)
      x[i] -= U(i, j) * x[j];
    x[i] /= U(i, i);
  }
  return solution;
}

std::vector<double> solveWithLUP(const Matrix& A, const std::vector<double>& b) {
  Trace trace;
  trace << "LUP decomposition start.\n";
  trace.flush();
  Matrix L;
  Matrix U;
  Matrix P;
  int swaps = 0;
  LUPdecomposition(A, L, U, P, swaps);
  writeMatrix(trace, "L:", L, kFactorElements);
  writeMatrix(trace, "U:", U, kFactorElements);
  writeMatrix(trace, "P:", P, kFactorElements);
  if (!Trace::isDiscarded()) writeMatrix(trace, "P * L * U:", P * L * U, kFactorElements);
  trace << "LUP decomposition stop.\n\n";
  trace.flush();
  return solveWithLUP(L, U, P, b);
}
