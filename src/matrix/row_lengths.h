// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_MATRIX_ROW_LENGTHS_H
#define NORDIKA_MATRIX_ROW_LENGTHS_H

#include <iterator>

#include "nordika/matrix.h"

namespace nordika::detail {

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
