// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TESTS_METHODS_H
#define NORDIKA_TESTS_METHODS_H

#include <complex>
#include <functional>
#include <vector>

#include "matrices.h"
#include "nordika/solver.h"

struct TracedMethod {
  std::function<void(double eps, int& iters)> run;
  /// For eps = 9, the first word of each block of lines between two flushes.
  const char* blocks;
};

/// Each method that writes a trace, with a small system.
inline std::vector<TracedMethod> tracedMethods() {
  const Matrix a = matrixOf({{4, 1}, {1, 3}});
  const Vector b = {5, 4};
  return {
      {[](double eps, int& iters) {
         SimpleItersProblem problem({Function("x1/2+9")}, {0}, 0.5);
         solve_nonlinear_system_simple_iters(problem, eps, iters);
       },
       "Solve Iteration Epsilon x Iteration Epsilon x Solve "},
      {[](double eps, int& iters) {
         NewtonProblem problem({Function("x1^2-30")}, {1}, {{Function("2*x1")}});
         solve_nonlinear_system_newton(problem, eps, iters);
       },
       "Solve Iteration LUP L Epsilon x Iteration LUP L Epsilon x Solve "},
      {[=](double, int&) { solveTridiagonalMatrixAlgo(a, b); }, "Tridiagonal P Q  result "},
      {[=](double eps, int& iters) { solveSimpleIterations(a, b, eps, iters); },
       "Simple Iteration Simple "},
      {[=](double eps, int& iters) { solveSiedel(a, b, eps, iters); }, "Seidel Iteration Seidel "},
      {[=](double eps, int& iters) {
         std::vector<std::complex<double>> roots;
         getEigenvaluesWithQR(a, eps, roots, iters);
       },
       "QR Q Iteration Iteration QR "},
      {[=](double eps, int& iters) {
         Vector values;
         Matrix V;
         getEigenvaluesWithJacobi(a, eps, values, V, iters);
       },
       "Jacobi Iteration Jacobi "},
  };
}

#endif
