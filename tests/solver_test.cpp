// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/solver.h"

#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include "nordika/trace.h"
#include "outcome.h"

namespace {

using Vector = std::vector<double>;
using Texts = std::vector<std::string>;

std::vector<Function> compiled(const Texts& texts) {
  std::vector<Function> functions;
  for (const std::string& text : texts)
    functions.emplace_back(text, "a = 4");
  return functions;
}

SimpleItersProblem simpleIters(const Texts& phi, const Vector& start, double q) {
  return {compiled(phi), start, q};
}

NewtonProblem newton(const Texts& f, const Vector& start, const std::vector<Texts>& jacobi) {
  std::vector<std::vector<Function>> rows;
  for (const Texts& row : jacobi)
    rows.push_back(compiled(row));
  return {compiled(f), start, rows};
}

// How a run ended, its count, its solution, its trace.
struct Solved {
  std::string end;
  int iters = -1;
  Vector x;
  std::string trace;
};

template <typename Problem>
Solved solved(Problem problem, double eps) {
  Solved result;
  result.trace = captureTrace([&] {
    result.end = outcomeOf([&] {
      if constexpr (std::is_same_v<Problem, NewtonProblem>)
        result.x = solve_nonlinear_system_newton(problem, eps, result.iters);
      else
        result.x = solve_nonlinear_system_simple_iters(problem, eps, result.iters);
      return "success";
    });
  });
  return result;
}

TEST(Solvers, TraceEveryIteration) {
  const Solved spiral = solved(simpleIters({"0.5*cos(x2)", "0.5*sin(x1)+0.2"}, {0, 0}, 0.5), 1e-3);
  EXPECT_EQ(spiral.trace, golden("simple_iterations_two.txt"));
  EXPECT_NEAR(spiral.x.at(1), 0.5 * std::sin(spiral.x[0]) + 0.2, 1e-3);
  const Solved circle =
      solved(newton({"x1^2+x2^2-a", "x1-x2"}, {1, 2}, {{"2*x1", "2*x2"}, {"1", "-1"}}), 1e-5);
  EXPECT_EQ(circle.trace, golden("newton_two.txt"));
  EXPECT_NEAR(circle.x.at(0), std::sqrt(2.0), 1e-5);
}

TEST(Solvers, StepAsTheirPartsDo) {
  EXPECT_EQ(vnorm({1e8, 1, 1}) - 1e8 + vnorm({1e-200}) + vnorm({}), 0);
  NewtonProblem f = newton({"x1^2/3+x2-a", "ln(x1)-x2", "x3-x1/7"}, {1, 2, 3},
                           {{"2*x1/3", "1", "0"}, {"1/x1", "-1", "0"}, {"-1/7", "0", "1"}});
  SimpleItersProblem phi = simpleIters({"cos(x2)/3", "sin(x1)/3+0.2"}, {1, 2}, 0.5);
  const Solved byNewton = solved(f, 1e-5);
  const Solved bySimpleIterations = solved(phi, 1e-5);
  Vector x = {1, 2, 3};
  Vector y = {1, 2};
  captureTrace([&] {
    for (int k = 0; k < byNewton.iters; ++k) {
      Matrix W(3);
      for (int i = 0; i < 9; ++i)
        W(i / 3, i % 3) = f.calcJacobi(i / 3, i % 3, x);
      x = x + solveWithLUP(W, {-f.calcF(0, x), -f.calcF(1, x), -f.calcF(2, x)});
    }
  });
  for (int k = 0; k < bySimpleIterations.iters; ++k)
    y = {phi.calcPhi(0, y), phi.calcPhi(1, y)};
  EXPECT_EQ(byNewton.x, x);
  EXPECT_EQ(bySimpleIterations.x, y);
}

struct Ending {
  Solved run;
  std::string end;
  int iters;
  std::string lastStep;
};

// Of a step that fails, the trace has the first line and nothing more.
void check(const std::vector<Ending>& rows) {
  for (const auto& [run, end, iters, lastStep] : rows) {
    EXPECT_EQ(run.end, end);
    EXPECT_EQ(run.iters, iters);
    const std::size_t at = run.trace.rfind("Iteration: ");
    EXPECT_EQ(run.trace.substr(at, run.trace.find("Solve", at) - at), "Iteration: " + lastStep);
  }
}

TEST(SimpleIterations, EndAsTheirEstimateDemands) {
  check({
      {solved(simpleIters({"x1"}, {3}, 2e-8), 1e-300), "success", 1, "1\nEpsilon: 0\nx = (3)\n\n"},
      {solved(simpleIters({"4"}, {1}, 0.7), 7 - 0x1p-50), "success", 2,
       "2\nEpsilon: 0\nx = (4)\n\n"},
      {solved(SimpleItersProblem(), 1), "success", 1, "1\nEpsilon: 0\nx = (\n"},
      {solved(simpleIters({"x1+x3"}, {3}, 0.5), 1), "unknown x3", -1, "1\n"},
      {solved(simpleIters({"x1^2+10"}, {9}, 0.5), 1), "bad result", -1, "9\n"},
      // The first estimate is infinite.
      {solved(simpleIters({"1e300*x1", "0-x2"}, {1, 1}, 0.5), 1e5), "bad result", -1, "2\n"},
      {solved(simpleIters({"x1"}, {1}, 0.99999998), 0), "limit", -1,
       "100000\nEpsilon: 0\nx = (1)\n\n"},
  });
}

TEST(Newton, EndsAsItsMatrixAndEstimateDemand) {
  NewtonProblem uneven = newton({"x1", "x2"}, {1, 2}, {{"1", "0"}, {"0"}});
  EXPECT_THROW(uneven.calcJacobi(1, 1, {1, 2}), MatrixWrongDimensions);
  // The first estimate is the double two below 0.1.
  const NewtonProblem line = newton({"x1-1"}, {0.9}, {{"1"}});
  const std::string factors = golden("newton_factors.txt");
  check({
      {solved(line, 0.1), "success", 1, "1\n" + factors + "Epsilon: 0.1\nx = (1)\n\n"},
      {solved(line, 0), "limit", -1, "100000\n" + factors + "Epsilon: 0\nx = (1)\n\n"},
      {solved(uneven, 1), "dimensions", -1, "1\n"},
      {solved(newton({"x1+y", "x2"}, {1, 1}, {{"1", "0"}, {"0"}}), 1), "unknown y", -1, "1\n"},
      {solved(newton({"x1^2-1"}, {0}, {{"2*x1"}}), 1), "singular", -1,
       "1\nLUP decomposition start.\n"},
      {solved(newton({"1e305"}, {1}, {{"1e-8"}}), 1), "bad result", -1, "2\n"},
      {solved(newton({"x1", "y"}, {1, 0}, {{"1/0", "0"}, {"0", "0"}}), 1), "unknown y", -1, "1\n"},
      {solved(newton({"x1", "x2"}, {1, 0}, {{"1", "0"}, {"0", "1/x2"}}), 1), "bad result", -1,
       "1\n"},
  });
}

// The problem is solved in four iterations.
template <typename Problem>
void checkWatch(const Problem& problem, double eps) {
  const Solved whole = solved(problem, eps);
  const auto never = [] {};
  const auto fail = [] { throw MatrixIsSingular(); };
  const struct {
    int last;  // the function answers `false` from here on
    int seen;
    const char* end;
    std::function<void()> thenDo;
  } rows[] = {{9, 4, "success", never}, {4, 4, "success", never}, {1, 1, "stopped", never},
              {3, 3, "stopped", never}, {3, 3, "singular", fail}, {4, 4, "singular", fail}};
  for (const auto& row : rows) {
    std::string trace;
    const nordika::TraceRedirect redirect([&](std::string_view text) { trace += text; });
    int count = 0;
    Vector iterate;
    const nordika::IterationWatch watch([&](int k, double estimate, const Vector& x) {
      EXPECT_EQ(k, ++count);
      std::ostringstream lines;
      lines << "Epsilon: " << estimate << "\nx = (" << x.at(0) << ")\n\n";
      EXPECT_THAT(trace, testing::EndsWith(lines.str()));
      iterate = x;
      if (k == row.last) row.thenDo();
      return k < row.last;
    });
    const Solved run = solved(problem, eps);
    EXPECT_EQ(run.end, row.end);
    EXPECT_EQ(count, row.seen);
    const bool succeeds = run.end == "success";
    EXPECT_EQ(run.iters, succeeds ? 4 : -1);
    EXPECT_EQ(run.x, succeeds ? iterate : Vector());
    // Of a run that did not succeed, the lines up to this iteration.
    const std::string next = row.seen < 4 ? "Iteration: " + std::to_string(row.seen + 1) : "Solve";
    const std::size_t length = succeeds ? std::string::npos : whole.trace.rfind(next);
    EXPECT_EQ(trace, whole.trace.substr(0, length));
  }
}

TEST(IterationWatch, SeesEachIterationBehindItsLinesAndMayEndTheRun) {
  checkWatch(newton({"x1^2-2"}, {1}, {{"2*x1"}}), 1e-5);
  checkWatch(simpleIters({"x1/3"}, {1}, 0.5), 0.03);
  for (const int last : {nordika::kMaxIterations, nordika::kMaxIterations + 1}) {
    const nordika::IterationWatch watch([=](int k, double, const Vector&) { return k < last; });
    EXPECT_EQ(solved(simpleIters({"x1"}, {1}, 0.5), 0).end,
              last == nordika::kMaxIterations ? "stopped" : "limit");
  }
}

TEST(IterationWatch, NestsAndIsPassedOverWhileItRuns) {
  const auto run = [] { solved(simpleIters({"x1/3"}, {1}, 0.5), 0.03); };
  std::string seen;
  const auto watch = [&](const char* name, const std::function<void()>& action) {
    return std::make_unique<nordika::IterationWatch>([=, &seen](int k, double, const Vector&) {
      seen += name + std::to_string(k) + " ";
      if (k == 2) action();
      return true;
    });
  };
  auto outer = watch("outer", run);
  auto inner = watch("inner", run);
  std::thread(run).join();
  run();
  EXPECT_EQ(seen, "inner1 inner2 outer1 outer2 outer3 outer4 inner3 inner4 ");
  seen.clear();
  outer.reset();
  run();
  inner.reset();
  run();
  EXPECT_EQ(seen, "inner1 inner2 inner3 inner4 ");
  EXPECT_DEATH({ const nordika::IterationWatch none(nullptr); }, "isEmpty");
}

TEST(ProblemsDeathTest, AssertTheirPreconditions) {
  SimpleItersProblem simpleProblem = simpleIters({"x1"}, {1}, 0.5);
  NewtonProblem newtonProblem = newton({"x1"}, {1}, {{"1"}});
  const std::function<void()> actions[] = {[] { simpleIters({"1"}, {}, 0); },
                                           [] { simpleIters({"1"}, {1}, 1e-8); },
                                           [] { simpleIters({"1"}, {1}, 0.99999999); },
                                           [&] { simpleProblem.calcPhi(1, {1}); },
                                           [] { newton({"1"}, {}, {}); },
                                           [] { newton({"1"}, {1}, {}); },
                                           [&] { newtonProblem.calcF(-1, {1}); },
                                           [&] { newtonProblem.calcJacobi(-1, 1, {1}); },
                                           [&] { newtonProblem.calcJacobi(0, 1, {1}); }};
  const auto messages = rowsOf<1>("preconditions.txt");
  for (std::size_t i = 0; i < std::size(actions); ++i)
    EXPECT_DEATH(actions[i](), testing::HasSubstr(messages.at(i)[0]));
}

}  // namespace
