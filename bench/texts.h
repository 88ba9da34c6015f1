// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_BENCH_TEXTS_H
#define NORDIKA_BENCH_TEXTS_H

#include <cmath>

#include "number/six_digits.h"

/// The measured expressions. byHand() computes the same: it rounds its arguments
/// as the engine does and uses pow for ^.
inline constexpr const char* kTexts[] = {
    "sin(x1)^2+a*x2-1",
    "x1^2+x2^2-4",
    "0.5*cos(x2)-0.1*x3+a",
    "sin(x1)*cos(x2)+exp(x3/10)-ln(abs(x4)+1)+sqrt(x1^2+x2^2)*arctg(x3)-0.5*x1*x2*x3*x4+"
    "(x1+x2)*(x3-x4)/(1+x1^2)+sinh(x1/5)-cosh(x2/5)+a*(x1-2*x2+3*x3-4*x4)+log10(x4^2+1)+"
    "(x2-x3)^2/(2+cos(x4)^2)+0.25*x1-0.75*x2+1.5*x3-2.5*x4",
};

/// The exponent of every square. It is volatile so that the compiler does not
/// replace pow.
inline volatile double two = 2;

using nordika::detail::roundToSixDigits;

inline double byHand(int text, const double* values, double a) {
  const double x1 = roundToSixDigits(values[0]);
  const double x2 = roundToSixDigits(values[1]);
  const double x3 = roundToSixDigits(values[2]);
  const double x4 = roundToSixDigits(values[3]);
  using namespace std;
  switch (text) {
    case 0:
      return pow(sin(x1), two) + a * x2 - 1;
    case 1:
      return pow(x1, two) + pow(x2, two) - 4;
    case 2:
      return 0.5 * cos(x2) - 0.1 * x3 + a;
    default:
      return sin(x1) * cos(x2) + exp(x3 / 10) - log(abs(x4) + 1) +
             sqrt(pow(x1, two) + pow(x2, two)) * atan(x3) - 0.5 * x1 * x2 * x3 * x4 +
             (x1 + x2) * (x3 - x4) / (1 + pow(x1, two)) + sinh(x1 / 5) - cosh(x2 / 5) +
             a * (x1 - 2 * x2 + 3 * x3 - 4 * x4) + log10(pow(x4, two) + 1) +
             pow(x2 - x3, two) / (2 + pow(cos(x4), two)) + 0.25 * x1 - 0.75 * x2 + 1.5 * x3 -
             2.5 * x4;
  }
}

#endif
