// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/double_click.h"

#include <QLineEdit>
#include <QMouseEvent>

namespace nordika {

namespace {

class DoubleClickFilter : public QObject {
 public:
  explicit DoubleClickFilter(QLineEdit& line) : QObject(&line), edit(line) {}

  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonRelease) held = false;
    // A hand that trembles would select from where the double click was.
    if (event->type() == QEvent::MouseMove) return held;
    if (event->type() != QEvent::MouseButtonDblClick ||
        static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
      return false;
    edit.event(event);  // so that a third click is known as such
    edit.selectAll();
    held = true;
    return true;
  }

 private:
  QLineEdit& edit;
  bool held = false;  // the button, since a double click
};

}  // namespace

void selectAllByDoubleClick(QLineEdit& edit) {
  edit.installEventFilter(new DoubleClickFilter(edit));
}

}  // namespace nordika
