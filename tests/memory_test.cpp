// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "matrices.h"
#include "nordika/derivative.h"
#include "nordika/trace.h"

namespace {

thread_local long untilFailure = -1;  // allocations before one fails; negative: none fails
thread_local long alive = 0;          // allocations without their release

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
  const Function other("x1*a+0*b+1", "a = 10 b = 1");
  int iters = 0;
  std::vector<TracedMethod> methods = tracedMethods();
  methods.push_back({[](double, int&) { calcInverseMatrixWithLUP(randomMatrix(3, 1)); }, ""});
  const auto assign = [&other](double, int&) {
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
  };
  methods.push_back({assign, ""});
  const Expression power("(x1+2)^sin(x1/3)");
  const std::string whole = nordika::derivative(power, "x1");
  const auto derive = [&](double, int&) { EXPECT_EQ(nordika::derivative(power, "x1"), whole); };
  methods.push_back({derive, ""});
  for (const auto& [run, blocks] : methods) {
    bool failed = true;
    for (long k = 0; failed; ++k) {
      const long before = alive;
      iters = -1;
      length = 0;
      untilFailure = k;
      try {
        run(0.1, iters);
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
