// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_EXPRESSION_PROGRAM_H
#define NORDIKA_EXPRESSION_PROGRAM_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// What one instruction of a Program does.
enum class Operation : std::uint8_t {
  constant,
  variable,
  fail,
  // of one operand
  identity,
  negate,
  sine,
  cosine,
  tangent,
  cotangent,
  arcsine,
  arccosine,
  arctangent,
  arccotangent,
  exponential,
  naturalLogarithm,
  decimalLogarithm,
  binaryLogarithm,
  absolute,
  squareRoot,
  hyperbolicSine,
  hyperbolicCosine,
  // of two operands
  add,
  subtract,
  multiply,
  divide,
  power,
};

/// A postfix sequence in its last form, for a stack machine: constants are
/// numbers, variables are indices, and the depth of the stack is known before
/// the program runs, so that nothing is looked up or tested on the way.
///
/// A sequence that underflows the stack or leaves anything but one value on it
/// compiles all the same: an instruction that throws stands where the fault
/// is met, so that faults come in the order in which evaluation meets them.
class Program {
 public:
  /// Appends: push a number.
  void pushConstant(double value);

  /// Appends: push the value of a variable.
  void pushVariable(std::string_view name);

  /// Appends an operation of one or two operands; Operation::fail appends as
  /// fail() does.
  void apply(Operation operation);

  /// Appends: throw ExpressionWrongFormat.
  void fail();

  /// Ends the sequence; it is to be called once, after the last instruction.
  void finish();

  /// The names of the variables, in the order of their indices.
  const std::vector<std::string>& variables() const { return names; }

  /// Runs the program.
  /// @param values the address of each variable's value by its index, null
  ///   where it has none
  /// @return the one value left, whatever it is, NaN and infinities included
  /// @throws ExpressionUnknownVariable where a variable without a value is met
  /// @throws ExpressionWrongFormat where a fault of the sequence is met
  double run(const double* const* values) const;

 private:
  struct Instruction {
    Operation operation;
    std::uint32_t index;  // of the constant or the variable
  };

  double runOnStack(double* stack, const double* const* values) const;

  std::vector<Instruction> code;
  std::vector<double> constants;
  std::vector<std::string> names;
  std::size_t depth = 0;
  std::size_t maxDepth = 0;
  bool failed = false;
};

#endif
