// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "capture.h"
#include "matrices.h"
#include "nordika/matrix.h"

namespace {

// Condition numbers below 1e3 let rounding errors of 1e-16 grow to some 1e-13.
constexpr double kDirectTolerance = 1e-11;

TEST(Inverse, AgreesWithPublishedMatrices) {
  // Segment of the Hilbert matrix: M.-D. Choi, Tricks or treats with the Hilbert
  // matrix, Amer. Math. Monthly 90 (1983).
  const Matrix hilbert =
      matrixOf({{1, 1.0 / 2, 1.0 / 3}, {1.0 / 2, 1.0 / 3, 1.0 / 4}, {1.0 / 3, 1.0 / 4, 1.0 / 5}});
  const Matrix inverse = matrixOf({{9, -36, 30}, {-36, 192, -180}, {30, -180, 180}});
  EXPECT_NEAR(calcDeterminantWithLUP(hilbert), 1.0 / 2160, kDirectTolerance);
  EXPECT_LT(norm(calcInverseMatrixWithLUP(hilbert) - inverse), kDirectTolerance);
  EXPECT_EQ(calcDeterminantWithLUP(matrixOf({{0, 1}, {1, 0}})), -1);
  const Matrix cycle = matrixOf({{0, 2, 0}, {0, 0, 2}, {2, 0, 0}});
  EXPECT_EQ(calcDeterminantWithLUP(cycle), 8);
  EXPECT_EQ(printed(calcInverseMatrixWithLUP(cycle)), "0 0 0.5 \n0.5 0 0 \n0 0.5 0 \n");
  EXPECT_EQ(calcDeterminantWithLUP(Matrix()), 1);
  EXPECT_EQ(calcInverseMatrixWithLUP(Matrix()).dimension(), 0);
  EXPECT_THROW(calcDeterminantWithLUP(matrixOf({{1, 2}, {2, 4}})), MatrixIsSingular);
  EXPECT_THROW(calcInverseMatrixWithLUP(matrixOf({{1, 0}, {0, 9e-9}})), MatrixIsSingular);
}

TEST(Tridiagonal, TracesTheSweep) {
  const std::string start = "Tridiagonal matrix algorithm start.\n";
  const std::string stop = "Tridiagonal matrix algorithm stop.\n\n";
  Vector x;
  const auto solve = [&x](const Matrix& a, const Vector& d) {
    return captureTrace([&] { x = solveTridiagonalMatrixAlgo(a, d); });
  };
  EXPECT_EQ(solve(matrixOf({{2, 1, 0}, {1, 3, 1}, {0, 1, 2}}), {3, 5, 3}),
            golden("tridiagonal_three.txt"));
  EXPECT_LT(norm(x - Vector{1, 1, 1}), kDirectTolerance);
  EXPECT_EQ(solve(matrixOf({{4}}), {-1}), start + "Q[1] = -0.25\n\nresult[1] = -0.25\n" + stop);
  EXPECT_EQ(solve(matrixOf({{0}}), {-1}), start + "Q[1] = -inf\n\nresult[1] = -inf\n" + stop);
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
  const Matrix a = matrixOf({{4, 1}, {2, 5}});
  const Vector b = {5, 7};
  int iters = 0;
  EXPECT_EQ(captureTrace([&] { solveSimpleIterations(a, b, 1e-2, iters); }),
            golden("linear_simple_iterations_two.txt"));
  EXPECT_EQ(captureTrace([&] { solveSiedel(a, b, 1e-2, iters); }), golden("seidel_two.txt"));
  EXPECT_THROW(solveSiedel(a, {1}, 1, iters), MatrixWrongDimensions);
}

TEST(IterativeSolvers, StopWithinTheAccuracy) {
  // R. L. Burden, J. D. Faires, Numerical Analysis, section 7.3, example 1.
  const Matrix burden = matrixOf({{10, -1, 2, 0}, {-1, 11, -1, 3}, {2, -1, 10, -1}, {0, 3, -1, 8}});
  const struct {
    Matrix a;
    Vector b, x;
    double eps;
    int simple, seidel;
  } rows[] = {
      {matrixOf({{4, 1}, {2, 5}}), {5, 7}, {1, 1}, 1e-5, 13, 7},
      {burden, {6, 25, -11, 15}, {1, 2, -1, 1}, 1e-8, 27, 11},
      {matrixOf({{3, 0}, {0, -2}}), {6, 6}, {2, -3}, 1e-300, 1, 1},
      {Matrix(), {}, {}, 1e-300, 1, 1},
      // (1/49)·49 is not 1, and what remains takes part.
      {matrixOf({{49}}), {1}, {1.0 / 49}, 1e-17, 2, 2},
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
