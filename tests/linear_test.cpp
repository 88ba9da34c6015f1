// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <gtest/gtest.h>
#include <string>

#include "matrices.h"
#include "nordika/matrix.h"
#include "outcome.h"

namespace {

TEST(LUP, KeepsItsOutputsAsTheyWereWhenItStops) {
  const Matrix unit = getIdentityMatrix(2);
  const Matrix exchange = {{0, 1}, {1, 0}};
  const struct {
    Matrix a, L, U, P;
    int swaps;
    const char* end;
  } cases[] = {
      {exchange, unit, unit, exchange, 1, "regular"},
      {{{1, 2}, {2, 4}}, {{1, 0}, {0.5, 1}}, {{2, 4}, {0, 0}}, exchange, 1, "singular"},
      {{{1e-9, 0}, {0, 1e-9}}, unit, {{1e-9, 0}, {0, 1e-9}}, unit, 0, "singular"},
      {{{1, 2}, {-1, 3}}, {{1, 0}, {-1, 1}}, {{1, 2}, {0, 5}}, unit, 0, "regular"},
      {{{1e-8, 0}, {0, 1}}, unit, {{1e-8, 0}, {0, 1}}, unit, 0, "regular"},
      {{{kNan, 0}, {2, 1}}, {{1, 0}, {kNan, 1}}, {{2, 1}, {kNan, kNan}}, exchange, 1, "singular"},
      {Matrix(), Matrix(), Matrix(), Matrix(), 0, "regular"},
  };
  for (const auto& c : cases) {
    Matrix L(5), U(1), P(7);
    int swaps = -1;
    const std::string end = outcomeOf([&] {
      LUPdecomposition(c.a, L, U, P, swaps);
      return "regular";
    });
    EXPECT_EQ(end, c.end);
    EXPECT_EQ(swaps, c.swaps);
    EXPECT_EQ(printed(L) + printed(U) + printed(P), printed(c.L) + printed(c.U) + printed(c.P));
  }
}

// The backward error of elimination with partial pivoting is a small multiple
// of n·eps·growth; 1e-12 leaves it two orders for n = 30 and elements below 1.
constexpr double kFactorTolerance = 1e-12;

// Gaussian elimination of the columns before `end`, each step in all columns.
void eliminate(Matrix& L, Matrix& U, Matrix& P, int end) {
  const int n = U.dimension();
  for (int k = 0; k < end; ++k) {
    int pivot = k;
    for (int i = k; i < n; ++i)
      if (std::abs(U(i, k)) > std::abs(U(pivot, k))) pivot = i;
    for (Matrix* const factor : {&L, &U, &P})
      factor->swapRows(k, pivot);
    L.swapColumns(k, pivot);
    for (int i = k + 1; i < n; ++i) {
      L(i, k) = U(i, k) / U(k, k);
      for (int j = k; j < n; ++j)
        U(i, j) -= L(i, k) * U(k, j);
    }
  }
}

TEST(LUP, FactorsRandomSystemsAsPlainEliminationAndSolvesThem) {
  for (int n = 1; n <= 13; ++n) {
    Matrix L, U, P;
    Matrix& input = n % 3 == 0 ? L : n % 3 == 1 ? U : P;
    for (int end = n; end >= 0; --end) {  // the column without a pivot, or none
      Matrix a = randomMatrix(n, static_cast<unsigned>(n));
      const Vector zeros(static_cast<std::size_t>(n));
      if (end < n) a.insertColumn(end, zeros);
      input = a;
      Matrix plainL = getIdentityMatrix(n), plainU = a, plainP = plainL;
      eliminate(plainL, plainU, plainP, end);
      int swaps = 0;
      if (end < n) {
        EXPECT_THROW(LUPdecomposition(input, L, U, P, swaps), MatrixIsSingular);
      } else {
        LUPdecomposition(input, L, U, P, swaps);
        const Vector x = solveWithLUP(L, U, P, a * a[0]);
        EXPECT_LT(norm(P * a - L * U), kFactorTolerance);
        EXPECT_LT(norm(x - a[0]), kFactorTolerance);
      }
      EXPECT_EQ(printed(L) + printed(U) + printed(P),
                printed(plainL) + printed(plainU) + printed(plainP));
    }
  }
}

TEST(LUP, TracesFactorsAndTheirProduct) {
  const Matrix a = {{0.1, 2, -3}, {-7, 8, 1000}, {4, 5, 6}};
  Vector x;
  EXPECT_EQ(captureTrace([&] { x = solveWithLUP(a, {-0.9, 1001, 15}); }), golden("lup_three.txt"));
  EXPECT_LT(norm(x - Vector{1, 1, 1}), kFactorTolerance);
  EXPECT_EQ(captureTrace([&] { EXPECT_THROW(solveWithLUP(a, {1}), MatrixWrongDimensions); }),
            golden("lup_three.txt"));
  EXPECT_EQ(captureTrace([] { EXPECT_THROW(solveWithLUP(Matrix(1), {1}), MatrixIsSingular); }),
            "LUP decomposition start.\n");
}

// Condition numbers below 1e3 let rounding errors of 1e-16 grow to some 1e-13.
constexpr double kDirectTolerance = 1e-11;

TEST(Inverse, AgreesWithPublishedMatrices) {
  // Segment of the Hilbert matrix: M.-D. Choi, Tricks or treats with the Hilbert
  // matrix, Amer. Math. Monthly 90 (1983).
  const Matrix hilbert = {
      {1, 1.0 / 2, 1.0 / 3}, {1.0 / 2, 1.0 / 3, 1.0 / 4}, {1.0 / 3, 1.0 / 4, 1.0 / 5}};
  const Matrix inverse = {{9, -36, 30}, {-36, 192, -180}, {30, -180, 180}};
  EXPECT_NEAR(calcDeterminantWithLUP(hilbert), 1.0 / 2160, kDirectTolerance);
  EXPECT_LT(norm(calcInverseMatrixWithLUP(hilbert) - inverse), kDirectTolerance);
  EXPECT_EQ(calcDeterminantWithLUP(Matrix{{0, 1e300, 0}, {1e-7, 0, 0}, {0, 0, 1e10}}), -1e303);
  const Matrix cycle = {{0, 2, 0}, {0, 0, 2}, {2, 0, 0}};
  EXPECT_EQ(calcDeterminantWithLUP(cycle), 8);
  EXPECT_EQ(printed(calcInverseMatrixWithLUP(cycle)), "0 0 0.5 \n0.5 0 0 \n0 0.5 0 \n");
  EXPECT_EQ(calcDeterminantWithLUP(calcInverseMatrixWithLUP(Matrix())), 1);
  EXPECT_THROW(calcDeterminantWithLUP(Matrix{{1, 2}, {2, 4}}), MatrixIsSingular);
  EXPECT_THROW(calcInverseMatrixWithLUP(Matrix{{1, 0}, {0, 9e-9}}), MatrixIsSingular);
}

TEST(Tridiagonal, TracesTheSweep) {
  const std::string start = "Tridiagonal matrix algorithm start.\n";
  const std::string stop = "Tridiagonal matrix algorithm stop.\n\n";
  Vector x;
  const auto solve = [&x](const Matrix& a, const Vector& d) {
    return captureTrace([&] { x = solveTridiagonalMatrixAlgo(a, d); });
  };
  EXPECT_EQ(solve(Matrix{{2, 1, 0}, {1, 3, 1}, {0, 1, 2}}, {3, 5, 3}),
            golden("tridiagonal_three.txt"));
  EXPECT_LT(norm(x - Vector{1, 1, 1}), kDirectTolerance);
  EXPECT_EQ(solve(Matrix{{4}}, {-1}), start + "Q[1] = -0.25\n\nresult[1] = -0.25\n" + stop);
  EXPECT_EQ(solve(Matrix{{0}}, {-1}), start + "Q[1] = -inf\n\nresult[1] = -inf\n" + stop);
  const Matrix band = {{4, 1, 0, 0}, {2, 5, -1, 0}, {0, 3, 6, 2}, {0, 0, -2, 7}};
  const Vector solution = {1, -2, 3, 4};
  solve(band, band * solution);
  EXPECT_LT(norm(x - solution), kDirectTolerance);
  solve(Matrix{{1, 0}, {7, 10}}, {1, 10});
  EXPECT_EQ(x, Vector({1, 0.3}));
  solve(Matrix{{1, 1}, {1, 1}}, {1, 2});
  EXPECT_EQ(x, Vector({-kInfinity, kInfinity}));
  Matrix corner = getIdentityMatrix(3);
  corner[2][0] = 1e-300;
  EXPECT_EQ(captureTrace([&] {
              EXPECT_THROW(solveTridiagonalMatrixAlgo(corner, {1, 1, 1}), MatrixIsNotTridiagonal);
              EXPECT_THROW(solveTridiagonalMatrixAlgo(Matrix(), {}), MatrixIndexOutOfBound);
              EXPECT_THROW(solveTridiagonalMatrixAlgo(corner, {1, 1}), MatrixWrongDimensions);
            }),
            start + start);
}

TEST(IterativeSolvers, TraceEveryIteration) {
  const Matrix a = {{4, 1}, {2, 5}};
  const Vector b = {5, 7};
  int iters = 0;
  EXPECT_EQ(captureTrace([&] { solveSimpleIterations(a, b, 1e-2, iters); }),
            golden("linear_simple_iterations_two.txt"));
  EXPECT_EQ(captureTrace([&] { solveSiedel(a, b, 1e-2, iters); }), golden("seidel_two.txt"));
  for (const auto solve : {solveSimpleIterations, solveSiedel})
    EXPECT_EQ(captureTrace([&] { EXPECT_THROW(solve(a, {1}, 1, iters), MatrixWrongDimensions); }),
              "");
}

TEST(IterativeSolvers, StopWithinTheAccuracy) {
  // R. L. Burden, J. D. Faires, Numerical Analysis, section 7.3, example 1.
  const Matrix burden = {{10, -1, 2, 0}, {-1, 11, -1, 3}, {2, -1, 10, -1}, {0, 3, -1, 8}};
  const struct {
    Matrix a;
    Vector b, x;
    double eps;
    int simple, seidel;
  } rows[] = {
      {Matrix{{4, 1}, {2, 5}}, {5, 7}, {1, 1}, 1e-5, 13, 7},
      {Matrix{{4, 1}, {2, 5}}, {5, 7}, {1, 1}, 5.066666666667, 1, 1},
      {burden, {6, 25, -11, 15}, {1, 2, -1, 1}, 1e-8, 27, 11},
      {Matrix{{10}}, {0x3p20}, {0x3p20 * 0.1}, 1e-300, 1, 1},
      // q = 1.5: the estimate is the change, 1.5 in the first iteration.
      {Matrix{{1, 0}, {1.5, 1}}, {1, 3.5}, {1, 2}, 2, 1, 1},
      {Matrix{{1, 0}, {1.5, 1}}, {1, 3.5}, {1, 2}, 1.5, 2, 2},
      {Matrix{{1, 0}, {1, 1}}, {1, 2}, {1, 1}, 0.5, 2, 2},  // q = 1
      // (1/49)·49 is not 1, and what remains takes part.
      {Matrix{{49}}, {1}, {1.0 / 49}, 1e-17, 2, 2},
  };
  for (const auto& row : rows) {
    for (const auto solve : {solveSimpleIterations, solveSiedel}) {
      int iters = 0;
      Vector x;
      captureTrace([&] { x = solve(row.a, row.b, row.eps, iters); });
      // The estimate bounds the error, roundings of 1e-16 aside.
      EXPECT_LT(norm(x - row.x), row.eps + 1e-15);
      EXPECT_EQ(iters, solve == solveSiedel ? row.seidel : row.simple);
    }
  }
}

}  // namespace
