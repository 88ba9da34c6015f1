// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "trace/six_digits.h"

#include <charconv>
#include <cmath>

char* writeSixDigits(char* out, double x) {
  return std::to_chars(out, out + kSixDigitsLength, x, std::chars_format::general, 6).ptr;
}

double roundToSixDigits(double x) {
  if (!std::isfinite(x)) return x;
  char text[kSixDigitsLength];
  double rounded = 0;
  std::from_chars(text, writeSixDigits(text, x), rounded);
  return rounded;
}
