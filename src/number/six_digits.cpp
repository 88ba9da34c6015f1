// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "number/six_digits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace nordika::detail {

namespace {

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
  const int binary = binaryExponent(x);
  if (!isOrdinary(binary)) return writeAsText(out, x);
  int e = decimalExponent(a, binary);
  const int k = kDigits - 1 - e;
  double m = k >= 0 ? nearestToProduct(a, k) : nearestToQuotient(a, -k);
  if (m == powerOfTen(kDigits)) {
    m = powerOfTen(kDigits - 1);
    ++e;
  }
  char room[kDigits];
  std::to_chars(room, room + kDigits, static_cast<int>(m));
  const std::string_view all(room, kDigits);
  const std::string_view digits = all.substr(0, all.find_last_not_of('0') + 1);

  const auto append = [&out](std::string_view text) {
    out = std::copy(text.begin(), text.end(), out);
  };
  if (x < 0) append("-");
  const bool withExponent = e < -4 || e >= kDigits;
  if (!withExponent && e < 0) {
    append(std::string_view("0.000").substr(0, static_cast<std::size_t>(1 - e)));
    append(digits);
    return out;
  }
  const std::size_t whole = withExponent ? 1 : static_cast<std::size_t>(e + 1);
  append(all.substr(0, whole));
  if (digits.size() > whole) {
    append(".");
    append(digits.substr(whole));
  }
  return withExponent ? writeExponent(out, e) : out;
}

double nearestBesideHalf(double s, double a, double b, double c) {
  const double side = std::fma(a, b, c);
  return side > 0 ? std::ceil(s) : side < 0 ? std::floor(s) : nearestInteger(s);
}

double roundThroughText(double x) {
  if (x == 0 || !std::isfinite(x)) return x;
  char text[kSixDigitsLength];
  double rounded = 0;
  std::from_chars(text, writeAsText(text, x), rounded);
  return rounded;
}

}  // namespace nordika::detail
