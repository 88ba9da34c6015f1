// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_LETTERS_H
#define NORDIKA_APP_LETTERS_H

#include <QStringList>

class QFont;
class QString;
class QWidget;

namespace nordika {

/// The font with families in front of its own ones that are narrow enough for the
/// form.
QFont inNarrowFamily(const QFont& font);

/// The font with letters narrowed no further than needed for the text to take at most
/// `room` pixels, and to no less than `least` percent of their width.
QFont narrowed(const QFont& font, const QString& text, int room, int least);

/// Narrows the letters of a widget, no further than needed to show each of the texts
/// whole; letters that fit get their own width back. Size, weight and family stay as
/// they are. If a label or radio button is lower than its line of text, the text moves up
/// into the blank above its letters. A spin box whose buttons take more than half of its
/// width loses them; arrow keys and wheel still turn it.
/// @param widget a label, button, spin box or line edit, of a fixed geometry
/// @param texts all texts that the widget may show (a label: its text)
void fitLetters(QWidget& widget, const QStringList& texts);

}  // namespace nordika

#endif
