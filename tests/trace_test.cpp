// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/trace.h"

#include <csignal>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>

#include "capture.h"

namespace {

using nordika::Trace;

TEST(Trace, KeepsProgramOrderWithTheStandardErrorStream) {
  const std::string text = captureTrace([] {
    static char buffer[256];
    std::setvbuf(stderr, buffer, _IOFBF, sizeof buffer);
    std::fputs("first ", stderr);
    Trace trace;
    trace << "second " << -7 << " " << 0.5;
    trace.flush();
    std::fputs(" third", stderr);
    std::fflush(stderr);
    std::setvbuf(stderr, nullptr, _IONBF, 0);
  });
  EXPECT_EQ(text, "first second -7 0.5 third");
}

TEST(Trace, IsWrittenAtFlushPointsAndWhenItsScopeEnds) {
  EXPECT_EQ(captureTrace([] {
              try {
                Trace trace;
                trace << "held";
                EXPECT_EQ(captureTrace([&] { trace.flush(); }), "held");
                trace << "left";
                throw 1;
              } catch (int) {
              }
            }),
            "left");
}

TEST(Trace, LosesWhatCannotBeWrittenButNoLineAfterIt) {
  const auto previous = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit small = {14, limit.rlim_max};
  Trace::takeLoss();
  const std::string text = captureTrace([&] {
    setrlimit(RLIMIT_FSIZE, &small);
    Trace trace;
    for (const char* const line : {"whole\n", "cut off here\n", "lost\n"}) {
      trace << line;
      trace.flush();
    }
    setrlimit(RLIMIT_FSIZE, &limit);
    trace << "whole again\n";
  });
  std::signal(SIGXFSZ, previous);
  EXPECT_EQ(text, "whole\ncut off \nwhole again\n");
  EXPECT_TRUE(Trace::takeLoss());
  EXPECT_FALSE(Trace::takeLoss());
}

}  // namespace
