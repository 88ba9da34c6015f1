// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/square.h"

#include <cmath>

double squareThroughPow(double x) {
  const volatile double two = 2;
  return std::pow(x, two);
}
