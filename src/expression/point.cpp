// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "expression/point.h"

#include "number/finite.h"
#include "number/six_digits.h"

namespace nordika::detail {

void Point::assign(const std::vector<double>& x) {
  if (!isFinite(x)) throw ExpressionBadResult();
  arguments.clear();
  for (const double value : x)
    arguments.push_back(roundToSixDigits(value));
}

double Point::valueOf(Expression& f) const {
  return f.evaluateAtRounded(arguments);
}

}  // namespace nordika::detail
