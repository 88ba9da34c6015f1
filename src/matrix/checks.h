// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_MATRIX_CHECKS_H
#define NORDIKA_MATRIX_CHECKS_H

#include <algorithm>
#include <cmath>
#include <iterator>

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

/// Passes a matrix whose n rows have n elements or more. A user may assign any row.
/// @throws MatrixWrongDimensions for a shorter row
inline void checkRowLengths(const Matrix& a) {
  const int n = a.dimension();
  for (int i = 0; i < n; ++i) {
    if (std::ssize(a[i]) < n) throw MatrixWrongDimensions();
  }
}

}  // namespace nordika::detail

#endif
