// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <Eigen/Dense>
#include <benchmark/benchmark.h>
#include <cmath>
#include <random>

#include "matrix/matrix.h"

namespace {

Matrix randomMatrix(int n) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> element(-1, 1);
  Matrix a(n);
  for (int i = 0; i < n; ++i) {
    for (double& x : a[i])
      x = element(random);
  }
  return a;
}

Eigen::MatrixXd eigenMatrix(const Matrix& a) {
  const int n = a.dimension();
  Eigen::MatrixXd m(n, n);
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j)
      m(i, j) = a[i][static_cast<std::size_t>(j)];
  }
  return m;
}

void productOurs(benchmark::State& state) {
  const Matrix a = randomMatrix(static_cast<int>(state.range(0)));
  for (auto _ : state)
    benchmark::DoNotOptimize(a * a);
}

void productEigen(benchmark::State& state) {
  const Eigen::MatrixXd a = eigenMatrix(randomMatrix(static_cast<int>(state.range(0))));
  Eigen::MatrixXd c(a.rows(), a.cols());
  for (auto _ : state) {
    c.noalias() = a * a;
    benchmark::DoNotOptimize(c.data());
  }
}

void lupOurs(benchmark::State& state) {
  const Matrix a = randomMatrix(static_cast<int>(state.range(0)));
  Matrix L, U, P;
  int swaps = 0;
  for (auto _ : state) {
    LUPdecomposition(a, L, U, P, swaps);
    benchmark::DoNotOptimize(U[0].data());
  }
}

// The textbook's three loops, into matrices made for each decomposition.
void lupPlain(benchmark::State& state) {
  const Matrix a = randomMatrix(static_cast<int>(state.range(0)));
  const int n = a.dimension();
  for (auto _ : state) {
    Matrix L = getIdentityMatrix(n);
    Matrix P = getIdentityMatrix(n);
    Matrix U = a;
    for (int k = 0; k < n; ++k) {
      const auto column = static_cast<std::size_t>(k);
      int pivot = k;
      for (int i = k; i < n; ++i) {
        if (std::abs(U[i][column]) > std::abs(U[pivot][column])) pivot = i;
      }
      U.swapRows(k, pivot);
      P.swapRows(k, pivot);
      L.swapRows(k, pivot);
      L.swapColumns(k, pivot);
      for (int i = k + 1; i < n; ++i) {
        L[i][column] = U[i][column] / U[k][column];
        for (std::size_t j = column; j < static_cast<std::size_t>(n); ++j)
          U[i][j] -= L[i][column] * U[k][j];
      }
    }
    benchmark::DoNotOptimize(U[0].data());
  }
}

void lupEigen(benchmark::State& state) {
  const Eigen::MatrixXd a = eigenMatrix(randomMatrix(static_cast<int>(state.range(0))));
  Eigen::PartialPivLU<Eigen::MatrixXd> lu(a.rows());
  for (auto _ : state) {
    lu.compute(a);
    benchmark::DoNotOptimize(lu.matrixLU().data());
  }
}

BENCHMARK(productOurs)->Arg(4)->Arg(50)->Arg(200);
BENCHMARK(productEigen)->Arg(4)->Arg(50)->Arg(200);
BENCHMARK(lupOurs)->Arg(4)->Arg(50)->Arg(200);
BENCHMARK(lupPlain)->Arg(4)->Arg(50)->Arg(200);
BENCHMARK(lupEigen)->Arg(4)->Arg(50)->Arg(200);

}  // namespace
