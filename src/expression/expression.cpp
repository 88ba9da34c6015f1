// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/expression.h"

#include <memory>
#include <utility>

#include "expression/builtin_functions.h"
#include "expression/operators.h"
#include "expression/program.h"

using nordika::detail::kBuiltinConstants;
using nordika::detail::kBuiltinFunctions;
using nordika::detail::kOperators;

namespace {

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
  static const auto functionNames = [] {
    std::set<std::string> names;
    for (const auto& builtin : kBuiltinFunctions)
      names.emplace(builtin.name);
    return names;
  }();
  static const auto signs = [] {
    std::set<std::string> names;
    for (const auto& op : kOperators)
      names.emplace(op.sign);
    return names;
  }();
  fill(functions, functionNames);
  fill(operators, signs);
  for (const auto& constant : kBuiltinConstants)
    variables[std::string(constant.name)] = constant.value;
}
