// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// Systems of nonlinear equations and the two methods that solve them.
///
/// The circle x1² + x2² = a meets the parabola x2 = x1², by Newton's method:
/// @code
/// const auto f = [](const char* text) { return Function(text, "a = 2"); };
/// NewtonProblem problem({f("x1^2+x2^2-a"), f("x2-x1^2")}, {2, 1},
///                       {{f("2*x1"), f("2*x2")}, {f("-2*x1"), f("1")}});
/// int iterations = 0;
/// const std::vector<double> x = solve_nonlinear_system_newton(problem, 1e-5, iterations);
/// // x is (1, 1); iterations is 5
/// @endcode

#ifndef NORDIKA_SOLVER_H
#define NORDIKA_SOLVER_H

#include <functional>
#include <vector>

#include "nordika/detail/scoped_function.h"
#include "nordika/functions.h"
#include "nordika/matrix.h"

namespace nordika {

/// The number of iterations that both methods compute at most. The accuracy is
/// tested before the limit, so the last one may still succeed.
inline constexpr int kMaxIterations = 100000;

/// An IterationWatch has stopped a run.
class Stopped {};

/// While it lives, sees every iteration of both nonlinear methods in its thread, and
/// may stop the run. It changes neither results nor trace.
/// @code
/// const nordika::IterationWatch watch(
///     [](int k, double estimate, const std::vector<double>& x) { return k < 50; });
/// @endcode
///
/// Watches nest: the innermost one is called. They may end in any order, but each must
/// end in the thread that made it, and not while its own function runs.
///
/// A shared object that links the library has a copy of its own. A watch sees the runs
/// of its own copy alone.
class IterationWatch {
 public:
  /// Watches by `function`. It gets the number k of the iteration, the estimate that is
  /// compared with the accuracy, and the approximation x with all its digits. It is
  /// called once for each iteration, when the lines of that iteration are written.
  ///
  /// The return value counts where the accuracy is not achieved: `false` ends the run
  /// with Stopped, also in iteration kMaxIterations, where `true` leaves
  /// MaxItersCountAchieved. An exception of `function` ends the run in any iteration and
  /// passes through. In each case the count is not written, and the trace ends with
  /// the lines of that iteration.
  ///
  /// While `function` runs, this watch is suspended: if it calls a solver, the next
  /// outer watch sees those iterations, or none.
  /// @pre `function` is not empty; asserted in every build
  [[nodiscard]] explicit IterationWatch(
      std::function<bool(int k, double estimate, const std::vector<double>& x)> function);
  /// Not copyable: it belongs to a scope.
  IterationWatch(const IterationWatch&) = delete;
  /// @copydoc IterationWatch(const IterationWatch&)
  IterationWatch& operator=(const IterationWatch&) = delete;
  /// Ends the watch.
  ~IterationWatch();

 private:
  detail::ScopedFunction<bool(int, double, const std::vector<double>&)> scope;
};

}  // namespace nordika

/// A system of n equations in the form x = φ(x), with the constant q by which
/// φ contracts distances and the initial approximation. Owns copies of all it
/// is given.
class SimpleItersProblem {
 public:
  /// The problem of size 0; q is 0.
  SimpleItersProblem() = default;

  /// The problem of n equations.
  /// @param mapping the n functions φi
  /// @param initial the initial approximation, of length n
  /// @param contraction the constant q
  /// @pre the lengths agree and 1e-8 < q < 1 - 1e-8; asserted in every build
  SimpleItersProblem(const std::vector<Function>& mapping, const std::vector<double>& initial,
                     const double& contraction);

  /// φ of index ind, counted from 0, at x; what the Function throws passes through.
  /// @pre 0 <= ind < n; asserted in every build
  double calcPhi(int ind, const std::vector<double>& x);

  /// The initial approximation, of length n.
  const std::vector<double>& getStart() const { return start; }

  /// The contraction constant q.
  double getQ() const { return q; }

  /// The number n of functions.
  int size() const { return static_cast<int>(phi.size()); }

 private:
  friend std::vector<double> solve_nonlinear_system_simple_iters(SimpleItersProblem& problem,
                                                                 const double& eps, int& iters);

  std::vector<Function> phi;
  std::vector<double> start;
  double q = 0;
};

/// A system of n equations in the form f(x) = 0, with the elements of its
/// Jacobi matrix and the initial approximation. Owns copies of all it is given.
class NewtonProblem {
 public:
  /// The problem of size 0.
  NewtonProblem() = default;

  /// The problem of n equations.
  /// @param functions the n functions fi
  /// @param initial the initial approximation, of length n
  /// @param derivatives n rows of n functions, ∂fi/∂xj in row i, column j
  /// @pre the three lengths agree; asserted in every build. The lengths of the
  ///   rows are checked in calcJacobi().
  NewtonProblem(const std::vector<Function>& functions, const std::vector<double>& initial,
                const std::vector<std::vector<Function>>& derivatives);

  /// f of index ind, counted from 0, at x; what the Function throws passes through.
  /// @pre 0 <= ind < n; asserted in every build
  double calcF(int ind, const std::vector<double>& x);

  /// ∂fi/∂xj at x, both counted from 0; what the Function throws passes through.
  /// @pre 0 <= i < n and 0 <= j < n; asserted in every build
  /// @throws MatrixWrongDimensions where row i has no element j
  double calcJacobi(int i, int j, const std::vector<double>& x);

  /// The initial approximation, of length n.
  const std::vector<double>& getStart() const { return start; }

  /// The number n of functions.
  int size() const { return static_cast<int>(f.size()); }

 private:
  friend std::vector<double> solve_nonlinear_system_newton(NewtonProblem& problem,
                                                           const double& eps, int& iters);

  std::vector<Function> f;
  std::vector<double> start;
  std::vector<std::vector<Function>> jacobi;
};

/// The Euclidean norm of v, its squares summed in index order; 0 for n = 0.
double vnorm(const std::vector<double>& v);

/// Solves x = φ(x) by the method of simple iterations: x⁽ᵏ⁾ = φ(x⁽ᵏ⁻¹⁾), all
/// components from the previous approximation. Stops at the first k with
/// eps > q / (1 - q) · ‖x⁽ᵏ⁾ - x⁽ᵏ⁻¹⁾‖₂, the a-posteriori bound of the
/// contraction mapping theorem (Stoer, Bulirsch, Introduction to Numerical
/// Analysis, section 5.2).
///
/// Every iteration is written to the standard error stream. Where a function
/// throws, the trace ends with the first line of that iteration.
/// @param iters receives k on success; left alone when an exception is thrown
/// @return the last approximation, of length n
/// @throws MaxItersCountAchieved when iteration 100000 misses the accuracy,
///   after its trace; also for NaN estimates, which never meet it
/// @throws ExpressionBadResult for an approximation or a value of a function
///   that is NaN or infinite
/// @throws ExpressionUnknownVariable for a variable that never got a value
/// @throws ExpressionWrongFormat as Function::operator()() does
/// @throws nordika::Stopped where a nordika::IterationWatch ends the run
std::vector<double> solve_nonlinear_system_simple_iters(SimpleItersProblem& problem,
                                                        const double& eps, int& iters);

/// Solves f(x) = 0 by Newton's method: J(x⁽ᵏ⁻¹⁾)·Δ = -f(x⁽ᵏ⁻¹⁾),
/// x⁽ᵏ⁾ = x⁽ᵏ⁻¹⁾ + Δ (Stoer, Bulirsch, Introduction to Numerical Analysis,
/// section 5.1), with the traced LUP solver for each step. Stops at the first k
/// with eps > ‖Δ‖₂.
///
/// Every iteration is written to the standard error stream. Where a function
/// throws, the trace ends with the first line of that iteration.
/// @param iters receives k on success; left alone when an exception is thrown
/// @return the last approximation, of length n
/// @throws MatrixIsSingular where the Jacobi matrix has no usable pivot
/// @throws MaxItersCountAchieved when iteration 100000 misses the accuracy,
///   after its trace
/// @throws ExpressionBadResult for an approximation or a value of a function
///   that is NaN or infinite
/// @throws ExpressionUnknownVariable for a variable that never got a value
/// @throws ExpressionWrongFormat as Function::operator()() does
/// @throws MatrixWrongDimensions where a row of the Jacobi matrix is too short
/// @throws nordika::Stopped where a nordika::IterationWatch ends the run
std::vector<double> solve_nonlinear_system_newton(NewtonProblem& problem, const double& eps,
                                                  int& iters);

#endif
