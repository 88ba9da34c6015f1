// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

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

using six_digits::Binade;
using six_digits::Decade;
using six_digits::Digits;

// Below 1e-290 the small part of a power runs out of bits.
constexpr int kSmallestExponent = -290;

constexpr Decade decadeOf(int e) {
  const PowerOfTen& ten = powerOfTen(e - 5);
  return {powerOfTen(5 - e).nearest, ten.high, ten.low};
}

constexpr auto makeBinades() {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  std::array<Binade, 2048> binades{};
  for (int exponent = 0; exponent < 2048; ++exponent) {
    Binade& binade = binades[static_cast<std::size_t>(exponent)];
    // The floor of log10(2^(exponent-1023)), for every exponent of a double.
    binade.e = ((exponent - 1023) * 78913) >> 18;
    binade.decades[0] = binade.decades[1] = {nan, nan, nan};
    const bool below = binade.e >= kSmallestExponent;
    const bool above = binade.e + 1 >= kSmallestExponent;
    if (!above || exponent == 2047) continue;
    binade.border = std::bit_cast<std::uint64_t>(powerOfTen(binade.e + 1).nearest);
    if (below) binade.decades[1] = decadeOf(binade.e);
    if (binade.e + 1 < kLargestPower) binade.decades[0] = decadeOf(binade.e + 1);
  }
  return binades;
}

// The powers of ten at which exact ties occur.
constexpr int kSmallestTie = -9;
constexpr int kLargestTie = 22;

// The magnitude of m for digits that are not certain; -1 where text has to
// tell.
double decideNearTie(double x, double s, int e, const Decade& decade) {
  if (std::isnan(s)) return -1;
  x = std::abs(x);
  const auto floor = static_cast<std::uint32_t>(std::abs(s));
  const double c = floor + 0.5;
  const double distance = (x - c * decade.high) - c * decade.low;
  if (std::abs(distance) >= x * 0x1p-80) return floor + (distance > 0 ? 1.0 : 0.0);
  const int power = e - 5;
  if (power < kSmallestTie || power > kLargestTie) return -1;
  return floor + (floor & 1);
}

char* writeAsText(char* out, double x) {
  return std::to_chars(out, out + kSixDigitsLength, x, std::chars_format::general, 6).ptr;
}

char* writeExponent(char* out, int e) {
  *out++ = 'e';
  *out++ = e < 0 ? '-' : '+';
  const int magnitude = std::abs(e);
  if (magnitude < 10) *out++ = '0';
  return std::to_chars(out, out + 3, magnitude).ptr;
}

}  // namespace

constinit const std::array<Binade, 2048> six_digits::kBinades = makeBinades();

char* writeSixDigits(char* out, double x) {
  const Digits digits = six_digits::split(x);
  double m = std::abs(digits.m);
  if (!digits.areCertain()) [[unlikely]] {
    m = decideNearTie(x, digits.s, digits.e(), digits.decade);
    if (m < 0) return writeAsText(out, x);
  }
  const bool carried = m == 1000000;
  const int e = digits.e() + (carried ? 1 : 0);
  const std::uint64_t bytes = digitBytes(carried ? 10000000 : static_cast<std::uint64_t>(m) * 100);
  const std::uint64_t text = bytes | kDigitZeros;
  const int used = 8 - std::countl_zero(bytes) / 8;
  if (std::signbit(x)) *out++ = '-';
  const bool withExponent = e < -4 || e >= 6;
  const int whole = withExponent ? 1 : e + 1;  // digits before the point
  // Eight bytes are copied every time; those past the used ones are dropped.
  if (whole <= 0) {
    constexpr char kLeading[] = {'0', '.', '0', '0', '0'};
    std::memcpy(out, kLeading, sizeof kLeading);
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

double six_digits::roundUncertain(double x, double s, int e, const Decade& decade) {
  const double m = decideNearTie(x, s, e, decade);
  if (m >= 0) [[likely]]
    return std::copysign(m * decade.high + m * decade.low, x);
  if (x == 0 || !std::isfinite(x)) return x;
  char text[kSixDigitsLength];
  double rounded = 0;
  std::from_chars(text, writeAsText(text, x), rounded);
  return rounded;
}
