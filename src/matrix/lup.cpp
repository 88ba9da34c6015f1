// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>
#include <iterator>

#include "matrix/checks.h"
#include "matrix/lup_solver.h"
#include "matrix/matrix_trace.h"
#include "nordika/matrix.h"
#include "nordika/trace.h"

using nordika::Trace;
using nordika::detail::checkRowLengths;
using nordika::detail::LupSolver;

namespace {

constexpr double kSmallestPivot = 1e-8;

// Reuses the memory of a matrix that has the dimension already.
void makeIdentity(Matrix& a, int n) {
  if (a.dimension() != n) a = Matrix(n);
  for (int i = 0; i < n; ++i) {
    a[i].assign(static_cast<std::size_t>(n), 0.0);
    a(i, i) = 1;
  }
}

// The row of the largest element of column k on or below the diagonal, the upper
// one of equals, never that of a NaN. Returns -1 if no element is large enough.
int findPivot(const Matrix& U, int k) {
  double best = -1;
  int pivot = -1;
  for (int i = k; i < U.dimension(); ++i) {
    const double size = std::abs(U(i, k));
    if (size > best) {
      best = size;
      pivot = i;
    }
  }
  return kSmallestPivot > best ? -1 : pivot;
}

// Makes the elements of column k below the diagonal zero, up to rounding.
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

void substitute(const Matrix& L, const Matrix& U, const Matrix& P, const std::vector<double>& b,
                std::vector<double>& solution) {
  const int n = P.dimension();
  if (std::ssize(b) != n || L.dimension() != n || U.dimension() != n) throw MatrixWrongDimensions();
  solution.resize(b.size());
  double* const x = solution.data();
  for (int i = 0; i < n; ++i) {
    const double* const row = P[i].data();
    double sum = 0;
    for (int j = 0; j < n; ++j)
      sum += row[j] * b.data()[j];
    x[i] = sum;
  }
  for (int i = 1; i < n; ++i) {
    const double* const row = L[i].data();
    double rest = x[i];
    for (int j = 0; j < i; ++j)
      rest -= row[j] * x[j];
    x[i] = rest;
  }
  for (int i = n - 1; i >= 0; --i) {
    const double* const row = U[i].data();
    double rest = x[i];
    for (int j = i + 1; j < n; ++j)
      rest -= row[j] * x[j];
    x[i] = rest / row[i];
  }
}

}  // namespace

void LUPdecomposition(const Matrix& A, Matrix& L, Matrix& U, Matrix& P, int& swaps) {
  checkRowLengths(A);
  const int n = A.dimension();
  U = A;
  for (int i = 0; i < n; ++i)
    U[i].resize(static_cast<std::size_t>(n));  // a row of A may be longer
  makeIdentity(L, n);
  makeIdentity(P, n);
  swaps = 0;
  for (int k = 0; k < n; ++k) {
    const int pivot = findPivot(U, k);
    if (pivot < 0) throw MatrixIsSingular();
    if (pivot != k) {
      U[k].swap(U[pivot]);
      P[k].swap(P[pivot]);
      // The multipliers move with their rows, the unit diagonal stays.
      std::swap_ranges(L[k].begin(), L[k].begin() + k, L[pivot].begin());
      ++swaps;
    }
    eliminateBelow(L, U, k);
  }
}

std::vector<double> solveWithLUP(const Matrix& L, const Matrix& U, const Matrix& P,
                                 const std::vector<double>& b) {
  for (const Matrix* const factor : {&L, &U, &P})
    checkRowLengths(*factor);
  std::vector<double> x;
  substitute(L, U, P, b, x);
  return x;
}

std::vector<double> solveWithLUP(const Matrix& A, const std::vector<double>& b) {
  Trace trace;
  return LupSolver().solve(A, b, trace);
}

const std::vector<double>& LupSolver::solve(const Matrix& A, const std::vector<double>& b,
                                            Trace& trace) {
  trace << "LUP decomposition start.\n";
  trace.flush();
  int swaps = 0;
  LUPdecomposition(A, L, U, P, swaps);
  if (!Trace::isDiscarded()) {
    writeMatrix(trace, "L:", L, kFactorElements);
    writeMatrix(trace, "U:", U, kFactorElements);
    writeMatrix(trace, "P:", P, kFactorElements);
    PL.assignProduct(P, L);
    PLU.assignProduct(PL, U);
    writeMatrix(trace, "P * L * U:", PLU, kFactorElements);
    trace << "LUP decomposition stop.\n\n";
    trace.flush();
  }
  substitute(L, U, P, b, x);
  return x;
}
