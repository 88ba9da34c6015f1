// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>
#include <complex>
#include <utility>

#include "matrix/finite.h"
#include "matrix/matrix.h"
#include "matrix/matrix_trace.h"
#include "trace/trace.h"

namespace {

using Roots = std::vector<std::complex<double>>;

constexpr int kMaxIterations = 100001;
constexpr double kSmallestSubdiagonal = 1e-8;

Matrix reflection(const std::vector<double>& v) {
  return getIdentityMatrix(static_cast<int>(v.size())) -
         tensor_product(v, v) * (2 / dotProduct(v, v));
}

// The lower right block H of a reflection that begins with `offset` rows and
// columns of the identity. The products below leave out the terms with those
// zeros. Where every element is finite such a term is a zero and changes
// nothing, for a sum from +0 never becomes -0; and the rows and columns that
// are left as they are hold no -0 either: they are the identity's or sums of an
// earlier step.

// W = diag(I, H)·W
void applyToRows(const Matrix& H, int offset, Matrix& W) {
  Matrix product(H.dimension());
  for (int i = 0; i < H.dimension(); ++i) {
    product[i].resize(W[i].size());
    double* const sums = product[i].data();
    const std::size_t n = W[i].size();
    for (int k = 0; k < H.dimension(); ++k) {
      const double factor = H[i][static_cast<std::size_t>(k)];
      const double* const row = W[offset + k].data();
      for (std::size_t j = 0; j < n; ++j)
        sums[j] += factor * row[j];
    }
  }
  for (int i = 0; i < H.dimension(); ++i)
    W[offset + i].swap(product[i]);
}

// Q = Q·diag(I, H)
void applyToColumns(const Matrix& H, int offset, Matrix& Q) {
  const auto n = static_cast<std::size_t>(H.dimension());
  std::vector<double> gathered(n);
  double* const sums = gathered.data();
  for (int i = 0; i < Q.dimension(); ++i) {
    double* const row = Q[i].data() + offset;
    std::fill_n(sums, n, 0.0);
    for (int k = 0; k < H.dimension(); ++k) {
      const double factor = row[k];
      const double* const other = H[k].data();
      for (std::size_t j = 0; j < n; ++j)
        sums[j] += factor * other[j];
    }
    std::copy_n(sums, n, row);
  }
}

// One step: the reflection that clears column k of W below the diagonal.
void reflectColumn(int k, Matrix& Q, Matrix& W) {
  const auto column = static_cast<std::size_t>(k);
  std::vector<double> v;
  double sum = 0;
  for (int i = k; i < W.dimension(); ++i) {
    v.push_back(W[i][column]);
    sum += v.back() * v.back();
  }
  v[0] += sign(v[0]) * std::sqrt(sum);
  const Matrix H = reflection(v);
  // A finite H also says that v and 2 / (v·v) are: the reflection outside the
  // block is the identity.
  if (isFinite(H) && isFinite(Q) && isFinite(W)) {
    applyToColumns(H, k, Q);
    applyToRows(H, k, W);
    return;
  }
  v.insert(v.begin(), column, 0.0);
  const Matrix whole = reflection(v);
  Q = Q * whole;
  W = whole * W;
}

void writeCheck(Trace& trace, const Matrix& A) {
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

// What one iterate tells: how far its real roots still are from standing alone,
// and how far its complex ones moved since the last iterate.
struct Estimates {
  double real = 0;
  double complex = -1;
  bool hasReal = false;
  bool hasComplex = false;
};

void blockRoots(const Matrix& M, int i, Roots& roots) {
  const auto k = static_cast<std::size_t>(i);
  const double b = -(M[i][k] + M[i + 1][k + 1]);
  const double c = M[i][k] * M[i + 1][k + 1] - M[i + 1][k] * M[i][k + 1];
  const std::complex<double> d = std::sqrt(std::complex<double>(b * b - 4 * c));
  roots[k] = (d - b) / 2.0;
  roots[k + 1] = (-b - d) / 2.0;
}

// Reads the roots off M, writes them, and measures them against the previous
// ones, if any.
Estimates findRoots(Trace& trace, const Matrix& M, const Roots* previous, Roots& roots) {
  Estimates estimates;
  const int n = M.dimension();
  for (int i = 0; i < n;) {
    const auto k = static_cast<std::size_t>(i);
    if (i < n - 1 && std::abs(M[i + 1][k]) > kSmallestSubdiagonal) {
      blockRoots(M, i, roots);
      for (const std::size_t j : {k, k + 1}) {
        trace << roots[j].real() << " + i*(" << roots[j].imag() << ")\n";
        if (previous == nullptr) continue;
        // The comparison passes over a NaN, as it has to.
        const double change = std::abs(roots[j] - (*previous)[j]);
        if (change > estimates.complex) estimates.complex = change;
      }
      estimates.hasComplex = true;
      i += 2;
      continue;
    }
    roots[k] = M[i][k];
    trace << M[i][k] << "\n";
    for (int j = i + 1; j < n; ++j)
      estimates.real += M[j][k] * M[j][k];
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
    (first ? trace << "(none)" : trace << estimates.complex) << "\n";
  }
  trace << "\n";
  trace.flush();
}

}  // namespace

void QRdecomposition(const Matrix& A, Matrix& Q, Matrix& R) {
  Matrix W = A * 1.0;  // n elements of each row, whatever it holds beyond them
  Q = getIdentityMatrix(W.dimension());
  for (int k = 0; k < W.dimension() - 1; ++k)
    reflectColumn(k, Q, W);
  R = std::move(W);
}

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
      iters = k;
      trace << "QR algorithm stop (target accuracy achieved).\n\n";
      roots = current;
      return;
    }
    if (k == kMaxIterations) throw MaxItersCountAchieved();
    previous = current;
  }
}
