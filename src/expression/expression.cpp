// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/expression.h"

#include <cstddef>
#include <memory>
#include <utility>

#include "expression/language.h"
#include "expression/program.h"

namespace {

template <typename Row, std::size_t size>
std::set<std::string> namesIn(const Row (&table)[size]) {
  std::set<std::string> names;
  for (const Row& row : table)
    names.emplace(row.name);
  return names;
}

// A whole set is copied without comparisons.
void fill(std::set<std::string>& names, const std::set<std::string>& more) {
  if (names.empty())
    names = more;
  else
    names.insert(more.begin(), more.end());
}

}  // namespace

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
  static const std::set<std::string> functionNames = namesIn(nordika::detail::kFunctions);
  static const std::set<std::string> signs = namesIn(nordika::detail::kOperators);
  fill(functions, functionNames);
  fill(operators, signs);
  for (const auto& [name, value] : nordika::detail::kConstants)
    variables[std::string(name)] = value;
}
