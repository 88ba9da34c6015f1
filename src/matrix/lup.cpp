// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cmath>

#include "matrix/matrix.h"
#include "matrix/matrix_trace.h"
#include "trace/trace.h"

namespace {

constexpr double kSmallestPivot = 1e-8;

// Keeps the matrix's memory where it has the dimension already.
void makeIdentity(Matrix& a, int n) {
  if (a.dimension() != n) a = Matrix(n);
  for (int i = 0; i < n; ++i) {
    a[i].assign(static_cast<std::size_t>(n), 0.0);
    a[i][static_cast<std::size_t>(i)] = 1;
  }
}

// The row of the largest element of column k on or below the diagonal, the
// upper one of equals; NaN is never chosen.
int findPivot(const Matrix& U, int k) {
  double best = -1;
  int pivot = -1;
  for (int i = k; i < U.dimension(); ++i) {
    const double magnitude = std::abs(U[i][static_cast<std::size_t>(k)]);
    if (magnitude > best) {
      best = magnitude;
      pivot = i;
    }
  }
  if (kSmallestPivot > best) throw MatrixIsSingular();
  return pivot;
}

void eliminateBelow(Matrix& L, Matrix& U, int k) {
  const auto n = static_cast<std::size_t>(U.dimension());
  const auto column = static_cast<std::size_t>(k);
  const double* const pivotRow = U[k].data();
  for (int i = k + 1; i < U.dimension(); ++i) {
    double* const row = U[i].data();
    const double multiplier = row[column] / pivotRow[column];
    L[i][column] = multiplier;
    for (std::size_t j = column; j < n; ++j)
      row[j] -= multiplier * pivotRow[j];
  }
}

}  // namespace

void LUPdecomposition(const Matrix& A, Matrix& L, Matrix& U, Matrix& P, int& swaps) {
  const int n = A.dimension();
  makeIdentity(L, n);
  makeIdentity(P, n);
  U = A;
  // Whatever a row of A may hold beyond its n elements is not part of it.
  for (int i = 0; i < n; ++i)
    U[i].resize(static_cast<std::size_t>(n));
  swaps = 0;
  for (int k = 0; k < n; ++k) {
    const int pivot = findPivot(U, k);
    if (pivot != k) {
      U.swapRows(k, pivot);
      P.swapRows(k, pivot);
      // Rows, then columns: the stored multipliers move with their rows while
      // the unit diagonal stays where it is.
      L.swapRows(k, pivot);
      L.swapColumns(k, pivot);
      ++swaps;
    }
    eliminateBelow(L, U, k);
  }
}

std::vector<double> solveWithLUP(const Matrix& L, const Matrix& U, const Matrix& P,
                                 const std::vector<double>& b) {
  std::vector<double> x = P * b;
  const std::size_t n = x.size();
  if (L.dimension() != P.dimension() || U.dimension() != P.dimension()) {
    throw MatrixWrongDimensions();
  }
  for (std::size_t i = 1; i < n; ++i) {
    const double* const row = L[static_cast<int>(i)].data();
    for (std::size_t j = 0; j < i; ++j)
      x[i] -= row[j] * x[j];
  }
  for (std::size_t i = n; i-- > 0;) {
    const double* const row = U[static_cast<int>(i)].data();
    for (std::size_t j = i + 1; j < n; ++j)
      x[i] -= row[j] * x[j];
    x[i] /= row[i];
  }
  return x;
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
  writeMatrix(trace, "P * L * U:", P * L * U, kFactorElements);
  trace << "LUP decomposition stop.\n\n";
  trace.flush();
  return solveWithLUP(L, U, P, b);
}
