// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/late_close.h"

#include <QCoreApplication>
#include <QEvent>

namespace nordika {

LateClose::LateClose(QWidget& window) : widget(window) {
  QCoreApplication::instance()->installEventFilter(this);
}

LateClose::~LateClose() {
  QCoreApplication::instance()->removeEventFilter(this);
  if (isRequested) widget.close();
}

void LateClose::collect() {
  dropsInput = true;
  QCoreApplication::processEvents();
  dropsInput = false;
}

bool LateClose::eventFilter(QObject* object, QEvent* event) {
  switch (event->type()) {
    case QEvent::Close:
      if (object != &widget) return false;
      isRequested = true;
      event->ignore();
      return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::TouchBegin:
    case QEvent::TouchEnd:
    case QEvent::TouchUpdate:
    case QEvent::Wheel:
      return dropsInput;
    default:
      return false;
  }
}

}  // namespace nordika
