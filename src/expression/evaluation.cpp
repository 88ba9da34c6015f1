// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <string>

#include "expression/builtins.h"
#include "expression/expression.h"
#include "expression/number.h"
#include "trace/six_digits.h"

namespace {

double checkedResult(double value) {
  if (!std::isfinite(value)) throw ExpressionBadResult();
  return value;
}

double runUnbound(Program& program) {
  program.finish();
  return program.run(nullptr);
}

}  // namespace

Program Expression::compile(const std::vector<token>& sequence) {
  Program program;
  for (const token& t : sequence) {
    switch (t.type) {
      case number:
        program.pushConstant(numberValue(t.text));
        break;
      case variable:
        program.pushVariable(t.text);
        break;
      case binary_operator:
        program.apply(binaryOperation(t.text));
        break;
      case unary_operator:
        program.apply(unaryOperation(t.text));
        break;
      case function:
        program.apply(functionOperation(t.text));
        break;
      default:
        program.fail();
    }
  }
  program.finish();
  return program;
}

double Expression::calculate(const std::vector<token>& sequence) const {
  const Program compiled = compile(sequence);
  std::vector<const double*> values;
  for (const std::string& name : compiled.variables()) {
    const auto place = variables.find(name);
    values.push_back(place == variables.end() ? nullptr : &place->second);
  }
  return checkedResult(compiled.run(values.data()));
}

double Expression::eval(const std::string& assignments) {
  set_variables(assignments);
  return calculate(postfix);
}

double Expression::apply_unary(const std::string& op, double x) const {
  Program one;
  one.pushConstant(x);
  one.apply(unaryOperation(op));
  return runUnbound(one);
}

double Expression::apply_binary(const std::string& op, double a, double b) const {
  Program one;
  one.pushConstant(a);
  one.pushConstant(b);
  one.apply(binaryOperation(op));
  return runUnbound(one);
}

double Expression::apply_function(const std::string& name, double x) const {
  Program one;
  one.pushConstant(x);
  one.apply(functionOperation(name));
  return runUnbound(one);
}

void Expression::bindVariables(std::size_t argumentCount) {
  if (binding.generation != variables.generation()) {
    binding.clear();
    binding.generation = variables.generation();
  }
  while (binding.arguments.size() < argumentCount) {
    std::string name = "x";
    name += std::to_string(binding.arguments.size() + 1);
    binding.arguments.push_back(&variables[name]);
  }
}

double Expression::evaluateAt(const std::vector<double>& values) {
  bindVariables(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    *binding.arguments[i] = roundToSixDigits(values[i]);
  }
  if (!binding.complete) {
    // A variable may get its value at any later time, so that a missing one is
    // looked for at every call.
    binding.complete = true;
    binding.values.clear();
    for (const std::string& name : program.variables()) {
      const auto place = variables.find(name);
      binding.values.push_back(place == variables.end() ? nullptr : &place->second);
      if (place == variables.end()) binding.complete = false;
    }
  }
  return checkedResult(program.run(binding.values.data()));
}
