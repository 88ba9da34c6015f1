// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_MATRIX_FINITE_H
#define NORDIKA_MATRIX_FINITE_H

#include "nordika/matrix.h"
#include "number/finite.h"

namespace nordika::detail {

/// True when every element is neither infinite nor NaN.
inline bool isFinite(const Matrix& a) {
  for (int i = 0; i < a.dimension(); ++i) {
    if (!isFinite(a[i])) return false;
  }
  return true;
}

}  // namespace nordika::detail

#endif
