// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_OUTPUT_H
#define NORDIKA_CLI_OUTPUT_H

#include <string>

#include "run/run.h"

namespace nordika {

/// A finite number as the window shows it: six significant digits, 0 for minus
/// zero, halves rounded away from zero.
std::string shownNumber(double x);

/// The lines of a solution: a line for each unknown, and the number of iterations.
std::string linesOf(const Outcome& outcome);

}  // namespace nordika

#endif
