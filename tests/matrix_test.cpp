// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/matrix.h"

#include <cmath>
#include <complex>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <vector>

#include "matrices.h"
#include "outcome.h"

namespace {

TEST(Matrix, ReportsMisuseByType) {
  const Matrix a = {{1, 2}, {3, 4}};
  Matrix b = a;
  const Matrix one(1);
  const Vector three = {1, 2, 3};
  EXPECT_THROW(Matrix(-1), std::bad_alloc);
  EXPECT_THROW(getIdentityMatrix(-1), std::bad_alloc);
  EXPECT_THROW(Matrix(0)[0], MatrixIndexOutOfBound);
  for (const int index : {-1, 2}) {
    EXPECT_THROW(a[index], MatrixIndexOutOfBound);
    EXPECT_THROW(b[index][0] = 1, MatrixIndexOutOfBound);
    EXPECT_THROW(b.swapRows(0, index), MatrixIndexOutOfBound);
    EXPECT_THROW(b.swapColumns(index, 0), MatrixIndexOutOfBound);
    EXPECT_THROW(b.swapColumns(0, index), MatrixIndexOutOfBound);
    EXPECT_THROW(b.insertColumn(index, three), MatrixIndexOutOfBound);
  }
  EXPECT_THROW(b.insertColumn(1, three), MatrixWrongDimensions);
  EXPECT_THROW(a * three, MatrixWrongDimensions);
  EXPECT_THROW(a * Matrix(3), MatrixWrongDimensions);
  EXPECT_THROW(a + one, MatrixWrongDimensions);
  EXPECT_THROW(a - Matrix(), MatrixWrongDimensions);
  EXPECT_THROW(solveWithLUP(one, a, a, {1, 2}), MatrixWrongDimensions);
  EXPECT_THROW(solveWithLUP(a, one, a, {1, 2}), MatrixWrongDimensions);
  EXPECT_THROW(solveWithLUP(a, a, one, {1}), MatrixWrongDimensions);
  EXPECT_THROW(solveWithLUP(a, a, a, three), MatrixWrongDimensions);
  EXPECT_THROW(three + Vector{1}, MatrixWrongDimensions);
  EXPECT_THROW(three - Vector{1}, MatrixWrongDimensions);
  EXPECT_THROW(dotProduct(three, {1}), VectorWrongDimensions);
  EXPECT_THROW(tensor_product(three, {1}), VectorWrongDimensions);
  EXPECT_EQ(printed(b), printed(a));
  EXPECT_THROW((Matrix{{1, 2}, {3}}), MatrixWrongDimensions);
  EXPECT_THROW((Matrix{{1, 2}}), MatrixWrongDimensions);
}

// Every operation is tried on a matrix that has lost an element of one row.
TEST(Matrix, RefusesARowThatIsTooShort) {
  const Matrix whole = {{4, 1}, {1, 3}};
  const Vector v = {1, 2};
  Matrix Q, R, L = whole;
  int count = 0;
  Vector values;
  std::vector<std::complex<double>> roots;
  const std::function<void(Matrix&)> operations[] = {
      [&](Matrix& a) { a* v; },
      [&](Matrix& a) { a * 2.0; },
      [&](Matrix& a) { a* whole; },
      [&](Matrix& a) { whole* a; },
      [&](Matrix& a) { a + whole; },
      [&](Matrix& a) { whole + a; },
      [&](Matrix& a) { a - whole; },
      [&](Matrix& a) { whole - a; },
      [&](Matrix& a) { a.transposed(); },
      [&](Matrix& a) { a.swapRows(0, 1); },
      [&](Matrix& a) { a.swapColumns(0, 1); },
      [&](Matrix& a) { a.insertColumn(1, v); },
      [&](Matrix& a) { a.doRound(); },
      [&](Matrix& a) { a.isTridiagonal(); },
      [&](Matrix& a) { a.isSymmetrical(); },
      [&](Matrix& a) { norm(a); },
      [&](Matrix& a) { off(a); },
      [&](Matrix& a) { LUPdecomposition(a, L, Q, R, count); },
      [&](Matrix& a) { solveWithLUP(a, whole, whole, v); },
      [&](Matrix& a) { solveWithLUP(whole, a, whole, v); },
      [&](Matrix& a) { solveWithLUP(whole, whole, a, v); },
      [&](Matrix& a) { solveWithLUP(a, v); },
      [&](Matrix& a) { calcDeterminantWithLUP(a); },
      [&](Matrix& a) { calcInverseMatrixWithLUP(a); },
      [&](Matrix& a) { solveTridiagonalMatrixAlgo(a, v); },
      [&](Matrix& a) { solveSimpleIterations(a, v, 1, count); },
      [&](Matrix& a) { solveSiedel(a, v, 1, count); },
      [&](Matrix& a) { QRdecomposition(a, Q, R); },
      [&](Matrix& a) { getEigenvaluesWithQR(a, 1, roots, count); },
      [&](Matrix& a) { getEigenvaluesWithJacobi(a, 1, values, Q, count); }};
  std::string begun;  // the first words of their traces
  for (const auto& operation : operations) {
    for (const int i : {0, 1}) {
      Matrix a = whole;
      a[i] = {1};
      const std::string trace = captureTrace(
          [&] { EXPECT_THROW(operation(a), MatrixWrongDimensions) << &operation - operations; });
      begun += trace.substr(0, trace.find(' '));
      EXPECT_EQ(a[1 - i], whole[1 - i]);
    }
  }
  EXPECT_EQ(begun, "LUPLUPTridiagonalTridiagonalQRQRJacobiJacobi");
  EXPECT_EQ(printed(L), printed(whole));
}

TEST(Matrix, ComputesElementByElement) {
  const Matrix a = {{1, 2}, {3, 4}};
  const Matrix b = {{0, -1}, {5, 0.5}};
  EXPECT_EQ(printed(Matrix{2}), "0 0 \n0 0 \n");
  EXPECT_EQ(printed(a * b), "10 0 \n20 -1 \n");
  EXPECT_EQ(printed(a + b), "1 1 \n8 4.5 \n");
  EXPECT_EQ(printed(a - b), "1 3 \n-2 3.5 \n");
  EXPECT_EQ(printed(a * 2.0), "2 4 \n6 8 \n");
  EXPECT_EQ(printed(a.transposed()), "1 3 \n2 4 \n");
  EXPECT_EQ(a * Vector({1, -1}), Vector({-1, -1}));
  EXPECT_EQ(printed(tensor_product({1, 2}, {3, 4})), "3 4 \n6 8 \n");
  Matrix c = a;
  c.swapRows(0, 1);
  c.swapColumns(0, 0);
  c.insertColumn(1, {-0.004, -2.754});
  c.doRound();
  EXPECT_EQ(printed(c), "3 -0 \n1 -2.75 \n");
  c.swapColumns(1, 0);
  EXPECT_EQ(printed(c), "-0 3 \n-2.75 1 \n");
  c.insertColumn(1, c[0]);
  EXPECT_EQ(printed(c), "-0 -0 \n-2.75 3 \n");
}

TEST(Matrix, MeasuresAndJudges) {
  EXPECT_EQ(norm2({3, norm(Vector{3, -4, kNan})}), 25);
  EXPECT_EQ(norm(Matrix{{1, -2, 0}, {3, 0, 0}, {kNan, 0, 0}}), 3);
  EXPECT_EQ(off(Matrix{{1, 5}, {2, 1}}), 2);
  EXPECT_TRUE(Matrix({{1, 1e-5}, {0, 1}}).isSymmetrical());
  EXPECT_FALSE(Matrix({{1, 20}, {20.00002, 1}}).isSymmetrical());
  EXPECT_TRUE(Matrix({{1, kNan}, {2, 1}}).isSymmetrical());
  EXPECT_FALSE(Matrix({{1, 0, 0}, {0, 1, 2}, {0, 3, 1}}).isSymmetrical());
  for (const double corner : {1e-300, kNan}) {
    Matrix a = getIdentityMatrix(3);
    EXPECT_TRUE(a.isTridiagonal());
    a[0][2] = corner;
    EXPECT_FALSE(a.isTridiagonal());
    EXPECT_FALSE(a.transposed().isTridiagonal());
    a[0][2] = 2;
    EXPECT_FALSE(a.isSymmetrical());
  }
}

// A sum whose value depends on the order of its terms.
TEST(Matrix, SumsInIndexOrder) {
  const Vector terms = {1e16, 1, -1e16, 1};
  const Vector ones(4, 1.0);
  EXPECT_EQ(dotProduct(terms, ones), 1);
  Matrix rows = tensor_product(ones, ones);
  rows[0] = terms;
  EXPECT_EQ(rows * ones, Vector({1, 4, 4, 4}));
  EXPECT_EQ(norm2({1e8, 1, 1}), 1e16);
  EXPECT_EQ(off(Matrix{{0, 0, 0, 0}, {0, 0, 0, 0}, {1, 1, 0, 0}, {1e8, 0, 0, 0}}),
            std::sqrt(1e16 + 2));
  const Matrix I = getIdentityMatrix(1);
  const Vector sums = {dotProduct({0}, {-1}), (I * Vector{-0.0})[0],
                       solveWithLUP(I, I, I, {-0.0})[0]};
  EXPECT_GT(1 / sums[0] + 1 / sums[1] + 1 / sums[2], 0);  // none is -0
  Matrix L = getIdentityMatrix(4), U = L;
  L[3] = {1e17, -1e17, 1, 2};
  U[0] = {10, 1e17, -1e17, 3};
  EXPECT_EQ(solveWithLUP(L, U, getIdentityMatrix(4), ones), Vector({0.3, 1, 1, -1}));
  // Products are computed in columns or panels, with rows and columns left over.
  for (const int n : {1, 4, 7, 40, 41, 42, 47}) {
    Matrix a = randomMatrix(n, 1), b = randomMatrix(n, 2), product(n);
    a(n / 2, 0) = 0;
    b(0, n / 2) = std::numeric_limits<double>::infinity();
    for (int i = 0; i < n; ++i) {
      for (int j = 0; j < n; ++j)
        product(i, j) = dotProduct(a[i], b.transposed()[j]);
    }
    EXPECT_EQ(printed(a * b), printed(product));
    for (int i = 0; i < n; ++i) {
      for (Matrix* const factor : {&a, &b})
        (*factor)[i].insert((*factor)[i].end(), 9, kNan);
    }
    EXPECT_EQ(printed(a * b), printed(product));
  }
}

TEST(Round, GoesThroughTheProductInDoubles) {
  EXPECT_EQ(round(1.005, 2), 1);
  EXPECT_EQ(round(2.675, 2), 2.68);
  EXPECT_EQ(round(-2.5, 0), -3);
  EXPECT_EQ(round(1.5e5, -5), 2 / 1e-5);
  EXPECT_EQ(round(1e-25, 25), 1.0000000000000002e-25);
  EXPECT_TRUE(std::isnan(round(0, 400)));
  for (const int digits : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
    EXPECT_TRUE(std::isnan(round(1, digits)));
  EXPECT_EQ(sign(0.0) + sign(-0.0) + sign(5), 3);
  EXPECT_EQ(sign(kNan) + sign(-1e-300), -2);
}

TEST(Matrix, ReadsOnlyItsColumnsOfARowThatIsLonger) {
  Matrix a = {{0, 1}, {2, 4}};
  const std::string trace = captureTrace([&] { solveWithLUP(a, {1, 2}); });
  const double largest = norm(a);
  a[0] = {0, 1, 100};
  a[1] = {2, 4, 100, 100, 100, 100, 100, 100, 100, 100};
  Matrix L, U, P;
  int swaps = 0;
  LUPdecomposition(a, L, U, P, swaps);
  EXPECT_EQ(U[0].size() + U[1].size(), 4);
  for (Matrix* const factor : {&L, &U, &P})
    for (const int row : {0, 1})
      (*factor)[row].push_back(kNan);
  EXPECT_EQ(solveWithLUP(L, U, P, {1, 2}), Vector({-1, 1}));
  EXPECT_EQ(captureTrace([&] { EXPECT_EQ(solveWithLUP(a, {1, 2}), Vector({-1, 1})); }), trace);
  EXPECT_EQ(norm(a), largest);
  EXPECT_EQ(a * Vector({1, 1}), Vector({1, 6}));
  a.swapRows(0, 1);
  EXPECT_EQ(printed((a + Matrix(2)) + (a - Matrix(2)) - a * 1.0), "2 4 \n0 1 \n");
}

}  // namespace
