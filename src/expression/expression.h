// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// Text compiled into an expression, and its evaluation.

#ifndef NORDIKA_EXPRESSION_EXPRESSION_H
#define NORDIKA_EXPRESSION_EXPRESSION_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "expression/errors.h"
#include "expression/name_set.h"
#include "expression/program.h"
#include "expression/token_sequence.h"
#include "expression/value_map.h"

/// A line of text compiled into a checked postfix sequence, and the values of
/// its variables. The text is split into tokens, the neighbours are checked
/// against a table, and operator precedence puts the tokens into postfix order
/// (E. W. Dijkstra's shunting-yard algorithm, MR 34/61, 1961). Nothing here
/// recurses: nesting may be as deep as memory allows.
///
/// Number literals keep six significant digits. Only ASCII letters and digits
/// make names.
class Expression {
 public:
  /// The types of tokens. Their order is that of the adjacency table and of
  /// token_t_list.
  enum token_t : std::int32_t {
    undefined,           ///< rejected wherever it is met
    parenthesis,         ///< "(" or ")"
    undefined_operator,  ///< an operator before mark_unaries()
    binary_operator,     ///< an operator with two operands
    unary_operator,      ///< an operator with one operand, written before it
    variable,            ///< a name that is not a function's
    number,              ///< a numeric literal
    function,            ///< the name of a built-in function
  };

  /// The printable names of the types, by value.
  static const std::string token_t_list[8];

  /// A name, a number, an operator or a parenthesis of the text.
  struct token {
    /// Its characters as they stand there; a number's are rendered anew with
    /// six significant digits.
    std::string text;

    /// Its token_t.
    std::int32_t type = undefined;
  };

  /// Compiles the text.
  /// @throws ExpressionWrongFormat for malformed text
  explicit Expression(const std::string& text);

  /// Fills functions and operators and sets "pi". Calling it again changes
  /// nothing but the value of "pi", which it sets back.
  void initialize();

  /// Whether s is one of the operators.
  bool is_operator(const std::string& s) const;

  /// Whether c is an operator, a parenthesis, a tab, a blank, a line feed or a
  /// carriage return.
  bool is_delimiter(char c) const;

  /// Whether s is a letter followed by letters and digits, all of them ASCII.
  bool is_variable(const std::string& s) const;

  /// The type of a name: function or variable.
  /// @throws ExpressionWrongFormat for text that is neither
  token_t get_type(const token& t) const;

  /// The precedence: "(" 0, binary + and - 1, * and / 2, unary operators 3,
  /// "^" 4, functions 5.
  /// @throws ExpressionWrongFormat for any other token
  int priority(const token& t) const;

  /// Fills the tables and appends the tokens of the text to `out`; operators
  /// are undefined_operator.
  /// @throws ExpressionWrongFormat for an ill-formed name or number
  void split(const std::string& text, std::vector<token>& out);

  /// Reads groups "name = value", whose three words are separated by blanks, as
  /// the groups are, and stores the values.
  /// @throws ExpressionWrongFormat for anything else; the groups before the
  ///   fault stay stored
  void set_variables(const std::string& assignments);

  /// Checks the neighbours, the end and the parentheses of a sequence from
  /// split(). Its first token is not checked: any operator may lead, and what
  /// it leads to is found at evaluation.
  /// @throws ExpressionWrongFormat for a sequence that is not an expression
  void check_expression(const std::vector<token>& tokens) const;

  /// Makes every undefined_operator unary (first, or after "(") or binary.
  /// @throws ExpressionWrongFormat for an operator after an operator or a
  ///   function
  void mark_unaries(std::vector<token>& tokens) const;

  /// Marks the operators of `tokens`, then appends the postfix form to `out`.
  /// "^" associates to the right, all else to the left.
  /// @throws ExpressionWrongFormat for a ")" without its "(" and for tokens
  ///   without a type
  void convert_expression(std::vector<token>& tokens, std::vector<token>& out) const;

  /// Evaluates a postfix sequence with the values in `variables`. Only the
  /// last value is checked: infinities and NaN may occur on the way. Of several
  /// faults the first one in the order of the sequence is thrown.
  /// @throws ExpressionUnknownVariable for a variable without a value
  /// @throws ExpressionWrongFormat for an unknown operator or function and for
  ///   a sequence that does not leave one value
  /// @throws ExpressionBadResult for a value that is NaN or infinite
  double calculate(const std::vector<token>& sequence) const;

  /// set_variables(), then calculate() of the compiled text; throws what these
  /// throw. The values stay for later calls.
  double eval(const std::string& assignments);

  /// op x, for op "+" or "-".
  /// @throws ExpressionWrongFormat for any other operator
  double apply_unary(const std::string& op, double x) const;

  /// a op b, for op one of "+", "-", "*", "/", "^".
  /// @throws ExpressionWrongFormat for any other operator
  double apply_binary(const std::string& op, double a, double b) const;

  /// The built-in function of that name at x; angles are in radians.
  /// @throws ExpressionWrongFormat for an unknown name
  double apply_function(const std::string& name, double x) const;

  NameSet functions;             ///< the names of the built-in functions
  NameSet operators;             ///< the operators, one character each
  ValueMap variables;            ///< "pi" and every value set since
  TokenSequence<token> postfix;  ///< the compiled text

 protected:
  /// Binds x1, x2, ... to n values and evaluates: what eval() does with the
  /// text "x1 = ... x2 = ...", without the text. The values are finite and have
  /// six significant digits. Throws what calculate() throws.
  double evaluateAt(const double* rounded, std::size_t n);

  /// The same at n values that may be anything and are rounded to six
  /// significant digits on the way. Throws what calculate() throws.
  /// @throws ExpressionBadResult before any is bound, if one is NaN or infinite
  double evaluateRounding(const double* x, std::size_t n);

 private:
  // Where the values of this object's variables lie; of no use to a copy.
  struct Binding {
    Binding() = default;
    Binding(const Binding& /*other*/) noexcept {}
    Binding& operator=(const Binding& /*other*/) noexcept {
      clear();
      return *this;
    }
    ~Binding() = default;

    void clear() noexcept {
      arguments.clear();
      ready = 0;
    }

    std::vector<double*> arguments;
    LinkedProgram linked;
    std::size_t ready = 0;  // calls of fewer arguments than this may run
    std::uint64_t generation = 0;
  };

  static Program compile(const std::vector<token>& sequence);
  void appendName(std::string_view name, std::vector<token>& out) const;
  void bindArguments(std::size_t count);
  void linkProgram();
  [[gnu::cold]] double evaluateAnew(const double* x, std::size_t n);
  bool isReadyFor(std::size_t n) const;

  Program program;
  Binding binding;
};

#endif
