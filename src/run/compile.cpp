// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "run/compile.h"

#include "nordika/derivative.h"
#include "number/six_digits.h"

namespace nordika {

std::string parameterText(double a) {
  char digits[detail::kSixDigitsLength];
  return "a = " + std::string(digits, detail::writeSixDigits(digits, a));
}

Function compile(const std::optional<std::string>& text, const std::string& parameters) {
  if (!text) throw 42;
  return {text->empty() ? "0" : *text, parameters};
}

std::vector<std::string> derivedRow(const Function& function, std::size_t n) {
  std::vector<std::string> texts;
  for (std::size_t j = 1; j <= n; ++j)
    texts.push_back(derivative(function, std::string("x").append(std::to_string(j))));
  return texts;
}

std::vector<std::string> derivedJacobian(const std::vector<Function>& functions) {
  std::vector<std::string> texts;
  for (const Function& function : functions) {
    const std::vector<std::string> row = derivedRow(function, functions.size());
    texts.insert(texts.end(), row.begin(), row.end());
  }
  return texts;
}

System compileAll(Problem& problem) {
  const std::string parameters = parameterText(problem.a);
  System system;
  for (const std::string& text : problem.functions)
    system.functions.push_back(compile(text, parameters));
  if (problem.isNewton && problem.jacobian.empty()) {
    const std::vector<std::string> derived = derivedJacobian(system.functions);
    problem.jacobian.assign(derived.begin(), derived.end());
  }
  const std::size_t n = problem.functions.size();
  for (std::size_t i = 0; i < problem.jacobian.size(); ++i) {
    if (i % n == 0) system.jacobian.emplace_back();
    system.jacobian.back().push_back(compile(problem.jacobian[i], parameters));
  }
  return system;
}

}  // namespace nordika
