// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "number/six_digits.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace nordika::detail {

namespace {

constexpr int kDigits = 6;

char* writeAsText(char* out, double x) {
  return std::to_chars(out, out + kSixDigitsLength, x, std::chars_format::general, kDigits).ptr;
}

char* writeExponent(char* out, int e) {
  *out++ = 'e';
  *out++ = e < 0 ? '-' : '+';
  if (std::abs(e) < 10) *out++ = '0';
  return std::to_chars(out, out + 2, std::abs(e)).ptr;
}

}  // namespace

char* writeSixDigits(char* out, double x) {
  const double a = std::abs(x);
  if (!isOrdinary(a)) return writeAsText(out, x);
  int e = decimalExponent(a);
  double m = e <= 5 ? nearestToProduct(a, 5 - e) : nearestToQuotient(a, e - 5);
  if (m == 1000000) {
    m = 100000;
    ++e;
  }
  char digits[kDigits];
  std::to_chars(digits, digits + kDigits, static_cast<int>(m));
  const char* end = digits + kDigits;
  while (end[-1] == '0')
    --end;
  if (x < 0) *out++ = '-';
  const bool withExponent = e < -4 || e >= kDigits;
  if (!withExponent && e < 0) {
    out = std::copy_n("0.000", 1 - e, out);
    return std::copy(static_cast<const char*>(digits), end, out);
  }
  const char* const point = digits + (withExponent ? 1 : e + 1);
  out = std::copy(static_cast<const char*>(digits), point, out);
  if (end > point) {
    *out++ = '.';
    out = std::copy(point, end, out);
  }
  return withExponent ? writeExponent(out, e) : out;
}

double roundThroughText(double x) {
  if (x == 0 || !std::isfinite(x)) return x;
  char text[kSixDigitsLength];
  double rounded = 0;
  std::from_chars(text, writeAsText(text, x), rounded);
  return rounded;
}

}  // namespace nordika::detail
