// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_FORMULA_H
#define NORDIKA_APP_FORMULA_H

#include <QColor>
#include <QGraphicsPixmapItem>

namespace nordika {

/// A picture, black on white, that is drawn in the colour of the text of the view that
/// shows it, on the ground of that view. It is decoded when it is first painted, which
/// is after the window has appeared.
class Formula : public QGraphicsPixmapItem {
 public:
  /// A picture of this size, blank until it is painted.
  Formula(const QString& file, const QSize& size);

  /// Paints the picture, in another colour if the palette of the view has changed.
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* viewport) override;

 private:
  QString name;
  QColor ink;
};

}  // namespace nordika

#endif
