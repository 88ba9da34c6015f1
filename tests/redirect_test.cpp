// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <unistd.h>
#include <utility>

#include "capture.h"
#include "nordika/solver.h"
#include "nordika/trace.h"

namespace {

using nordika::Trace;
using nordika::TraceRedirect;

void solve() {
  NewtonProblem problem({Function("x1^2-2")}, {1}, {{Function("2*x1")}});
  int iters = 0;
  const std::vector<double> x = solve_nonlinear_system_newton(problem, 1e-5, iters);
  EXPECT_EQ(iters, 4);
  EXPECT_NEAR(x[0], 1.41422, 1e-5);
}

TEST(TraceRedirect, GivesTheTextToTheInnermostFunction) {
  const std::string trace = captureTrace(solve);
  std::string outerText;
  std::string innerText;
  auto outer = std::make_unique<TraceRedirect>([&](std::string_view text) { outerText += text; });
  auto inner = std::make_unique<TraceRedirect>([&](std::string_view text) {
    if (innerText.empty()) solve();  // goes to the outer one
    innerText += text;
  });
  EXPECT_EQ(captureTrace([] {
              std::fputs("a word of the program's", stderr);
              solve();
            }),
            "a word of the program's");
  EXPECT_EQ(innerText, trace);
  EXPECT_EQ(outerText, trace);
  outer.reset();
  EXPECT_EQ(captureTrace(solve), "");
  EXPECT_EQ(innerText, trace + trace);
  inner.reset();
  EXPECT_EQ(captureTrace(solve), trace);
}

TEST(TraceRedirect, DiscardsOrLosesTextWithoutHarm) {
  Trace::takeLoss();
  Trace trace;
  {
    const TraceRedirect silence({});
    trace << "unheard";
    EXPECT_EQ(captureTrace(solve), "");
  }
  EXPECT_EQ(captureTrace([&trace] {
              trace << "heard";
              trace.flush();
            }),
            "heard");
  EXPECT_FALSE(Trace::takeLoss());
  const TraceRedirect broken([](std::string_view) { throw 1; });
  EXPECT_EQ(captureTrace(solve), "");
  EXPECT_TRUE(Trace::takeLoss());
}

TEST(Trace, IsWrittenToAStreamWithoutADescriptor) {
  char* text = nullptr;
  std::size_t size = 0;
  std::FILE* const terminal = std::exchange(stderr, open_memstream(&text, &size));
  solve();
  std::fclose(std::exchange(stderr, terminal));
  EXPECT_EQ(std::string(text, size), captureTrace(solve));
  std::free(text);
}

// For the thread sanitizer as well.
TEST(Threads, KeepTracesApartAndShareTheStandardErrorStream) {
  const std::string trace = captureTrace(solve);
  const auto run = [&trace] {
    for (int i = 0; i < 100; ++i) {
      solve();
      std::string text;
      const TraceRedirect redirect([&text](std::string_view lines) { text += lines; });
      solve();
      EXPECT_EQ(text, trace);
    }
  };
  captureTrace([&run] {
    dup2(open("/dev/full", O_WRONLY), STDERR_FILENO);
    std::thread first(run);
    run();
    first.join();
  });
  EXPECT_TRUE(Trace::takeLoss());
}

}  // namespace
