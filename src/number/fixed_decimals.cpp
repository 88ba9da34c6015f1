// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "number/fixed_decimals.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "number/powers_of_ten.h"

namespace nordika::detail {

namespace {

// Below it, a number of six decimals times 10^6 is below 2^51.
constexpr double kLargestFast = 1e9;

constexpr int kLargestWidth = 16;

// The text of any number, moved behind its padding.
char* writeAsText(char* out, double x, int width, int decimals) {
  char* const end =
      std::to_chars(out, out + kFixedLength, x, std::chars_format::fixed, decimals).ptr;
  char* const paddedEnd = std::max(end, out + width);
  std::fill(out, std::copy_backward(out, end, paddedEnd), ' ');
  return paddedEnd;
}

// Zero or one, copied: most elements of triangular factors and permutations. A Newton
// run of four equations takes 5 % longer with their digits computed.
char* writeZeroOrOne(char* out, bool isOne, int width, int decimals) {
  static constexpr char kZero[] = "              0.00000000000000";
  const int point = std::max(width - decimals - 1, 1);
  std::memcpy(out, kZero + kLargestWidth - 1 - point, kLargestWidth);
  if (isOne) out[point - 1] = '1';
  return out + point + 1 + decimals;
}

// |x| < kLargestFast: blanks, then digit by digit from the last one. By way of
// std::to_chars() a Newton run takes 9 to 15 % longer.
char* writeDigits(char* out, double x, int width, int decimals) {
  const double rounded = nearestToProduct(std::abs(x), decimals);
  const bool isNegative = std::signbit(x);
  int length = decimals + (isNegative ? 3 : 2);
  for (int i = decimals + 1; rounded >= powerOfTen(i); ++i)
    ++length;
  std::memset(out, ' ', kLargestWidth);
  char* const end = out + std::max(length, width);
  char* place = end;
  auto digits = static_cast<std::uint64_t>(static_cast<std::int64_t>(rounded));
  for (int i = 0; i < decimals; ++i, digits /= 10)
    *--place = static_cast<char>('0' + digits % 10);
  *--place = '.';
  do {
    *--place = static_cast<char>('0' + digits % 10);
    digits /= 10;
  } while (digits > 0);
  if (isNegative) *--place = '-';
  return end;
}

}  // namespace

char* writeFixed(char* out, double x, int width, int decimals) {
  if ((x == 0 && !std::signbit(x)) || x == 1) return writeZeroOrOne(out, x == 1, width, decimals);
  if (std::abs(x) < kLargestFast) return writeDigits(out, x, width, decimals);
  return writeAsText(out, x, width, decimals);
}

}  // namespace nordika::detail
