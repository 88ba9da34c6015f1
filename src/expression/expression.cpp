// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/expression.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "expression/builtins.h"
#include "expression/number.h"
#include "trace/six_digits.h"

namespace {

constexpr double kPi = 3.141592653589793;

// The text of a std::isspace character of the "C" locale. Assignments take
// more of them for blanks than expressions do.
constexpr std::string_view kAssignmentBlanks = " \t\n\v\f\r";

// Letters and digits are ASCII whatever locale is in force.
bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool isName(std::string_view s) {
  return !s.empty() && isLetter(s[0]) &&
         std::all_of(s.begin(), s.end(), [](char c) { return isLetter(c) || isDigit(c); });
}

std::string renderNumber(double value) {
  char text[kSixDigitsLength];
  return {text, writeSixDigits(text, value)};
}

void skipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kAssignmentBlanks), text.size()));
}

std::string_view takeWord(std::string_view& text) {
  skipBlanks(text);
  const std::string_view word = text.substr(0, text.find_first_of(kAssignmentBlanks));
  text.remove_prefix(word.size());
  return word;
}

}  // namespace

const std::string Expression::token_t_list[8] = {
    "undefined",       "parenthesis",    "undefined_operator",
    "binary_operator", "unary_operator", "variable",
    "number",          "function"};

Expression::Expression(const std::string& text) {
  std::vector<token> tokens;
  split(text, tokens);
  check_expression(tokens);
  std::vector<token> converted;
  convert_expression(tokens, converted);
  postfix = TokenSequence<token>(std::move(converted));
  program = compile(postfix);
}

void Expression::initialize() {
  for (const BuiltinFunction& builtin : kBuiltinFunctions)
    functions.insert(builtin.name);
  for (const BuiltinOperator& builtin : kBuiltinOperators)
    operators.insert(builtin.name);
  variables["pi"] = kPi;
}

bool Expression::is_operator(const std::string& s) const {
  return operators.contains(s);
}

bool Expression::is_delimiter(char c) const {
  switch (c) {
    case '\t':
    case ' ':
    case '\n':
    case '\r':
    case '(':
    case ')':
      return true;
    default:
      return operators.contains({&c, 1});
  }
}

bool Expression::is_variable(const std::string& s) const {
  return isName(s);
}

Expression::token_t Expression::get_type(const token& t) const {
  if (functions.contains(t.text)) return function;
  if (is_variable(t.text)) return variable;
  throw ExpressionWrongFormat();
}

int Expression::priority(const token& t) const {
  if (t.text == "(") return 0;
  if (t.type == function) return 5;
  if (t.type == unary_operator) return 3;
  switch (t.text.empty() ? '\0' : t.text[0]) {
    case '+':
    case '-':
      return 1;
    case '*':
    case '/':
      return 2;
    case '^':
      return 4;
    default:
      throw ExpressionWrongFormat();
  }
}

void Expression::appendName(std::string_view name, std::vector<token>& out) const {
  token t{std::string(name), undefined};
  t.type = get_type(t);
  out.push_back(std::move(t));
}

void Expression::split(const std::string& text, std::vector<token>& out) {
  initialize();
  std::string_view rest = text;
  while (!rest.empty()) {
    const char c = rest.front();
    if (isDigit(c)) {
      const std::optional<double> value = extractNumber(rest);
      if (!value) throw ExpressionWrongFormat();
      out.push_back({renderNumber(*value), number});
    } else if (!is_delimiter(c)) {
      const auto end =
          std::find_if(rest.begin(), rest.end(), [this](char d) { return is_delimiter(d); });
      const auto length = static_cast<std::size_t>(end - rest.begin());
      appendName(rest.substr(0, length), out);
      rest.remove_prefix(length);
    } else {
      if (c == '(' || c == ')') {
        out.push_back({{c}, parenthesis});
      } else if (operators.contains({&c, 1})) {
        out.push_back({{c}, undefined_operator});
      }
      rest.remove_prefix(1);
    }
  }
}

void Expression::set_variables(const std::string& assignments) {
  std::string_view rest = assignments;
  while (true) {
    const std::string_view name = takeWord(rest);
    if (name.empty()) return;
    const std::string_view separator = takeWord(rest);
    skipBlanks(rest);
    const std::optional<double> value = extractNumber(rest);
    if (!isName(name) || !value || separator != "=") throw ExpressionWrongFormat();
    variables[name] = *value;
  }
}
