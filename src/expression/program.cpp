// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/program.h"

#include <algorithm>
#include <cmath>

#include "expression/errors.h"

namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kLn2 = 0.6931471805599453;

// Deeper stacks than this come from the heap.
constexpr std::size_t kUsualDepth = 32;

// A name met again gets its old index when it is among the first ones; an
// expression of very many names stays linear in its length.
constexpr std::size_t kNamesSearched = 16;

// Arguments of the trigonometric functions are in radians. Outside a domain
// the value is whatever the C library makes of it.
double applyToOne(Operation operation, double x) {
  switch (operation) {
    case Operation::negate:
      return -x;
    case Operation::sine:
      return std::sin(x);
    case Operation::cosine:
      return std::cos(x);
    case Operation::tangent:
      return std::tan(x);
    case Operation::cotangent:
      return 1.0 / std::tan(x);
    case Operation::arcsine:
      return std::asin(x);
    case Operation::arccosine:
      return std::acos(x);
    case Operation::arctangent:
      return std::atan(x);
    case Operation::arccotangent:
      return kHalfPi - std::atan(x);
    case Operation::exponential:
      return std::exp(x);
    case Operation::naturalLogarithm:
      return std::log(x);
    case Operation::decimalLogarithm:
      return std::log10(x);
    case Operation::binaryLogarithm:
      return std::log(x) / kLn2;
    case Operation::absolute:
      return std::abs(x);
    case Operation::squareRoot:
      return std::sqrt(x);
    case Operation::hyperbolicSine:
      return std::sinh(x);
    case Operation::hyperbolicCosine:
      return std::cosh(x);
    default:
      return x;
  }
}

}  // namespace

void Program::pushConstant(double value) {
  if (failed) return;
  code.push_back({Operation::constant, static_cast<std::uint32_t>(constants.size())});
  constants.push_back(value);
  maxDepth = std::max(maxDepth, ++depth);
}

void Program::pushVariable(std::string_view name) {
  if (failed) return;
  const auto searched =
      names.begin() + static_cast<std::ptrdiff_t>(std::min(names.size(), kNamesSearched));
  const auto known = std::find(names.begin(), searched, name);
  const std::size_t index =
      known != searched ? static_cast<std::size_t>(known - names.begin()) : names.size();
  if (index == names.size()) names.emplace_back(name);
  code.push_back({Operation::variable, static_cast<std::uint32_t>(index)});
  maxDepth = std::max(maxDepth, ++depth);
}

void Program::apply(Operation operation) {
  const std::size_t operands = operation >= Operation::add ? 2 : 1;
  if (operation == Operation::fail || depth < operands) fail();
  if (failed) return;
  code.push_back({operation, 0});
  depth -= operands - 1;
}

void Program::fail() {
  if (failed) return;
  code.push_back({Operation::fail, 0});
  failed = true;
}

void Program::finish() {
  if (depth != 1) fail();
}

double Program::run(const double* const* values) const {
  if (maxDepth <= kUsualDepth) {
    double stack[kUsualDepth];
    return runOnStack(stack, values);
  }
  std::vector<double> stack(maxDepth);
  return runOnStack(stack.data(), values);
}

double Program::runOnStack(double* stack, const double* const* values) const {
  double* next = stack;  // the free place above the top
  for (const Instruction instruction : code) {
    switch (instruction.operation) {
      case Operation::constant:
        *next++ = constants[instruction.index];
        break;
      case Operation::variable:
        if (values[instruction.index] == nullptr) {
          throw ExpressionUnknownVariable(names[instruction.index]);
        }
        *next++ = *values[instruction.index];
        break;
      case Operation::fail:
        throw ExpressionWrongFormat();
      case Operation::add:
        --next;
        next[-1] += next[0];
        break;
      case Operation::subtract:
        --next;
        next[-1] -= next[0];
        break;
      case Operation::multiply:
        --next;
        next[-1] *= next[0];
        break;
      case Operation::divide:
        --next;
        next[-1] /= next[0];
        break;
      case Operation::power:
        --next;
        next[-1] = std::pow(next[-1], next[0]);
        break;
      default:
        next[-1] = applyToOne(instruction.operation, next[-1]);
    }
  }
  return next[-1];
}
