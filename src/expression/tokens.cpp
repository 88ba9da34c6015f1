// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <bitset>
#include <optional>
#include <string_view>

#include "nordika/expression.h"
#include "number/read_number.h"
#include "number/six_digits.h"

using nordika::detail::isDigit;

namespace {

// The delimiters of an expression that are no operators.
constexpr std::string_view kBlanksAndParentheses = "\t \n\r()";

// True for an ASCII letter, whatever the locale.
bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

const std::string Expression::token_t_list[8] = {
    "undefined",       "parenthesis",    "undefined_operator",
    "binary_operator", "unary_operator", "variable",
    "number",          "function"};

bool Expression::is_operator(const std::string& s) const {
  return operators.contains(s);
}

bool Expression::is_delimiter(char c) const {
  return kBlanksAndParentheses.find(c) != std::string_view::npos || is_operator({c});
}

bool Expression::is_variable(const std::string& s) const {
  return !s.empty() && isLetter(s[0]) &&
         std::all_of(s.begin(), s.end(), [](char c) { return isLetter(c) || isDigit(c); });
}

Expression::token_t Expression::get_type(const token& t) const {
  if (functions.contains(t.text)) return function;
  if (is_variable(t.text)) return variable;
  throw ExpressionWrongFormat();
}

void Expression::split(const std::string& text, std::vector<token>& out) {
  initialize();
  const std::string source(text.begin(), text.end());  // `text` may be part of `out`
  std::bitset<256> delimiters;
  for (const char c : kBlanksAndParentheses)
    delimiters.set(static_cast<unsigned char>(c));
  for (const std::string& name : operators) {
    if (name.size() == 1) delimiters.set(static_cast<unsigned char>(name[0]));
  }
  const auto delimits = [&](char c) { return delimiters[static_cast<unsigned char>(c)]; };
  std::string_view rest = source;
  while (!rest.empty()) {
    const char c = rest.front();
    const auto length =
        static_cast<std::size_t>(std::find_if(rest.begin(), rest.end(), delimits) - rest.begin());
    if (length > 0 && isDigit(c)) {
      const std::optional<double> value = nordika::detail::extractNumber(rest);
      if (!value) throw ExpressionWrongFormat();
      char digits[nordika::detail::kSixDigitsLength];
      const char* const end = nordika::detail::writeSixDigits(digits, *value);
      out.push_back({{static_cast<const char*>(digits), end}, number});
      continue;
    }
    if (length > 0) {
      token name{std::string(rest.substr(0, length)), undefined};
      name.type = get_type(name);
      out.push_back(std::move(name));
    } else if (is_operator({c})) {
      out.push_back({{c}, undefined_operator});
    } else if (c == '(' || c == ')') {
      out.push_back({{c}, parenthesis});
    }
    rest.remove_prefix(std::max<std::size_t>(length, 1));
  }
}
