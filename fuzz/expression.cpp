// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/derivative.h"
#include "outcome.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  outcomeOf([&] { return Expression(text).eval("x1 = 0.5 x2 = -3 a = 2"); });
  std::string derivative;
  outcomeOf([&] {
    derivative = nordika::derivative(Expression(text), "x1");
    return 0;
  });
  if (!derivative.empty()) (void)Expression(derivative);  // compiles
  return 0;
}
