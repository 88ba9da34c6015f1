// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/derivative.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
#include <vector>

#include "expression/algebra.h"
#include "expression/language.h"
#include "number/read_number.h"

namespace nordika::detail {

namespace {

using Token = Expression::token;

// How terms are combined, in the order of kOperators.
constexpr Term (Algebra::*kCombine[])(const Term&, const Term&) = {
    &Algebra::sum, &Algebra::difference, &Algebra::product, &Algebra::quotient, &Algebra::power};
static_assert(std::size(kCombine) == std::size(kOperators));

// The rule of a row, compiled when it is first used: most texts need few of them.
template <const auto& table>
const Expression& ruleOf(std::ptrdiff_t row) {
  thread_local std::array<std::optional<Expression>, std::size(table)> rules;
  std::optional<Expression>& rule = rules.begin()[row];
  if (!rule) rule.emplace(table[row].derivative.text);
  return *rule;
}

// Evaluates a postfix sequence with other values than numbers.
template <typename Arithmetic>
auto evaluate(const std::vector<Token>& postfix, Arithmetic arithmetic) {
  std::vector<decltype(arithmetic.operand(postfix[0]))> stack;
  const auto pop = [&stack] {
    if (stack.empty()) throw ExpressionWrongFormat();
    const auto top = stack.back();
    stack.pop_back();
    return top;
  };
  for (const Token& t : postfix) {
    if (t.type == Expression::number || t.type == Expression::variable) {
      stack.push_back(arithmetic.operand(t));
      continue;
    }
    const auto last = pop();
    if (t.type == Expression::binary_operator) {
      const Operator* const op = findRow(kOperators, t.text);
      if (op == nullptr) throw ExpressionWrongFormat();
      stack.push_back(arithmetic.combined(*op, pop(), last));
    } else if (t.type == Expression::function) {
      const BuiltinFunction* const function = findRow(kFunctions, t.text);
      if (function == nullptr) throw ExpressionWrongFormat();
      stack.push_back(arithmetic.called(*function, last));
    } else if (t.type == Expression::unary_operator && (t.text == "-" || t.text == "+")) {
      stack.push_back(t.text == "-" ? arithmetic.negated(last) : last);
    } else {
      throw ExpressionWrongFormat();
    }
  }
  const auto result = pop();
  if (!stack.empty()) throw ExpressionWrongFormat();
  return result;
}

// A term and its derivative.
struct Differential {
  Term value;
  Term derivative = Algebra::number(0);
};

// Evaluates a rule.
struct ArithmeticOfRules {
  Algebra& algebra;
  const Differential& u;
  const Differential& v;

  Term operand(const Token& t) const {
    if (t.type == Expression::number) return Algebra::number(numberValue(t.text));
    if (t.text == "u") return u.value;
    if (t.text == "v") return v.value;
    if (t.text == "du") return u.derivative;
    if (t.text == "dv") return v.derivative;
    return algebra.name(t.text);  // a constant
  }
  static Term negated(const Term& term) { return Algebra::negated(term); }
  Term combined(const Operator& op, const Term& left, const Term& right) const {
    return (algebra.*kCombine[&op - kOperators])(left, right);
  }
  Term called(const BuiltinFunction& function, const Term& term) const {
    return algebra.call(function.name, term);
  }
};

// Evaluates an expression, and applies the rules on the way.
struct ArithmeticOfDifferentials {
  Algebra& algebra;
  const std::string& variable;

  Differential operand(const Token& t) const {
    if (t.type == Expression::number) return {Algebra::number(numberValue(t.text))};
    return {algebra.name(t.text), Algebra::number(t.text == variable ? 1 : 0)};
  }
  static Differential negated(const Differential& u) {
    return {Algebra::negated(u.value), Algebra::negated(u.derivative)};
  }
  Differential combined(const Operator& op, const Differential& u, const Differential& v) const {
    const Term value = (algebra.*kCombine[&op - kOperators])(u.value, v.value);
    if (Algebra::isNumber(value)) return {value};  // 1^x
    return {value, derived(ruleOf<kOperators>(&op - kOperators), u, v)};
  }
  Differential called(const BuiltinFunction& function, const Differential& u) const {
    return {algebra.call(function.name, u.value),
            derived(ruleOf<kFunctions>(&function - kFunctions), u, u)};
  }

 private:
  Term derived(const Expression& rule, const Differential& u, const Differential& v) const {
    return evaluate(rule.postfix, ArithmeticOfRules{algebra, u, v});
  }
};

}  // namespace

}  // namespace nordika::detail

std::string nordika::derivative(const Expression& expression, const std::string& variable) {
  detail::Algebra algebra;
  const detail::ArithmeticOfDifferentials arithmetic{algebra, variable};
  return algebra.write(detail::evaluate(expression.postfix, arithmetic).derivative);
}
