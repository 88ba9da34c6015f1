// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/screen_scale.h"

#include <algorithm>

#include <QByteArrayList>
#include <QSize>

// After the headers of Qt, which its macros would break.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <cstdlib>

namespace nordika {

namespace {

// The window, and what window managers put around it.
constexpr QSize kWindow(820 + 10, 640 + 40);

// Those by which users choose a scale.
constexpr const char* kVariables[] = {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI",
                                      "QT_ENABLE_HIGHDPI_SCALING",
                                      "QT_SCALE_FACTOR_ROUNDING_POLICY"};

// The number that the server itself holds. XGetDefault() would read files of the user.
QByteArray resolutionOf(Display* display) {
  const QByteArray name = "Xft.dpi:";
  for (const QByteArray& line : QByteArray(XResourceManagerString(display)).split('\n'))
    if (line.startsWith(name)) return line.mid(name.size()).trimmed();
  return {};
}

// The screen without the panels, if the window manager tells where they are.
QSize roomOn(Display* display) {
  QSize room(DisplayWidth(display, DefaultScreen(display)),
             DisplayHeight(display, DefaultScreen(display)));
  Atom type = None;
  int format = 0;
  unsigned long count = 0;
  unsigned long rest = 0;
  unsigned char* data = nullptr;
  XGetWindowProperty(display, DefaultRootWindow(display),
                     XInternAtom(display, "_NET_WORKAREA", False), 0, 4, False, XA_CARDINAL, &type,
                     &format, &count, &rest, &data);
  if (format == 32 && count == 4) {  // left, top, width, height, each a long
    const auto* area = reinterpret_cast<const long*>(data);
    room = room.boundedTo({static_cast<int>(area[2]), static_cast<int>(area[3])});
  }
  if (data != nullptr) XFree(data);
  return room;
}

}  // namespace

int scaleInTenths(double resolution, const QSize& room) {
  const double most =
      std::min(10.0 * room.width() / kWindow.width(), 10.0 * room.height() / kWindow.height());
  return static_cast<int>(std::max(std::min(10 * resolution / 96, most), 10.0));
}

void followChosenResolution() {
  const bool chosen = std::any_of(std::begin(kVariables), std::end(kVariables),
                                  [](const char* name) { return std::getenv(name) != nullptr; });
  // As Qt 6 does by itself. Its headers declare the attribute of Qt 5 obsolete.
  setenv("QT_ENABLE_HIGHDPI_SCALING", "1", 0);
  setenv("QT_SCALE_FACTOR_ROUNDING_POLICY", "PassThrough", 0);
  static Display* const display = XOpenDisplay(nullptr);
  if (display == nullptr) return;
  const QByteArray resolution = resolutionOf(display);
  const int tenths = scaleInTenths(resolution.toDouble(), roomOn(display));
  // Without a whole number here, Qt 5 would compute 96.07 or the like from the
  // millimetres that the display reports.
  setenv("QT_FONT_DPI", chosen && resolution.toInt() > 0 ? resolution : "96", 0);
  if (!chosen) setenv("QT_SCALE_FACTOR", QByteArray::number(tenths / 10.0), 1);
  // The connection stays open. A server that loses its only client may reset, and
  // then rejects the connection of Qt.
}

}  // namespace nordika
