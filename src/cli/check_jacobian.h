// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_CHECK_JACOBIAN_H
#define NORDIKA_CLI_CHECK_JACOBIAN_H

#include <string>
#include <vector>

#include "run/run.h"

namespace nordika {

/// Compares the elements of a Jacobi matrix at a point with central differences of the
/// functions. The step is one unit of the sixth digit of the unknown, and 1e-7 for 0.
///
/// An element is wrong if it differs from the difference by more than the sum of
/// - 1e-4 of the larger one,
/// - four times the bound of the rounding errors in both,
/// - twice the largest change of the element within the step.
///
/// And the differences for smaller steps must not change by a tenth. So a function that
/// bends, swings or jumps within the step does not make a right element wrong.
/// @param system n functions and n rows of n elements
/// @param point of length n
/// @return a line for each wrong element, row by row
/// @throws what Function::operator()() and Expression::calculate() do, at the point or
///   within the step
std::string linesOnWrongElements(System& system, const std::vector<double>& point);

}  // namespace nordika

#endif
