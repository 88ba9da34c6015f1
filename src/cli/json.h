// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_JSON_H
#define NORDIKA_CLI_JSON_H

#include <string>

#include "run/run.h"

namespace nordika {

/// The outcome as a JSON object, on a line: the method, the solution, the residual, the
/// number of iterations, and the last estimate; after a failure its cause and, if a single
/// text is to blame, the name of that text. Numbers have as many digits as tell them from
/// all others.
///
/// The residual is f(x), or φ(x) - x, at the solution with all its digits: there the
/// functions do not round. It is null for a function that has no value.
std::string jsonOf(const Problem& problem, const Outcome& outcome);

}  // namespace nordika

#endif
