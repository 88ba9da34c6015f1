// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <QApplication>

#include "widget.h"

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  Widget window;
  window.show();
  return QApplication::exec();
}
