// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_NUMBER_POWERS_OF_TEN_H
#define NORDIKA_NUMBER_POWERS_OF_TEN_H

#include <cmath>

namespace nordika::detail {

inline constexpr int kSmallestPower = -16;
inline constexpr int kLargestPower = 22;

/// The double nearest to 10^k for kSmallestPower <= k <= kLargestPower; equal to
/// 10^k for k >= 0.
inline double powerOfTen(int k) {
  static constexpr double powers[] = {
      1e-16, 1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10, 1e-9, 1e-8, 1e-7, 1e-6, 1e-5, 1e-4,
      1e-3,  1e-2,  1e-1,  1e0,   1e1,   1e2,   1e3,   1e4,  1e5,  1e6,  1e7,  1e8,  1e9,
      1e10,  1e11,  1e12,  1e13,  1e14,  1e15,  1e16,  1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  return powers[k - kSmallestPower];
}

/// The integer nearest to t, ties to even, for |t| < 2^51 and s the double
/// nearest to t. `beyond` is called only if s is halfway between two integers;
/// it returns the sign of t - s.
///
/// Below 2^51 every half is a double. Rounding is monotonic: s and t lie on the
/// same side of a half unless s equals it.
template <typename Beyond>
double nearestInteger(double s, Beyond beyond) {
  const double integer = (s + 0x1.8p52) - 0x1.8p52;  // ties to even
  if (std::abs(s - integer) < 0.5) [[likely]]
    return integer;
  const double sign = beyond();
  return sign > 0 ? std::ceil(s) : sign < 0 ? std::floor(s) : integer;
}

/// The integer nearest to x·10^k, ties to even, for |x·10^k| < 2^51 and
/// 0 <= k <= kLargestPower.
inline double nearestToProduct(double x, int k) {
  const double power = powerOfTen(k);
  const double s = x * power;
  return nearestInteger(s, [=] { return std::fma(x, power, -s); });
}

/// The integer nearest to x/10^k, ties to even, for |x/10^k| < 2^51 and
/// 0 <= k <= kLargestPower.
inline double nearestToQuotient(double x, int k) {
  const double power = powerOfTen(k);
  const double s = x / power;
  return nearestInteger(s, [=] { return std::fma(-s, power, x); });
}

}  // namespace nordika::detail

#endif
