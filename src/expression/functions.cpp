// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/functions.h"

Function::Function(const std::string& expr) : Expression(expr) {}

Function::Function(const std::string& expr, const std::string& parameters) : Expression(expr) {
  set_variables(parameters);
}
