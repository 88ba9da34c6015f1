// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_NUMBER_POWERS_OF_TEN_H
#define NORDIKA_NUMBER_POWERS_OF_TEN_H

#include <cfloat>
#include <cmath>
#include <limits>

namespace nordika::detail {

static_assert(
    FLT_EVAL_METHOD == 0 && std::numeric_limits<double>::is_iec559,
    "The arithmetic must be that of IEEE doubles. On i386 this needs -msse2 -mfpmath=sse.");

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

/// s is the double nearest to t and lies exactly halfway between two integers.
/// Returns the integer nearest to t. The sign of a·b + c says on which side of s the
/// exact t is; 0: to even.
double resolveHalf(double s, double a, double b, double c);

/// The integer nearest to s, ties to even, for |s| < 2^51.
inline double nearestInteger(double s) {
  return (s + 0x1.8p52) - 0x1.8p52;
}

/// The integer nearest to x·10^k, ties to even, for |x·10^k| < 2^51 and
/// 0 <= k <= kLargestPower.
///
/// Below 2^51 every half is a double. Rounding is monotonic: the double nearest to
/// the product lies on the same side of a half as the product, unless it equals it.
inline double nearestToProduct(double x, int k) {
  const double power = powerOfTen(k);
  const double s = x * power;
  const double integer = nearestInteger(s);
  if (std::abs(s - integer) < 0.5) [[likely]]
    return integer;
  return resolveHalf(s, x, power, -s);
}

/// The integer nearest to x/10^k, ties to even, for |x/10^k| < 2^51 and
/// 0 <= k <= kLargestPower. See nearestToProduct().
inline double nearestToQuotient(double x, int k) {
  const double power = powerOfTen(k);
  const double s = x / power;
  const double integer = nearestInteger(s);
  if (std::abs(s - integer) < 0.5) [[likely]]
    return integer;
  return resolveHalf(s, -s, power, x);
}

}  // namespace nordika::detail

#endif
