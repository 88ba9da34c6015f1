// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/trace.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <utility>

#include "matrices.h"
#include "outcome.h"

namespace {

using nordika::Trace;
using nordika::TraceRedirect;

TEST(Trace, KeepsProgramOrderWithTheStandardErrorStream) {
  const std::string text = captureTrace([] {
    static char buffer[256];
    std::setvbuf(stderr, buffer, _IOFBF, sizeof buffer);
    std::fputs("1", stderr);
    Trace trace;
    trace << "second " << std::numeric_limits<int>::min() << " " << 0.5;
    trace.flush();
    std::fputs(" third", stderr);
    std::fflush(stderr);
    std::setvbuf(stderr, nullptr, _IONBF, 0);
  });
  EXPECT_EQ(text, "1second -2147483648 0.5 third");
}

TEST(Trace, IsWrittenAtFlushPointsAndWhenItsScopeEnds) {
  EXPECT_EQ(captureTrace([] {
              try {
                Trace trace;
                trace << std::string(10000, 'x');
                EXPECT_EQ(captureTrace([&] { trace.flush(); }), std::string(10000, 'x'));
                trace << "left";
                throw 1;
              } catch (int) {
              }
            }),
            "left");
}

// A write that is cut off may end inside a line or with one.
TEST(Trace, LosesWhatCannotBeWrittenButNoLineAfterIt) {
  const auto previous = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const std::pair<rlim_t, const char*> rows[] = {{7, "whole\nc\nwhole again\n"},
                                                 {14, "whole\ncut off \nwhole again\n"},
                                                 {19, "whole\ncut off here\nwhole again\n"}};
  for (const auto& [size, expected] : rows) {
    EXPECT_FALSE(Trace::takeLoss());
    const rlimit small = {size, limit.rlim_max};
    const std::string text = captureTrace([&] {
      setrlimit(RLIMIT_FSIZE, &small);
      Trace trace;
      for (const char* const lines : {"whole\n", "cut off here\nor here\n", "\nlost\n"}) {
        trace << lines;
        trace.flush();
      }
      setrlimit(RLIMIT_FSIZE, &limit);
      std::thread([] { Trace() << "whole again\n"; }).join();
    });
    EXPECT_EQ(text, expected);
    EXPECT_TRUE(Trace::takeLoss());
    EXPECT_FALSE(Trace::takeLoss());
  }
  std::signal(SIGXFSZ, previous);
}

// A write waits while the pipe is full, and is interrupted before and after it wrote.
TEST(Trace, IsWrittenWholeThoughSignalsInterruptIt) {
  struct sigaction tick {};
  tick.sa_handler = [](int) {};
  sigaction(SIGALRM, &tick, nullptr);
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  std::size_t arrived = 0;
  std::thread reader([&, writer = pthread_self()] {
    for (int i = 0; i < 20; ++i) {
      usleep(2000);
      pthread_kill(writer, SIGALRM);
    }
    char room[4096];
    for (ssize_t n = 0; (n = read(ends[0], room, sizeof room)) > 0;)
      arrived += static_cast<std::size_t>(n);
  });
  captureTrace([&ends] {
    dup2(ends[1], STDERR_FILENO);
    close(ends[1]);
    Trace() << std::string(1'000'000, 'x');
  });
  reader.join();
  std::signal(SIGALRM, SIG_DFL);
  EXPECT_EQ(arrived, 1'000'000);
  EXPECT_FALSE(Trace::takeLoss());
}

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
  auto outer = std::make_unique<TraceRedirect>([&](std::string_view text) {
    if (outerText.empty()) solve();  // goes to the stream
    outerText += text;
  });
  auto inner = std::make_unique<TraceRedirect>([&](std::string_view text) {
    if (innerText.empty()) solve();  // goes to the outer one
    innerText += text;
  });
  EXPECT_EQ(captureTrace([] {
              std::fputs("a word of the program's", stderr);
              solve();
            }),
            "a word of the program's" + trace);
  EXPECT_EQ(innerText, trace);
  EXPECT_EQ(outerText, trace);
  { const TraceRedirect ended({}); }
  outer.reset();
  EXPECT_EQ(captureTrace(solve), "");
  EXPECT_EQ(innerText, trace + trace);
  inner.reset();
  EXPECT_EQ(captureTrace(solve), trace);
}

// A process that dies while a function or a matrix is computed leaves the blocks that
// were flushed before.
TEST(Trace, IsFlushedBeforeEachComputation) {
  for (const auto& [run, blocks] : tracedMethods()) {
    std::string words;
    const TraceRedirect redirect([&words](std::string_view lines) {
      words += std::string(lines.substr(0, lines.find_first_of(" :[\n"))) + " ";
    });
    int iters = 0;
    run(9, iters);
    EXPECT_EQ(words, blocks);
  }
}

TEST(TraceRedirect, DiscardsOrLosesTextWithoutHarm) {
  Trace::takeLoss();
  Trace trace, begun;
  begun << "a block is whole, ";
  {
    const TraceRedirect silence({});
    const double unheard = 0.5;
    (trace << "unheard" << 7 << unheard).row(&unheard, 1, 7, 3);
    begun << "or absent, ";
    EXPECT_EQ(captureTrace(solve), "");
    const TraceRedirect unheeded([](auto) { EXPECT_TRUE(Trace::isDiscarded()); });
    solve();
  }
  EXPECT_EQ(captureTrace([&] {
              begun.flush();
              trace << "heard";
              trace.flush();
            }),
            "a block is whole, or absent, heard");
  EXPECT_FALSE(Trace::takeLoss());
  const TraceRedirect broken([](std::string_view) { throw 1; });
  trace.flush();
  EXPECT_FALSE(Trace::takeLoss());  // of nothing
  EXPECT_EQ(captureTrace(solve), "");
  EXPECT_TRUE(Trace::takeLoss());
}

TEST(TraceDeathTest, RefusesARowBeyondItsBounds) {
  const double elements[] = {1e300};
  const int rows[][3] = {{-1, 7, 3}, {1, -1, 3}, {1, 17, 3}, {1, 7, 0}, {1, 7, 7}};
  for (const auto& [n, width, decimals] : rows)
    EXPECT_DEATH(Trace().row(elements, n, width, decimals), "width <= 16");
}

TEST(Trace, IsWrittenToAStreamWithoutADescriptor) {
  char* text = nullptr;
  std::size_t size = 0;
  std::FILE* const terminal = std::exchange(stderr, open_memstream(&text, &size));
  solve();
  std::fclose(std::exchange(stderr, terminal));
  EXPECT_FALSE(Trace::takeLoss());
  char room[8];
  std::exchange(stderr, fmemopen(room, sizeof room, "w"));
  solve();
  std::fclose(std::exchange(stderr, terminal));
  EXPECT_TRUE(Trace::takeLoss());
  EXPECT_EQ(captureTrace(solve), std::string(text, size));
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
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_NONBLOCK), 0);
    while (write(ends[1], "full", 4) > 0) {
    }
    dup2(ends[1], STDERR_FILENO);
    const TraceRedirect ofThisThread({});
    std::thread first(run), second(run);
    first.join();
    second.join();
  });
  EXPECT_TRUE(Trace::takeLoss());
}

}  // namespace
