// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/solver.h"

#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "capture.h"

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

// What a run leaves: how it ended, its count, its trace.
struct Solved {
  std::string end;
  int iters = -1;
  Vector x;
  std::string trace;
};

template <typename Solve, typename Problem>
Solved solved(Solve solve, Problem problem, double eps) {
  Solved result;
  result.trace = captureTrace([&] {
    try {
      result.x = solve(problem, eps, result.iters);
      result.end = "success";
    } catch (const ExpressionBadResult&) {
      result.end = "bad result";
    } catch (const ExpressionUnknownVariable& unknown) {
      result.end = "unknown " + unknown.name;
    } catch (const MaxItersCountAchieved&) {
      result.end = "limit";
    } catch (const MatrixIsSingular&) {
      result.end = "singular";
    }
  });
  return result;
}

Solved simpleSolved(const SimpleItersProblem& problem, double eps) {
  return solved(solve_nonlinear_system_simple_iters, problem, eps);
}

Solved newtonSolved(const NewtonProblem& problem, double eps) {
  return solved(solve_nonlinear_system_newton, problem, eps);
}

TEST(SimpleIterations, TracesEveryIteration) {
  const Solved r = simpleSolved(simpleIters({"0.5*cos(x2)", "0.5*sin(x1)+0.2"}, {0, 0}, 0.5), 1e-3);
  EXPECT_EQ(r.trace, golden("simple_iterations_two.txt"));
  EXPECT_EQ(r.iters, 7);
}

TEST(SimpleIterations, EndAsTheirEstimateDemands) {
  const struct {
    SimpleItersProblem problem;
    double eps;
    const char* end;
    int iters;
    const char* trace;
  } rows[] = {
      {simpleIters({"x1"}, {3}, 0.5), 1e-300, "success", 1, "Epsilon: 0\nx = (3)\n\n"},
      {simpleIters({"2"}, {1}, 0.9), 9, "success", 2,
       "Iteration: 1\nEpsilon: 9\nx = (2)\n\nIteration: 2\nEpsilon: 0\n"},
      {simpleIters({"x1+x3"}, {3}, 0.5), 1, "unknown x3", -1, "Iteration: 1\n"},
      {simpleIters({"x1^2+10"}, {9}, 0.5), 1, "bad result", -1, "Iteration: 9\n"},
      {SimpleItersProblem(), 1, "success", 1, "Epsilon: 0\nx = (\nSolve"},
      {simpleIters({"1e300*x1", "0-x2"}, {1, 1}, 0.5), 1e5, "bad result", -1,
       "Iteration: 1\nEpsilon: inf\n"},
  };
  for (const auto& row : rows) {
    const Solved r = simpleSolved(row.problem, row.eps);
    EXPECT_EQ(r.end, row.end);
    EXPECT_EQ(r.iters, row.iters);
    EXPECT_NE(r.trace.find(row.trace), std::string::npos) << r.trace;
    if (r.iters < 0) {
      EXPECT_EQ(r.trace.substr(r.trace.rfind("Iteration: ")).find('\n') + 1,
                r.trace.size() - r.trace.rfind("Iteration: "))
          << "a failing step leaves its first line and nothing more";
    }
  }
}

TEST(Newton, TracesEveryIteration) {
  const Solved r =
      newtonSolved(newton({"x1^2+x2^2-a", "x1-x2"}, {1, 2}, {{"2*x1", "2*x2"}, {"1", "-1"}}), 1e-5);
  EXPECT_EQ(r.trace, golden("newton_two.txt"));
  EXPECT_EQ(r.end, "success");
  EXPECT_NEAR(r.x[0], std::sqrt(2.0), 1e-5);
}

TEST(Newton, IteratesOnArgumentsOfSixDigits) {
  const Solved r = newtonSolved(newton({"x1^2-2"}, {1}, {{"2*x1"}}), 1e-5);
  std::string printed;
  for (std::size_t at = 0; (at = r.trace.find("x = (", at)) != std::string::npos; ++at) {
    printed += r.trace.substr(at + 5, r.trace.find(')', at) - at - 5) + " ";
  }
  EXPECT_EQ(printed, "1.5 1.41667 1.41421 1.41422 ");
  EXPECT_EQ(r.iters, 4);
}

TEST(Newton, EndsAsItsMatrixAndEstimateDemand) {
  const Solved root = newtonSolved(newton({"x1-1"}, {1}, {{"1"}}), 1e-300);
  EXPECT_EQ(root.end, "success");
  EXPECT_EQ(root.iters, 1);
  const Solved singular = newtonSolved(newton({"x1^2-1"}, {0}, {{"2*x1"}}), 1);
  EXPECT_EQ(singular.end, "singular");
  EXPECT_EQ(
      singular.trace,
      "Solve nonlinear system with Newton method start.\nIteration: 1\nLUP decomposition start.\n");
  const Solved bad = newtonSolved(newton({"x1", "x2"}, {1, 0}, {{"1", "0"}, {"0", "1/x2"}}), 1);
  EXPECT_EQ(bad.end, "bad result");
  EXPECT_EQ(bad.trace, "Solve nonlinear system with Newton method start.\nIteration: 1\n");
  EXPECT_EQ(bad.iters, -1);
}

TEST(Solvers, GiveUpAfterTheTraceOfTheLastIteration) {
  const std::string last = "Iteration: 100000\n";
  const Solved flat = simpleSolved(simpleIters({"x1"}, {1}, 0.5), 0);
  EXPECT_EQ(flat.end, "limit");
  EXPECT_EQ(flat.trace.substr(flat.trace.rfind("Iteration")), last + "Epsilon: 0\nx = (1)\n\n");
  const Solved still = newtonSolved(newton({"x1-1"}, {1}, {{"1"}}), 0);
  EXPECT_EQ(still.end, "limit");
  EXPECT_EQ(still.iters, -1);
  EXPECT_EQ(still.trace.substr(still.trace.rfind("Iteration")),
            last + golden("newton_last_step.txt"));
}

TEST(Solvers, EuclideanNormSumsInIndexOrder) {
  EXPECT_EQ(vnorm({}), 0);
  EXPECT_EQ(vnorm({3, -4}), 5);
  EXPECT_EQ(vnorm({1e8, 1, 1}), 1e8);
}

TEST(Newton, RefusesARowThatIsTooShort) {
  NewtonProblem problem = newton({"x1", "x2"}, {1, 2}, {{"1", "0"}, {"0"}});
  int iters = 0;
  EXPECT_THROW(problem.calcJacobi(1, 1, {1, 2}), MatrixWrongDimensions);
  EXPECT_EQ(captureTrace([&] {
              EXPECT_THROW(solve_nonlinear_system_newton(problem, 1, iters), MatrixWrongDimensions);
            }),
            "Solve nonlinear system with Newton method start.\nIteration: 1\n");
}

constexpr char kSimpleConstructor[] =
    "SimpleItersProblem::SimpleItersProblem(const std::vector<Function>&, const "
    "std::vector<double>&, "
    "const double&)";
constexpr char kNewtonConstructor[] =
    "NewtonProblem::NewtonProblem(const std::vector<Function>&, const std::vector<double>&, const "
    "std::vector<std::vector<Function> >&)";
constexpr char kCalcJacobi[] =
    "double NewtonProblem::calcJacobi(int, int, const std::vector<double>&)";

TEST(ProblemsDeathTest, AssertTheirPreconditions) {
  SimpleItersProblem simpleProblem = simpleIters({"x1"}, {1}, 0.5);
  NewtonProblem newtonProblem = newton({"x1"}, {1}, {{"1"}});
  const struct {
    const char* condition;
    int line;
    const char* signature;
    std::function<void()> action;
  } rows[] = {
      {"phi.size() == start.size()", 21, kSimpleConstructor,
       [] {
         simpleIters({"1", "1"}, {1, 2, 3}, 0.5);
       }},
      {"1e-8 < q && q < 1.0 - 1e-8", 22, kSimpleConstructor, [] { simpleIters({"1"}, {1}, 1e-8); }},
      {"1e-8 < q && q < 1.0 - 1e-8", 22, kSimpleConstructor,
       [] { simpleIters({"1"}, {1}, 0.99999999); }},
      {"0 <= ind && ind < n", 27,
       "double SimpleItersProblem::calcPhi(int, const std::vector<double>&)",
       [&] { simpleProblem.calcPhi(1, {1}); }},
      {"f.size() == start.size()", 75, kNewtonConstructor, [] { newton({"1"}, {}, {{"1"}}); }},
      {"f.size() == jacobi.size()", 76, kNewtonConstructor, [] { newton({"1"}, {1}, {}); }},
      {"0 <= ind && ind < n", 81, "double NewtonProblem::calcF(int, const std::vector<double>&)",
       [&] { newtonProblem.calcF(-1, {1}); }},
      {"0 <= i && i < n", 87, kCalcJacobi, [&] { newtonProblem.calcJacobi(-1, 0, {1}); }},
      {"0 <= j && j < n", 88, kCalcJacobi, [&] { newtonProblem.calcJacobi(0, 1, {1}); }},
  };
  for (const auto& row : rows) {
    const std::string message = "src/solver/solver.cpp:" + std::to_string(row.line) + ": " +
                                row.signature + ": Assertion `" + row.condition + "' failed.";
    EXPECT_DEATH(row.action(), testing::HasSubstr(message));
  }
}

}  // namespace
