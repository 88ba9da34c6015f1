// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <iterator>
#include <string>
#include <vector>

#include "expression/builtin_functions.h"
#include "expression/program.h"
#include "nordika/expression.h"
#include "nordika/functions.h"

using nordika::detail::BuiltinFunction;
using nordika::detail::findFunction;
using nordika::detail::kBuiltinFunctions;
using nordika::detail::Places;
using nordika::detail::Program;

double Expression::calculate(const std::vector<token>& sequence) const {
  const Program once(sequence);
  const Places places = once.locate(variables);
  std::vector<double> stack(once.stackSize());
  const double value = once.run(places.data(), stack.data());
  checkValue(value);
  return value;
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
  if (op == "+") return a + b;
  if (op == "-") return a - b;
  if (op == "*") return a * b;
  if (op == "/") return a / b;
  if (op == "^") return std::pow(a, b);
  throw ExpressionWrongFormat();
}

double Expression::apply_function(const std::string& name, double x) const {
  const BuiltinFunction* const builtin = findFunction(name);
  if (builtin == std::end(kBuiltinFunctions)) throw ExpressionWrongFormat();
  return builtin->compute(x);
}
