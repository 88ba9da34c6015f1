// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// The compiled form of an expression and the machine that runs it.

#ifndef NORDIKA_EXPRESSION_PROGRAM_H
#define NORDIKA_EXPRESSION_PROGRAM_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// What an instruction of a Program computes.
enum class Operation : std::uint8_t {
  fail,  ///< throw ExpressionWrongFormat
  // of one operand
  identity,          ///< x
  negate,            ///< -x
  sine,              ///< sin x, x in radians as in all angles
  cosine,            ///< cos x
  tangent,           ///< tan x
  cotangent,         ///< 1 / tan x
  arcsine,           ///< arcsin x, NaN outside [-1, 1]
  arccosine,         ///< arccos x, NaN outside [-1, 1]
  arctangent,        ///< arctan x
  arccotangent,      ///< π/2 - arctan x
  exponential,       ///< e to the power x
  naturalLogarithm,  ///< ln x, NaN for x < 0
  decimalLogarithm,  ///< lg x, NaN for x < 0
  binaryLogarithm,   ///< ln x / ln 2, NaN for x < 0
  absolute,          ///< |x|
  squareRoot,        ///< the root of x, NaN for x < 0
  hyperbolicSine,    ///< sinh x
  hyperbolicCosine,  ///< cosh x
  square,            ///< x to the power 2
  // of two operands
  add,       ///< x + y
  subtract,  ///< x - y
  multiply,  ///< x·y
  divide,    ///< x / y, infinite or NaN for y = 0
  power,     ///< x to the power y, as the C library's pow() has it
};

/// A program whose operands have their places in memory: instructions for a
/// machine with an accumulator and a stack.
class LinkedProgram {
 public:
  /// Computes the one value left, whatever it is, NaN and infinities included.
  /// The program was made by Program::link().
  double run() { return execute(code.data(), stack.data(), nullptr); }

 private:
  friend class Program;

  // Where an instruction finds its operands. A value that is computed while
  // the accumulator holds another pushes that one.
  enum class Form : std::uint8_t {
    onStack,        // right: in the accumulator, left: popped
    rightInMemory,  // left: in the accumulator
    leftInMemory,   // right: in the accumulator
    inMemory,       // both; pushes the accumulator
  };

  // The sums with a product of two operands in memory spare the product its
  // way over the stack.
  enum class Code : std::uint8_t {
    end,
    load,
    call,  // a function of one operand
    square,
    add,
    subtract,
    multiply,
    divide,
    power,
    addProduct,
    subtractProduct,
  };

  static constexpr int codeOf(Code code, Form form) {
    return static_cast<int>(code) * 4 + static_cast<int>(form);
  }

  struct Instruction {
    const void* label;  // of what its code and form ask for
    const double* left;
    union {
      const double* right;
      double (*function)(double);
    };
  };

  // Runs the instructions; or only gives away the labels, by codeOf().
  static double execute(const Instruction* at, double* top, const void* const** labels);

  std::vector<Instruction> code;
  std::vector<double> stack;
};

/// A postfix sequence compiled for the machine of LinkedProgram. Constants and variables are
/// places in memory; an operand that lies there is read where it is used, so
/// that a program is little longer than its sequence has operators. The depth
/// of the stack is known before the program runs: nothing is looked up or
/// tested on the way.
///
/// A sequence that underflows the stack or leaves anything but one value on it
/// compiles all the same, up to the fault. Arithmetic cannot fail, so that the
/// fault that evaluation would meet first is known without computing anything.
class Program {
 public:
  Program() = default;
  /// Copies compile on, or run, on their own.
  Program(const Program&) = default;
  /// Leaves the other one empty, as if never compiled.
  Program(Program&&) = default;
  /// @copydoc Program(Program&&)
  Program& operator=(Program&&) = default;
  /// Copies all of the other program or, out of memory, nothing.
  Program& operator=(const Program& other) {
    *this = Program(other);
    return *this;
  }
  ~Program() = default;

  /// A place in memory that instructions read: a constant or a variable.
  struct Operand {
    bool isVariable;   ///< which of the two it is
    double constant;   ///< the value of a constant
    std::string name;  ///< the name of a variable
  };

  /// Appends: push a number.
  void pushConstant(double value);

  /// Appends: push the value of a variable.
  void pushVariable(std::string_view name);

  /// Appends an operation of one or two operands; Operation::fail appends as
  /// fail() does.
  void apply(Operation operation);

  /// Appends: throw ExpressionWrongFormat. What follows is ignored.
  void fail();

  /// Ends the sequence; it is to be called once, after the last instruction.
  void finish();

  /// What the instructions read, in the order in which the sequence first
  /// names it.
  const std::vector<Operand>& operands() const { return memory; }

  /// Whether the sequence has a fault; one that was never compiled has.
  bool hasFailed() const { return failed || code.empty(); }

  /// Throws the fault that evaluation would meet first, if there is one.
  /// @param places the address of each operand's value, null where it has none
  /// @throws ExpressionUnknownVariable for a variable without a value
  /// @throws ExpressionWrongFormat for a fault of the sequence
  void throwFirstFault(const double* const* places) const;

  /// Makes the program ready to run on operands at fixed places. It has no
  /// fault.
  /// @param places the address of each operand's value; they stay valid as long
  ///   as the result is used
  LinkedProgram link(const double* const* places) const;

 private:
  using Form = LinkedProgram::Form;

  using Code = LinkedProgram::Code;

  // As in the linked program, with the numbers of the operands.
  struct Instruction {
    Code code;
    Form form;
    Operation function = Operation::identity;
    std::uint32_t left = 0;
    std::uint32_t right = 0;
  };

  // A value during compilation: still in memory, or computed by then.
  struct Value {
    bool inMemory;
    std::uint32_t operand;
  };

  void applyToOne(Operation operation);
  void applyToTwo(Operation operation);
  void applyToComputed(Code operation);
  void append(Instruction instruction);
  bool isConstantTwo(const Value& value) const;

  std::vector<Instruction> code;
  std::vector<Operand> memory;
  std::vector<Value> values;  // on the stack of the compilation
  std::size_t depth = 0;      // of the stack of the machine
  std::size_t maxDepth = 0;
  bool failed = false;
};

#endif
