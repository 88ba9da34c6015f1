// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_MATRIX_MATRIX_TRACE_H
#define NORDIKA_MATRIX_MATRIX_TRACE_H

#include <string_view>

#include "matrix/matrix.h"
#include "trace/trace.h"

/// The columns of a matrix in a trace: every element as "%<width>.<decimals>f "
/// prints it.
struct ElementFormat {
  int width;
  int decimals;
};

constexpr ElementFormat kFactorElements = {7, 3};
constexpr ElementFormat kEigenElements = {10, 6};

/// Writes the label as a line of its own and then a line for every row of a.
inline void writeMatrix(Trace& trace, std::string_view label, const Matrix& a,
                        ElementFormat format) {
  trace << label << "\n";
  const auto n = static_cast<std::size_t>(a.dimension());
  for (int i = 0; i < a.dimension(); ++i) {
    for (std::size_t j = 0; j < n; ++j)
      trace.cell(a[i][j], format.width, format.decimals);
    trace << "\n";
  }
}

#endif
