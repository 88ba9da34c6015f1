// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <muParser.h>
#include <string>
#include <vector>

#include "nordika/functions.h"
#include "number/six_digits.h"
#include "texts.h"

namespace {

// The number of arguments of each expression of kTexts.
constexpr std::size_t kArguments[] = {2, 2, 3, 4};

// Arguments like those of an iteration: rarely round, all different.
std::vector<std::vector<double>> points() {
  std::vector<std::vector<double>> all;
  for (int i = 0; i < 256; ++i) {
    const double t = 0.37 + i * 0.00713579;
    all.push_back({t, 1.9 - t / 3, t * t / 2, 0.77 / (t + 1)});
  }
  return all;
}

void callOurs(benchmark::State& state) {
  Function f(kTexts[state.range(0)], "a = 0.75");
  auto at = points();
  for (auto& x : at)
    x.resize(kArguments[state.range(0)]);
  std::size_t i = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(f(at[i++ & 255]));
}

void callByHand(benchmark::State& state) {
  const auto at = points();
  std::size_t i = 0;
  double a = 0.75;
  benchmark::DoNotOptimize(a);
  for (auto _ : state) {
    benchmark::DoNotOptimize(byHand(static_cast<int>(state.range(0)), at[i++ & 255].data(), a));
  }
}

struct Parser {
  mu::Parser parser;
  double x[4] = {1, 1, 1, 1};
  double a = 0.75;

  Parser() {
    const char* const names[] = {"x1", "x2", "x3", "x4"};
    for (int i = 0; i < 4; ++i)
      parser.DefineVar(names[i], &x[i]);
    parser.DefineVar("a", &a);
    parser.DefineFun("arctg", static_cast<double (*)(double)>(std::atan));
  }
};

void callMuParser(benchmark::State& state) {
  Parser p;
  p.parser.SetExpr(kTexts[state.range(0)]);
  const auto at = points();
  std::size_t i = 0;
  for (auto _ : state) {
    const std::vector<double>& x = at[i++ & 255];
    std::copy(x.begin(), x.end(), p.x);
    benchmark::DoNotOptimize(p.parser.Eval());
  }
}

void compileOurs(benchmark::State& state) {
  const std::string text = kTexts[state.range(0)];
  for (auto _ : state)
    benchmark::DoNotOptimize(Function(text, "a = 0.75"));
}

void compileMuParser(benchmark::State& state) {
  Parser p;
  const std::string text = kTexts[state.range(0)];
  for (auto _ : state) {
    p.parser.SetExpr(text);
    benchmark::DoNotOptimize(p.parser.Eval());
  }
}

// Values like those of an iteration, or exact decimal ties in the seventh digit.
std::vector<double> values(bool ties) {
  std::vector<double> all;
  for (int i = 0; i < 4096; ++i) {
    all.push_back(ties ? (100000.5 + i * 7919 % 900000) * std::pow(10.0, i % 12 - 6)
                       : (i - 2048) * 0.00713579 * std::pow(10.0, i % 7 - 3));
  }
  return all;
}

void roundOurs(benchmark::State& state) {
  const auto all = values(state.range(0) != 0);
  std::size_t i = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(roundToSixDigits(all[i++ & 4095]));
}

void roundByText(benchmark::State& state) {
  const auto all = values(state.range(0) != 0);
  std::size_t i = 0;
  char text[32];
  for (auto _ : state) {
    std::snprintf(text, sizeof text, "%g", all[i++ & 4095]);
    benchmark::DoNotOptimize(std::strtod(text, nullptr));
  }
}

BENCHMARK(callOurs)->DenseRange(0, 3);
BENCHMARK(callByHand)->DenseRange(0, 3);
BENCHMARK(callMuParser)->DenseRange(0, 3);
BENCHMARK(compileOurs)->DenseRange(0, 3);
BENCHMARK(compileMuParser)->DenseRange(0, 3);
BENCHMARK(roundOurs)->DenseRange(0, 1);
BENCHMARK(roundByText)->DenseRange(0, 1);

}  // namespace
