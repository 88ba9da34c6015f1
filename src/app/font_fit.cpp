// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "font_fit.h"

#include <algorithm>
#include <iterator>
#include <numeric>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QFontInfo>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOption>
#include <QTextDocument>

namespace nordika {

namespace {

// The margins of a line edit on both sides of its text, and the cursor.
constexpr int kLineEditMargins = 2 * 2 + 1;

QSize roomInLineEdit(const QRect& contents) {
  return {contents.width() - kLineEditMargins, contents.height()};
}

QSize roomFor(const QWidget& widget) {
  const QStyle* style = widget.style();
  if (qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr) {
    QStyleOptionSpinBox option;
    option.initFrom(&widget);
    option.subControls = QStyle::SC_All;
    return roomInLineEdit(
        style->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, &widget));
  }
  if (qobject_cast<const QLineEdit*>(&widget) != nullptr) {
    QStyleOptionFrame option;
    option.initFrom(&widget);
    option.lineWidth = style->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &widget);
    return roomInLineEdit(style->subElementRect(QStyle::SE_LineEditContents, &option, &widget));
  }
  if (qobject_cast<const QAbstractButton*>(&widget) != nullptr) {
    QStyleOptionButton option;
    option.initFrom(&widget);
    const bool radio = qobject_cast<const QRadioButton*>(&widget) != nullptr;
    return style
        ->subElementRect(radio ? QStyle::SE_RadioButtonContents : QStyle::SE_PushButtonContents,
                         &option, &widget)
        .size();
  }
  return widget.size();
}

// The rectangle in which the label draws, in pixels of the screen.
QRect inkOf(QLabel& label) {
  const qreal ratio = label.devicePixelRatioF();
  QImage image(label.size() * ratio, QImage::Format_Grayscale8);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::white);
  label.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
  const auto isInk = [](uchar grey) { return grey != 255; };
  QRect ink;
  for (int y = 0; y < image.height(); ++y) {
    const uchar* const begin = image.constScanLine(y);
    const uchar* const end = begin + image.width();
    const uchar* const first = std::find_if(begin, end, isInk);
    if (first == end) continue;
    const uchar* last = end - 1;
    while (!isInk(*last))
      --last;
    ink |= QRect(QPoint(static_cast<int>(first - begin), y),
                 QPoint(static_cast<int>(last - begin), y));
  }
  return ink;
}

// Rich text has a layout of its own, so it is measured by drawing it.
int lostOfRichText(const ShownText& shown) {
  const QSize room = roomFor(*shown.widget);
  QLabel label(shown.text, shown.widget->window());
  label.setFont(shown.widget->font());
  const QSize whole = label.sizeHint();
  if (whole.boundedTo(room) == whole) return 0;
  QPalette blackOnWhite(Qt::white);
  blackOnWhite.setColor(QPalette::WindowText, Qt::black);
  label.setPalette(blackOnWhite);
  label.resize(whole.expandedTo(room));
  // A text larger than its label begins in the label's upper left corner.
  const QRect ink = inkOf(label);
  const QSize seen = room * label.devicePixelRatioF();
  return std::max(ink.right() + 1 - seen.width(), 0) +
         std::max(ink.bottom() + 1 - seen.height(), 0);
}

// Vertically, measures the glyphs and not the line height, which is larger.
int lostOfPlainText(const ShownText& shown) {
  const QSize room = roomFor(*shown.widget);
  const QFontMetrics metrics(shown.widget->font());
  const QRect ink = metrics.tightBoundingRect(shown.text);
  const int baseline = (room.height() - metrics.height()) / 2 + metrics.ascent();
  return std::max(metrics.horizontalAdvance(shown.text) - room.width(), 0) +
         std::max(-(baseline + ink.top()), 0) +
         std::max(baseline + ink.bottom() + 1 - room.height(), 0);
}

// The number of pixels of the text, across and down, that do not fit the widget.
int lostPixels(const ShownText& shown) {
  if (shown.text.isEmpty()) return 0;
  return Qt::mightBeRichText(shown.text) ? lostOfRichText(shown) : lostOfPlainText(shown);
}

}  // namespace

bool showsWhole(const ShownText& shown) {
  return lostPixels(shown) == 0;
}

void fitFontFamily(QWidget& window, const std::vector<ShownText>& texts,
                   const QStringList& families) {
  const auto fits = [&](const QFont& font) {
    window.setFont(font);
    return std::all_of(texts.begin(), texts.end(), showsWhole);
  };
  QList<QFont> fonts = {window.font()};
  if (fits(fonts.first())) return;
  for (const QString& family : families) {
    QFont font = fonts.first();
    font.setFamilies({family});
    // For a missing family any other may be substituted, even a serif one.
    if (!QFontInfo(font).family().startsWith(family)) continue;
    if (fits(font)) return;
    fonts.append(font);
  }
  const auto loss = [&](const QFont& font) {
    window.setFont(font);
    return std::accumulate(texts.begin(), texts.end(), 0,
                           [](int sum, const ShownText& shown) { return sum + lostPixels(shown); });
  };
  QList<int> losses;
  std::transform(fonts.begin(), fonts.end(), std::back_inserter(losses), loss);
  const auto least = std::min_element(losses.begin(), losses.end()) - losses.begin();
  window.setFont(fonts[static_cast<int>(least)]);
}

}  // namespace nordika
