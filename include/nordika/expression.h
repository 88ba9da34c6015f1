// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// Text compiled into an expression, and its evaluation.

#ifndef NORDIKA_EXPRESSION_H
#define NORDIKA_EXPRESSION_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "nordika/detail/token_sequence.h"
#include "nordika/detail/value_map.h"

namespace nordika::detail {
class Point;
class Program;
}  // namespace nordika::detail

/// An expression, a token sequence or an assignment text is malformed, or an
/// operator or function is not known.
class ExpressionWrongFormat {};

/// A value is NaN or infinite: the result of an evaluation or an argument.
class ExpressionBadResult {};

/// A variable has no value at evaluation.
class ExpressionUnknownVariable {
 public:
  /// The fault of the variable of that name.
  explicit ExpressionUnknownVariable(const std::string& variable) : name(variable) {}

  /// The variable's name.
  std::string name;
};

/// A line of text compiled into a checked postfix sequence, and the values of
/// its variables. The constructor splits the text into tokens, checks the
/// neighbours against a table, and puts the tokens into postfix order by
/// operator precedence (E. W. Dijkstra's shunting-yard algorithm, MR 34/61,
/// 1961). Nothing here recurses: memory alone limits the depth of parentheses.
///
/// Number literals keep six significant digits. Names consist of ASCII letters
/// and digits. The operators are + - * / ^, the constant is pi, and the functions
/// are sin, cos, tg (tangent), ctg (cotangent), their inverses arcsin, arccos, arctg
/// and arcctg, exp, ln, log10, log2, abs, sqrt, sinh and cosh. @ref language "The language" has the
/// grammar and all that is refused.
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

  /// The printable names of the types, by value. Not for the initialisers of global
  /// objects: these may run before its own.
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
  /// A copy of its own: a later change of one does not change the other.
  Expression(const Expression&) = default;
  /// Leaves the other one without a compiled text; an evaluation of it throws
  /// ExpressionWrongFormat.
  Expression(Expression&&) = default;
  /// As the copy constructor. When memory runs out, nothing has changed.
  Expression& operator=(const Expression& other) { return *this = Expression(other); }
  /// As the move constructor.
  Expression& operator=(Expression&&) = default;
  ~Expression() = default;

  /// Fills functions and operators and sets "pi". A second call only sets "pi"
  /// back to its value.
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

  /// Reads groups "name = value" and stores the values. Blanks separate the
  /// groups and the three words of a group.
  /// @throws ExpressionWrongFormat for anything else; the groups before the
  ///   fault stay stored
  void set_variables(const std::string& assignments);

  /// Checks the neighbours, the end and the parentheses of a sequence from
  /// split(). The first token is not checked. A leading "*", "/" or "^" is
  /// therefore accepted here and fails in calculate().
  /// @throws ExpressionWrongFormat for a sequence that is not an expression
  void check_expression(const std::vector<token>& tokens) const;

  /// Makes every undefined_operator unary (first, or after "(") or binary.
  /// @throws ExpressionWrongFormat for an operator after an operator or a
  ///   function
  void mark_unaries(std::vector<token>& tokens) const;

  /// Marks the operators of `tokens`, then appends the postfix form to `out`, which
  /// may be `tokens` itself.
  /// "^" associates to the right, all else to the left.
  /// @throws ExpressionWrongFormat for a ")" without its "(" and for tokens
  ///   without a type
  void convert_expression(std::vector<token>& tokens, std::vector<token>& out) const;

  /// Evaluates a postfix sequence with the values in `variables`. Only the
  /// final value is checked; intermediate values may be infinite or NaN. Of
  /// several faults the first one in the order of the sequence is thrown.
  /// @throws ExpressionUnknownVariable for a variable without a value
  /// @throws ExpressionWrongFormat for an unknown operator or function and for
  ///   a sequence that does not leave one value
  /// @throws ExpressionBadResult for a value that is NaN or infinite
  double calculate(const std::vector<token>& sequence) const;

  /// Calls set_variables() and evaluates the compiled text. Throws as
  /// set_variables() and calculate() do. The values stay for later calls.
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

  std::set<std::string> functions;  ///< the names of the built-in functions
  std::set<std::string> operators;  ///< the operators, one character each

  /// "pi" and every value set since. A call of `f` with another parameter needs no new
  /// text: `f.variables["a"] = v`.
  ///
  /// It converts to `const std::map<std::string, double>&` and has these members of
  /// that class, with names as std::string: `[]`, at, begin, end, find, lower_bound,
  /// upper_bound, count, contains, size, empty, insert, emplace, insert_or_assign,
  /// erase by name, clear. Copies are independent.
  nordika::detail::ValueMap variables;

  /// The compiled text. It converts to `const std::vector<Expression::token>&`, and has
  /// `[]`, begin, end and size. It cannot be changed.
  nordika::detail::TokenSequence<token> postfix;

 protected:
  /// Rounds the n elements of x to six significant digits, binds them to the
  /// names x1 to xn and evaluates. So does eval() with a text of these values. Throws
  /// as calculate() does.
  /// @throws ExpressionBadResult for an element that is NaN or infinite, before
  ///   any is bound
  double evaluateAt(const std::vector<double>& x);

 private:
  // Addresses of values in this object's `variables`. A moved map keeps its nodes, so they
  // move along; a copy starts without.
  struct Binding {
    Binding() = default;
    Binding(const Binding& /*other*/) noexcept {}
    Binding(Binding&&) = default;
    Binding& operator=(Binding&&) = default;
    ~Binding() = default;

    std::vector<double*> arguments;       // of x1, x2, ...
    std::vector<const double*> operands;  // of the program; empty: not located yet
    std::vector<double> stack;
    std::uint64_t version = 0;  // of `variables`
  };

  friend class nordika::detail::Point;

  double evaluateAtRounded(const std::vector<double>& x);
  double* const* bindArguments(const std::vector<double>& x);
  void bindNewArguments(const std::vector<double>& x);
  double evaluateBound();
  void locateOperands();

  std::shared_ptr<const nordika::detail::Program> program;  // shared by all copies
  Binding binding;
};

#endif
