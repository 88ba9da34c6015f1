// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/letters.h"

#include <algorithm>

#include <QFont>
#include <QLabel>
#include <QLineEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOption>
#include <QTextLayout>
#include <QtMath>

namespace nordika {

namespace {

// How far the drawing of a label may begin above the label, and end below it.
constexpr int kOverlap = 8;

template <typename Option>
Option optionFor(const QWidget& widget) {
  Option option;
  option.initFrom(&widget);
  return option;
}

// Sets the margins from which the letters begin.
void setMargins(QWidget& widget) {
  widget.ensurePolished();  // styles change margins
  if (auto* label = qobject_cast<QLabel*>(&widget)) {
    // Otherwise a line higher than the label begins at its top, or is cut off there.
    label->setMargin(-kOverlap);
    label->setContentsMargins(kOverlap, 0, 0, 0);
  }
  // Some styles leave no room between theirs.
  if (qobject_cast<QAbstractSpinBox*>(&widget) != nullptr)
    widget.findChild<QLineEdit*>()->setTextMargins(0, 0, 0, 0);
}

QRect editField(const QWidget& box) {
  auto option = optionFor<QStyleOptionSpinBox>(box);
  option.frame = true;
  return box.style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField,
                                     &box);
}

// The width for the advances of the text. Letters may reach one pixel beyond theirs.
int roomIn(const QWidget& widget) {
  const QStyle& style = *widget.style();
  const auto button = optionFor<QStyleOptionButton>(widget);
  if (qobject_cast<const QLabel*>(&widget) != nullptr) return widget.width() - 1;
  if (qobject_cast<const QPushButton*>(&widget) != nullptr)
    return style.subElementRect(QStyle::SE_PushButtonContents, &button, &widget).width() - 1;
  if (qobject_cast<const QRadioButton*>(&widget) != nullptr)
    return style.subElementRect(QStyle::SE_RadioButtonContents, &button, &widget).width() - 1;
  const auto* edit = qobject_cast<const QLineEdit*>(&widget);
  auto frame = optionFor<QStyleOptionFrame>(widget);
  if (edit != nullptr) {
    frame.lineWidth = style.pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, edit);
  } else {
    frame.rect = editField(widget);
    edit = widget.findChild<QLineEdit*>();
  }
  const QMargins margins = edit->textMargins();
  const int contents = style.subElementRect(QStyle::SE_LineEditContents, &frame, edit).width();
  // Two pixels on both sides, and the cursor.
  return contents - margins.left() - margins.right() - 2 * 2 - 1;
}

bool fits(const QWidget& widget, const QString& text, int room) {
  QString letters = text;
  while (letters.endsWith(' '))
    letters.chop(1);
  if (QFontMetrics(widget.font()).horizontalAdvance(letters) <= room) return true;
  // Subscripts are smaller than measured, but to lay out rich text takes its time.
  const auto* label = qobject_cast<const QLabel*>(&widget);
  return label != nullptr && label->sizeHint().width() + kOverlap <= label->width();
}

// The pixels by which a vertically centred line must move up so that no letter is cut off
// below. The line may be higher than the widget, the letters are not.
int riseOf(const QWidget& widget, const QString& text) {
  if (QFontMetrics(widget.font()).height() <= widget.height()) return 0;
  QTextLayout layout(text, widget.font());
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  const qreal baseline = (widget.height() - line.height()) / 2 + line.ascent();
  const qreal below = QFontMetricsF(widget.font()).tightBoundingRect(text).bottom();
  return std::max(qCeil(baseline + below) - widget.height(), 0);
}

// Draws the text of a radio button higher. The button itself has no margins.
class Raised : public QProxyStyle {
 public:
  Raised(QWidget& widget, int by) : QProxyStyle(widget.style()->objectName()), rise(by) {
    setParent(&widget);
  }
  void drawItemText(QPainter* painter, const QRect& room, int flags, const QPalette& palette,
                    bool enabled, const QString& text, QPalette::ColorRole role) const override {
    QProxyStyle::drawItemText(painter, room.translated(0, -rise), flags | Qt::TextDontClip, palette,
                              enabled, text, role);
  }

 private:
  int rise;
};

// The widest stretch at which something fits, otherwise the least one.
template <typename Fits>
int widestStretch(int least, Fits fits) {
  if (fits(QFont::AnyStretch)) return QFont::AnyStretch;
  for (int tooWide = 100; tooWide - least > 1;) {
    const int middle = (least + tooWide) / 2;
    (fits(middle) ? least : tooWide) = middle;
  }
  return least;
}

void narrow(QWidget& widget, const QStringList& texts) {
  const int room = roomIn(widget);
  const auto setStretch = [&](int stretch) {
    QFont font = widget.font();
    font.setStretch(stretch);
    widget.setFont(font);
  };
  setStretch(widestStretch(1, [&](int stretch) {
    setStretch(stretch);
    return std::all_of(texts.begin(), texts.end(),
                       [&](const QString& text) { return fits(widget, text, room); });
  }));
}

// Gives the text all of a box without buttons. Some styles leave their room free.
class Buttonless : public QProxyStyle {
 public:
  explicit Buttonless(QWidget& box) : QProxyStyle(box.style()->objectName()) { setParent(&box); }
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* box) const override {
    if (part == SC_SpinBoxEditField) return option->rect.adjusted(2, 2, -2, -2);
    return QProxyStyle::subControlRect(control, option, part, box);
  }
};

void raise(QWidget& widget, const QString& text) {
  if (auto* label = qobject_cast<QLabel*>(&widget)) {
    label->setContentsMargins(kOverlap, 0, 0, 2 * riseOf(widget, text));
    label->update();  // a label itself leaves its margins as they are
  } else if (qobject_cast<QRadioButton*>(&widget) != nullptr && riseOf(widget, text) > 0) {
    widget.setStyle(new Raised(widget, riseOf(widget, text)));
  }
}

}  // namespace

QFont inNarrowFamily(const QFont& font) {
  QStringList families = {"Liberation Sans", "Arimo", "FreeSans"};
  families << font.families() << font.family();
  families.removeDuplicates();
  QFont narrow = font;
  narrow.setFamilies(families);
  return narrow;
}

QFont narrowed(const QFont& font, const QString& text, int room, int least) {
  QFont narrow = font;
  narrow.setStretch(widestStretch(least, [&](int stretch) {
    narrow.setStretch(stretch);
    return QFontMetrics(narrow).horizontalAdvance(text) <= room;
  }));
  return narrow;
}

void fitLetters(QWidget& widget, const QStringList& texts) {
  setMargins(widget);
  auto* box = qobject_cast<QAbstractSpinBox*>(&widget);
  if (box != nullptr && 2 * editField(widget).width() < widget.width()) {
    box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    box->setStyle(new Buttonless(*box));
  }
  narrow(widget, texts);
  raise(widget, texts.first());
}

}  // namespace nordika
