// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cstdlib>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <string_view>
#include <vector>

#include "matrices.h"
#include "nordika/solver.h"
#include "nordika/trace.h"

namespace {

thread_local long untilFailure =
    -1;                       // allocations that succeed before one fails; negative: none fails
thread_local long alive = 0;  // allocations without their release

}  // namespace

// Not to be inlined: compilers take the malloc() for a mismatch then.
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (untilFailure-- == 0) throw std::bad_alloc();
  ++alive;
  return std::malloc(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  if (memory != nullptr) --alive;
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  operator delete(memory);
}

namespace {

TEST(Memory, RunsOutAtAnyAllocationWithoutLeaksOrHalfDoneResults) {
  static char trace[1 << 15];
  static std::size_t length = 0;
  const nordika::TraceRedirect redirect([](std::string_view text) {
    std::memcpy(trace + length, text.data(), text.size());
    length += text.size();
  });
  const Matrix a = matrixOf({{4, 1, 0}, {1, 3, 1}, {0, 1, 5}});
  const Vector b = {5, 5, 6};
  const Function other("x1*a+0*b+1", "a = 10 b = 1");
  int iters = 0;
  const std::function<void()> runs[] = {
      [&] {
        Function f("x1+x2*a", "a = 2");
        try {
          f({1, 2});
          f = other;
        } catch (const std::bad_alloc&) {
          for (const auto& [name, value] : f.variables)
            EXPECT_NE(value, 0) << name;
          EXPECT_EQ(f({1, 2}) + f.eval("x1 = 2"), 5 + 6);
          throw;
        }
      },
      [&] {
        NewtonProblem problem({Function("x1^2-2")}, {1}, {{Function("2*x1")}});
        solve_nonlinear_system_newton(problem, 0.1, iters);
      },
      [&] {
        SimpleItersProblem problem({Function("x1/2")}, {1}, 0.5);
        solve_nonlinear_system_simple_iters(problem, 0.1, iters);
      },
      [&] {
        std::vector<std::complex<double>> roots;
        getEigenvaluesWithQR(a, 1, roots, iters);
      },
      [&] {
        Vector values;
        Matrix V;
        getEigenvaluesWithJacobi(a, 0.1, values, V, iters);
      },
      [&] { solveSiedel(a, b, 0.1, iters); },
      [&] { solveSimpleIterations(a, b, 0.1, iters); },
      [&] { solveTridiagonalMatrixAlgo(a, b); },
      [&] { calcInverseMatrixWithLUP(a); },
  };
  for (const auto& run : runs) {
    bool failed = true;
    for (long k = 0; failed; ++k) {
      const long before = alive;
      iters = -1;
      length = 0;
      untilFailure = k;
      try {
        run();
        failed = false;
      } catch (const std::bad_alloc&) {
        EXPECT_EQ(iters, -1);
        EXPECT_EQ(std::string_view(trace, length).find("stop (target"), std::string_view::npos);
      }
      untilFailure = -1;
      EXPECT_EQ(alive, before);
    }
  }
}

}  // namespace
