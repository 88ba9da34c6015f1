// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_SOLVER_ITERATION_TRACE_H
#define NORDIKA_SOLVER_ITERATION_TRACE_H

#include <vector>

#include "trace/trace.h"

/// The number of iterations that both methods compute at most. The accuracy is
/// tested before the limit, so that the last one may still succeed.
constexpr int kMaxIterations = 100000;

/// Writes the first line of iteration k, before anything of it is computed: an
/// iteration that fails leaves this line behind.
inline void writeIterationStart(Trace& trace, int k) {
  trace << "Iteration: " << k << "\n";
  trace.flush();
}

/// Writes the last lines of an iteration: the error estimate, the
/// approximation x (of length n) and an empty line. The closing parenthesis
/// belongs to the last component, so that n = 0 leaves it out.
inline void writeIterationResult(Trace& trace, double estimate, const std::vector<double>& x) {
  trace << "Epsilon: " << estimate << "\n";
  trace.flush();
  trace << "x = (";
  for (std::size_t i = 0; i < x.size(); ++i) {
    trace << x[i] << (i + 1 < x.size() ? "; " : ")\n");
  }
  trace << "\n";
  trace.flush();
}

#endif
