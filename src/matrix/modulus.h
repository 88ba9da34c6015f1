// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_MATRIX_MODULUS_H
#define NORDIKA_MATRIX_MODULUS_H

#include <cmath>
#include <complex>
#include <limits>
#include <utility>

namespace nordika::detail {

/// The modulus of z, with the same bits on every machine: those of std::hypot() of
/// glibc 2.35 and later on amd64. Elsewhere std::hypot() may fuse products with sums.
/// Infinite if a part of z is infinite, otherwise NaN if a part is NaN.
///
/// Source: C. F. Borges, An improved algorithm for hypot(a, b), 2019: the square root
/// is corrected by its own error, without fused operations.
inline double modulus(std::complex<double> z) {
  double a = std::abs(z.real());
  double b = std::abs(z.imag());
  if (std::isinf(a) || std::isinf(b)) return std::numeric_limits<double>::infinity();
  if (a < b) std::swap(a, b);
  if (a >= b * 0x1p54) return a;
  // Neither squares nor errors may overflow or underflow.
  const double scale = a > 0x1p511 ? 0x1p-600 : b < 0x1p-459 ? 0x1p600 : 1;
  a *= scale;
  b *= scale;
  const double h = std::sqrt(a * a + b * b);
  double error = 0;  // h² - a² - b²
  if (h <= 2 * b) {
    const double d = h - b;
    error = a * (2 * d - a) + (d - 2 * (a - b)) * d;
  } else {
    const double d = h - a;
    error = 2 * d * (a - 2 * b) + ((4 * d - b) * b + d * d);
  }
  return (h - error / (2 * h)) / scale;
}

}  // namespace nordika::detail

#endif
