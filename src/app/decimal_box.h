// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_DECIMAL_BOX_H
#define NORDIKA_APP_DECIMAL_BOX_H

#include <QDoubleSpinBox>

namespace nordika {

/// A decimal spin box that reads a comma, typed or pasted, as a point. Russian
/// keyboards type a comma. The "C" locale of the window would drop it as a
/// separator of thousands and read 1,25 as 125.
class DecimalBox : public QDoubleSpinBox {
 public:
  using QDoubleSpinBox::QDoubleSpinBox;

  /// Replaces the commas in the text, then judges it as the base class does.
  QValidator::State validate(QString& input, int& pos) const override {
    return QDoubleSpinBox::validate(input.replace(',', '.'), pos);
  }
};

}  // namespace nordika

#endif
