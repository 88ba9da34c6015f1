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
  const int n = static_cast<int>(problem.functions.size());
  for (int i = 0; i < n; ++i)
    texts.push_back({{true, i, 0}, problem.functions.begin()[i]});
  for (int i = 0; i < static_cast<int>(problem.jacobian.size()); ++i)
    texts.push_back({{false, i / n, i % n}, problem.jacobian.begin()[i]});
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
  for (const auto& [place, text] : texts) {
    if (fails([&] { compile(text, parameters); })) return Blame{place, text.value_or(""), {}};
  }
  if (!std::all_of(x.begin(), x.end(), [](double v) { return std::isfinite(v); })) return {};
  for (const auto& [place, text] : texts) {
    if (fails([&] { compile(text, parameters)(x); })) return Blame{place, *text, x};
  }
  return {};
}

}  // namespace nordika
