// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/solver.h"

#include <cassert>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

#include "expression/point.h"
#include "matrix/lup_solver.h"
#include "nordika/trace.h"
#include "trace/scoped_function.h"

using nordika::kMaxIterations;
using nordika::Stopped;
using nordika::Trace;
using nordika::detail::LupSolver;
using nordika::detail::Point;
using nordika::detail::ScopedFunction;

// As assert(), but alive in every build. Users report a broken precondition by
// the text that the C library prints: condition, file, line and signature. File,
// line and signature are therefore data; they stay when the source or the
// compiler changes. The names in a condition must stay, too.
#define NORDIKA_PRECONDITION(condition, line, signature) \
  ((condition) ? static_cast<void>(0)                    \
               : __assert_fail(#condition, "src/solver/solver.cpp", line, signature))

namespace {

constexpr char kSimpleItersProblem[] =
    "SimpleItersProblem::SimpleItersProblem(const std::vector<Function>&, "
    "const std::vector<double>&, const double&)";
constexpr char kCalcPhi[] = "double SimpleItersProblem::calcPhi(int, const std::vector<double>&)";
constexpr char kNewtonProblem[] =
    "NewtonProblem::NewtonProblem(const std::vector<Function>&, const std::vector<double>&, "
    "const std::vector<std::vector<Function> >&)";
constexpr char kCalcF[] = "double NewtonProblem::calcF(int, const std::vector<double>&)";
constexpr char kCalcJacobi[] =
    "double NewtonProblem::calcJacobi(int, int, const std::vector<double>&)";

// The closing parenthesis belongs to the last component, so n = 0 leaves it out.
void writeResult(Trace& trace, double estimate, const std::vector<double>& x) {
  trace << "Epsilon: " << estimate << "\n";
  trace.flush();
  trace << "x = (";
  for (std::size_t i = 0; i < x.size(); ++i)
    trace << x[i] << (i + 1 < x.size() ? "; " : ")\n");
  trace << "\n";
  trace.flush();
}

// Shows the iteration to the watch of this thread, if any.
// @return whether the run may go on
bool showIteration(int k, double estimate, const std::vector<double>& x) {
  auto* const watch = ScopedFunction<bool(int, double, const std::vector<double>&)>::current();
  return watch == nullptr || watch->call(k, estimate, x);
}

// Applies step(trace, x), which returns the estimate, until eps exceeds that.
template <typename Step>
std::vector<double> iterate(std::string_view method, std::vector<double> x, const double& eps,
                            int& iters, Step step) {
  Trace trace;
  trace << method << " start.\n";
  trace.flush();
  for (int k = 1;; ++k) {
    // Before anything is computed: an iteration that fails leaves this line behind.
    trace << "Iteration: " << k << "\n";
    trace.flush();
    const double estimate = step(trace, x);
    writeResult(trace, estimate, x);
    const bool mayGoOn = showIteration(k, estimate, x);
    // False for a NaN: such a run ends in a function or at the limit.
    if (eps > estimate) {
      trace << method << " stop (target accuracy achieved).\n\n";
      iters = k;
      return x;
    }
    if (!mayGoOn) throw Stopped();
    if (k == kMaxIterations) throw MaxItersCountAchieved();
  }
}

}  // namespace

nordika::IterationWatch::IterationWatch(
    std::function<bool(int k, double estimate, const std::vector<double>& x)> function)
    : scope(std::move(function)) {
  assert(!scope.isEmpty());
}

nordika::IterationWatch::~IterationWatch() = default;

SimpleItersProblem::SimpleItersProblem(const std::vector<Function>& mapping,
                                       const std::vector<double>& initial,
                                       const double& contraction)
    : phi(mapping), start(initial), q(contraction) {
  NORDIKA_PRECONDITION(phi.size() == start.size(), 21, kSimpleItersProblem);
  NORDIKA_PRECONDITION(1e-8 < q && q < 1.0 - 1e-8, 22, kSimpleItersProblem);
}

double SimpleItersProblem::calcPhi(int ind, const std::vector<double>& x) {
  const int n = size();
  NORDIKA_PRECONDITION(0 <= ind && ind < n, 27, kCalcPhi);
  return phi.begin()[ind](x);
}

NewtonProblem::NewtonProblem(const std::vector<Function>& functions,
                             const std::vector<double>& initial,
                             const std::vector<std::vector<Function>>& derivatives)
    : f(functions), start(initial), jacobi(derivatives) {
  NORDIKA_PRECONDITION(f.size() == start.size(), 75, kNewtonProblem);
  NORDIKA_PRECONDITION(f.size() == jacobi.size(), 76, kNewtonProblem);
}

double NewtonProblem::calcF(int ind, const std::vector<double>& x) {
  const int n = size();
  NORDIKA_PRECONDITION(0 <= ind && ind < n, 81, kCalcF);
  return f.begin()[ind](x);
}

double NewtonProblem::calcJacobi(int i, int j, const std::vector<double>& x) {
  const int n = size();
  NORDIKA_PRECONDITION(0 <= i && i < n, 87, kCalcJacobi);
  NORDIKA_PRECONDITION(0 <= j && j < n, 88, kCalcJacobi);
  std::vector<Function>& row = jacobi.begin()[i];
  if (std::ssize(row) <= j) throw MatrixWrongDimensions();
  return row.begin()[j](x);
}

double vnorm(const std::vector<double>& v) {
  return std::sqrt(norm2(v));
}

std::vector<double> solve_nonlinear_system_simple_iters(SimpleItersProblem& problem,
                                                        const double& eps, int& iters) {
  const double factor = problem.getQ() / (1.0 - problem.getQ());
  Point prev;
  std::vector<double> step = problem.getStart();
  return iterate("Solve nonlinear system with simple iterations method", problem.getStart(), eps,
                 iters, [&](Trace&, std::vector<double>& x) {
                   prev.assign(x);
                   step.swap(x);
                   for (std::size_t i = 0; i < x.size(); ++i) {
                     x[i] = prev.valueOf(problem.phi[i]);
                     step[i] = x[i] - step[i];
                   }
                   return factor * vnorm(step);
                 });
}

std::vector<double> solve_nonlinear_system_newton(NewtonProblem& problem, const double& eps,
                                                  int& iters) {
  const int n = problem.size();
  Point point;
  Matrix W(n);
  std::vector<double> r(problem.f.size());
  LupSolver solver;
  return iterate("Solve nonlinear system with Newton method", problem.getStart(), eps, iters,
                 [&](Trace& trace, std::vector<double>& x) {
                   point.assign(x);
                   for (int i = 0; i < n; ++i)
                     r.begin()[i] = -point.valueOf(problem.f.begin()[i]);
                   for (int i = 0; i < n; ++i) {
                     std::vector<Function>& row = problem.jacobi.begin()[i];
                     if (std::ssize(row) < n) throw MatrixWrongDimensions();
                     for (int j = 0; j < n; ++j)
                       W(i, j) = point.valueOf(row.begin()[j]);
                   }
                   const std::vector<double>& delta = solver.solve(W, r, trace);
                   for (std::size_t i = 0; i < x.size(); ++i)
                     x[i] += delta[i];
                   return vnorm(delta);
                 });
}
