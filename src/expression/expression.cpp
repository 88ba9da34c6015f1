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
  functions.insert(functionNames.begin(), functionNames.end());
  operators.insert(signs.begin(), signs.end());
  for (const auto& [name, value] : nordika::detail::kConstants)
    variables[std::string(name)] = value;
}
