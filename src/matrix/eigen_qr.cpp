// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <complex>
#include <utility>
#include <vector>

#include "matrix/matrix_trace.h"
#include "nordika/matrix.h"
#include "nordika/trace.h"

using nordika::Trace;
using nordika::detail::kEigenElements;
using nordika::detail::writeMatrix;

namespace {

using Roots = std::vector<std::complex<double>>;

constexpr double kSmallestSubdiagonal = 1e-8;

void writeCheck(Trace& trace, const Matrix& A) {
  if (Trace::isDiscarded()) return;
  Matrix Q;
  Matrix R;
  QRdecomposition(A, Q, R);
  writeMatrix(trace, "Q:", Q, kEigenElements);
  writeMatrix(trace, "R:", R, kEigenElements);
  writeMatrix(trace, "Q * R:", Q * R, kEigenElements);
  writeMatrix(trace, "Q * Q^T:", Q * Q.transposed(), kEigenElements);
  trace << "\n";
  trace.flush();
}

// The estimates of one iterate: the Euclidean length of the elements below its
// real roots, and the largest change of a complex root since the last iterate.
struct Estimates {
  double real = 0;
  double complex = -1;  // no change was measured
  bool hasReal = false;
  bool hasComplex = false;
};

void blockRoots(const Matrix& M, int i, Roots& roots) {
  const double b = -(M(i, i) + M(i + 1, i + 1));
  const double c = M(i, i) * M(i + 1, i + 1) - M(i + 1, i) * M(i, i + 1);
  const std::complex<double> d = std::sqrt(std::complex<double>(b * b - 4 * c));
  roots.begin()[i] = (d - b) / 2.0;
  roots.begin()[i + 1] = (-b - d) / 2.0;
}

// Reads the roots from M, writes them, and compares them with the previous ones,
// if any.
Estimates findRoots(Trace& trace, const Matrix& M, const Roots* previous, Roots& roots) {
  Estimates estimates;
  const int n = M.dimension();
  for (int i = 0; i < n;) {
    if (i < n - 1 && std::abs(M(i + 1, i)) > kSmallestSubdiagonal) {
      blockRoots(M, i, roots);
      for (const int j : {i, i + 1}) {
        const std::complex<double> root = roots.begin()[j];
        trace << root.real() << " + i*(" << root.imag() << ")\n";
        if (previous == nullptr) continue;
        // The method passes over a NaN here, and so does the comparison.
        const double change = std::abs(root - previous->begin()[j]);
        if (change > estimates.complex) estimates.complex = change;
      }
      estimates.hasComplex = true;
      i += 2;
      continue;
    }
    roots.begin()[i] = M(i, i);
    trace << M(i, i) << "\n";
    for (int j = i + 1; j < n; ++j)
      estimates.real += M(j, i) * M(j, i);
    estimates.hasReal = true;
    ++i;
  }
  estimates.real = std::sqrt(estimates.real);
  return estimates;
}

void writeEstimates(Trace& trace, const Estimates& estimates, bool first) {
  if (estimates.hasReal) trace << "Epsilon (for real roots): " << estimates.real << "\n";
  if (estimates.hasComplex) {
    trace << "Epsilon (for complex roots): ";
    if (first) {
      trace << "(none)\n";
    } else {
      trace << estimates.complex << "\n";
    }
  }
  trace << "\n";
  trace.flush();
}

}  // namespace

void getEigenvaluesWithQR(const Matrix& A, const double& eps, Roots& roots, int& iters) {
  Trace trace;
  trace << "QR algorithm start.\n";
  trace.flush();
  writeCheck(trace, A);
  Matrix M = A;
  Matrix Q;
  Matrix R;
  Roots current(static_cast<std::size_t>(M.dimension()));
  Roots previous;
  for (int k = 1;; ++k) {
    const bool first = k == 1;
    QRdecomposition(M, Q, R);
    M = R * Q;
    trace << "Iteration: " << k << "\n";
    writeMatrix(trace, "Matrix:", M, kEigenElements);
    trace << "Roots of characteristic polynomial:\n";
    const Estimates estimates = findRoots(trace, M, first ? nullptr : &previous, current);
    writeEstimates(trace, estimates, first);
    if (!first && eps > estimates.real && eps > estimates.complex) {
      trace << "QR algorithm stop (target accuracy achieved).\n\n";
      iters = k;
      roots = std::move(current);
      return;
    }
    if (k == nordika::kMaxLinearIterations) throw MaxItersCountAchieved();
    previous = current;
  }
}
