// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/decimal_box.h"

namespace nordika {

QValidator::State DecimalBox::validate(QString& input, int& pos) const {
  input.replace(QLatin1Char(','), QLatin1Char('.'));
  return QDoubleSpinBox::validate(input, pos);
}

}  // namespace nordika
