// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_EXPRESSION_SQUARE_H
#define NORDIKA_EXPRESSION_SQUARE_H

#include <bit>
#include <cstdint>

/// pow(x, 2.0) by the C library. Compilers turn a call that they can see into
/// x·x, which is not the same.
double squareThroughPow(double x);

/// pow(x, 2.0), bit for bit, at a quarter of its cost.
///
/// x·x is the double nearest to the square; what pow returns is not always
/// that one. But what the C library's pow rounds is never more than 0.05 units
/// in the last place off (it states 0.54 for the rounded result), so that the
/// two can differ only where the exact square lies within 0.05 units of the
/// middle between two doubles; just above a power of two, where the units below
/// are half as large, only the power itself is near enough to matter, and it
/// lies a quarter of a unit from the next middle. The square
/// of the mantissa has at most 106 bits, and those past the 53rd, taken as a
/// fraction, tell how far the middle is: nine times in ten it is far enough.
/// Far from 1, where squares overflow or become subnormal, pow has its way, as
/// it has with every C library whose bound is not known.
inline double squareAsPow(double x) {
#if defined(__GLIBC__) && (defined(__x86_64__) || defined(__aarch64__))
  const auto bits = std::bit_cast<std::uint64_t>(x);
  const std::uint64_t exponent = (bits >> 52) & 0x7ff;
  if (exponent - 523 <= 1000) {
    const std::uint64_t mantissa =
        (bits & ((std::uint64_t{1} << 52) - 1)) | (std::uint64_t{1} << 52);
    __extension__ const unsigned __int128 square =
        static_cast<unsigned __int128>(mantissa) * mantissa;
    // 2^104 <= square < 2^106: 52 or 53 bits are cut off.
    const int carry = static_cast<int>(square >> 105);
    const std::uint64_t fraction = static_cast<std::uint64_t>(square) << (12 - carry);
    constexpr std::uint64_t kNear = 922337203685477581;  // 0.05 · 2^64
    constexpr std::uint64_t kHalf = std::uint64_t{1} << 63;
    if (fraction - (kHalf - kNear) > 2 * kNear) return x * x;
  }
#endif
  return squareThroughPow(x);
}

#endif
