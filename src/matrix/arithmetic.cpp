// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <cstdlib>

#include "matrix/checks.h"
#include "nordika/matrix.h"

using nordika::detail::checkRowLengths;

double dotProduct(const std::vector<double>& u, const std::vector<double>& v) {
  if (u.size() != v.size()) throw VectorWrongDimensions();
  double sum = 0;
  for (std::size_t i = 0; i < u.size(); ++i)
    sum += u[i] * v[i];
  return sum;
}

std::vector<double> operator+(const std::vector<double>& u, const std::vector<double>& v) {
  if (u.size() != v.size()) throw MatrixWrongDimensions();
  std::vector<double> sum = u;
  for (std::size_t i = 0; i < v.size(); ++i)
    sum[i] += v[i];
  return sum;
}

std::vector<double> operator-(const std::vector<double>& u, const std::vector<double>& v) {
  if (u.size() != v.size()) throw MatrixWrongDimensions();
  std::vector<double> difference = u;
  for (std::size_t i = 0; i < v.size(); ++i)
    difference[i] -= v[i];
  return difference;
}

double norm(const std::vector<double>& v) {
  double maximum = 0;
  for (const double element : v) {
    if (std::abs(element) > maximum) maximum = std::abs(element);
  }
  return maximum;
}

double norm2(const std::vector<double>& v) {
  double sum = 0;
  for (const double element : v)
    sum += element * element;
  return sum;
}

double norm(const Matrix& a) {
  checkRowLengths(a);
  double maximum = 0;
  for (int i = 0; i < a.dimension(); ++i) {
    double sum = 0;
    for (int j = 0; j < a.dimension(); ++j)
      sum += std::abs(a(i, j));
    if (sum > maximum) maximum = sum;
  }
  return maximum;
}

double off(const Matrix& a) {
  checkRowLengths(a);
  double sum = 0;
  for (int i = 1; i < a.dimension(); ++i) {
    for (int j = 0; j < i; ++j)
      sum += a(i, j) * a(i, j);
  }
  return std::sqrt(sum);
}

Matrix getIdentityMatrix(int n) {
  Matrix identity(n);
  for (int i = 0; i < n; ++i)
    identity(i, i) = 1;
  return identity;
}

Matrix tensor_product(const std::vector<double>& u, const std::vector<double>& v) {
  if (u.size() != v.size()) throw VectorWrongDimensions();
  Matrix product(static_cast<int>(u.size()));
  for (int i = 0; i < product.dimension(); ++i) {
    for (int j = 0; j < product.dimension(); ++j)
      product(i, j) = u.begin()[i] * v.begin()[j];
  }
  return product;
}

double round(double x, int digits) {
  double power = 1;
  // An infinite power stays infinite, so that the loop may end there.
  for (long long left = std::llabs(digits); left > 0 && !std::isinf(power); --left)
    power *= 10;
  if (digits < 0) power = 1 / power;
  return std::round(x * power) / power;
}

int sign(const double& x) {
  return x >= 0 ? 1 : -1;
}
