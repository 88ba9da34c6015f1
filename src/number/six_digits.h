// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_NUMBER_SIX_DIGITS_H
#define NORDIKA_NUMBER_SIX_DIGITS_H

#include <bit>
#include <cmath>
#include <cstdint>

#include "number/powers_of_ten.h"

// A number of six significant digits is m·10^-k, with an integer m between 100000
// and 999999. For 1e-16 <= |x| < 1e22, k is between -16 and 21, and 10^|k| is a
// double: 10^22 is the largest such power. Then one correctly rounded
// multiplication or division by the power leads from x to m. Another one leads
// from m to the nearest double. Fast readers of numbers rely on the same fact (W.
// D. Clinger, How to read floating point numbers accurately, 1990). All other
// numbers are converted to text and back. By way of text alone a run takes 5 to 17 %
// longer.

namespace nordika::detail {

/// The significant digits of every number in expressions, arguments and traces.
inline constexpr int kDigits = 6;

/// The room that writeSixDigits() needs; its longest text is "-1.23457e-308".
inline constexpr int kSixDigitsLength = kDigits + 7;

/// Writes x as the C conversion "%g" does in the "C" locale: six significant
/// digits, exponent notation below 1e-4 and from 1e6 on, no trailing zeros.
/// @param out room for kSixDigitsLength characters; no terminator is written
/// @return the place after the last character
char* writeSixDigits(char* out, double x);

static_assert(kDigits - 1 + 16 <= kLargestPower, "the largest k, for 1e-16");

/// The e with 2^e <= |x| < 2^(e+1) of an ordinary number; -1023 for zero and
/// denormals, 1024 for infinities and NaN.
inline int binaryExponent(double x) {
  return static_cast<int>(std::bit_cast<std::uint64_t>(x) >> 52 & 0x7ff) - 1023;
}

/// Whether numbers of this binary exponent need no text. 2^-53 is the first power
/// of two above 1e-16, 2^73 the last one below 1e22.
inline bool isOrdinaryExponent(int binary) {
  return -53 <= binary && binary < 73;
}

/// The largest e with 10^e <= a, for a > 0 of an ordinary binary exponent. If a is
/// the double nearest to 10^e and that lies just below 10^e, the result is e all the
/// same. This does no harm: such an a rounds to 10^e.
inline int decimalExponent(double a, int binary) {
  const int e = (binary * 78913) >> 18;  // floor(binary·log10(2))
  return e + (a >= powerOfTen(e + 1) ? 1 : 0);
}

/// roundToSixDigits() by way of text.
double roundThroughText(double x);

/// The double nearest to the text that writeSixDigits() makes of x. The sign of
/// zero stays; infinities and NaN are returned as they are.
inline double roundToSixDigits(double x) {
  const int binary = binaryExponent(x);
  if (!isOrdinaryExponent(binary)) [[unlikely]]
    return roundThroughText(x);
  const int k = kDigits - 1 - decimalExponent(std::abs(x), binary);
  if (k >= 0) [[likely]]
    return nearestToProduct(x, k) / powerOfTen(k);
  return nearestToQuotient(x, -k) * powerOfTen(-k);
}

}  // namespace nordika::detail

#endif
