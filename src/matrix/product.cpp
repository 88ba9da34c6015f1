// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// The product of matrices in panels. The sums of a few rows and columns stay in
// registers while k runs over all terms in order, so that every element is
// computed by the same operations as in the textbook's three loops.

#include <algorithm>
#include <cstring>

#include "matrix/matrix.h"

namespace {

// Two neighbouring columns; operators work on both at once.
using Pair [[gnu::vector_size(16)]] = double;

constexpr std::size_t kPairs = 4;           // pairs of columns in a panel
constexpr std::size_t kWidth = 2 * kPairs;  // columns in a panel
constexpr std::size_t kHeight = 3;          // rows computed at once

// Smaller matrices are not packed.
constexpr std::size_t kSmallest = 16;

using Rows = std::vector<std::vector<double>>;
using Pairs = std::vector<Pair>;

// All panels of b one after the other, each row after row without a gap;
// columns past the last one are zeros.
Pairs packPanels(const Rows& b) {
  const std::size_t n = b.size();
  const std::size_t panels = (n + kWidth - 1) / kWidth;
  Pairs packed(panels * n * kPairs);
  Pair* place = packed.data();
  for (std::size_t j = 0; j < n; j += kWidth) {
    const std::size_t width = std::min(kWidth, n - j);
    for (std::size_t k = 0; k < n; ++k, place += kPairs) {
      std::memcpy(place, b[k].data() + j, width * sizeof(double));
    }
  }
  return packed;
}

// The elements of `height` rows of a as they are used, each one doubled.
template <std::size_t height>
void packRows(const Rows& a, std::size_t i, Pairs& packed) {
  for (std::size_t k = 0; k < a.size(); ++k) {
    for (std::size_t r = 0; r < height; ++r) {
      packed[k * height + r] = Pair{a[i + r][k], a[i + r][k]};
    }
  }
}

// `height` rows of the product in the columns of one panel.
template <std::size_t height>
void multiply(const Pair* factors, const Pair* panel, std::size_t n, Pair (&sums)[height][kPairs]) {
  for (std::size_t k = 0; k < n; ++k, factors += height, panel += kPairs) {
    for (std::size_t r = 0; r < height; ++r) {
      for (std::size_t c = 0; c < kPairs; ++c)
        sums[r][c] += factors[r] * panel[c];
    }
  }
}

template <std::size_t height>
void multiplyRows(const Rows& a, std::size_t i, const Pairs& panels, Pairs& factors,
                  Rows& product) {
  const std::size_t n = a.size();
  packRows<height>(a, i, factors);
  const Pair* panel = panels.data();
  for (std::size_t j = 0; j < n; j += kWidth, panel += n * kPairs) {
    Pair sums[height][kPairs] = {};
    multiply<height>(factors.data(), panel, n, sums);
    const std::size_t width = std::min(kWidth, n - j);
    for (std::size_t r = 0; r < height; ++r) {
      std::memcpy(product[i + r].data() + j, sums[r], width * sizeof(double));
    }
  }
}

// For matrices that are not worth the packing: k outside j streams whole rows.
void multiplyDirectly(const Rows& a, const Rows& b, Rows& product) {
  const std::size_t n = a.size();
  for (std::size_t i = 0; i < n; ++i) {
    double* const sums = product[i].data();
    for (std::size_t k = 0; k < n; ++k) {
      const double factor = a[i][k];
      const double* const row = b[k].data();
      for (std::size_t j = 0; j < n; ++j)
        sums[j] += factor * row[j];
    }
  }
}

}  // namespace

Matrix Matrix::operator*(const Matrix& b) const {
  checkDimension(b.rows.size());
  const std::size_t n = rows.size();
  Matrix product(dimension());
  if (n < kSmallest) {
    multiplyDirectly(rows, b.rows, product.rows);
    return product;
  }
  const Pairs panels = packPanels(b.rows);
  Pairs factors(n * kHeight);
  std::size_t i = 0;
  for (; i + kHeight <= n; i += kHeight) {
    multiplyRows<kHeight>(rows, i, panels, factors, product.rows);
  }
  for (; i < n; ++i)
    multiplyRows<1>(rows, i, panels, factors, product.rows);
  return product;
}
