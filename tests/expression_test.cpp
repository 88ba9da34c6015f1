// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/expression.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "outcome.h"

namespace {

using Tokens = std::vector<Expression::token>;

// How a text ends: with a value, or in which exception and when.
std::string outcome(const std::string& text, const std::string& assignments) {
  bool compiled = false;
  const std::string end = outcomeOf([&] {
    Expression expression(text);
    compiled = true;
    return expression.eval(assignments);
  });
  return compiled && end == "format" ? "format at evaluation" : end;
}

using Row = std::pair<const char*, const char*>;

TEST(Expression, EndsAsTheTableSays) {
  for (const auto& [text, end] : rowsOf<2>("expressions.txt"))
    EXPECT_EQ(outcome(text, "x = 2"), end) << text;
  EXPECT_EQ(outcome(" \tx\n+\r1 ", "x = 2"), "3");
  for (const char* const text : {"", "   ", "x\v", "\xc3\xa4"})
    EXPECT_EQ(outcome(text, ""), "format") << text;
  EXPECT_EQ(outcome(std::string("x\0", 2), ""), "format");
}

TEST(Expression, PutsTokensIntoPostfixOrder) {
  const Row rows[] = {
      {"-x^2", "xv 2n ^b -u "},     {"-x*y", "xv -u yv *b "},
      {"2^3^2", "2n 3n 2n ^b ^b "}, {"a-b+c", "av bv -b cv +b "},
      {"2*(-3)", "2n 3n -u *b "},   {"sin(x1)^2+cos(x1)^2", "x1v sinf 2n ^b x1v cosf 2n ^b +b "},
      {"12345678", "1.23457e+07n "}};
  for (const auto& [text, end] : rows) {
    std::string postfix;
    for (const auto& t : Expression(text).postfix)
      postfix += t.text + Expression::token_t_list[t.type][0] + " ";
    EXPECT_EQ(postfix, end) << text;
  }
}

TEST(Expression, SplitsTextIntoTypedTokens) {
  Expression expression("0");
  Tokens tokens;
  expression.variables["pi"] = 3;
  expression.operators.insert({"%", "q2"});
  expression.functions.insert("f");
  expression.split("sin(x1)+2.50*pi", tokens);
  EXPECT_EQ(expression.variables.at("pi"), 3.141592653589793);
  expression.split("f\n%q2", tokens);
  expression.split(tokens.back().text, tokens);
  std::string listing = Expression::token_t_list[Expression::undefined] + " ";
  for (const auto& t : tokens)
    listing += t.text + ":" + Expression::token_t_list[t.type] + " ";
  EXPECT_EQ(listing,
            "undefined sin:function (:parenthesis x1:variable ):parenthesis +:undefined_operator "
            "2.5:number *:undefined_operator pi:variable f:function %:undefined_operator "
            "q2:variable q2:variable ");
  EXPECT_FALSE(expression.is_operator("+-") || expression.is_variable(""));
  EXPECT_EQ(expression.priority({"*", Expression::unary_operator}), 3);
  EXPECT_EQ(expression.priority({"*", Expression::binary_operator}), 2);
  EXPECT_EQ(expression.priority({"cos", Expression::function}), 5);
  EXPECT_EQ(expression.priority({"(", Expression::function}), 0);
  EXPECT_TRUE(expression.is_operator("q2") && !expression.is_operator("q"));
  EXPECT_TRUE(expression.is_variable("aZ9") && !expression.is_variable("9a"));
  std::string delimiters;
  for (char c = 0; c < 127; ++c)
    if (Expression("0").is_delimiter(c)) delimiters += c;
  EXPECT_EQ(delimiters, "\t\n\r ()*+-/^");
  EXPECT_THROW(expression.priority({"x", Expression::variable}), ExpressionWrongFormat);
}

// Also of sequences that no text gives.
TEST(Expression, ChecksWhatMayFollowWhat) {
  const char* const texts[] = {"?", "(", ")", "+", "+", "+", "x", "1", "sin", "x", "x"};
  const int types[] = {0, 1, 1, 2, 3, 4, 5, 6, 7, 8, -1};  // 0 to 7 are those of token_t
  const auto kind = [&](std::size_t i) { return Expression::token{texts[i], types[i]}; };
  // A row for the first token, a column for the second one.
  const char* const allowed[] = {"00000000000", "01011111100", "0011..00000", "01000011100",
                                 "0..00011100", "0..00011100", "00111000000", "00111000000",
                                 "01000000000", "00000000000", "00000000000"};
  const Expression::token open = kind(1), close = kind(2), x = kind(6);
  for (std::size_t i = 0; i < std::size(texts); ++i) {
    for (std::size_t j = 0; j < std::size(texts); ++j) {
      const Expression::token first = kind(i), second = kind(j);
      if (allowed[i][j] == '.') continue;
      Tokens tokens = {first, second};
      if (second.type == Expression::function) tokens.push_back(open);
      if (tokens.back().text == "(" || tokens.back().text == "+") tokens.push_back(x);
      if (first.text == ")") tokens.insert(tokens.begin(), {open, x});
      if (first.text != "(" && second.text == ")") tokens.insert(tokens.begin(), open);
      int depth = 0;
      for (const auto& t : tokens)
        depth += (t.text == "(" ? 1 : 0) - (t.text == ")" ? 1 : 0);
      for (; depth > 0; --depth)
        tokens.push_back(close);
      const std::string end =
          outcomeOf([&] { return Expression("0").check_expression(tokens), "allowed"; });
      EXPECT_EQ(end, allowed[i][j] == '1' ? "allowed" : "format") << i << " " << j;
    }
  }
}

TEST(Expression, ReadsAssignments) {
  // A value ends with its last character: 1.5x is 1.5 and the name x.
  const Row rows[] = {{"", ""},        {"a = inf", "!"},   {"a = .5 x = +5.", "0.5 5 "},
                      {"a=2", "!"},    {"a = nan", "!"},   {"a = 1.5x = 2", "1.5 2 "},
                      {"a =x 2", "!"}, {"a = +-2", "!"},   {"a\v=\f-1e-05\rx\t=\n1", "-1e-05 1 "},
                      {"a = x", "!"},  {"a = 2exp", "!"},  {"a = 0x10 = 7", "0 "},
                      {"a = .", "!"},  {"a = 1e400", "!"}, {"pi = 3 sin = 4", ""},
                      {"1a = 2", "!"}, {"x = 1 a", "1 !"}};
  for (const auto& [text, end] : rows) {
    Expression expression("0");
    const auto assign = [&expression](const char* words) {
      return outcomeOf([&] { return expression.set_variables(words), ""; });
    };
    const bool failed = assign(text) == "format";
    std::ostringstream values;
    for (const char* name : {"a", "x"}) {
      if (expression.variables.contains(name)) values << expression.variables.at(name) << " ";
    }
    EXPECT_EQ(values.str() + (failed ? "!" : ""), end) << text;
  }
}

TEST(Calculate, TakesAnySequenceOfTokens) {
  Expression e("0");
  using E = Expression;
  const auto number = [](const char* text) { return E::token{text, E::number}; };
  const E::token plus = {"+", E::undefined_operator};
  EXPECT_EQ(e.calculate({number(" +0x10")}), 16);
  EXPECT_EQ(e.calculate({number("0x10")}), 16);
  EXPECT_EQ(e.calculate({number("12abc")}), 12);
  EXPECT_EQ(e.calculate({number("abc")}), 0);
  EXPECT_EQ(e.calculate({number(("1" + std::string(60, '0')).c_str())}), 1e49);
  for (const char* const text : {"inf", "1e400"})
    EXPECT_THROW(e.calculate({number(text)}), ExpressionBadResult);
  const Tokens malformed[] = {{},
                              {number("1"), number("2")},
                              {{"-", E::unary_operator}, number("1")},
                              {{"sin", E::function}, number("1")},
                              {number("1"), {"+", E::binary_operator}, number("2")},
                              {number("1"), {"foo", E::function}},
                              {number("1"), number("2"), {"%", E::binary_operator}},
                              {number("1"), {"-?", E::unary_operator}},
                              {number("1"), number("2"), {"+-", E::binary_operator}},
                              {number("1"), {"(", E::parenthesis}},
                              {number("1"), plus},
                              {number("1"), {"", -7}}};
  for (const Tokens& tokens : malformed)
    EXPECT_THROW(e.calculate(tokens), ExpressionWrongFormat);
  EXPECT_THROW(e.calculate({{"y", E::variable}, {"+", E::binary_operator}}),
               ExpressionUnknownVariable);
  for (Tokens tokens : {Tokens(3, plus), {{"sin", E::function}, plus}, {{")", E::parenthesis}}}) {
    Tokens out;
    EXPECT_THROW(e.convert_expression(tokens, out), ExpressionWrongFormat);
  }
  // Operators that have their type keep it.
  const E::token minus = {"-", E::unary_operator};
  const E::token x = {"x", E::variable};
  Tokens marked = {x, {"^", E::binary_operator}, minus, minus, x};
  Tokens out = {minus};
  e.convert_expression(marked, out);
  Tokens both = {minus, x};
  e.convert_expression(both, both);
  out.insert(out.end(), both.begin(), both.end());
  std::string order;
  for (const auto& t : out)
    order += t.text;
  EXPECT_EQ(order, "-x^x---xx-");
  EXPECT_NO_THROW(e.mark_unaries(marked = {}));
  marked = {plus, plus};
  e.mark_unaries(marked);
  EXPECT_TRUE(marked[0].type == E::unary_operator && marked[1].type == E::binary_operator);
  for (Tokens tokens : {Tokens(3, plus), {{"sin", E::function}, plus}})
    EXPECT_THROW(e.mark_unaries(tokens), ExpressionWrongFormat);
  EXPECT_THROW(e.apply_unary("-*", 1), ExpressionWrongFormat);
  EXPECT_THROW(e.apply_binary("^^", 1, 2), ExpressionWrongFormat);
  EXPECT_THROW(e.apply_function("si", 1), ExpressionWrongFormat);
}

TEST(Expression, TakesTextOfAnyLengthAndDepth) {
  std::string nested;
  for (int i = 0; i < 30000; ++i)
    nested += "1+(";
  EXPECT_EQ(outcome(nested + "x" + std::string(30000, ')'), "x = 2"), "30002");
  std::string sum = "0";
  for (int i = 0; i < 100000; ++i)
    sum += "+v" + std::to_string(i);
  EXPECT_EQ(outcome(sum, ""), "unknown v0");
  EXPECT_EQ(outcome(std::string(1 << 20, '7'), ""), "format");
  EXPECT_EQ(outcome(std::string(1 << 20, 'x'), ""), "unknown " + std::string(1 << 20, 'x'));
}

}  // namespace
