// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_BLAME_H
#define NORDIKA_RUN_BLAME_H

#include <optional>
#include <string>
#include <vector>

#include "run/run.h"

namespace nordika {

/// Finds the text that made a run fail: the first one that does not compile, otherwise the
/// first one that fails at the approximation x. Both in the order of the methods: the
/// functions, then the Jacobi matrix row by row.
/// @param x of length n; where an element is not finite, no text is to blame
std::optional<Blame> findBlame(const Problem& problem, const std::vector<double>& x);

/// Finds the first function of the system that fails with the arguments of its last call.
/// Those that have not been called are not to blame.
std::optional<Blame> findBlame(const Problem& problem, System& system);

}  // namespace nordika

#endif
