// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TESTS_MATRICES_H
#define NORDIKA_TESTS_MATRICES_H

#include <cmath>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "nordika/matrix.h"

inline Matrix matrixOf(const std::vector<std::vector<double>>& rows) {
  Matrix a(static_cast<int>(rows.size()));
  for (int i = 0; i < a.dimension(); ++i)
    a[i] = rows[static_cast<std::size_t>(i)];
  return a;
}

inline std::vector<std::vector<double>> rowsOf(const Matrix& a) {
  std::vector<std::vector<double>> rows;
  for (int i = 0; i < a.dimension(); ++i)
    rows.push_back(a[i]);
  return rows;
}

/// All digits and signs of a matrix, with one text for every NaN.
inline std::string printed(const Matrix& a) {
  std::ostringstream text;
  text.precision(17);
  for (const auto& row : rowsOf(a)) {
    for (const double element : row)
      text << (std::isnan(element) ? std::abs(element) : element) << " ";
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
