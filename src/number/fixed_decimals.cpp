// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "number/fixed_decimals.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>

#include "number/powers_of_ten.h"

namespace nordika::detail {

namespace {

// Below it, a number of six decimals times 10^6 is below 2^51.
constexpr double kLargestFast = 1e9;

// The text of any number at the end of the room, without padding.
char* writeAsText(char (&room)[kFixedLength], double x, int decimals) {
  char* const end = std::to_chars(room, std::end(room), x, std::chars_format::fixed, decimals).ptr;
  return std::copy_backward(static_cast<char*>(room), end, std::end(room));
}

// The same for |x| < kLargestFast, digit by digit from the last one.
char* writeDigits(char (&room)[kFixedLength], double x, int decimals) {
  auto digits = static_cast<std::uint64_t>(nearestToProduct(std::abs(x), decimals));
  char* out = std::end(room);
  for (int i = 0; i < decimals; ++i, digits /= 10)
    *--out = static_cast<char>('0' + digits % 10);
  *--out = '.';
  do {
    *--out = static_cast<char>('0' + digits % 10);
    digits /= 10;
  } while (digits > 0);
  if (std::signbit(x)) *--out = '-';
  return out;
}

}  // namespace

std::string_view writeFixed(char (&room)[kFixedLength], double x, int width, int decimals) {
  char* out =
      std::abs(x) < kLargestFast ? writeDigits(room, x, decimals) : writeAsText(room, x, decimals);
  while (std::end(room) - out < width)
    *--out = ' ';
  return {out, static_cast<std::size_t>(std::end(room) - out)};
}

}  // namespace nordika::detail
