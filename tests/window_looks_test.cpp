// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/letters.h"
#include "window_fixture.h"

namespace {

using nordika::fitLetters;

const char kText[] = "TjjTjjTjjT";  // hardly any blank at the ends

template <typename Kind>
QWidget* make(const QString& text) {
  auto* widget = new Kind;
  widget->setText(text);
  return widget;
}

QWidget* makeRichLabel(const QString& text) {
  const QString lowered = "<span style=\"vertical-align:sub;\">" + text.mid(1, 1) + "</span>";
  return make<QLabel>("<p>" + text.left(1) + lowered + text.mid(2) + "</p>");
}

QWidget* makeEditWithMargins(const QString& text) {
  QWidget* edit = make<QLineEdit>(text);
  static_cast<QLineEdit*>(edit)->setTextMargins(5, 0, 7, 0);
  return edit;
}

QWidget* makeBox(const QString& text) {
  auto* box = new QSpinBox;
  box->setSpecialValueText(text);
  return box;
}

QWidget* (*const kKinds[])(const QString&) = {
    make<QLabel>,        makeRichLabel, make<QPushButton>, make<QRadioButton>, make<QLineEdit>,
    makeEditWithMargins, makeBox};

constexpr const char* kStyles[] = {"windows", "fusion"};

class LettersTest : public ::testing::Test {
 protected:
  LettersTest() {
    own.setFamilies({"Liberation Sans"});
    own.setPointSize(14);
    own.setBold(true);
  }

  // A line edit that cannot show all of its text scrolls with the cursor.
  static bool cuts(QWidget& widget) {
    auto* edit = qobject_cast<QLineEdit*>(&widget);
    if (edit == nullptr) edit = widget.findChild<QLineEdit*>();
    if (edit == nullptr) return isCut(widget);
    edit->deselect();
    edit->home(false);
    const QImage beginning = widget.grab().toImage();
    edit->end(false);
    return beginning != widget.grab().toImage();
  }

  bool cutsAt(QWidget& widget, int width, int stretch) const {
    QFont font = own;
    font.setStretch(stretch);
    widget.setFont(font);
    widget.resize(width, 40);
    return cuts(widget);
  }

  QFont own;
};

TEST_F(LettersTest, AreNarrowedByTheLeastThatShowsThemWhole) {
  for (const char* style : kStyles) {
    QApplication::setStyle(style);
    for (auto* const make : kKinds) {
      const std::unique_ptr<QWidget> widget(make(kText));
      const char* const kind = widget->metaObject()->className();
      int enough = 200;
      ASSERT_FALSE(cutsAt(*widget, enough, 0)) << kind;
      while (!cutsAt(*widget, enough - 1, 0))
        --enough;
      // A style sets these in its own time. They go.
      if (widget->inherits("QSpinBox")) widget->findChild<QLineEdit*>()->setTextMargins(9, 0, 9, 0);
      // A pixel is kept free for letters that reach beyond their advance.
      const int spare = widget->inherits("QLabel") || widget->inherits("QAbstractButton") ? 1 : 0;
      for (const int width : {enough + spare, enough - 1, enough - 30, 200}) {
        widget->resize(width, 40);
        fitLetters(*widget, {"j", kText + QString("  ")});
        const int stretch = widget->font().stretch();
        EXPECT_EQ(stretch == 0, width >= enough) << kind << " " << enough << " " << width;
        EXPECT_FALSE(cuts(*widget)) << kind << " " << enough - width;
        EXPECT_TRUE(stretch == 0 || cutsAt(*widget, width, stretch + 1 + 2 * spare))
            << kind << " " << stretch;
      }
    }
  }
}

TEST_F(LettersTest, AreMovedWhereTheirLineIsTooHigh) {
  for (const char* style : kStyles) {
    QApplication::setStyle(style);
    for (auto* const make : {kKinds[0], kKinds[1], kKinds[3]}) {
      const std::unique_ptr<QWidget> widget(make("A1φj"));
      widget->setFont(own);
      for (int height = 40; height > 18; --height) {
        widget->resize(100, height);
        fitLetters(*widget, {"A1φj"});
        EXPECT_FALSE(isCut(*widget)) << widget->metaObject()->className() << " " << height;
      }
    }
  }
}

TEST_F(WindowTest, EveryResultIsSeenWhole) {
  EXPECT_EQ(QFontInfo(window->font()).family(), "Liberation Sans");
  const QFont narrow = nordika::inNarrowFamily(QFont("Own", 33));
  EXPECT_EQ(narrow.families().last(), "Own");
  EXPECT_EQ(narrow.pointSize(), 33);
  for (const char* result : {"-1.23457e-308", "1.41421", "3.76684e-13", "-1.23457e+10", "1"}) {
    run("Simple", result);
    auto* field = child<QLineEdit>("res_x_1");
    EXPECT_EQ(field->text(), result);
    EXPECT_FALSE(isCut(*field)) << result;
    EXPECT_EQ(field->font().stretch() == 0, field->text().size() < 8) << result;
  }
}

TEST_F(WindowTest, TheEndOfACellIsSeenOrItsToolTipHasIt) {
  for (const auto& [text, end] : rowsOf<2>("cells.txt")) {
    enter(true, 4, "", (";" + text).c_str());
    const QRect cell = grid()->visualItemRect(grid()->item(0, 1));
    const QImage shown = grid()->viewport()->grab(cell).toImage();
    grid()->item(0, 1)->setText((text.substr(0, text.size() - 1) + "8").c_str());
    EXPECT_EQ(grid()->viewport()->grab(cell).toImage() != shown, end == "seen") << text;
    const auto tip = [&] {
      QHelpEvent hover(QEvent::ToolTip, cell.center(), QPoint(100, 100));
      QCoreApplication::sendEvent(grid()->viewport(), &hover);
      // One with characters of HTML is in HTML.
      QTextDocument page;
      page.setHtml(QToolTip::text());
      return (QToolTip::text().startsWith("<qt>") ? page.toPlainText() : QToolTip::text())
          .toStdString();
    };
    grid()->item(0, 1)->setText(text.c_str());
    EXPECT_EQ(tip(), "∂f1/∂x2 = " + text);
    click("clearButton");
    EXPECT_EQ(tip(), "∂f1/∂x2 = ");
  }
}

TEST_F(WindowTest, ThePicturesAreAsTheViewNeedsThemAndStayInPlace) {
  auto* view = child<QGraphicsView>("taskView");
  EXPECT_EQ(view->items().size(), 1);
  for (const int visit : {0, 1, 2, 3}) {
    const bool newton = visit % 2 != 0;
    const QResource file(newton ? ":/res/task2.png" : ":/res/task1.png");
    EXPECT_EQ(file.compressionAlgorithm(), QResource::NoCompression);
    // In the header: bits per channel 8, colour type 2 (RGB), not interlaced.
    EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(file.data()), 29).mid(24),
              QByteArray("\x08\x02\x00\x00\x00", 5));
    click(newton ? "checkNewton" : "checkSimpleIters");
    ASSERT_EQ(view->items().size(), 1);
    const auto* picture = qgraphicsitem_cast<QGraphicsPixmapItem*>(view->items().first());
    EXPECT_EQ(picture->pixmap().size(), newton ? QSize(375, 105) : QSize(360, 136));
    EXPECT_EQ(picture->transformationMode(), Qt::SmoothTransformation);
    const QPoint middle = view->mapFromScene(picture->sceneBoundingRect().center());
    EXPECT_LE((middle - view->viewport()->rect().center()).manhattanLength(), 2) << visit;
  }
}

TEST_F(WindowTest, TheWholeGridIsSeenWithoutScrollBarsInEveryStyle) {
  for (const char* style : kStyles) {
    close();
    QApplication::setStyle(style);
    open();
    enter(true, 4, "");
    EXPECT_EQ(grid()->frameWidth(), 1) << style;
    EXPECT_EQ(grid()->frameShape() == QFrame::Box, style == std::string("windows"));
    for (const auto* box : window->findChildren<QAbstractSpinBox*>())
      EXPECT_EQ(box->findChild<QLineEdit*>()->textMargins(), QMargins()) << style;
    for (const char* button : {"checkNewton", "clearButton"}) {
      click(button);
      QCoreApplication::processEvents();
      EXPECT_FALSE(grid()->horizontalScrollBar()->isVisible()) << style << button;
      EXPECT_FALSE(grid()->verticalScrollBar()->isVisible()) << style << button;
      EXPECT_EQ(grid()->rowHeight(3), 30);
      EXPECT_EQ(grid()->columnWidth(3), 90);
    }
  }
}

TEST_F(WindowTest, TheFormulasHaveTheColoursOfTheView) {
  auto* view = child<QGraphicsView>("taskView");
  const QPalette before = QApplication::palette();
  for (const char* method : {"checkNewton", "checkSimpleIters"}) {
    click(method);
    const QImage drawn(method[5] == 'N' ? ":/res/task2.png" : ":/res/task1.png");
    for (const bool dark : {false, true, false}) {
      QPalette palette(dark ? Qt::white : Qt::black, Qt::gray);
      palette.setColor(QPalette::Base, dark ? Qt::black : Qt::white);
      palette.setColor(QPalette::Active, QPalette::Text, dark ? Qt::white : Qt::black);
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
