// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>

#include "widget.h"

int main(int argc, char* argv[]) {
  // A descriptor that the caller left closed would go to the toolkit's
  // connection, and the run log would then take its place.
  for (int file = STDIN_FILENO; file <= STDERR_FILENO; ++file) {
    if (fcntl(file, F_GETFD) < 0) open("/dev/null", O_RDWR);
  }
  QApplication application(argc, argv);
  Widget window;
  window.show();
  return QApplication::exec();
}
