// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/wheel.h"

#include <QAbstractSpinBox>
#include <QEvent>

namespace nordika {

namespace {

class WheelFilter : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* box, QEvent* event) override {
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(box)->hasFocus()) return false;
    event->ignore();
    return true;
  }
};

}  // namespace

void turnOnlyWithFocus(QAbstractSpinBox& box) {
  box.setFocusPolicy(Qt::StrongFocus);
  box.installEventFilter(new WheelFilter(&box));
}

}  // namespace nordika
