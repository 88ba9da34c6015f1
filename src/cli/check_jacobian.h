// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_CHECK_JACOBIAN_H
#define NORDIKA_CLI_CHECK_JACOBIAN_H

#include <string>
#include <vector>

#include "run/run.h"

namespace nordika {

/// Compares each element of a Jacobi matrix with the derivative of its function, at the
/// start and at eight fixed points around it. Points where one of them or the function is
/// undefined are passed over.
///
/// An element is wrong if at some point the two values differ by more than the sum of
/// - 1e-5 of the larger one: texts have numbers of six digits,
/// - four times the bound of the rounding errors in both.
/// @param system n functions and n rows of n elements
/// @param problem whose texts the system has, with a typed matrix
/// @return a line for each wrong element, row by row, with the values at the first point
///   that shows it
/// @throws BlamedFault if no point is left, with what the function, the element or its
///   derivative throws at the start
std::string linesOnWrongElements(System& system, const Problem& problem);

}  // namespace nordika

#endif
