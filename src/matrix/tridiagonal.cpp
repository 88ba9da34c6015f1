// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <iterator>
#include <vector>

#include "nordika/matrix.h"
#include "nordika/trace.h"

using nordika::Trace;

namespace {

// x[i] = P[i]·x[i+1] + Q[i] in every row but the last, whose P stays 0.
struct Sweep {
  std::vector<double> P;
  std::vector<double> Q;
};

void writeP(Trace& trace, std::size_t i, double value) {
  trace << "P[" << static_cast<int>(i + 1) << "] = " << value << "     ";
}

void writeQ(Trace& trace, std::size_t i, double value) {
  trace << "Q[" << static_cast<int>(i + 1) << "] = " << value << "\n";
  trace.flush();
}

Sweep sweepForward(Trace& trace, const Matrix& A, const std::vector<double>& d) {
  // For the empty matrix the checked access throws before anything is read.
  const std::vector<double>& first = A[0];
  const std::size_t n = d.size();
  Sweep sweep = {std::vector<double>(n), std::vector<double>(n)};
  auto& [P, Q] = sweep;
  if (n > 1) {
    P[0] = -first[1] / first[0];
    writeP(trace, 0, P[0]);
  }
  Q[0] = d[0] / first[0];
  writeQ(trace, 0, Q[0]);
  for (std::size_t i = 1; i < n; ++i) {
    const std::vector<double>& row = A[static_cast<int>(i)];
    const double denominator = row[i - 1] * P[i - 1] + row[i];
    if (i + 1 < n) {
      P[i] = -row[i + 1] / denominator;
      writeP(trace, i, P[i]);
    }
    Q[i] = (d[i] - row[i - 1] * Q[i - 1]) / denominator;
    writeQ(trace, i, Q[i]);
  }
  trace << "\n";
  trace.flush();
  return sweep;
}

}  // namespace

std::vector<double> solveTridiagonalMatrixAlgo(const Matrix& A, const std::vector<double>& d) {
  const std::size_t n = d.size();
  if (A.dimension() != std::ssize(d)) throw MatrixWrongDimensions();
  Trace trace;
  trace << "Tridiagonal matrix algorithm start.\n";
  trace.flush();
  if (!A.isTridiagonal()) throw MatrixIsNotTridiagonal();
  const auto [P, Q] = sweepForward(trace, A, d);
  std::vector<double> x(n);
  x[n - 1] = Q[n - 1];
  for (std::size_t i = n - 1; i-- > 0;)
    x[i] = P[i] * x[i + 1] + Q[i];
  for (std::size_t i = 0; i < n; ++i)
    trace << "result[" << static_cast<int>(i + 1) << "] = " << x[i] << "\n";
  trace << "Tridiagonal matrix algorithm stop.\n\n";
  return x;
}
