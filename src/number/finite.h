// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_NUMBER_FINITE_H
#define NORDIKA_NUMBER_FINITE_H

#include <algorithm>
#include <cmath>
#include <vector>

namespace nordika::detail {

/// True when no element is infinite or NaN.
inline bool isFinite(const std::vector<double>& v) {
  return std::all_of(v.begin(), v.end(), [](double x) { return std::isfinite(x); });
}

}  // namespace nordika::detail

#endif
