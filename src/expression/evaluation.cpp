// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "expression/language.h"
#include "expression/program.h"
#include "nordika/expression.h"
#include "number/six_digits.h"

using nordika::detail::findRow;
using nordika::detail::roundToSixDigits;

namespace {

double checked(double value) {
  if (!std::isfinite(value)) throw ExpressionBadResult();
  return value;
}

}  // namespace

double Expression::calculate(const std::vector<token>& sequence) const {
  const nordika::detail::Program once(sequence);
  const nordika::detail::Places places = once.locate(variables);
  std::vector<double> stack(once.stackSize());
  return checked(once.run(places.data(), stack.data()));
}

double Expression::eval(const std::string& assignments) {
  set_variables(assignments);
  return evaluateAt({});
}

double Expression::apply_unary(const std::string& op, double x) const {
  if (op == "+") return x;
  if (op == "-") return -x;
  throw ExpressionWrongFormat();
}

double Expression::apply_binary(const std::string& op, double a, double b) const {
  const auto* const known = findRow(nordika::detail::kOperators, op);
  if (known == nullptr) throw ExpressionWrongFormat();
  return known->compute(a, b);
}

double Expression::apply_function(const std::string& name, double x) const {
  const auto* const known = findRow(nordika::detail::kFunctions, name);
  if (known == nullptr) throw ExpressionWrongFormat();
  return known->compute(x);
}

double Expression::evaluateAt(const std::vector<double>& x) {
  for (const double value : x)
    checked(value);
  double* const* argument = bindArguments(x);
  for (const double value : x)
    **argument++ = roundToSixDigits(value);
  return evaluateBound();
}

// As evaluateAt(), for elements that are checked and rounded already.
double Expression::evaluateAtRounded(const std::vector<double>& x) {
  double* const* argument = bindArguments(x);
  for (const double value : x)
    **argument++ = value;
  return evaluateBound();
}

// The addresses of the values of x1 .. xn.
double* const* Expression::bindArguments(const std::vector<double>& x) {
  if (binding.version != variables.version() || binding.arguments.size() < x.size())
    bindNewArguments(x);
  return binding.arguments.data();
}

// When memory runs out, the names bound so far have the values of this call.
void Expression::bindNewArguments(const std::vector<double>& x) {
  if (binding.version != variables.version()) {
    binding.arguments.clear();
    binding.operands.clear();
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

double Expression::evaluateBound() {
  if (binding.operands.empty()) locateOperands();
  return checked(program->run(binding.operands.data(), binding.stack.data()));
}

// If a variable is missing, locate() throws and the operands stay empty. The next call
// then looks again.
void Expression::locateOperands() {
  if (program == nullptr) throw ExpressionWrongFormat();  // moved from
  binding.stack.resize(program->stackSize());
  binding.operands = program->locate(variables);
}
