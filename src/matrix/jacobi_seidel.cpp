// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <string_view>

#include "matrix/checks.h"
#include "nordika/matrix.h"
#include "nordika/trace.h"

namespace {

// The system brought to the form x = B·x + beta, and the norm q of B.
struct FixedPointForm {
  Matrix B;
  std::vector<double> beta;
  double q;
};

FixedPointForm toFixedPoint(const Matrix& A, const std::vector<double>& b) {
  nordika::detail::checkRowLengths(A);
  const int n = A.dimension();
  Matrix D(n);
  for (int i = 0; i < n; ++i)
    D(i, i) = 1 / A(i, i);
  // The whole product, as (1/a)·a may differ from 1 and an infinite 1/a makes
  // NaN of the rest of its row.
  const Matrix B = getIdentityMatrix(n) - D * A;
  return {B, D * b, norm(B)};
}

double upperTriangleNorm(Matrix B) {
  for (int i = 0; i < B.dimension(); ++i) {
    for (int j = 0; j < i; ++j)
      B(i, j) = 0;
  }
  return norm(B);
}

// The maximum norm, or NaN if an element is NaN. norm() passes over NaN, so a
// diverged run would look converged.
double normOrNan(const std::vector<double>& v) {
  for (const double element : v) {
    if (std::isnan(element)) return element;
  }
  return norm(v);
}

void writeLinearIteration(nordika::Trace& trace, int k, const std::vector<double>& x,
                          double estimate) {
  trace << "Iteration: " << k << "\nResult: ";
  for (std::size_t i = 0; i < x.size(); ++i)
    trace << x[i] << (i + 1 < x.size() ? " " : "\n");
  trace << "Epsilon: " << estimate << "\n\n";
  trace.flush();
}

// Applies step(x) until factor times the last change of x falls below eps.
template <typename Step>
std::vector<double> iterate(std::string_view method, std::vector<double> x, double factor,
                            const double& eps, int& iters, Step step) {
  nordika::Trace trace;
  trace << method << " start.\n";
  trace.flush();
  for (int k = 1;; ++k) {
    const std::vector<double> previous = x;
    step(x);
    const double estimate = factor * normOrNan(x - previous);
    writeLinearIteration(trace, k, x, estimate);
    if (eps > estimate) {
      trace << method << " stop (target accuracy achieved).\n\n";
      iters = k;
      return x;
    }
    if (k == nordika::kMaxLinearIterations) throw MaxItersCountAchieved();
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
    for (int i = 0; i < form.B.dimension(); ++i)
      x.begin()[i] = dotProduct(form.B[i], x) + form.beta.begin()[i];
  });
}
