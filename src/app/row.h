// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_ROW_H
#define NORDIKA_APP_ROW_H

#include <array>

#include "ui_widget.h"

namespace nordika {

/// The widgets that belong to one equation and its unknown.
struct Row {
  QLabel* before;        ///< the label in front of the equation
  QLineEdit* equation;   ///< the text of the equation
  QLabel* after;         ///< the label behind the equation
  QLabel* initLabel;     ///< the label of the initial value
  QDoubleSpinBox* init;  ///< the initial value
  QLabel* resultLabel;   ///< the label of the result
  QLineEdit* result;     ///< the result

  /// Shows or hides all of them.
  void setVisible(bool visible) const {
    for (QWidget* widget : std::initializer_list<QWidget*>{before, equation, after, initLabel, init,
                                                           resultLabel, result})
      widget->setVisible(visible);
  }
};

/// The four rows of the form, in order.
inline std::array<Row, 4> rowsOf(const Ui_Widget& ui) {
  return {{{ui.label_phi_1, ui.eq_1, ui.label_eq_1, ui.label_init_x_1, ui.init_x_1,
            ui.label_res_x_1, ui.res_x_1},
           {ui.label_phi_2, ui.eq_2, ui.label_eq_2, ui.label_init_x_2, ui.init_x_2,
            ui.label_res_x_2, ui.res_x_2},
           {ui.label_phi_3, ui.eq_3, ui.label_eq_3, ui.label_init_x_3, ui.init_x_3,
            ui.label_res_x_3, ui.res_x_3},
           {ui.label_phi_4, ui.eq_4, ui.label_eq_4, ui.label_init_x_4, ui.init_x_4,
            ui.label_res_x_4, ui.res_x_4}}};
}

}  // namespace nordika

#endif
