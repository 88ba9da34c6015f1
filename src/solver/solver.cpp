// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "solver/solver.h"

#include <cassert>
#include <cmath>
#include <iterator>

#include "solver/iteration_trace.h"
#include "trace/trace.h"

// A failed assertion prints its condition, its line and the signature of its
// function, and that text is what a report of such a failure is told by: the
// assertions of this file stay on their lines. A test compares the whole text.

SimpleItersProblem::SimpleItersProblem(const std::vector<Function>& mapping,
                                       const std::vector<double>& initial,
                                       const double& contraction)
    : phi(mapping), start(initial), q(contraction) {
  assert(phi.size() == start.size());
  assert(1e-8 < q && q < 1.0 - 1e-8);
}

double SimpleItersProblem::calcPhi(int ind, const std::vector<double>& x) {
  const int n = size();
  assert(0 <= ind && ind < n);
  return phi[static_cast<std::size_t>(ind)](x);
}

void SimpleItersProblem::calcAllPhi(const std::vector<double>& x, std::vector<double>& values) {
  if (phi.empty()) return;
  const RoundedPoint point(x);
  for (std::size_t i = 0; i < phi.size(); ++i) {
    values[i] = phi[i].at(point);
  }
}

double vnorm(const std::vector<double>& v) {
  return std::sqrt(norm2(v));
}

std::vector<double> solve_nonlinear_system_simple_iters(SimpleItersProblem& problem,
                                                        const double& eps, int& iters) {
  Trace trace;
  trace << "Solve nonlinear system with simple iterations method start.\n";
  trace.flush();
  std::vector<double> x = problem.getStart();
  std::vector<double> prev = x;
  const double factor = problem.getQ() / (1.0 - problem.getQ());
  for (int k = 1;; ++k) {
    writeIterationStart(trace, k);
    problem.calcAllPhi(prev, x);
    const double estimate = factor * vnorm(x - prev);
    writeIterationResult(trace, estimate, x);
    // A NaN is never below eps: such a run goes on until a function or the
    // limit ends it.
    if (eps > estimate) {
      iters = k;
      trace << "Solve nonlinear system with simple iterations method stop (target accuracy "
               "achieved).\n\n";
      return x;
    }
    if (k == kMaxIterations) throw MaxItersCountAchieved();
    prev = x;
  }
}

// The rows of the Jacobi matrix are measured where they are used: a problem
// that is never solved may hold short ones.
NewtonProblem::NewtonProblem(const std::vector<Function>& functions,
                             const std::vector<double>& initial,
                             const std::vector<std::vector<Function>>& derivatives)
    : f(functions), start(initial), jacobi(derivatives) {
  assert(f.size() == start.size());
  assert(f.size() == jacobi.size());
}

double NewtonProblem::calcF(int ind, const std::vector<double>& x) {
  const int n = size();
  assert(0 <= ind && ind < n);
  return f[static_cast<std::size_t>(ind)](x);
}

double NewtonProblem::calcJacobi(int i, int j, const std::vector<double>& x) {
  const int n = size();
  assert(0 <= i && i < n);
  assert(0 <= j && j < n);
  return element(i, j)(x);
}

void NewtonProblem::calcAll(const std::vector<double>& x, std::vector<double>& negative,
                            Matrix& J) {
  if (f.empty()) return;
  const RoundedPoint point(x);
  for (std::size_t i = 0; i < f.size(); ++i)
    negative[i] = -f[i].at(point);
  for (int i = 0; i < size(); ++i) {
    for (int j = 0; j < size(); ++j) {
      J[i][static_cast<std::size_t>(j)] = element(i, j).at(point);
    }
  }
}

Function& NewtonProblem::element(int i, int j) {
  std::vector<Function>& row = jacobi[static_cast<std::size_t>(i)];
  if (std::ssize(row) <= j) throw MatrixWrongDimensions();
  return row[static_cast<std::size_t>(j)];
}

std::vector<double> solve_nonlinear_system_newton(NewtonProblem& problem, const double& eps,
                                                  int& iters) {
  Trace trace;
  trace << "Solve nonlinear system with Newton method start.\n";
  trace.flush();
  const int n = problem.size();
  std::vector<double> x = problem.getStart();
  Matrix W(n);
  std::vector<double> r(static_cast<std::size_t>(n));
  for (int k = 1;; ++k) {
    writeIterationStart(trace, k);
    problem.calcAll(x, r, W);
    const std::vector<double> delta = solveWithLUP(W, r);
    x = x + delta;
    const double estimate = vnorm(delta);
    writeIterationResult(trace, estimate, x);
    if (eps > estimate) {
      iters = k;
      trace << "Solve nonlinear system with Newton method stop (target accuracy achieved).\n\n";
      return x;
    }
    if (k == kMaxIterations) throw MaxItersCountAchieved();
  }
}
