// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_DECIMAL_BOX_H
#define NORDIKA_APP_DECIMAL_BOX_H

#include <QDoubleSpinBox>

/// A decimal spin box that takes a comma for a point, whichever way it gets
/// into the text: Russian keyboards type one, and the "C" locale that the
/// window sets would drop it as a separator of thousands (1,25 as 125).
class DecimalBox : public QDoubleSpinBox {
 public:
  using QDoubleSpinBox::QDoubleSpinBox;

  /// Replaces the commas in the text, then judges it as the base class does.
  QValidator::State validate(QString& input, int& pos) const override;
};

#endif
