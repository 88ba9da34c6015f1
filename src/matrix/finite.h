// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_MATRIX_FINITE_H
#define NORDIKA_MATRIX_FINITE_H

#include <algorithm>
#include <cmath>

#include "nordika/matrix.h"

namespace nordika::detail {

/// True when every element is neither infinite nor NaN.
inline bool isFinite(const Matrix& a) {
  for (int i = 0; i < a.dimension(); ++i) {
    if (!std::all_of(a[i].begin(), a[i].end(), [](double x) { return std::isfinite(x); }))
      return false;
  }
  return true;
}

}  // namespace nordika::detail

#endif
