// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// Six digits without text.
//
// A positive x is m·10^(e-5) once rounded to six significant digits, with
// 10^e <= x < 10^(e+1) and an integer m of six digits. Three questions have to
// be answered as exactly as text answers them.
//
// Which e? The binary exponent gives it or one less; comparing with the double
// nearest to 10^(e+1) settles it. Where that double lies below the true power
// and x equals it, e is one too large, and m comes out as 100000 all the same.
//
// Which m? s = x·10^(5-e) is below 2^20. Its rounding error and that of the
// power are at most 2^-33 each, so that s is off by at most 2^-32: unless s is
// within 2^-31 of a half, the integer nearest to it is the one nearest to the
// true value. Near a half, where x almost equals c·10^(e-5), c = m + 1/2:
//   - exact ties need x to be a double and c·10^(e-5) at once, hence 5^(e-5)
//     below 2^53 or 5^(5-e) dividing 2c < 2^21, hence -9 <= e-5 <= 22. There
//     both sides are compared as integers of at most 128 bits, ties to even.
//   - elsewhere the sign of (x - c·H) - c·L decides, where H + L = 10^(e-5):
//     c·H is exact (21 and 32 bits), x - c·H is exact (Sterbenz), and c·L is
//     off by less than 2^-84·x. A difference smaller than 2^-80·x, if there is
//     any, is left to text.
//
// Which double is nearest to m·10^(e-5)? m·H + m·L: m·H is exact, m·L has a
// relative error of 2^-53 and is 2^-32 of the sum, so that the sum is rounded
// once from a value with 84 good bits. For no m and e does the true value lie
// so close to the middle of two doubles that this errs; all 900,001 · 600 of
// them have been compared with std::from_chars.
//
// Zero, values below 1e-290, infinities and NaN go through text.

#include "trace/six_digits.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "trace/digit_bytes.h"
#include "trace/powers_of_ten.h"

namespace {

constexpr double kSmallest = 1e-290;
constexpr double kNearTie = 0.5 - 0x1p-31;

// Adding it to a double below 2^51 rounds that to an integer.
constexpr double kToInteger = 0x1p52;

enum class Side { below, above, unknown };

Side sideOf(Uint128 x, Uint128 tie, bool floorIsOdd) {
  if (x == tie) return floorIsOdd ? Side::above : Side::below;
  return x > tie ? Side::above : Side::below;
}

// Where x lies against (floor + 1/2)·10^power, with -9 <= power <= 22.
Side compareAsIntegers(double x, std::uint32_t floor, int power) {
  const auto bits = std::bit_cast<std::uint64_t>(x);
  Uint128 left = (bits & ((std::uint64_t{1} << 52) - 1)) | (std::uint64_t{1} << 52);
  Uint128 right = 2 * std::uint64_t{floor} + 1;
  const int exponent = static_cast<int>(bits >> 52) - 1075;
  // left·2^shift against right, after the factors 5 have gone to their side.
  const int shift = exponent + 1 - power;
  for (int i = power; i < 0; ++i)
    left *= 5;
  for (int i = 0; i < power; ++i)
    right *= 5;
  if (shift >= 0) {
    left <<= shift;
  } else {
    right <<= -shift;
  }
  return sideOf(left, right, floor % 2 != 0);
}

Side compareAsSums(double x, std::uint32_t floor, int power) {
  const PowerOfTen& ten = powerOfTen(power);
  const double c = floor + 0.5;
  const double difference = (x - c * ten.high) - c * ten.low;
  if (std::abs(difference) < x * 0x1p-80) return Side::unknown;
  return difference > 0 ? Side::above : Side::below;
}

// The integer next to s, given that x lies almost in the middle of two; -1
// where that cannot be told.
[[gnu::noinline]] double decideNearTie(double x, double s, int power) {
  const auto floor = static_cast<std::uint32_t>(s);
  const Side side = power >= -9 && power <= 22 ? compareAsIntegers(x, floor, power)
                                               : compareAsSums(x, floor, power);
  if (side == Side::unknown) return -1;
  return floor + (side == Side::above ? 1.0 : 0.0);
}

bool isInRange(double magnitude) {
  constexpr auto lowest = std::bit_cast<std::uint64_t>(kSmallest);
  constexpr auto infinity = std::bit_cast<std::uint64_t>(std::numeric_limits<double>::infinity());
  return std::bit_cast<std::uint64_t>(magnitude) - lowest < infinity - lowest;
}

// m·10^power, 10^5 <= m <= 10^6; m = -1 where the digits could not be told.
struct SixDigits {
  double m;
  int power;
};

SixDigits split(double x) {
  const int binary = static_cast<int>(std::bit_cast<std::uint64_t>(x) >> 52) - 1023;
  // The floor of binary·log10(2), for every exponent of a double.
  int e = (binary * 78913) >> 18;
  e += x >= powerOfTen(e + 1).nearest ? 1 : 0;
  const double s = x * powerOfTen(5 - e).nearest;
  double m = (s + kToInteger) - kToInteger;
  if (std::abs(s - m) > kNearTie) [[unlikely]]
    m = decideNearTie(x, s, e - 5);
  return {m, e - 5};
}

[[gnu::noinline]] char* writeAsText(char* out, double x) {
  return std::to_chars(out, out + kSixDigitsLength, x, std::chars_format::general, 6).ptr;
}

[[gnu::noinline]] double roundThroughText(double x) {
  if (!std::isfinite(x)) return x;
  char text[kSixDigitsLength];
  double rounded = 0;
  std::from_chars(text, writeAsText(text, x), rounded);
  return rounded;
}

char* writeExponent(char* out, int e) {
  *out++ = 'e';
  *out++ = e < 0 ? '-' : '+';
  const int magnitude = std::abs(e);
  if (magnitude < 10) *out++ = '0';
  return std::to_chars(out, out + 3, magnitude).ptr;
}

}  // namespace

char* writeSixDigits(char* out, double x) {
  const double magnitude = std::abs(x);
  if (!isInRange(magnitude)) return writeAsText(out, x);
  const SixDigits digits = split(magnitude);
  if (digits.m < 0) return writeAsText(out, x);
  const bool carried = digits.m == 1000000;
  const int e = digits.power + 5 + (carried ? 1 : 0);
  const std::uint64_t bytes =
      digitBytes(carried ? 10000000 : static_cast<std::uint64_t>(digits.m) * 100);
  const std::uint64_t text = bytes | kDigitZeros;
  const int used = 8 - std::countl_zero(bytes) / 8;
  if (std::signbit(x)) *out++ = '-';
  const bool withExponent = e < -4 || e >= 6;
  const int whole = withExponent ? 1 : e + 1;  // digits before the point
  // Eight bytes are copied every time; those past the used ones are dropped.
  if (whole <= 0) {
    std::memcpy(out, "0.000000", 8);
    out += 2 - whole;
    std::memcpy(out, &text, 8);
    return out + used;
  }
  std::memcpy(out, &text, 8);
  out += whole;
  if (used > whole) {
    *out++ = '.';
    const std::uint64_t decimals = text >> (8 * whole);
    std::memcpy(out, &decimals, 8);
    out += used - whole;
  }
  return withExponent ? writeExponent(out, e) : out;
}

double roundToSixDigits(double x) {
  const double magnitude = std::abs(x);
  if (!isInRange(magnitude)) [[unlikely]]
    return x == 0 ? x : roundThroughText(x);
  const SixDigits digits = split(magnitude);
  if (digits.m < 0) [[unlikely]]
    return roundThroughText(x);
  const PowerOfTen& ten = powerOfTen(digits.power);
  return std::copysign(digits.m * ten.high + digits.m * ten.low, x);
}
