// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "run/blame.h"

#include <algorithm>
#include <cmath>

namespace nordika {

namespace {

struct PlacedText {
  TextPlace place;
  std::optional<std::string> text;
};

std::vector<PlacedText> textsOf(const Problem& problem) {
  std::vector<PlacedText> texts;
  texts.reserve(problem.functions.size() + problem.jacobian.size());
  int n = 0;
  for (const std::string& text : problem.functions)
    texts.push_back({{true, n++, 0}, text});
  TextPlace place = {false, 0, 0};
  for (const std::optional<std::string>& text : problem.jacobian) {
    texts.push_back({place, text});
    if (++place.column == n) place = {false, place.row + 1, 0};
  }
  return texts;
}

template <typename Action>
bool fails(Action action) {
  try {
    action();
  } catch (...) {
    return true;
  }
  return false;
}

// The arguments of the last call; empty if there was none.
std::vector<double> argumentsOf(const Function& function, std::size_t n) {
  std::vector<double> x;
  for (std::size_t i = 1; i <= n; ++i) {
    std::string name = "x";
    const auto found = function.variables.find(name += std::to_string(i));
    if (found == function.variables.end()) return {};
    x.push_back(found->second);
  }
  return x;
}

}  // namespace

std::optional<Blame> findBlame(const Problem& problem, const std::vector<double>& x) {
  const std::string parameters = parameterText(problem.a);
  const std::vector<PlacedText> texts = textsOf(problem);
  for (const PlacedText& placed : texts) {
    if (fails([&] { compile(placed.text, parameters); }))
      return Blame{placed.place, placed.text.value_or(""), {}};
  }
  if (!std::all_of(x.begin(), x.end(), [](double v) { return std::isfinite(v); })) return {};
  for (const PlacedText& placed : texts) {
    if (fails([&] { compile(placed.text, parameters)(x); }))
      return Blame{placed.place, *placed.text, x};
  }
  return {};
}

std::optional<Blame> findBlame(const Problem& problem, System& system) {
  for (const auto& [place, text] : textsOf(problem)) {
    std::vector<Function>& row =
        place.isFunction ? system.functions : system.jacobian.begin()[place.row];
    Function& function = row.begin()[place.isFunction ? place.row : place.column];
    const std::vector<double> x = argumentsOf(function, problem.functions.size());
    if (!x.empty() && fails([&] { function.calculate(function.postfix); }))
      return Blame{place, text.value_or(""), x};
  }
  return {};
}

}  // namespace nordika
