// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/program.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "expression/language.h"
#include "number/read_number.h"

namespace nordika::detail {

// run() lists its labels in this order. From `add` on the codes follow the rows of
// kOperators; each operator is followed by its form with the right operand in memory.
enum class Program::Code : std::uint8_t {
  end,
  load,
  call,
  negate,
  add,
  addOperand,
  subtract,
  subtractOperand,
  multiply,
  multiplyOperand,
  divide,
  divideOperand,
  power,
  powerOperand,
};

Program::Program(const std::vector<Expression::token>& sequence) {
  instructions.reserve(sequence.size() + 1);
  operands.reserve(sequence.size());
  isComplete = std::all_of(sequence.begin(), sequence.end(),
                           [this](const Expression::token& t) { return append(t); }) &&
               depth == 1;
  instructions.push_back({Code::end, 0});
}

bool Program::append(const Expression::token& t) {
  switch (t.type) {
    case Expression::number:
      load({false, {}, numberValue(t.text)});
      return true;
    case Expression::variable:
      load({true, t.text, 0});
      return true;
    case Expression::binary_operator:
      return applyBinary(t.text);
    case Expression::unary_operator:
      return applyUnary(t.text);
    case Expression::function:
      return call(t.text);
    default:
      return false;
  }
}

void Program::load(Operand operand) {
  instructions.push_back({Code::load, static_cast<std::uint32_t>(operands.size())});
  operands.push_back(std::move(operand));
  maxDepth = std::max(maxDepth, ++depth);
}

bool Program::applyUnary(const std::string& op) {
  if (depth < 1) return false;
  if (op == "-") instructions.push_back({Code::negate, 0});
  return op == "-" || op == "+";
}

bool Program::applyBinary(const std::string& op) {
  const Operator* const known = findRow(kOperators, op);
  if (depth < 2 || known == nullptr) return false;
  const auto onStack = static_cast<int>(Code::add) + 2 * static_cast<int>(known - kOperators);
  --depth;
  Instruction& last = instructions.back();
  if (last.code == Code::load) {  // becomes the form with its operand in memory
    last.code = static_cast<Code>(onStack + 1);
  } else {
    instructions.push_back({static_cast<Code>(onStack), 0});
  }
  return true;
}

bool Program::call(const std::string& name) {
  const BuiltinFunction* const known = findRow(kFunctions, name);
  if (depth < 1 || known == nullptr) return false;
  instructions.push_back({Code::call, static_cast<std::uint32_t>(known - kFunctions)});
  return true;
}

Places Program::locate(const ValueMap& variables) const {
  Places places;
  places.reserve(operands.size());
  for (const Operand& operand : operands) {
    if (!operand.isVariable) {
      places.push_back(&operand.constant);
      continue;
    }
    const auto place = variables.find(operand.name);
    if (place == variables.end()) throw ExpressionUnknownVariable(operand.name);
    places.push_back(&place->second);
  }
  if (!isComplete) throw ExpressionWrongFormat();
  return places;
}

// Each instruction jumps to the next one itself. With a switch in a loop, which jumps from
// one place, a call takes 10 to 28 % longer, and one of fifty operations misses its goal
// (script/bench, E4). Compilers take labels as values, though the language does not.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
// NOLINTBEGIN(bugprone-macro-parentheses): statements and labels
#define NEXT() goto* kLabels[static_cast<int>((++at)->code)]
// The two instructions of an operator.
// clang-format off
#define OPERATOR(label, sign)                                                                 \
  static_assert(rowOf(Code::label).name == sign && rowOf(Code::label##Operand).name == sign); \
  label:                                                                                      \
  top = rowOf(Code::label).compute(*--stack, top);                                            \
  NEXT();                                                                                     \
  label##Operand:                                                                             \
  top = rowOf(Code::label).compute(top, *places[at->index]);                                  \
  NEXT()

// NOLINTEND(bugprone-macro-parentheses)

double Program::run(const double* const* places, double* stack) const {
  static const void* const kLabels[] = {
      &&end, &&load, &&call, &&negate,
      &&add, &&addOperand, &&subtract, &&subtractOperand, &&multiply, &&multiplyOperand,
      &&divide, &&divideOperand, &&power, &&powerOperand};
  // clang-format on
  constexpr int kFirst = static_cast<int>(Code::add);
  static_assert(std::size(kLabels) == kFirst + 2 * std::size(kOperators),
                "an operator has two codes and two labels");
  constexpr auto rowOf = [](Code code) {
    return kOperators[(static_cast<int>(code) - kFirst) / 2];
  };
  double top = 0;
  const Instruction* at = instructions.data();
  goto* kLabels[static_cast<int>(at->code)];

load:
  *stack++ = top;
  top = *places[at->index];
  NEXT();
call:
  top = kFunctions[at->index].compute(top);
  NEXT();
negate:
  top = -top;
  NEXT();
  OPERATOR(add, "+");
  OPERATOR(subtract, "-");
  OPERATOR(multiply, "*");
  OPERATOR(divide, "/");
  OPERATOR(power, "^");
end:
  return top;
}

#undef OPERATOR
#undef NEXT
#pragma GCC diagnostic pop

}  // namespace nordika::detail
