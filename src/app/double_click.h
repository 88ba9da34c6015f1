// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_DOUBLE_CLICK_H
#define NORDIKA_APP_DOUBLE_CLICK_H

class QLineEdit;

namespace nordika {

/// Lets a double click select all of the text. By itself the toolkit takes the point and
/// the signs of a number for the ends of words.
void selectAllByDoubleClick(QLineEdit& edit);

}  // namespace nordika

#endif
