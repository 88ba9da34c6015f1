// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_WHEEL_H
#define NORDIKA_APP_WHEEL_H

class QAbstractSpinBox;

namespace nordika {

/// Lets the mouse wheel turn the box only while it has the focus; the wheel does not
/// give it the focus. Otherwise scrolling over n could drop cells of the Jacobi grid.
void turnOnlyWithFocus(QAbstractSpinBox& box);

}  // namespace nordika

#endif
