// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_BLAME_H
#define NORDIKA_RUN_BLAME_H

#include <optional>
#include <string>
#include <vector>

#include "run/problem.h"

namespace nordika {

/// Where a text stands: function `row`, or element (`row`, `column`) of the Jacobi matrix,
/// counted from 0.
struct TextPlace {
  bool isFunction;
  int row;
  int column;
};

/// The text that made a run fail.
struct Blame {
  TextPlace place;        ///< where it stands
  std::string text;       ///< the text; empty where there is none
  std::vector<double> x;  ///< the approximation at which it failed; empty if it did not compile
};

/// Finds the text that made a run fail: the first one that does not compile, otherwise the
/// first one that fails at the approximation x, otherwise the first one that cannot be
/// derived although it should. All in the order of the methods: the functions, then the
/// Jacobi matrix row by row.
/// @param x of length n; where an element is not finite, no text is to blame
std::optional<Blame> findBlame(const Problem& problem, const std::vector<double>& x);

}  // namespace nordika

#endif
