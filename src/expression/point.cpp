// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/point.h"

#include <cmath>

#include "number/six_digits.h"

namespace nordika::detail {

void Point::assign(const std::vector<double>& x) {
  arguments.clear();
  for (const double value : x) {
    if (!std::isfinite(value)) throw ExpressionBadResult();
    arguments.push_back(roundToSixDigits(value));
  }
}

double Point::valueOf(Expression& f) const {
  return f.evaluateAtRounded(arguments);
}

}  // namespace nordika::detail
