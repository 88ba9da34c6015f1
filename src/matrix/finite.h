// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_MATRIX_FINITE_H
#define NORDIKA_MATRIX_FINITE_H

#include <cmath>

#include "nordika/matrix.h"

namespace nordika::detail {

/// True when every element is neither infinite nor NaN.
inline bool isFinite(const Matrix& a) {
  for (int i = 0; i < a.dimension(); ++i) {
    for (int j = 0; j < a.dimension(); ++j) {
      if (!std::isfinite(a(i, j))) return false;
    }
  }
  return true;
}

}  // namespace nordika::detail

#endif
