// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// A form with as many widgets of the same kinds as the window of nordika. It
// measures the start of Qt itself.

#include <QApplication>
#include <QDoubleSpinBox>
#include <QFrame>
#include <QGraphicsView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QWidget>

namespace {

template <typename Kind>
void make(QWidget& form, int count) {
  for (int i = 0; i < count; ++i)
    (new Kind(&form))->setGeometry(10 + 40 * i, 10 + 20 * i, 80, 24);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget form;
  form.resize(820, 640);
  make<QPushButton>(form, 4);
  make<QFrame>(form, 7);
  make<QLabel>(form, 28);
  make<QLineEdit>(form, 9);
  make<QDoubleSpinBox>(form, 8);
  make<QRadioButton>(form, 2);
  make<QTableWidget>(form, 1);
  make<QGraphicsView>(form, 1);
  form.show();
  return QApplication::exec();
}
