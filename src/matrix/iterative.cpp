// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <string_view>

#include "matrix/matrix.h"
#include "trace/trace.h"

namespace {

constexpr int kMaxIterations = 100001;

// The system brought to the form x = B·x + beta, and the norm q of B.
struct FixedPointForm {
  Matrix B;
  std::vector<double> beta;
  double q;
};

FixedPointForm toFixedPoint(const Matrix& A, const std::vector<double>& b) {
  const int n = A.dimension();
  if (b.size() != static_cast<std::size_t>(n)) throw MatrixWrongDimensions();
  Matrix D(n);
  for (int i = 0; i < n; ++i) {
    const auto column = static_cast<std::size_t>(i);
    D[i][column] = 1 / A[i][column];
  }
  // The whole product: (1/a)·a need not be 1, and an infinite 1/a spoils the
  // rest of its row.
  const Matrix B = getIdentityMatrix(n) - D * A;
  return {B, D * b, norm(B)};
}

double upperTriangleNorm(Matrix B) {
  for (int i = 0; i < B.dimension(); ++i) {
    for (int j = 0; j < i; ++j)
      B[i][static_cast<std::size_t>(j)] = 0;
  }
  return norm(B);
}

// The maximum norm, or NaN when an element is: norm() passes over NaN, and a
// run that has left the numbers would look like one that stands still.
double normOrNan(const std::vector<double>& v) {
  for (const double element : v) {
    if (std::isnan(element)) return element;
  }
  return norm(v);
}

void writeIteration(Trace& trace, int k, const std::vector<double>& x, double estimate) {
  trace << "Iteration: " << k << "\nResult: ";
  for (std::size_t i = 0; i < x.size(); ++i)
    trace << x[i] << (i + 1 < x.size() ? " " : "\n");
  trace << "Epsilon: " << estimate << "\n\n";
  trace.flush();
}

// Runs step(x), which replaces an approximation by the next one, from x on
// until factor times the last change falls below eps.
template <typename Step>
std::vector<double> iterate(std::string_view method, std::vector<double> x, double factor,
                            const double& eps, int& iters, Step step) {
  Trace trace;
  trace << method << " start.\n";
  trace.flush();
  for (int k = 1;; ++k) {
    const std::vector<double> previous = x;
    step(x);
    const double estimate = factor * normOrNan(x - previous);
    writeIteration(trace, k, x, estimate);
    if (eps > estimate) {
      iters = k;
      trace << method << " stop (target accuracy achieved).\n\n";
      return x;
    }
    if (k == kMaxIterations) throw MaxItersCountAchieved();
  }
}

}  // namespace

std::vector<double> solveSimpleIterations(const Matrix& A, const std::vector<double>& b,
                                          const double& eps, int& iters) {
  const FixedPointForm form = toFixedPoint(A, b);
  const double factor = form.q < 1 ? form.q / (1 - form.q) : 1;
  return iterate("Simple iterations method", b, factor, eps, iters,
                 [&form](std::vector<double>& x) { x = form.B * x + form.beta; });
}

std::vector<double> solveSiedel(const Matrix& A, const std::vector<double>& b, const double& eps,
                                int& iters) {
  const FixedPointForm form = toFixedPoint(A, b);
  const double factor = form.q < 1 ? upperTriangleNorm(form.B) / (1 - form.q) : 1;
  return iterate("Seidel method", b, factor, eps, iters, [&form](std::vector<double>& x) {
    for (std::size_t i = 0; i < x.size(); ++i) {
      const double* const row = form.B[static_cast<int>(i)].data();
      double sum = 0;
      for (std::size_t j = 0; j < x.size(); ++j)
        sum += row[j] * x[j];
      x[i] = sum + form.beta[i];
    }
  });
}
