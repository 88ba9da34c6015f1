// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TRACE_DIGIT_BYTES_H
#define NORDIKA_TRACE_DIGIT_BYTES_H

#include <bit>
#include <cstdint>

// A word is copied to memory as text.
static_assert(std::endian::native == std::endian::little);

/// Turns the bytes of digitBytes() into characters when or-ed to them.
constexpr std::uint64_t kDigitZeros = 0x3030303030303030;

/// The eight decimal digits of n < 10^8 as the bytes of a word, the first digit
/// lowest: both halves of four digits, then all quarters, then all digits are
/// split at once, by multiplications that divide small numbers exactly.
constexpr std::uint64_t digitBytes(std::uint64_t n) {
  const std::uint64_t halves = n / 10000 | (n % 10000) << 32;
  const std::uint64_t hundreds = ((halves * 10486) >> 20) & 0x7f0000007f;
  const std::uint64_t quarters = hundreds | (halves - hundreds * 100) << 16;
  const std::uint64_t tens = ((quarters * 103) >> 10) & 0x000f000f000f000f;
  return tens | (quarters - tens * 10) << 8;
}

#endif
