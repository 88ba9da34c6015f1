// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/program.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "expression/errors.h"
#include "expression/square.h"

namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kLn2 = 0.6931471805599453;

// Deeper stacks than this come from the heap.
constexpr std::size_t kUsualDepth = 32;

// A name met again gets its old place when that is among the first ones; an
// expression of very many names stays linear in its length.
constexpr std::size_t kOperandsSearched = 16;

double identity(double x) {
  return x;
}
double negated(double x) {
  return -x;
}
double cotangent(double x) {
  return 1.0 / std::tan(x);
}
double arccotangent(double x) {
  return kHalfPi - std::atan(x);
}
double binaryLogarithm(double x) {
  return std::log(x) / kLn2;
}

// By operation, from identity on. Outside its domain a function is whatever
// the C library makes of it.
constexpr double (*kFunctions[])(double) = {
    identity,  negated,   std::sin,     std::cos,  std::tan,    cotangent,  std::asin,
    std::acos, std::atan, arccotangent, std::exp,  std::log,    std::log10, binaryLogarithm,
    std::fabs, std::sqrt, std::sinh,    std::cosh, squareAsPow,
};
static_assert(std::size(kFunctions) ==
              static_cast<int>(Operation::add) - static_cast<int>(Operation::identity));

}  // namespace

void Program::pushConstant(double value) {
  if (failed) return;
  values.push_back({true, static_cast<std::uint32_t>(memory.size())});
  memory.push_back({false, value, {}});
}

void Program::pushVariable(std::string_view name) {
  if (failed) return;
  const auto searched =
      memory.begin() + static_cast<std::ptrdiff_t>(std::min(memory.size(), kOperandsSearched));
  const auto known = std::find_if(memory.begin(), searched, [name](const Operand& operand) {
    return operand.isVariable && operand.name == name;
  });
  const auto index = known != searched ? known - memory.begin() : std::ssize(memory);
  values.push_back({true, static_cast<std::uint32_t>(index)});
  if (index == std::ssize(memory)) memory.push_back({true, 0, std::string(name)});
}

void Program::append(Instruction instruction) {
  if (instruction.loads) maxDepth = std::max(maxDepth, ++depth);
  code.push_back(instruction);
}

void Program::apply(Operation operation) {
  const bool ofTwo = operation >= Operation::add;
  if (operation == Operation::fail || values.size() < (ofTwo ? 2 : 1)) fail();
  if (failed) return;
  if (ofTwo) {
    applyToTwo(operation);
  } else {
    applyToOne(operation);
  }
  values.back().inMemory = false;
}

void Program::applyToOne(Operation operation) {
  const Value x = values.back();
  append({LinkedProgram::codeOf(operation, Form::onStack), x.inMemory, x.operand, 0});
}

bool Program::isConstantTwo(const Value& value) const {
  return value.inMemory && !memory[value.operand].isVariable && memory[value.operand].constant == 2;
}

void Program::applyToTwo(Operation operation) {
  const Value right = values.back();
  values.pop_back();
  const Value left = values.back();
  if (operation == Operation::power && isConstantTwo(right)) {
    applyToOne(Operation::square);
  } else if (right.inMemory) {
    append({LinkedProgram::codeOf(operation, Form::rightInMemory), left.inMemory, left.operand,
            right.operand});
  } else if (left.inMemory) {
    append({LinkedProgram::codeOf(operation, Form::leftInMemory), false, 0, left.operand});
  } else {
    append({LinkedProgram::codeOf(operation, Form::onStack), false, 0, 0});
    --depth;
  }
}

void Program::fail() {
  failed = true;
}

void Program::finish() {
  if (values.size() != 1) fail();
  if (failed) return;
  if (values[0].inMemory) applyToOne(Operation::identity);
  values = {};
}

void Program::throwFirstFault(const double* const* places) const {
  for (const Operand& operand : memory) {
    if (*places++ == nullptr) throw ExpressionUnknownVariable(operand.name);
  }
  if (hasFailed()) throw ExpressionWrongFormat();
}

LinkedProgram Program::link(const double* const* places) const {
  LinkedProgram linked;
  linked.maxDepth = maxDepth;
  linked.code.reserve(code.size());
  for (const Instruction& instruction : code) {
    linked.code.push_back({instruction.code, instruction.loads, places[instruction.loaded],
                           places[instruction.operand]});
  }
  return linked;
}

// Every pop is of a value that was pushed: the compilation has counted them.
// NOLINTBEGIN(clang-analyzer-core.*)
double LinkedProgram::runOnStack(double* stack) const {
  double accumulator = 0;
  for (const Instruction& instruction : code) {
    if (instruction.loads) {
      *stack++ = accumulator;
      accumulator = *instruction.loaded;
    }
    switch (instruction.code) {
      case codeOf(Operation::add, Form::onStack):
        accumulator = *--stack + accumulator;
        break;
      case codeOf(Operation::add, Form::rightInMemory):
        accumulator = accumulator + *instruction.operand;
        break;
      case codeOf(Operation::add, Form::leftInMemory):
        accumulator = *instruction.operand + accumulator;
        break;
      case codeOf(Operation::subtract, Form::onStack):
        accumulator = *--stack - accumulator;
        break;
      case codeOf(Operation::subtract, Form::rightInMemory):
        accumulator = accumulator - *instruction.operand;
        break;
      case codeOf(Operation::subtract, Form::leftInMemory):
        accumulator = *instruction.operand - accumulator;
        break;
      case codeOf(Operation::multiply, Form::onStack):
        accumulator = *--stack * accumulator;
        break;
      case codeOf(Operation::multiply, Form::rightInMemory):
        accumulator = accumulator * *instruction.operand;
        break;
      case codeOf(Operation::multiply, Form::leftInMemory):
        accumulator = *instruction.operand * accumulator;
        break;
      case codeOf(Operation::divide, Form::onStack):
        accumulator = *--stack / accumulator;
        break;
      case codeOf(Operation::divide, Form::rightInMemory):
        accumulator = accumulator / *instruction.operand;
        break;
      case codeOf(Operation::divide, Form::leftInMemory):
        accumulator = *instruction.operand / accumulator;
        break;
      case codeOf(Operation::power, Form::onStack):
        accumulator = std::pow(*--stack, accumulator);
        break;
      case codeOf(Operation::power, Form::rightInMemory):
        accumulator = std::pow(accumulator, *instruction.operand);
        break;
      case codeOf(Operation::power, Form::leftInMemory):
        accumulator = std::pow(*instruction.operand, accumulator);
        break;
      default:
        accumulator =
            kFunctions[instruction.code - codeOf(Operation::identity, Form::onStack)](accumulator);
    }
  }
  return accumulator;
}
// NOLINTEND(clang-analyzer-core.*)

double LinkedProgram::run() const {
  if (maxDepth <= kUsualDepth) {
    double stack[kUsualDepth];
    return runOnStack(stack);
  }
  std::vector<double> stack(maxDepth);
  return runOnStack(stack.data());
}
