// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <bitset>
#include <memory>
#include <optional>
#include <string_view>

#include "expression/builtin_functions.h"
#include "expression/program.h"
#include "nordika/expression.h"
#include "number/read_number.h"
#include "number/six_digits.h"

using nordika::detail::BuiltinFunction;
using nordika::detail::extractNumber;
using nordika::detail::isDigit;
using nordika::detail::kBuiltinFunctions;

namespace {

constexpr double kPi = 3.141592653589793;

// The blanks of an assignment text. An expression has fewer of them.
constexpr std::string_view kAssignmentBlanks = " \t\n\v\f\r";

// The delimiters of an expression that are no operators.
constexpr std::string_view kBlanksAndParentheses = "\t \n\r()";

// The names of one character among a set's, found faster than in the set: an
// expression compiles in a tenth less time.
class Characters {
 public:
  explicit Characters(const std::set<std::string>& names) {
    for (const std::string& name : names) {
      if (name.size() == 1) insert(name[0]);
    }
  }
  void insert(char c) { bits.set(static_cast<unsigned char>(c)); }
  bool contain(char c) const { return bits[static_cast<unsigned char>(c)]; }

 private:
  std::bitset<256> bits;
};

// True for an ASCII letter, whatever the locale.
bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool isName(std::string_view s) {
  return !s.empty() && isLetter(s[0]) &&
         std::all_of(s.begin(), s.end(), [](char c) { return isLetter(c) || isDigit(c); });
}

std::string renderNumber(double value) {
  char text[nordika::detail::kSixDigitsLength];
  return {text, nordika::detail::writeSixDigits(text, value)};
}

std::set<std::string> namesOfFunctions() {
  std::set<std::string> names;
  for (const BuiltinFunction& builtin : kBuiltinFunctions)
    names.emplace(builtin.name);
  return names;
}

// A whole set is copied without comparisons.
void fill(std::set<std::string>& names, const std::set<std::string>& more) {
  if (names.empty())
    names = more;
  else
    names.insert(more.begin(), more.end());
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
  tokens.reserve(text.size());
  split(text, tokens);
  check_expression(tokens);
  std::vector<token> converted;
  converted.reserve(tokens.size());
  convert_expression(tokens, converted);
  program = std::make_shared<nordika::detail::Program>(converted);
  postfix = nordika::detail::TokenSequence<token>(std::move(converted));
}

void Expression::initialize() {
  static const std::set<std::string> functionNames = namesOfFunctions();
  static const std::set<std::string> operatorNames = {"+", "-", "*", "/", "^"};
  fill(functions, functionNames);
  fill(operators, operatorNames);
  variables["pi"] = kPi;
}

bool Expression::is_operator(const std::string& s) const {
  return operators.contains(s);
}

bool Expression::is_delimiter(char c) const {
  return kBlanksAndParentheses.find(c) != std::string_view::npos || is_operator({c});
}

bool Expression::is_variable(const std::string& s) const {
  return isName(s);
}

Expression::token_t Expression::get_type(const token& t) const {
  if (functions.contains(t.text)) return function;
  if (is_variable(t.text)) return variable;
  throw ExpressionWrongFormat();
}

void Expression::split(const std::string& text, std::vector<token>& out) {
  initialize();
  const std::string source(text.begin(), text.end());  // `text` may be part of `out`
  const Characters operatorSigns(operators);
  Characters delimiters = operatorSigns;
  for (const char c : kBlanksAndParentheses)
    delimiters.insert(c);
  std::string_view rest = source;
  while (!rest.empty()) {
    const char c = rest.front();
    std::size_t length = 1;
    if (isDigit(c)) {
      const std::optional<double> value = extractNumber(rest);
      if (!value) throw ExpressionWrongFormat();
      out.push_back({renderNumber(*value), number});
      length = 0;
    } else if (!delimiters.contain(c)) {
      while (length < rest.size() && !delimiters.contain(rest[length]))
        ++length;
      token name{std::string(rest.substr(0, length)), undefined};
      name.type = get_type(name);
      out.push_back(std::move(name));
    } else if (c == '(' || c == ')') {
      out.push_back({{c}, parenthesis});
    } else if (operatorSigns.contain(c)) {
      out.push_back({{c}, undefined_operator});
    }
    rest.remove_prefix(length);
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
    variables[std::string(name)] = *value;
  }
}
