// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <optional>
#include <string_view>

#include "nordika/expression.h"
#include "number/read_number.h"

namespace {

// Unlike expressions, assignments also take \v and \f as blanks.
constexpr std::string_view kBlanks = " \t\n\v\f\r";

void skipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

std::string_view takeWord(std::string_view& text) {
  skipBlanks(text);
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(word.size());
  return word;
}

}  // namespace

void Expression::set_variables(const std::string& assignments) {
  std::string_view rest = assignments;
  while (true) {
    const std::string name(takeWord(rest));
    if (name.empty()) return;
    const std::string_view separator = takeWord(rest);
    skipBlanks(rest);
    const std::optional<double> value = nordika::detail::extractNumber(rest);
    if (!is_variable(name) || !value || separator != "=") throw ExpressionWrongFormat();
    variables[name] = *value;
  }
}
