// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/functions.h"

#include <cmath>

Function::Function(const std::string& expr) : Expression(expr) {}

Function::Function(const std::string& expr, const std::string& parameters) : Expression(expr) {
  set_variables(parameters);
}

double Function::operator()(const std::vector<double>& x) {
  checkValue(x);
  return evaluateAt(x);
}

void checkValue(double v) {
  if (!std::isfinite(v)) throw ExpressionBadResult();
}

void checkValue(const std::vector<double>& v) {
  for (const double element : v) {
    if (!std::isfinite(element)) [[unlikely]]
      throw ExpressionBadResult();
  }
}
