// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT
#include <cstdio>
#include <nordika/solver.h>
#include <nordika/trace.h>
#include <nordika/version.h>
#include <string>

int answer() {
  std::string trace;
  const nordika::TraceRedirect redirect([&trace](std::string_view text) { trace += text; });
  int k = 0;
  SimpleItersProblem problem({Function("0.5*cos(x2)"), Function("0.5*(sin(x1)+0.4)")}, {0, 0}, 0.5);
  const auto x = solve_nonlinear_system_simple_iters(problem, 1e-5, k);
  return std::printf("x = (%g; %g), %d iterations, %zu bytes, %s\n", x[0], x[1], k, trace.size(),
                     NORDIKA_VERSION);
}
