// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_OUTPUT_H
#define NORDIKA_CLI_OUTPUT_H

#include <cstddef>
#include <string>
#include <vector>

#include "run/run.h"

namespace nordika {

/// A finite number as the window shows it: six significant digits, 0 for minus
/// zero, halves rounded away from zero.
std::string shownNumber(double x);

/// The lines of a solution: a line for each unknown, and the number of iterations.
std::string linesOf(const Outcome& outcome);

/// The line that tells of a check without a fault, of so many elements.
std::string lineOfAgreement(std::size_t elements);

/// The line of a problem file with the n × n texts of a Jacobi matrix, given row by row.
std::string lineOfJacobian(const std::vector<std::string>& texts);

}  // namespace nordika

#endif
