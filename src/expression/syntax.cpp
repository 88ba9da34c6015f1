// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cstddef>
#include <string_view>

#include "expression/language.h"
#include "nordika/expression.h"

using nordika::detail::findRow;
using nordika::detail::kOperators;

namespace {

using Token = Expression::token;

// True where a token of the column's type may follow one of the row's type, both in
// the order of token_t. The check runs before operators become unary or binary.
// Rows 3 and 4 (binary and unary operators) are never read; they repeat row 2.
constexpr bool kAllowed[8][8] = {
    {false, false, false, false, false, false, false, false},
    {false, true, true, true, true, true, true, true},
    {false, true, false, false, false, true, true, true},
    {false, true, false, false, false, true, true, true},
    {false, true, false, false, false, true, true, true},
    {false, true, true, true, false, false, false, false},
    {false, true, true, true, false, false, false, false},
    {false, true, false, false, false, false, false, false},
};

bool isType(std::int32_t type) {
  return type >= 0 && type < 8;
}

bool isOpening(const Token& t) {
  return t.text == "(";
}

bool isClosing(const Token& t) {
  return t.text == ")";
}

bool mayFollow(const Token& current, const Token& next) {
  if (!isType(current.type) || !isType(next.type)) return false;
  if (!kAllowed[current.type][next.type]) return false;
  const bool afterOperator = current.type == Expression::undefined_operator;
  const bool afterFunction = current.type == Expression::function;
  if (afterFunction && !isOpening(next)) return false;
  if (isOpening(current) && isClosing(next)) return false;
  if (afterOperator && isClosing(next)) return false;
  if (isClosing(current) && next.type != Expression::undefined_operator && !isClosing(next)) {
    return false;
  }
  return !isOpening(next) || afterFunction || afterOperator || isOpening(current);
}

bool isBalanced(const std::vector<Token>& tokens) {
  std::size_t depth = 0;
  for (const Token& t : tokens) {
    if (isOpening(t)) ++depth;
    if (isClosing(t) && depth-- == 0) return false;
  }
  return depth == 0;
}

}  // namespace

int Expression::priority(const token& t) const {
  if (t.text == "(") return 0;
  if (t.type == function) return nordika::detail::kFunctionPrecedence;
  if (t.type == unary_operator) return nordika::detail::kUnaryPrecedence;
  const auto* const op = findRow(kOperators, std::string_view(t.text).substr(0, 1));
  if (op == nullptr) throw ExpressionWrongFormat();
  return op->precedence;
}

void Expression::check_expression(const std::vector<token>& tokens) const {
  if (tokens.empty()) throw ExpressionWrongFormat();
  for (std::size_t i = 1; i < tokens.size(); ++i) {
    if (!mayFollow(tokens[i - 1], tokens[i])) throw ExpressionWrongFormat();
  }
  const std::int32_t last = tokens.back().type;
  if (last == function || last == undefined_operator) throw ExpressionWrongFormat();
  if (!isBalanced(tokens)) throw ExpressionWrongFormat();
}

void Expression::mark_unaries(std::vector<token>& tokens) const {
  if (tokens.empty()) return;
  if (tokens[0].type == undefined_operator) tokens[0].type = unary_operator;
  // From the end, so that the token before is not marked yet.
  for (std::size_t i = tokens.size() - 1; i > 0; --i) {
    if (tokens[i].type != undefined_operator) continue;
    const token& before = tokens[i - 1];
    if (before.type == undefined_operator || before.type == function) throw ExpressionWrongFormat();
    tokens[i].type = isOpening(before) ? unary_operator : binary_operator;
  }
}

void Expression::convert_expression(std::vector<token>& tokens, std::vector<token>& out) const {
  mark_unaries(tokens);
  if (&tokens == &out) {
    std::vector<token> source = tokens;
    convert_expression(source, out);
    return;
  }
  std::vector<const token*> stack;
  stack.reserve(tokens.size());
  const auto popTop = [&] {
    out.push_back(*stack.back());
    stack.pop_back();
  };
  for (const token& t : tokens) {
    switch (t.type) {
      case number:
      case variable:
        out.push_back(t);
        break;
      case function:
      case unary_operator:
        while (!stack.empty() && priority(*stack.back()) > priority(t))
          popTop();
        stack.push_back(&t);
        break;
      case binary_operator: {
        // A right-associative operator leaves equal ones on the stack.
        const auto* const op = findRow(kOperators, t.text);
        const int least = priority(t) + (op != nullptr && op->isRightAssociative ? 1 : 0);
        while (!stack.empty() && priority(*stack.back()) >= least)
          popTop();
        stack.push_back(&t);
        break;
      }
      case parenthesis:
        if (t.text == "(") {
          stack.push_back(&t);
          break;
        }
        while (!stack.empty() && stack.back()->text != "(")
          popTop();
        if (stack.empty()) throw ExpressionWrongFormat();
        stack.pop_back();
        break;
      default:
        throw ExpressionWrongFormat();
    }
  }
  while (!stack.empty())
    popTop();
}
