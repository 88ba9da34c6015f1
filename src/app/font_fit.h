// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_FONT_FIT_H
#define NORDIKA_APP_FONT_FIT_H

#include <vector>

#include <QString>
#include <QStringList>

class QWidget;

namespace nordika {

/// A text and the widget, of a fixed geometry, that has to show it.
struct ShownText {
  /// A label, button, spin box or line edit.
  const QWidget* widget;
  /// Plain or rich text, as the widget takes it.
  QString text;
};

/// True when the widget shows the text whole with the font that it has now.
bool showsWhole(const ShownText& shown);

/// Gives the window a font family with which its texts are seen whole: its own
/// one if possible, else the first of the given ones that are installed, else,
/// where none is narrow enough, the one that cuts off least. Sizes and weights
/// stay as they are.
void fitFontFamily(QWidget& window, const std::vector<ShownText>& texts,
                   const QStringList& families);

}  // namespace nordika

#endif
