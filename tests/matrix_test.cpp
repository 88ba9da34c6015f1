// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/matrix.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <vector>

#include "capture.h"
#include "matrices.h"

namespace {

using Vector = std::vector<double>;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(Matrix, ReportsMisuseByType) {
  const Matrix a = matrixOf({{1, 2}, {3, 4}});
  Matrix b = a;
  const Vector three = {1, 2, 3};
  EXPECT_THROW(Matrix(-1), std::bad_alloc);
  EXPECT_THROW(getIdentityMatrix(-1), std::bad_alloc);
  EXPECT_THROW(Matrix(0)[0], MatrixIndexOutOfBound);
  for (const int index : {-1, 2}) {
    EXPECT_THROW(a[index], MatrixIndexOutOfBound);
    EXPECT_THROW(b[index][0] = 1, MatrixIndexOutOfBound);
    EXPECT_THROW(b.swapRows(0, index), MatrixIndexOutOfBound);
    EXPECT_THROW(b.swapColumns(index, 0), MatrixIndexOutOfBound);
    EXPECT_THROW(b.insertColumn(index, three), MatrixIndexOutOfBound);
  }
  EXPECT_THROW(b.insertColumn(1, three), MatrixWrongDimensions);
  EXPECT_THROW(a * three, MatrixWrongDimensions);
  EXPECT_THROW(a * Matrix(3), MatrixWrongDimensions);
  EXPECT_THROW(a + Matrix(1), MatrixWrongDimensions);
  EXPECT_THROW(a - Matrix(), MatrixWrongDimensions);
  EXPECT_THROW(three + Vector{1}, MatrixWrongDimensions);
  EXPECT_THROW(three - Vector{1}, MatrixWrongDimensions);
  EXPECT_THROW(dotProduct(three, {1}), VectorWrongDimensions);
  EXPECT_THROW(tensor_product(three, {1}), VectorWrongDimensions);
  EXPECT_EQ(rowsOf(b), rowsOf(a));
}

TEST(Matrix, ComputesElementByElement) {
  const Matrix a = matrixOf({{1, 2}, {3, 4}});
  const Matrix b = matrixOf({{0, -1}, {5, 0.5}});
  EXPECT_EQ(rowsOf(a * b), rowsOf(matrixOf({{10, 0}, {20, -1}})));
  EXPECT_EQ(rowsOf(a + b), rowsOf(matrixOf({{1, 1}, {8, 4.5}})));
  EXPECT_EQ(rowsOf(a - b), rowsOf(matrixOf({{1, 3}, {-2, 3.5}})));
  EXPECT_EQ(rowsOf(a * 2.0), rowsOf(matrixOf({{2, 4}, {6, 8}})));
  EXPECT_EQ(rowsOf(a.transposed()), rowsOf(matrixOf({{1, 3}, {2, 4}})));
  EXPECT_EQ(a * Vector({1, -1}), Vector({-1, -1}));
  EXPECT_EQ(rowsOf(tensor_product({1, 2}, {3, 4})), rowsOf(matrixOf({{3, 4}, {6, 8}})));
  Matrix c = a;
  c.swapRows(0, 1);
  c.swapColumns(0, 0);
  c.insertColumn(1, {1.006, -2.345});
  c.doRound();
  EXPECT_EQ(rowsOf(c), rowsOf(matrixOf({{3, 1.01}, {1, -2.35}})));
  c.swapColumns(1, 0);
  EXPECT_EQ(rowsOf(c), rowsOf(matrixOf({{1.01, 3}, {-2.35, 1}})));
}

TEST(Matrix, MeasuresAndJudges) {
  EXPECT_EQ(norm2({3, 4}), 25);
  EXPECT_EQ(norm(Vector{3, -4, kNan}), 4);
  EXPECT_EQ(norm(Vector{}), 0);
  EXPECT_EQ(norm(matrixOf({{1, -2}, {3, 0}})), 3);
  EXPECT_EQ(off(matrixOf({{1, 5}, {2, 1}})), 2);
  EXPECT_EQ(dotProduct({}, {}), 0);
  EXPECT_TRUE(matrixOf({{1, 2}, {2.000009, 1}}).isSymmetrical());
  EXPECT_FALSE(matrixOf({{1, 2}, {2.00002, 1}}).isSymmetrical());
  EXPECT_TRUE(matrixOf({{1, kNan}, {2, 1}}).isSymmetrical());
  EXPECT_TRUE(Matrix(0).isSymmetrical() && Matrix(0).isTridiagonal());
  for (const double corner : {1e-300, kNan}) {
    Matrix a = getIdentityMatrix(3);
    EXPECT_TRUE(a.isTridiagonal());
    a[0][2] = corner;
    EXPECT_FALSE(a.isTridiagonal());
    EXPECT_FALSE(a.transposed().isTridiagonal());
  }
}

// A sum whose value depends on the order of its terms.
TEST(Matrix, SumsInIndexOrder) {
  const Vector terms = {1e16, 1, -1e16, 1};
  const Vector ones(4, 1.0);
  EXPECT_EQ(dotProduct(terms, ones), 1);
  Matrix a(4);
  a[2] = terms;
  EXPECT_EQ((a * ones)[2], 1);
  EXPECT_EQ((a * matrixOf({ones, ones, ones, ones}))[2][3], 1);
  EXPECT_EQ(norm2({1e8, 1, 1}), 1e16);
}

TEST(Round, GoesThroughTheProductInDoubles) {
  EXPECT_EQ(round(1.005, 2), 1);
  EXPECT_EQ(round(2.675, 2), 2.68);
  EXPECT_EQ(round(-2.5, 0), -3);
  EXPECT_EQ(round(1.2345, 2), 1.23);
  EXPECT_EQ(round(1250, -2), 1300);
  EXPECT_TRUE(std::isnan(round(0, 400)));
  EXPECT_TRUE(std::isnan(round(1, std::numeric_limits<int>::max())));
  EXPECT_TRUE(std::isnan(round(1, std::numeric_limits<int>::min())));
  EXPECT_EQ(sign(0.0) + sign(-0.0) + sign(5), 3);
  EXPECT_EQ(sign(kNan) + sign(-1e-300), -2);
}

TEST(LUP, KeepsItsOutputsAsTheyWereWhenItStops) {
  struct Case {
    Matrix a, L, U, P;
    int swaps;
    bool singular;
  };
  const Matrix unit = getIdentityMatrix(2);
  const Matrix exchange = matrixOf({{0, 1}, {1, 0}});
  const Case cases[] = {
      {exchange, unit, unit, exchange, 1, false},
      {matrixOf({{1, 2}, {2, 4}}), matrixOf({{1, 0}, {0.5, 1}}), matrixOf({{2, 4}, {0, 0}}),
       exchange, 1, true},
      {matrixOf({{1e-9, 0}, {0, 1e-9}}), unit, matrixOf({{1e-9, 0}, {0, 1e-9}}), unit, 0, true},
      {matrixOf({{1, 2}, {-1, 3}}), matrixOf({{1, 0}, {-1, 1}}), matrixOf({{1, 2}, {0, 5}}), unit,
       0, false},
      {matrixOf({{1e-8, 0}, {0, 1}}), unit, matrixOf({{1e-8, 0}, {0, 1}}), unit, 0, false},
      {matrixOf({{kNan, 0}, {2, 1}}), matrixOf({{1, 0}, {kNan, 1}}),
       matrixOf({{2, 1}, {kNan, kNan}}), exchange, 1, true},
      {Matrix(), Matrix(), Matrix(), Matrix(), 0, false},
  };
  for (const Case& c : cases) {
    Matrix L(5), U(1), P(7);
    int swaps = -1;
    bool singular = false;
    try {
      LUPdecomposition(c.a, L, U, P, swaps);
    } catch (const MatrixIsSingular&) {
      singular = true;
    }
    EXPECT_EQ(singular, c.singular);
    EXPECT_EQ(swaps, c.swaps);
    EXPECT_EQ(printed(L), printed(c.L));
    EXPECT_EQ(printed(U), printed(c.U));
    EXPECT_EQ(printed(P), printed(c.P));
  }
}

// The backward error of elimination with partial pivoting is a small multiple
// of n·eps·growth; 1e-12 leaves it two orders for n = 30 and elements below 1.
constexpr double kFactorTolerance = 1e-12;

TEST(LUP, FactorsAndSolvesRandomSystems) {
  for (int n = 1; n <= 30; ++n) {
    const Matrix a = randomMatrix(n, static_cast<unsigned>(n));
    Matrix L, U, P;
    int swaps = 0;
    LUPdecomposition(a, L, U, P, swaps);
    for (int i = 1; i < n; ++i) {
      for (int j = 0; j < i; ++j) {
        EXPECT_LE(std::abs(L[i][static_cast<std::size_t>(j)]), 1);
        EXPECT_EQ(L[j][static_cast<std::size_t>(i)], 0);
        U[i][static_cast<std::size_t>(j)] = 0;
      }
    }
    EXPECT_LT(norm(P * a - L * U), kFactorTolerance);
    const Vector b = a * Vector(static_cast<std::size_t>(n), 1.0);
    EXPECT_LT(norm(a * solveWithLUP(L, U, P, b) - b), kFactorTolerance);
    EXPECT_THROW(solveWithLUP(L, U, P, Vector(static_cast<std::size_t>(n + 1))),
                 MatrixWrongDimensions);
  }
}

TEST(LUP, TracesFactorsAndTheirProduct) {
  const Matrix a = matrixOf({{0.1, 2, -3}, {-7, 8, 1000}, {4, 5, 6}});
  Vector x;
  EXPECT_EQ(captureTrace([&] { x = solveWithLUP(a, {-0.9, 1001, 15}); }), golden("lup_three.txt"));
  EXPECT_LT(norm(x - Vector{1, 1, 1}), kFactorTolerance);
  EXPECT_EQ(captureTrace([&] { EXPECT_TRUE(solveWithLUP(Matrix(), Vector()).empty()); }),
            "LUP decomposition start.\nL:\nU:\nP:\nP * L * U:\nLUP decomposition stop.\n\n");
  EXPECT_EQ(captureTrace([&] { EXPECT_THROW(solveWithLUP(a, {1}), MatrixWrongDimensions); }),
            golden("lup_three.txt"));
  EXPECT_EQ(captureTrace([&] {
              EXPECT_THROW(solveWithLUP(Matrix(2), {1, 2}), MatrixIsSingular);
            }),
            "LUP decomposition start.\n");
}

TEST(Matrix, ReadsOnlyItsColumnsOfARowThatIsLonger) {
  Matrix a = matrixOf({{0, 1}, {2, 4}});
  const std::string trace = captureTrace([&] { solveWithLUP(a, {1, 2}); });
  const double largest = norm(a);
  a[1] = {2, 4, 100, 100, 100, 100, 100, 100, 100, 100};
  EXPECT_EQ(captureTrace([&] { EXPECT_EQ(solveWithLUP(a, {1, 2}), Vector({-1, 1})); }), trace);
  EXPECT_EQ(norm(a), largest);
  a.swapRows(0, 1);
  EXPECT_EQ(rowsOf(a * 1.0 + Matrix(2) - Matrix(2)), rowsOf(matrixOf({{2, 4}, {0, 1}})));
}

TEST(LUP, RefusesFactorsOfDifferentDimensions) {
  const Matrix one(1);
  const Matrix two = getIdentityMatrix(2);
  EXPECT_THROW(solveWithLUP(one, two, two, {1, 2}), MatrixWrongDimensions);
  EXPECT_THROW(solveWithLUP(two, one, two, {1, 2}), MatrixWrongDimensions);
  EXPECT_THROW(solveWithLUP(two, two, one, {1}), MatrixWrongDimensions);
}

}  // namespace
