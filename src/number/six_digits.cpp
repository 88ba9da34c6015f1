// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "number/six_digits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "number/read_number.h"

namespace nordika::detail {

namespace {

char* writeAsText(char* out, double x) {
  return std::to_chars(out, out + kSixDigitsLength, x, std::chars_format::general, kDigits).ptr;
}

char* writeDigits(char* out, double m) {
  return std::to_chars(out, out + kDigits, static_cast<int>(m)).ptr;
}

// Steps back over the zeros before `end`, where another character precedes them.
char* withoutZeros(char* end) {
  while (end[-1] == '0')
    --end;
  return end;
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
  const int binary = binaryExponent(x);
  if (!isOrdinaryExponent(binary)) return writeAsText(out, x);
  int e = decimalExponent(a, binary);
  const int k = kDigits - 1 - e;
  double m = k >= 0 ? nearestToProduct(a, k) : nearestToQuotient(a, -k);
  if (m == powerOfTen(kDigits)) {
    m = powerOfTen(kDigits - 1);
    ++e;
  }
  if (x < 0) *out++ = '-';
  const bool withExponent = e < -4 || e >= kDigits;
  if (!withExponent && e < 0) {
    std::copy_n("0.000", 5, out);
    return withoutZeros(writeDigits(out + 1 - e, m));
  }
  // Moves the digits before the point one place to the left, to make room for it.
  const int whole = withExponent ? 1 : e + 1;
  char* end = writeDigits(out + 1, m);
  for (int i = 0; i < whole; ++i)
    out[i] = out[i + 1];
  out[whole] = '.';
  end = withoutZeros(end);
  if (end[-1] == '.') --end;
  return withExponent ? writeExponent(end, e) : end;
}

double resolveHalf(double s, double a, double b, double c) {
  const double side = std::fma(a, b, c);
  return side > 0 ? std::ceil(s) : side < 0 ? std::floor(s) : nearestInteger(s);
}

double roundThroughText(double x) {
  if (x == 0 || !std::isfinite(x)) return x;
  char room[kSixDigitsLength];
  std::string_view text(room, static_cast<std::size_t>(writeAsText(room, x) - room));
  return extractNumber(text).value();
}

}  // namespace nordika::detail
