// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <Eigen/Dense>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <fcntl.h>
#include <iostream>
#include <random>
#include <unistd.h>
#include <vector>

#include "nordika/matrix.h"

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

// The three loops of the textbook. Each decomposition allocates its matrices.
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

constexpr double kAccuracy = 1e-8;

// Redirects the trace to /dev/null during its lifetime.
class NoTrace {
 public:
  NoTrace() : saved(dup(STDERR_FILENO)) {
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
  }
  NoTrace(const NoTrace&) = delete;
  NoTrace& operator=(const NoTrace&) = delete;
  ~NoTrace() {
    dup2(saved, STDERR_FILENO);
    close(saved);
  }

 private:
  int saved;
};

Matrix symmetricMatrix(int n) {
  const Matrix a = randomMatrix(n);
  return a + a.transposed();
}

void jacobiOurs(benchmark::State& state) {
  const NoTrace noTrace;
  const Matrix a = symmetricMatrix(static_cast<int>(state.range(0)));
  std::vector<double> values;
  Matrix vectors;
  int rotations = 0;
  for (auto _ : state)
    getEigenvaluesWithJacobi(a, kAccuracy, values, vectors, rotations);
  state.counters["rotation"] = benchmark::Counter(
      rotations, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

Matrix plainProduct(const Matrix& a, const Matrix& b) {
  const int n = a.dimension();
  Matrix product(n);
  for (int i = 0; i < n; ++i) {
    for (std::size_t j = 0; j < static_cast<std::size_t>(n); ++j) {
      for (int k = 0; k < n; ++k)
        product[i][j] += a[i][static_cast<std::size_t>(k)] * b[k][j];
    }
  }
  return product;
}

// The textbook form of the method: whole matrix products, and rows written by
// fprintf.
void jacobiPlain(benchmark::State& state) {
  const NoTrace noTrace;
  const int n = static_cast<int>(state.range(0));
  for (auto _ : state) {
    Matrix M = symmetricMatrix(n);
    Matrix V = getIdentityMatrix(n);
    int k = 0;
    do {
      std::size_t p = 0;
      std::size_t q = 1;
      for (std::size_t i = 0; i < M[0].size(); ++i) {
        for (std::size_t j = 0; j < M[0].size(); ++j) {
          const bool larger =
              std::abs(M[static_cast<int>(i)][j]) > std::abs(M[static_cast<int>(p)][q]);
          if (i != j && larger) p = i, q = j;
        }
      }
      const int P = static_cast<int>(p);
      const int Q = static_cast<int>(q);
      const double angle = std::atan(2 * M[P][q] / (M[P][p] - M[Q][q])) / 2;
      Matrix U = getIdentityMatrix(n);
      U[P][p] = U[Q][q] = std::cos(angle);
      U[Q][p] = std::sin(angle);
      U[P][q] = -U[Q][p];
      M = plainProduct(plainProduct(U.transposed(), M), U);
      V = plainProduct(V, U);
      std::cerr << "Iteration: " << ++k << std::endl << "Angle: " << angle << std::endl;
      std::cerr << "Epsilon: " << off(M) << std::endl << "Matrix:" << std::endl;
      for (int i = 0; i < n; ++i) {
        for (const double element : M[i])
          std::fprintf(stderr, "%10.6lf ", element);
        std::fprintf(stderr, "\n");
      }
      std::cerr << std::endl;
    } while (off(M) >= kAccuracy);
  }
}

void jacobiEigen(benchmark::State& state) {
  const Eigen::MatrixXd a = eigenMatrix(symmetricMatrix(static_cast<int>(state.range(0))));
  Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> solver(a.rows());
  for (auto _ : state) {
    solver.compute(a);
    benchmark::DoNotOptimize(solver.eigenvalues().data());
  }
}

BENCHMARK(productOurs)->Arg(4)->Arg(50)->Arg(200);
BENCHMARK(productEigen)->Arg(4)->Arg(50)->Arg(200);
BENCHMARK(lupOurs)->Arg(4)->Arg(10)->Arg(50)->Arg(200);
BENCHMARK(lupPlain)->Arg(4)->Arg(10)->Arg(50)->Arg(200);
BENCHMARK(lupEigen)->Arg(4)->Arg(50)->Arg(200);
BENCHMARK(jacobiOurs)->Arg(10)->Arg(40)->Arg(80);
BENCHMARK(jacobiPlain)->Arg(10)->Arg(40);
BENCHMARK(jacobiEigen)->Arg(10)->Arg(40);

}  // namespace
