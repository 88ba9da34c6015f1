// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// The input is up to three arguments of eight bytes each, then the text of a
// function. The call of the function and eval() must have the same outcome.

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "nordika/functions.h"
#include "outcome.h"

namespace {

double byText(Function& f, const std::vector<double>& x) {
  checkValue(x);
  std::string assignments;
  for (std::size_t i = 0; i < x.size(); ++i) {
    char group[64];
    std::snprintf(group, sizeof group, "x%zu = %lg ", i + 1, x[i]);
    assignments += group;
  }
  return f.eval(assignments);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<double> x(size / 8 < 3 ? size / 8 : 3);
  if (!x.empty()) std::memcpy(x.data(), data, x.size() * 8);
  const std::string text(reinterpret_cast<const char*>(data) + x.size() * 8, size - x.size() * 8);
  try {
    Function fast(text, "a = 2");
    Function slow = fast;
    const std::string expected = outcomeOf([&] { return byText(slow, x); });
    if (outcomeOf([&] { return fast(x); }) != expected) std::abort();
    if (outcomeOf([&] { return fast(x); }) != expected) std::abort();
  } catch (const ExpressionWrongFormat&) {
  }
  return 0;
}
