// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TESTS_MATRICES_H
#define NORDIKA_TESTS_MATRICES_H

#include <cmath>
#include <complex>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "nordika/solver.h"
#include "outcome.h"

using Vector = std::vector<double>;

/// All digits and signs of a matrix, with one text for every NaN.
inline std::string printed(const Matrix& a) {
  std::ostringstream text;
  text.precision(17);
  for (int i = 0; i < a.dimension(); ++i) {
    for (int j = 0; j < a.dimension(); ++j)
      text << (std::isnan(a(i, j)) ? kNan : a(i, j)) << " ";
    text << "\n";
  }
  return text.str();
}

/// An n × n matrix of elements between -1 and 1.
inline Matrix randomMatrix(int n, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> element(-1, 1);
  Matrix a(n);
  for (int i = 0; i < n; ++i) {
    for (double& x : a[i])
      x = element(random);
  }
  return a;
}

struct TracedMethod {
  std::function<void(double eps, int& iters)> run;
  /// For eps = 9, the first word of each block of lines between two flushes.
  const char* blocks;
};

/// Each method that writes a trace, with a small system.
inline std::vector<TracedMethod> tracedMethods() {
  const Matrix a = {{4, 1}, {1, 3}};
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
