// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "run/blame.h"

#include <algorithm>
#include <cmath>

#include "run/compile.h"

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
  // A matrix that was to be derived is missing: some derivative is too long.
  for (const PlacedText& placed : texts) {
    if (problem.isNewton && problem.jacobian.empty() &&
        fails([&] { derivedRow(compile(placed.text, parameters), texts.size()); }))
      return Blame{placed.place, *placed.text, {}};
  }
  return {};
}

}  // namespace nordika
