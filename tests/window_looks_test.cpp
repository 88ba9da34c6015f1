// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "window_fixture.h"

namespace {

TEST_F(WindowTest, TheFormulasHaveTheColoursOfTheView) {
  auto* view = child<QGraphicsView>("taskView");
  const QPalette before = QApplication::palette();
  for (const char* method : {"checkNewton", "checkSimpleIters"}) {
    click(method);
    const QImage drawn(method[5] == 'N' ? ":/res/task2.png" : ":/res/task1.png");
    for (const bool dark : {false, true, false}) {
      QPalette palette(dark ? Qt::white : Qt::black, Qt::gray);
      palette.setColor(QPalette::Base, dark ? Qt::black : Qt::white);
      palette.setColor(QPalette::Text, dark ? Qt::white : Qt::black);
      QApplication::setPalette(palette);
      QCoreApplication::processEvents();
      const QImage shown = view->viewport()->grab().toImage();
      const QPoint corner = view->mapFromScene(QPointF());
      int differing = 0;
      for (int i = 0; i < drawn.width() * drawn.height(); ++i) {
        const QPoint point(i % drawn.width(), i / drawn.width());
        const int light = qGray(drawn.pixel(point));
        if (qAbs(qGray(shown.pixel(corner + point)) - (dark ? 255 - light : light)) > 1)
          ++differing;
      }
      EXPECT_EQ(differing, 0) << method << dark;
    }
  }
  QApplication::setPalette(before);
}

}  // namespace
