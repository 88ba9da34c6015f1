// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_MATRIX_FINITE_H
#define NORDIKA_MATRIX_FINITE_H

#include <algorithm>
#include <cmath>
#include <vector>

#include "matrix/matrix.h"

/// True when every element is neither infinite nor NaN.
inline bool isFinite(const std::vector<double>& v) {
  return std::all_of(v.begin(), v.end(), [](double x) { return std::isfinite(x); });
}

/// @copydoc isFinite(const std::vector<double>&)
inline bool isFinite(const Matrix& a) {
  for (int i = 0; i < a.dimension(); ++i) {
    if (!isFinite(a[i])) return false;
  }
  return true;
}

#endif
