// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>
#include <complex>
#include <functional>
#include <gtest/gtest.h>
#include <numbers>
#include <string>
#include <vector>

#include "matrices.h"
#include "nordika/solver.h"
#include "outcome.h"

namespace {

using std::numbers::sqrt2;
using Roots = std::vector<std::complex<double>>;

// Orthogonal transforms of up to 12 rows of elements near 1: some hundred
// roundings of 1e-16 each.
constexpr double kOrthogonalTolerance = 1e-13;

// Matrices on which a shortcut could part from the whole product: zeros of both
// signs, columns of zeros, tiny and huge elements, some that are not finite.
std::vector<Matrix> awkwardMatrices() {
  const double specials[] = {0.0, -0.0, 1e-200, -5e-324, 1e150, 1.7e308, kNan, -kInfinity};
  std::vector<Matrix> matrices = {getIdentityMatrix(3) * 2.0};
  for (unsigned seed = 0; seed < 150; ++seed) {
    std::mt19937 random(seed);
    const int n = 1 + static_cast<int>(seed % 6);
    Matrix a = randomMatrix(n, seed);
    const auto size = a[0].size();
    // What is not finite soon hides all the rest.
    const bool finite = seed % 3 > 0;
    for (auto changes = finite ? random() % 20 : 1; changes > 0; --changes)
      a[n / 2][random() % size] = a[0][random() % size] = specials[random() % 4 + (finite ? 0 : 4)];
    if (seed % 7 == 1) a.insertColumn(n / 2, Vector(size, -0.0));
    matrices.push_back(a);
  }
  return matrices;
}

TEST(QR, IsTheProductOfItsReflectionsBitByBit) {
  for (const Matrix& a : awkwardMatrices()) {
    const int n = a.dimension();
    Matrix Q = getIdentityMatrix(n);
    Matrix W = a;
    for (int k = 0; k < n - 1; ++k) {
      Vector v = W.transposed()[k];
      std::fill_n(v.begin(), k, 0.0);
      v.begin()[k] += sign(v.begin()[k]) * std::sqrt(norm2(v));
      const Matrix H = getIdentityMatrix(n) - tensor_product(v, v) * (2 / dotProduct(v, v));
      Q = Q * H;
      W = H * W;
    }
    Matrix inPlace = a, R = a;
    QRdecomposition(n % 2 == 0 ? inPlace : R, inPlace, R);
    EXPECT_EQ(printed(inPlace), printed(Q));
    EXPECT_EQ(printed(R), printed(W));
  }
}

TEST(QR, KeepsWhatItTransforms) {
  for (int n = 0; n <= 12; ++n) {
    const Matrix a = randomMatrix(n, static_cast<unsigned>(n));
    // Every iterate keeps the trace of the matrix, blocks with their pairs too.
    Roots roots;
    int iters = 0;
    captureTrace([&] { getEigenvaluesWithQR(a, kInfinity, roots, iters); });
    std::complex<double> sum;
    for (int i = 0; i < n; ++i)
      sum += roots.begin()[i] - a(i, i);
    EXPECT_LT(std::abs(sum), kOrthogonalTolerance);
  }
}

TEST(Eigenvalues, AgreeWithPublishedOnes) {
  const Matrix pairs = {
      {0, -3, 0, 0, 0}, {3, 0, 0, 0, 0}, {1, 1, 1, 0, 0}, {0, 0, 0, 0, -1}, {0, 0, 0, 1, 0}};
  const double root = std::sqrt(39) / 2;
  const struct {
    Matrix a;
    double eps;
    int iters;
    Roots roots;
  } rows[] = {
      {Matrix{{3, 0, 0}, {0, 2, 0}, {0, 0, 1}}, 1e-300, 2, {3, 2, 1}},
      {Matrix{{0, -1}, {1, 0}}, 1e-300, 2, {{0, 1}, {0, -1}}},
      {Matrix{{7}}, 1e-300, 2, {7}},
      {Matrix{{0, -9e153}, {9e153, 0}}, 1, 2, {{0, kInfinity}, {0, -kInfinity}}},
      // The second change of the pair is eps itself, by rounding.
      {Matrix{{-5, -5}, {2, -4}}, 0x1p-50, 5, {{-4.5, root}, {-4.5, -root}}},
      {pairs, 1e-9, 19, {{0, 3}, {0, -3}, 1, {0, 1}, {0, -1}}},
      {Matrix{{4, 0, 0}, {0, 2, 0}, {1, 0, 1}}, 1e-9, 15, {4, 2, 1}},
      {Matrix{{1, 1}, {1e-9, 2}}, 1e-8, 2, {1, 2}},
      // Companion matrix of (x - 4)(x - 2)(x - 1): an iteration halves what
      // stands below its roots.
      {Matrix{{7, -14, 8}, {1, 0, 0}, {0, 1, 0}}, 1e-9, 29, {4, 2, 1}},
      // The second difference: Golub, Van Loan, Matrix Computations, section 4.8.
      {Matrix{{2, -1, 0}, {-1, 2, -1}, {0, -1, 2}}, 1e-9, 10, {2 + sqrt2, 2, 2 - sqrt2}},
  };
  for (const auto& row : rows) {
    Roots roots = {1, 2, 3, 4, 5};
    int iters = 0;
    captureTrace([&] { getEigenvaluesWithQR(row.a, row.eps, roots, iters); });
    EXPECT_EQ(iters, row.iters);
    if (row.a.isSymmetrical()) {
      Vector values = {1, 2, 3, 4, 5};
      Matrix V;
      captureTrace([&] { getEigenvaluesWithJacobi(row.a, row.eps, values, V, iters); });
      std::sort(values.rbegin(), values.rend());
      roots.insert(roots.end(), values.begin(), values.end());
    }
    const std::size_t n = row.roots.size();
    ASSERT_EQ(roots.size(), row.a.isSymmetrical() ? 2 * n : n);
    for (std::size_t i = 0; i < roots.size(); ++i)
      EXPECT_FALSE(std::abs(roots[i] - row.roots[i % n]) > 100 * row.eps + kOrthogonalTolerance);
  }
}

constexpr int kEndless = 100;

// Makes M diagonal by whole products and gathers the rotations in V.
// @return the iteration count, or kEndless, as where an overflow leaves the
//   angle at 0 for good
int diagonalise(Matrix& M, Matrix& V, double eps) {
  const int n = M.dimension();
  for (int k = 1; k < kEndless; ++k) {
    int p = -1, q = -1;
    double best = -1;
    for (int at = 0; at < n * n; ++at) {
      const double size = std::abs(M(at / n, at % n));
      if (at / n != at % n && size > best) best = size, p = at / n, q = at % n;
    }
    if (p < 0) return k;
    const double angle = std::atan(2 * M(p, q) / (M(p, p) - M(q, q))) / 2;
    Matrix U = getIdentityMatrix(n);
    U(p, p) = U(q, q) = std::cos(angle);
    U(q, p) = std::sin(angle);
    U(p, q) = -U(q, p);
    M = U.transposed() * M * U;
    V = V * U;
    if (eps > off(M)) return k;
  }
  return kEndless;
}

TEST(Jacobi, GivesTheBitsOfWholeProducts) {
  int compared = 0;
  for (Matrix a : awkwardMatrices()) {
    for (int i = 0; i < a.dimension(); ++i)
      a.insertColumn(i, a[i]);
    const double eps = 1e-10 * (1 + norm(a));
    Matrix M = a, V = getIdentityMatrix(a.dimension());
    const int count = diagonalise(M, V, eps);
    if (count == kEndless) continue;
    ++compared;
    Vector values;
    Matrix vectors;
    int iters = 0;
    captureTrace([&] { getEigenvaluesWithJacobi(a, eps, values, vectors, iters); });
    EXPECT_EQ(iters, count);
    EXPECT_EQ(printed(vectors), printed(V));
    Matrix diagonal = M;
    for (int i = 0; i < a.dimension(); ++i)
      diagonal(i, i) = values.begin()[i];
    EXPECT_EQ(printed(diagonal), printed(M));
  }
  EXPECT_GT(compared, 100);
}

TEST(Eigenvalues, TraceEveryIteration) {
  Roots roots;
  int iters = 0;
  const Matrix a = {{100, 1, -1}, {1, 0, -2}, {0, 1, 1}};
  EXPECT_EQ(captureTrace([&] { getEigenvaluesWithQR(a, 1e-2, roots, iters); }),
            golden("qr_three.txt"));
  // No real roots; an estimate of -1; zeros of both signs.
  const std::string blocks = captureTrace([&] {
    for (const Matrix& block :
         {Matrix{{0, -1}, {1, 0}}, Matrix{{8, 13}, {-8, -8}}, Matrix{{0, -9e153}, {9e153, 0}}})
      getEigenvaluesWithQR(block, 1, roots, iters);
  });
  EXPECT_EQ(blocks, golden("qr_blocks.txt"));
  Vector values;
  Matrix V = {{2, -0.0, 1, 0}, {0, 7, -0.0, -3}, {1, 0, 2, -0.0}, {-0.0, -3, 0, 7}};
  EXPECT_EQ(captureTrace([&] { getEigenvaluesWithJacobi(Matrix(V), 1e-5, values, V, iters); }),
            golden("jacobi_four.txt"));
  EXPECT_LT(norm(values - Vector{3, 10, 1, 4}), kOrthogonalTolerance);
  // The eigenvectors may replace the matrix.
  V = Matrix{{2, 1}, {1, 2}};
  captureTrace([&] { getEigenvaluesWithJacobi(V, V(1, 0), values, V, iters); });
  EXPECT_LT(norm(values - Vector{3, 1}), kOrthogonalTolerance);
  NewtonProblem none;
  const auto solveNothing = [&] {
    EXPECT_THROW(getEigenvaluesWithJacobi(a, 1, values, V, iters), MatrixIsNotSymmetrical);
    EXPECT_EQ(V.dimension(), 2);
    getEigenvaluesWithQR(Matrix(), 1, roots, iters);
    getEigenvaluesWithJacobi(Matrix(), 1, values, V, iters);
    solveSimpleIterations(Matrix(), {}, 1, iters);
    solveSiedel(Matrix(), {}, 1, iters);
    solve_nonlinear_system_newton(none, 1, iters);
    calcInverseMatrixWithLUP(a);  // silent
  };
  EXPECT_EQ(captureTrace(solveNothing), golden("empty.txt"));
}

TEST(LimitedMethods, GiveUpAfterTheTraceOfTheLastIteration) {
  const Matrix a = {{2, 1}, {1, 2}};
  const Matrix ones = {{1, 1}, {1, 1}};
  const Matrix noDiagonal = {{0, 2}, {2, 1}};
  const Vector b = {1, 1};
  Vector values = {7};
  Roots roots = {7};
  Matrix V;
  const struct {
    std::function<void(int&)> run;
    std::string last;
  } rows[] = {
      // Where q is 1 the factor is 1; an estimate of eps itself stops nothing.
      {[&](int& iters) { solveSimpleIterations(ones, b, 1, iters); },
       "Result: 0 0\nEpsilon: 1\n\n"},
      {[&](int& iters) { solveSiedel(noDiagonal, b, 1, iters); }, "nan\n\n"},
      {[&](int& iters) { getEigenvaluesWithJacobi(a, 0, values, V, iters); },
       "Matrix:\n  3.000000   0.000000 \n  0.000000   1.000000 \n\n"},
      {[&](int& iters) { getEigenvaluesWithQR(a, 0, roots, iters); },
       "Roots of characteristic polynomial:\n3\n1\nEpsilon (for real roots): 0\n\n"},
  };
  for (const auto& row : rows) {
    int iters = -1;
    std::string trace = captureTrace([&] { EXPECT_THROW(row.run(iters), MaxItersCountAchieved); });
    EXPECT_EQ(iters, -1);
    trace.erase(0, trace.rfind("Iteration"));
    EXPECT_TRUE(trace.starts_with("Iteration: 100001\n") && trace.ends_with(row.last)) << trace;
  }
  EXPECT_NEAR(V[0][0], std::sqrt(0.5), kOrthogonalTolerance);
  EXPECT_TRUE(values == Vector{7} && roots == Roots{7});
}

}  // namespace
