// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <bit>
#include <cstdint>
#include <limits>
#include <string>

#include "expression/builtins.h"
#include "expression/expression.h"
#include "expression/number.h"
#include "trace/six_digits.h"

namespace {

[[noreturn, gnu::cold, gnu::noinline]] void throwBadResult() {
  throw ExpressionBadResult();
}

// std::isfinite() in integers: no constant has to survive a call of the
// program in a register.
bool isFinite(double value) {
  constexpr auto infinity = std::bit_cast<std::uint64_t>(std::numeric_limits<double>::infinity());
  return (std::bit_cast<std::uint64_t>(value) << 1) < (infinity << 1);
}

double checkedResult(double value) {
  if (!isFinite(value)) [[unlikely]]
    throwBadResult();
  return value;
}

// Where the operands of a program lie; null for a variable without a value.
// `complete` tells whether all have one and nothing else is wrong.
void locate(const Program& program, const ValueMap& variables, std::vector<const double*>& places,
            bool& complete) {
  places.clear();
  complete = !program.hasFailed();
  for (const Program::Operand& operand : program.operands()) {
    if (!operand.isVariable) {
      places.push_back(&operand.constant);
      continue;
    }
    const auto place = variables.find(operand.name);
    const bool found = place != variables.end();
    places.push_back(found ? &place->second : nullptr);
    complete = complete && found;
  }
}

double runOnce(const Program& program, const ValueMap& variables) {
  std::vector<const double*> places;
  bool complete = true;
  locate(program, variables, places, complete);
  if (!complete) program.throwFirstFault(places.data());
  return program.link(places.data()).run();
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
  return checkedResult(runOnce(compile(sequence), variables));
}

double Expression::eval(const std::string& assignments) {
  set_variables(assignments);
  return calculate(postfix);
}

double Expression::apply_unary(const std::string& op, double x) const {
  Program one;
  one.pushConstant(x);
  one.apply(unaryOperation(op));
  one.finish();
  return runOnce(one, {});
}

double Expression::apply_binary(const std::string& op, double a, double b) const {
  Program one;
  one.pushConstant(a);
  one.pushConstant(b);
  one.apply(binaryOperation(op));
  one.finish();
  return runOnce(one, {});
}

double Expression::apply_function(const std::string& name, double x) const {
  Program one;
  one.pushConstant(x);
  one.apply(functionOperation(name));
  one.finish();
  return runOnce(one, {});
}

void Expression::bindArguments(std::size_t count) {
  if (binding.generation != variables.generation()) {
    binding.clear();
    binding.generation = variables.generation();
  }
  while (binding.arguments.size() < count) {
    std::string name = "x";
    name += std::to_string(binding.arguments.size() + 1);
    binding.arguments.push_back(&variables[name]);
  }
}

// A variable may get its value at any later time, so that a missing one is
// looked for at every call.
void Expression::linkProgram() {
  std::vector<const double*> places;
  bool complete = false;
  locate(program, variables, places, complete);
  if (!complete) program.throwFirstFault(places.data());
  binding.linked = program.link(places.data());
}

double Expression::evaluateAnew(const double* x, std::size_t n) {
  bindArguments(n);
  for (std::size_t i = 0; i < n; ++i)
    *binding.arguments[i] = roundToSixDigits(x[i]);
  if (binding.ready == 0) linkProgram();
  binding.ready = binding.arguments.size() + 1;
  return checkedResult(binding.linked.run());
}

inline bool Expression::isReadyFor(std::size_t n) const {
  return binding.generation == variables.generation() && n < binding.ready;
}

double Expression::evaluateAt(const double* rounded, std::size_t n) {
  // Rounding what is rounded changes nothing.
  if (!isReadyFor(n)) [[unlikely]]
    return evaluateAnew(rounded, n);
  double* const* const places = binding.arguments.data();
  for (std::size_t i = 0; i < n; ++i)
    *places[i] = rounded[i];
  return checkedResult(binding.linked.run());
}

double Expression::evaluateRounding(const double* x, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i)
    checkedResult(x[i]);
  if (!isReadyFor(n)) [[unlikely]]
    return evaluateAnew(x, n);
  double* const* const places = binding.arguments.data();
  for (std::size_t i = 0; i < n; ++i)
    *places[i] = roundToSixDigits(x[i]);
  return checkedResult(binding.linked.run());
}
