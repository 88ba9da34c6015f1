// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/program.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>

#include "expression/errors.h"
#include "expression/square.h"

namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kLn2 = 0.6931471805599453;

// A name met again gets its old place when that is among the first ones; an
// expression of very many names stays linear in its length.
constexpr std::size_t kOperandsSearched = 16;

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

// By operation, from negate on. Outside its domain a function is whatever
// the C library makes of it.
constexpr double (*kFunctions[])(double) = {
    negated,         std::sin,  std::cos,     std::tan,  cotangent, std::asin,
    std::acos,       std::atan, arccotangent, std::exp,  std::log,  std::log10,
    binaryLogarithm, std::fabs, std::sqrt,    std::sinh, std::cosh,
};
static_assert(std::size(kFunctions) ==
              static_cast<int>(Operation::square) - static_cast<int>(Operation::negate));

double (*functionOf(Operation operation))(double) {
  return kFunctions[static_cast<int>(operation) - static_cast<int>(Operation::negate)];
}

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
  if (instruction.form == Form::inMemory) maxDepth = std::max(maxDepth, ++depth);
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
  if (operation == Operation::identity && !x.inMemory) return;
  const Code ofOne = operation == Operation::identity ? Code::load
                     : operation == Operation::square ? Code::square
                                                      : Code::call;
  append({ofOne, x.inMemory ? Form::inMemory : Form::onStack, operation, x.operand});
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
    return;
  }
  const int afterAdd = static_cast<int>(operation) - static_cast<int>(Operation::add);
  const auto ofTwo = static_cast<Code>(afterAdd + static_cast<int>(Code::add));
  static_assert(static_cast<int>(Code::power) - static_cast<int>(Code::add) ==
                static_cast<int>(Operation::power) - static_cast<int>(Operation::add));
  if (!left.inMemory && !right.inMemory) {
    applyToComputed(ofTwo);
  } else {
    const Form form = !left.inMemory    ? Form::rightInMemory
                      : !right.inMemory ? Form::leftInMemory
                                        : Form::inMemory;
    append({ofTwo, form, {}, left.operand, right.operand});
  }
}

// Neither operand is in memory.
void Program::applyToComputed(Code operation) {
  --depth;
  Instruction& last = code.back();
  const bool isSum = operation == Code::add || operation == Code::subtract;
  if (isSum && last.code == Code::multiply && last.form == Form::inMemory) {
    last.code = operation == Code::add ? Code::addProduct : Code::subtractProduct;
    last.form = Form::onStack;
  } else {
    code.push_back({operation, Form::onStack});
  }
}

void Program::fail() {
  failed = true;
}

void Program::finish() {
  if (values.size() != 1) fail();
  if (failed) return;
  if (values[0].inMemory) applyToOne(Operation::identity);
  code.push_back({Code::end, Form::onStack});
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
  linked.stack.resize(maxDepth);
  linked.code.reserve(code.size());
  const void* const* labels = nullptr;
  LinkedProgram::execute(nullptr, nullptr, &labels);
  for (const Instruction& from : code) {
    LinkedProgram::Instruction& to = linked.code.emplace_back();
    to.label = labels[LinkedProgram::codeOf(from.code, from.form)];
    to.left = places[from.left];
    if (from.code == Code::call) {
      to.function = functionOf(from.function);
    } else {
      to.right = places[from.right];
    }
  }
  return linked;
}

// Each instruction jumps to the next one itself: with a switch in a loop, which
// dispatches from one place, an expression of fifty operations takes an eighth
// longer. Labels are values in all compilers that this is built with, though not
// in the language.
//
// Every pop is of a value that was pushed, and the end is met: the compilation
// has seen to it.
// NOLINTBEGIN(clang-analyzer-core.*,bugprone-macro-parentheses)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
#define NEXT() goto*(++at)->label
#define PUSH() *top++ = accumulator
#define ONE_OPERAND(name, compute)                    \
  name##OnStack : accumulator = compute(accumulator); \
  NEXT();                                             \
  name##InMemory : PUSH();                            \
  accumulator = compute(*at->left);                   \
  NEXT();
#define TWO_OPERANDS(name, compute)                             \
  name##OnStack : accumulator = compute(*--top, accumulator);   \
  NEXT();                                                       \
  name##Right : accumulator = compute(accumulator, *at->right); \
  NEXT();                                                       \
  name##Left : accumulator = compute(*at->left, accumulator);   \
  NEXT();                                                       \
  name##InMemory : PUSH();                                      \
  accumulator = compute(*at->left, *at->right);                 \
  NEXT();

double LinkedProgram::execute(const Instruction* at, double* top, const void* const** labels) {
  // clang-format off
  static const void* const all[] = {  // by Code, and by Form in each row
      &&end, nullptr, nullptr, nullptr,
      nullptr, nullptr, nullptr, &&load,
      &&callOnStack, nullptr, nullptr, &&callInMemory,
      &&squareOnStack, nullptr, nullptr, &&squareInMemory,
      &&addOnStack, &&addRight, &&addLeft, &&addInMemory,
      &&subtractOnStack, &&subtractRight, &&subtractLeft, &&subtractInMemory,
      &&multiplyOnStack, &&multiplyRight, &&multiplyLeft, &&multiplyInMemory,
      &&divideOnStack, &&divideRight, &&divideLeft, &&divideInMemory,
      &&powerOnStack, &&powerRight, &&powerLeft, &&powerInMemory,
      &&addProduct, nullptr, nullptr, nullptr,
      &&subtractProduct, nullptr, nullptr, nullptr,
  };
  // clang-format on
  static_assert(std::size(all) == codeOf(Code::subtractProduct, Form::inMemory) + 1);
  double accumulator = 0;
  if (labels != nullptr) [[unlikely]] {
    *labels = all;
    return accumulator;
  }
  goto * at->label;

load:
  PUSH();
  accumulator = *at->left;
  NEXT();
  ONE_OPERAND(call, at->function)
  ONE_OPERAND(square, squareAsPow)
  TWO_OPERANDS(add, std::plus<>())
  TWO_OPERANDS(subtract, std::minus<>())
  TWO_OPERANDS(multiply, std::multiplies<>())
  TWO_OPERANDS(divide, std::divides<>())
  TWO_OPERANDS(power, std::pow)
addProduct:
  accumulator = accumulator + *at->left * *at->right;
  NEXT();
subtractProduct:
  accumulator = accumulator - *at->left * *at->right;
  NEXT();
end:
  return accumulator;
}

#undef TWO_OPERANDS
#undef ONE_OPERAND
#undef PUSH
#undef NEXT
#pragma GCC diagnostic pop
// NOLINTEND(clang-analyzer-core.*,bugprone-macro-parentheses)
