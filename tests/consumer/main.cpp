// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT
#include <cstdio>
#include <nordika/solver.h>
#include <nordika/version.h>

int main() {
  int k = 0;
  SimpleItersProblem problem({Function("0.5*cos(x2)"), Function("0.5*(sin(x1)+0.4)")}, {0, 0}, 0.5);
  const auto x = solve_nonlinear_system_simple_iters(problem, 1e-5, k);
  return std::printf("x = (%g; %g), %d iterations\n", x[0], x[1], k) < 0;
}
