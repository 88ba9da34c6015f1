// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <gsl/gsl_multiroots.h>
#include <iterator>
#include <muParser.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "nordika/solver.h"

namespace {

// Redirects the standard error stream to a file during its lifetime, as nordika
// does.
class LogFile {
 public:
  LogFile() : saved(dup(STDERR_FILENO)) {
    std::fflush(stderr);
    const int file = open(name, O_RDWR | O_CREAT | O_TRUNC, 0600);
    dup2(file, STDERR_FILENO);
    close(file);
  }
  LogFile(const LogFile&) = delete;
  LogFile& operator=(const LogFile&) = delete;
  ~LogFile() {
    dup2(saved, STDERR_FILENO);
    close(saved);
    unlink(name);
  }
  std::string text() const {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void rewind() const {
    lseek(STDERR_FILENO, 0, SEEK_SET);
    [[maybe_unused]] const int failed = ftruncate(STDERR_FILENO, 0);
  }

 private:
  static constexpr char name[] = "nordika-bench.log";
  int saved;
};

constexpr int kIterations = 100000;

std::vector<Function> compiled(const std::vector<std::string>& texts) {
  std::vector<Function> functions;
  for (const std::string& text : texts)
    functions.emplace_back(text, "a = 0.75");
  return functions;
}

SimpleItersProblem simpleProblem() {
  const std::vector<std::string> phi = {"0.2*cos(x2)-0.1*x3+a", "0.3*sin(x1)+0.1*x4",
                                        "0.1*x1*x2-0.2*x4", "0.25*cos(x1+x3)+0.05*x2"};
  return {compiled(phi), {0.1, 0.2, 0.3, 0.4}, 0.5};
}

const std::vector<std::string> kF4 = {"x1^2+x2^2+x3-4.25", "x1*x2-x4+0.5", "sin(x3)+x1-1.5",
                                      "x4^2-x3*x1-1"};
const std::vector<std::vector<std::string>> kJ4 = {{"2*x1", "2*x2", "1", "0"},
                                                   {"x2", "x1", "0", "-1"},
                                                   {"1", "0", "cos(x3)", "0"},
                                                   {"-x3", "0", "-x1", "2*x4"}};
const std::vector<std::string> kF2 = {"x1^2+x2^2-4", "x1-x2"};
const std::vector<std::vector<std::string>> kJ2 = {{"2*x1", "2*x2"}, {"1", "-1"}};

NewtonProblem newtonProblem(const std::vector<std::string>& f,
                            const std::vector<std::vector<std::string>>& j) {
  std::vector<std::vector<Function>> rows;
  for (const auto& row : j)
    rows.push_back(compiled(row));
  return {compiled(f), std::vector<double>(f.size(), 1.25), rows};
}

// An accuracy of 0 is never reached, so every run stops at the limit.
template <typename Solve, typename Problem>
void runToLimit(Solve solve, Problem& problem) {
  int iters = 0;
  try {
    solve(problem, 0, iters);
  } catch (const MaxItersCountAchieved&) {
  }
}

void perIteration(benchmark::State& state) {
  state.counters["iteration"] = benchmark::Counter(
      kIterations, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void simpleIterations(benchmark::State& state) {
  const LogFile log;
  SimpleItersProblem problem = simpleProblem();
  for (auto _ : state) {
    log.rewind();
    runToLimit(solve_nonlinear_system_simple_iters, problem);
  }
  perIteration(state);
}

void newtonIterations(benchmark::State& state) {
  const LogFile log;
  NewtonProblem problem = newtonProblem(kF4, kJ4);
  for (auto _ : state) {
    log.rewind();
    runToLimit(solve_nonlinear_system_newton, problem);
  }
  perIteration(state);
}

// Writes the bytes of the whole trace, with the same flush points.
void merelyWrite(benchmark::State& state) {
  const LogFile log;
  const bool newton = state.range(0) != 0;
  if (newton) {
    NewtonProblem problem = newtonProblem(kF4, kJ4);
    runToLimit(solve_nonlinear_system_newton, problem);
  } else {
    SimpleItersProblem problem = simpleProblem();
    runToLimit(solve_nonlinear_system_simple_iters, problem);
  }
  const std::string text = log.text();
  // Each of these lines begins a new write.
  std::vector<std::size_t> ends;
  for (std::size_t at = text.find('\n') + 1; at < text.size(); at = text.find('\n', at) + 1) {
    for (const char* const line :
         {"Iteration:", "Epsilon:", "x =", "LUP decomposition start", "L:"}) {
      if (text.compare(at, std::strlen(line), line) == 0) ends.push_back(at);
    }
  }
  ends.push_back(text.size());
  for (auto _ : state) {
    log.rewind();
    std::size_t begin = 0;
    for (const std::size_t end : ends) {
      benchmark::DoNotOptimize(write(STDERR_FILENO, text.data() + begin, end - begin));
      begin = end;
    }
  }
  state.counters["writes"] = static_cast<double>(ends.size()) / kIterations;
  perIteration(state);
}

void solveOurs(benchmark::State& state) {
  const LogFile log;
  const bool four = state.range(0) == 4;
  for (auto _ : state) {
    log.rewind();
    NewtonProblem problem = newtonProblem(four ? kF4 : kF2, four ? kJ4 : kJ2);
    int iters = 0;
    benchmark::DoNotOptimize(solve_nonlinear_system_newton(problem, 1e-5, iters));
    state.counters["iterations"] = iters;
  }
}

// The same system with muParser functions and the Newton iteration of GSL.
struct ParsedSystem {
  double x[4] = {};
  double a = 0.75;
  std::vector<mu::Parser> f;
  std::vector<std::vector<mu::Parser>> jacobi;

  mu::Parser parsed(const std::string& text) {
    const char* const names[] = {"x1", "x2", "x3", "x4"};
    mu::Parser parser;
    for (int i = 0; i < 4; ++i)
      parser.DefineVar(names[i], &x[i]);
    parser.DefineVar("a", &a);
    parser.SetExpr(text);
    return parser;
  }

  static ParsedSystem& at(const gsl_vector* point, void* self) {
    auto& system = *static_cast<ParsedSystem*>(self);
    for (std::size_t i = 0; i < point->size; ++i)
      system.x[i] = gsl_vector_get(point, i);
    return system;
  }
  static int value(const gsl_vector* point, void* self, gsl_vector* out) {
    ParsedSystem& system = at(point, self);
    for (std::size_t i = 0; i < point->size; ++i)
      gsl_vector_set(out, i, system.f[i].Eval());
    return GSL_SUCCESS;
  }
  static int derivative(const gsl_vector* point, void* self, gsl_matrix* out) {
    ParsedSystem& system = at(point, self);
    for (std::size_t i = 0; i < point->size; ++i) {
      for (std::size_t j = 0; j < point->size; ++j)
        gsl_matrix_set(out, i, j, system.jacobi[i][j].Eval());
    }
    return GSL_SUCCESS;
  }
  static int both(const gsl_vector* point, void* self, gsl_vector* out, gsl_matrix* matrix) {
    value(point, self, out);
    return derivative(point, self, matrix);
  }
};

void solvePeers(benchmark::State& state) {
  const bool four = state.range(0) == 4;
  const auto& f = four ? kF4 : kF2;
  const auto& j = four ? kJ4 : kJ2;
  const std::size_t n = f.size();
  for (auto _ : state) {
    ParsedSystem system;
    for (const auto& text : f)
      system.f.push_back(system.parsed(text));
    for (const auto& row : j) {
      system.jacobi.emplace_back();
      for (const auto& text : row)
        system.jacobi.back().push_back(system.parsed(text));
    }
    gsl_multiroot_function_fdf functions = {ParsedSystem::value, ParsedSystem::derivative,
                                            ParsedSystem::both, n, &system};
    gsl_multiroot_fdfsolver* const solver =
        gsl_multiroot_fdfsolver_alloc(gsl_multiroot_fdfsolver_newton, n);
    gsl_vector* const start = gsl_vector_alloc(n);
    gsl_vector_set_all(start, 1.25);
    gsl_multiroot_fdfsolver_set(solver, &functions, start);
    int iterations = 0;
    do {
      gsl_multiroot_fdfsolver_iterate(solver);
      ++iterations;
    } while (gsl_multiroot_test_delta(solver->dx, solver->x, 1e-5, 0) == GSL_CONTINUE &&
             iterations < 100);
    benchmark::DoNotOptimize(gsl_vector_get(solver->x, 0));
    gsl_vector_free(start);
    gsl_multiroot_fdfsolver_free(solver);
    state.counters["iterations"] = iterations;
  }
}

BENCHMARK(simpleIterations)->Unit(benchmark::kMillisecond);
BENCHMARK(newtonIterations)->Unit(benchmark::kMillisecond);
BENCHMARK(merelyWrite)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);
BENCHMARK(solveOurs)->Arg(2)->Arg(4)->Unit(benchmark::kMicrosecond);
BENCHMARK(solvePeers)->Arg(2)->Arg(4)->Unit(benchmark::kMicrosecond);

}  // namespace
