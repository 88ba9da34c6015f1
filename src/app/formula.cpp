// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/formula.h"

#include <QImage>
#include <QWidget>

namespace nordika {

Formula::Formula(const QString& file, const QSize& size)
    : QGraphicsPixmapItem(QPixmap(size)), name(file) {
  setTransformationMode(Qt::SmoothTransformation);  // for screens of a fractional scale
}

void Formula::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* viewport) {
  const QColor text = viewport->palette().color(QPalette::Active, QPalette::Text);
  if (ink != text) {
    ink = text;
    // The darker a point of the picture, the more of the ink it gets.
    QImage cover = QImage(name).convertToFormat(QImage::Format_Grayscale8);
    cover.invertPixels();
    QImage drawn(cover.size(), QImage::Format_ARGB32_Premultiplied);
    drawn.fill(ink);
    drawn.setAlphaChannel(cover);
    setPixmap(QPixmap::fromImage(drawn));
  }
  QGraphicsPixmapItem::paint(painter, option, viewport);
}

}  // namespace nordika
