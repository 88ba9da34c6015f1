// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TESTS_MATRICES_H
#define NORDIKA_TESTS_MATRICES_H

#include <cmath>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "nordika/matrix.h"

using Vector = std::vector<double>;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

inline Matrix matrixOf(const std::vector<Vector>& rows) {
  Matrix a(static_cast<int>(rows.size()));
  for (int i = 0; i < a.dimension(); ++i)
    a[i] = rows.begin()[i];
  return a;
}

/// All digits and signs of a matrix, with one text for every NaN.
inline std::string printed(const Matrix& a) {
  std::ostringstream text;
  text.precision(17);
  for (int i = 0; i < a.dimension(); ++i) {
    for (int j = 0; j < a.dimension(); ++j)
      text << (std::isnan(a(i, j)) ? kNan : a(i, j)) << " ";
    text << "\n";
  }
  return text.str();
}

/// An n × n matrix of elements between -1 and 1.
inline Matrix randomMatrix(int n, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> element(-1, 1);
  Matrix a(n);
  for (int i = 0; i < n; ++i) {
    for (double& x : a[i])
      x = element(random);
  }
  return a;
}

#endif
