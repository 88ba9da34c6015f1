// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/functions.h"

#include <cmath>
#include <string>
#include <vector>

void checkValue(double v) {
  if (!std::isfinite(v)) throw ExpressionBadResult();
}

void checkValue(const std::vector<double>& v) {
  for (const double element : v)
    checkValue(element);
}

Function::Function(const std::string& expr) : Expression(expr) {}

Function::Function(const std::string& expr, const std::string& parameters) : Expression(expr) {
  set_variables(parameters);
}
