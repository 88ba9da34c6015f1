// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/functions.h"

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "expression/point.h"
#include "expression/program.h"
#include "number/six_digits.h"

using nordika::detail::roundToSixDigits;

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

// When memory runs out, the names bound so far have the values of this call.
void Expression::bindNewArguments(const std::vector<double>& x) {
  if (binding.version != variables.version()) {
    binding.clear();
    binding.version = variables.version();
  }
  binding.arguments.reserve(x.size());
  for (std::size_t i = binding.arguments.size(); i < x.size(); ++i) {
    std::string name = "x";
    name += std::to_string(i + 1);
    const auto place = variables.emplace(name, roundToSixDigits(x[i])).first;
    binding.arguments.push_back(&place->second);
  }
}

// The addresses of the values of x1 .. xn.
double* const* Expression::bindArguments(const std::vector<double>& x) {
  if (binding.version != variables.version() || binding.arguments.size() < x.size())
    bindNewArguments(x);
  return binding.arguments.data();
}

// Leaves the operands empty while a variable is missing: every call looks again.
void Expression::locateOperands() {
  if (program == nullptr) throw ExpressionWrongFormat();  // moved from
  binding.stack.resize(program->stackSize());
  binding.operands = program->locate(variables);
}

double Expression::evaluateBound() {
  if (binding.operands.empty()) locateOperands();
  const double value = program->run(binding.operands.data(), binding.stack.data());
  checkValue(value);
  return value;
}

double Expression::evaluateAt(const std::vector<double>& x) {
  checkValue(x);
  double* const* argument = bindArguments(x);
  for (const double value : x)
    **argument++ = roundToSixDigits(value);
  return evaluateBound();
}

// The same for finite elements that are rounded already.
double Expression::evaluateAtRounded(const std::vector<double>& x) {
  double* const* argument = bindArguments(x);
  for (const double value : x)
    **argument++ = value;
  return evaluateBound();
}

namespace nordika::detail {

void Point::assign(const std::vector<double>& x) {
  checkValue(x);
  arguments.clear();
  for (const double value : x)
    arguments.push_back(roundToSixDigits(value));
}

double Point::valueOf(Function& f) const {
  return f.evaluateAtRounded(arguments);
}

}  // namespace nordika::detail
