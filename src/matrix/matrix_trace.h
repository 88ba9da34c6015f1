// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_MATRIX_MATRIX_TRACE_H
#define NORDIKA_MATRIX_MATRIX_TRACE_H

#include <string_view>

#include "nordika/matrix.h"
#include "nordika/trace.h"

namespace nordika::detail {

/// How a trace shows the elements of a matrix: "%<width>.<decimals>f ".
struct ElementFormat {
  int width;
  int decimals;
};

/// The format of L, U and P, "%7.3lf ".
inline constexpr ElementFormat kFactorElements = {7, 3};

/// The format of the methods for eigenvalues, "%10.6lf ".
inline constexpr ElementFormat kEigenElements = {10, 6};

/// Writes the label as a line of its own and then a line for every row of a.
inline void writeMatrix(Trace& trace, std::string_view label, const Matrix& a,
                        ElementFormat format) {
  trace << label << "\n";
  const int n = a.dimension();
  for (int i = 0; i < n; ++i)
    trace.row(a[i].data(), n, format.width, format.decimals);
}

}  // namespace nordika::detail

#endif
