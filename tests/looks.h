// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TESTS_LOOKS_H
#define NORDIKA_TESTS_LOOKS_H

#include <QtWidgets>

/// How many points a label, button or line edit of this size changes for its text.
inline int ink(QWidget& widget, const QSize& size) {
  const QSignalBlocker blocker(widget);
  const QVariant text = widget.property("text");
  widget.resize(size);
  const QImage with = widget.grab().toImage();
  widget.setProperty("text", "");
  const QImage without = widget.grab().toImage();
  widget.setProperty("text", text);
  int count = 0;
  for (int i = 0; i < with.width() * with.height(); ++i) {
    const QPoint point(i % with.width(), i / with.width());
    if (with.pixel(point) != without.pixel(point)) ++count;
  }
  return count;
}

/// True if more room would show more of the text. The room on each side of a text in
/// the middle grows by whole points of screens of the scales 1.25 and 1.5, too.
inline bool isCut(QWidget& widget) {
  const QSize size = widget.size();
  const bool cut = ink(widget, size) != ink(widget, size + QSize(64, 16));
  widget.resize(size);
  return cut;
}

#endif
