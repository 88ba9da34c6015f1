// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// A double below 2^53 is M·2^-s with integers M < 2^53 and s > 0. Its decimals
// come from the integer nearest to M·10^d / 2^s, ties to even: the numerator
// has at most 80 bits, so that quotient and remainder are exact in 128.

#include "trace/fixed_decimals.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "trace/digit_bytes.h"
#include "trace/powers_of_ten.h"

namespace {

// Below it, the number times 10^8 is below 10^18.
constexpr double kLargestFast = 1e10;

constexpr std::uint64_t kTens[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

// The integer nearest to magnitude·10^decimals.
std::uint64_t scaledToInteger(double magnitude, int decimals) {
  const auto bits = std::bit_cast<std::uint64_t>(magnitude);
  const int exponent = static_cast<int>(bits >> 52);
  const int shift = 1075 - exponent;
  // So small, or subnormal, that nothing but zeros is printed.
  if (shift > 100) return 0;
  const std::uint64_t mantissa = (bits & ((std::uint64_t{1} << 52) - 1)) | (std::uint64_t{1} << 52);
  const Uint128 scaled = Uint128{mantissa} * kTens[decimals];
  const auto quotient = static_cast<std::uint64_t>(scaled >> shift);
  const Uint128 remainder = scaled & ((Uint128{1} << shift) - 1);
  const Uint128 half = Uint128{1} << (shift - 1);
  const bool up = remainder > half || (remainder == half && quotient % 2 != 0);
  return quotient + (up ? 1 : 0);
}

char* pad(char* out, char* end, int width) {
  const auto length = end - out;
  if (length >= width) return end;
  std::memmove(out + width - length, out, static_cast<std::size_t>(length));
  std::memset(out, ' ', static_cast<std::size_t>(width - length));
  return out + width;
}

}  // namespace

char* writeFixed(char* out, double x, int width, int decimals) {
  const double magnitude = std::abs(x);
  if (!(magnitude < kLargestFast)) {
    char* const end =
        std::to_chars(out, out + kFixedLength, x, std::chars_format::fixed, decimals).ptr;
    return pad(out, end, width);
  }
  const std::uint64_t scaled = scaledToInteger(magnitude, decimals);
  const std::uint64_t whole = scaled / kTens[decimals];
  const std::uint64_t fraction = scaled % kTens[decimals];
  char text[32];
  char* end = text;
  if (std::signbit(x)) *end++ = '-';
  end = std::to_chars(end, text + sizeof text, whole).ptr;
  *end++ = '.';
  const std::uint64_t digits = digitBytes(fraction * kTens[8 - decimals]) | kDigitZeros;
  std::memcpy(end, &digits, sizeof digits);
  const auto length = static_cast<int>(end - text) + decimals;
  const int blanks = length < width ? width - length : 0;
  std::memset(out, ' ', 16);
  std::memcpy(out + blanks, text, sizeof text);
  return out + blanks + length;
}
