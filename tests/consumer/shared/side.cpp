// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT
#include <nordika/solver.h>

// The last iterate of x1^2 = 2, where the derivative is given.
extern "C" double SIDE(const char* derivative) {
  NewtonProblem problem({Function("x1^2-2")}, {1}, {{Function(derivative)}});
  int iterations = 0;
  return solve_nonlinear_system_newton(problem, 1e-5, iterations)[0];
}
