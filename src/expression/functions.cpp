// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/functions.h"

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "expression/program.h"
#include "number/six_digits.h"

void checkValue(double v) {
  if (!std::isfinite(v)) throw ExpressionBadResult();
}

void checkValue(const std::vector<double>& v) {
  for (const double element : v)
    checkValue(element);
}

Function::Function(const std::string& expr) : Expression(expr) {}

Function::Function(const std::string& expr, const std::string& parameters) : Expression(expr) {
  set_variables(parameters);
}

void Expression::bindArguments(std::size_t n) {
  if (binding.version != variables.version()) {
    binding.clear();
    binding.version = variables.version();
  }
  while (binding.arguments.size() < n) {
    std::string name = "x";
    name += std::to_string(binding.arguments.size() + 1);
    binding.arguments.push_back(&variables[name]);
  }
}

// Leaves the operands empty while a variable is missing: every call looks again.
void Expression::locateOperands() {
  if (program == nullptr) throw ExpressionWrongFormat();  // moved from
  binding.operands = program->locate(variables);
  binding.stack.resize(program->stackSize());
}

double Expression::evaluateAt(const std::vector<double>& x) {
  checkValue(x);
  if (binding.version != variables.version() || binding.arguments.size() < x.size())
    bindArguments(x.size());
  double* const* argument = binding.arguments.data();
  for (const double value : x)
    **argument++ = nordika::detail::roundToSixDigits(value);
  if (binding.operands.empty()) locateOperands();
  const double value = program->run(binding.operands.data(), binding.stack.data());
  checkValue(value);
  return value;
}
