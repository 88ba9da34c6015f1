// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/functions.h"

#include <cmath>
#include <iterator>

#include "trace/six_digits.h"

RoundedPoint::RoundedPoint(const std::vector<double>& x) : n(x.size()) {
  checkValue(x);
  double* rounded = few;
  if (n > std::size(few)) {
    many.resize(n);
    rounded = many.data();
  }
  for (std::size_t i = 0; i < n; ++i)
    rounded[i] = roundToSixDigits(x[i]);
  elements = rounded;
}

Function::Function(const std::string& expr) : Expression(expr) {}

Function::Function(const std::string& expr, const std::string& parameters) : Expression(expr) {
  set_variables(parameters);
}

double Function::operator()(const std::vector<double>& x) {
  return evaluateRounding(x.data(), x.size());
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
