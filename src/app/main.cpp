// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>

#include "app/screen_scale.h"
#include "app/widget.h"

int main(int argc, char* argv[]) {
  // If the caller closed descriptor 2, the toolkit's X connection would get that
  // number, and reopening the standard error stream would close it.
  for (int file = STDIN_FILENO; file <= STDERR_FILENO; ++file) {
    if (fcntl(file, F_GETFD) < 0) open("/dev/null", O_RDWR);
  }
  nordika::followChosenResolution();
  // By it desktops know whose window this is.
  QGuiApplication::setDesktopFileName("io.github.nordika.nordika");
  QApplication application(argc, argv);
  Widget window;
  window.show();
  return QApplication::exec();
}
