// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/screen_scale.h"

#include <QByteArray>

// After the headers of Qt, which its macros would break.
#include <X11/Xlib.h>
#include <cstdlib>

namespace nordika {

void followChosenResolution() {
  // As Qt 6 does by itself. Its headers declare the attribute of Qt 5 obsolete.
  setenv("QT_ENABLE_HIGHDPI_SCALING", "1", 0);
  setenv("QT_SCALE_FACTOR_ROUNDING_POLICY", "PassThrough", 0);
  static Display* const display = XOpenDisplay(nullptr);
  if (display == nullptr) return;
  // Without a whole number here, Qt 5 would compute 96.07 or the like from the
  // millimetres that the display reports.
  const char* resolution = XGetDefault(display, "Xft", "dpi");
  setenv("QT_FONT_DPI", QByteArray(resolution).toInt() > 0 ? resolution : "96", 0);
  // The connection stays open. A server that loses its only client may reset, and
  // then rejects the connection of Qt.
}

}  // namespace nordika
