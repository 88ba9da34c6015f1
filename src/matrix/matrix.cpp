// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/matrix.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <new>
#include <utility>

#include "matrix/checks.h"

using nordika::detail::checkRowLengths;

namespace {

std::size_t rowCount(int n) {
  if (n < 0) throw std::bad_alloc();
  return static_cast<std::size_t>(n);
}

}  // namespace

Matrix::Matrix(int n) : rows(rowCount(n), std::vector<double>(rowCount(n))) {}

Matrix::Matrix(std::initializer_list<std::vector<double>> elements) : rows(elements) {
  for (const std::vector<double>& row : rows)
    checkDimension(row.size());
}

void Matrix::checkIndices(int i, int j) const {
  const int n = dimension();
  if (i < 0 || i >= n || j < 0 || j >= n) throw MatrixIndexOutOfBound();
}

void Matrix::checkDimension(std::size_t n) const {
  if (rows.size() != n) throw MatrixWrongDimensions();
}

std::vector<double> Matrix::operator*(const std::vector<double>& v) const {
  checkDimension(v.size());
  checkRowLengths(*this);
  std::vector<double> product(v.size());
  for (std::size_t i = 0; i < v.size(); ++i) {
    double sum = 0;
    for (std::size_t j = 0; j < v.size(); ++j)
      sum += rows[i][j] * v[j];
    product[i] = sum;
  }
  return product;
}

Matrix Matrix::operator*(const double& s) const {
  checkRowLengths(*this);
  Matrix product(dimension());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    std::transform(rows[i].begin(), rows[i].begin() + dimension(), product.rows[i].begin(),
                   [s](double element) { return element * s; });
  }
  return product;
}

template <typename Operation>
Matrix Matrix::combined(const Matrix& b, Operation operation) const {
  checkDimension(b.rows.size());
  checkRowLengths(*this);
  checkRowLengths(b);
  Matrix result(dimension());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    std::transform(rows[i].begin(), rows[i].begin() + dimension(), b.rows[i].begin(),
                   result.rows[i].begin(), operation);
  }
  return result;
}

Matrix Matrix::operator+(const Matrix& b) const {
  return combined(b, std::plus<>());
}

Matrix Matrix::operator-(const Matrix& b) const {
  return combined(b, std::minus<>());
}

Matrix Matrix::transposed() const {
  checkRowLengths(*this);
  Matrix transpose(dimension());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t j = 0; j < rows.size(); ++j)
      transpose.rows[i][j] = rows[j][i];
  }
  return transpose;
}

void Matrix::swapRows(int i, int j) {
  checkIndices(i, j);
  checkRowLengths(*this);
  std::swap_ranges((*this)[i].begin(), (*this)[i].begin() + dimension(), (*this)[j].begin());
}

void Matrix::swapColumns(int i, int j) {
  checkIndices(i, j);
  checkRowLengths(*this);
  for (auto& row : rows)
    std::swap(row.begin()[i], row.begin()[j]);
}

void Matrix::insertColumn(int j, const std::vector<double>& v) {
  checkIndices(j, j);
  checkDimension(v.size());
  checkRowLengths(*this);
  // A copy: v may be a row of this matrix.
  const std::vector<double> column(v.begin(), v.end());
  for (std::size_t i = 0; i < rows.size(); ++i)
    rows[i].begin()[j] = column[i];
}

void Matrix::doRound() {
  checkRowLengths(*this);
  for (auto& row : rows) {
    for (double& element : row)
      element = round(element, 2);
  }
}

bool Matrix::isTridiagonal() const {
  checkRowLengths(*this);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t j = 0; j < rows.size(); ++j) {
      const bool inBand = i <= j + 1 && j <= i + 1;
      if (!inBand && rows[i][j] != 0.0) return false;
    }
  }
  return true;
}

bool Matrix::isSymmetrical() const {
  checkRowLengths(*this);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t j = i + 1; j < rows.size(); ++j) {
      if (std::abs(rows[i][j] - rows[j][i]) > 1e-5) return false;
    }
  }
  return true;
}
