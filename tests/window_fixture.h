// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TESTS_WINDOW_FIXTURE_H
#define NORDIKA_TESTS_WINDOW_FIXTURE_H

#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <unistd.h>

#include <QtTest>
#include <QtWidgets>

#include "widget.h"

/// What was seen when a message box stood on the screen.
struct Box {
  std::string title;
  std::string text;
  std::string log;
};

/// A window on the screen, driven as a user does; its run log is made in a
/// directory of its own.
class WindowTest : public ::testing::Test {
 protected:
  WindowTest() {
    QDir::setCurrent(directory.path());
    open();
    // No box is left standing, that of a run gone wrong neither.
    QObject::connect(&poll, &QTimer::timeout, &poll, [this] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr || box->parent() != nullptr) return;
      seen = {box->windowTitle().toStdString(), box->text().toStdString(), log()};
      QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    poll.start(20);
  }
  ~WindowTest() override {
    close();
    qInstallMessageHandler(nullptr);
    dup2(savedStderr, STDERR_FILENO);
    ::close(savedStderr);
    QDir::setCurrent("/");
  }

  // The window leaves its scene alive.
  void close() {
    const std::unique_ptr<QGraphicsScene> scene(child<QGraphicsView>("taskView")->scene());
    window.reset();
  }
  void open() {
    window = std::make_unique<Widget>();
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
  }
  template <typename T = QWidget>
  T* child(const std::string& name) const {
    return window->findChild<T*>(QString::fromStdString(name));
  }
  QTableWidget* grid() const { return child<QTableWidget>("jacobiMatrix"); }
  void click(const std::string& name) const {
    QTest::mouseClick(child(name), Qt::LeftButton, Qt::KeyboardModifiers(), QPoint(10, 10));
  }

  /// Chooses method and n and writes equations and cells, each list parted by semicolons.
  void enter(bool newton, int n, const QString& equations, const QString& cells = "") const {
    child<QSpinBox>("n")->setValue(n);
    click(newton ? "checkNewton" : "checkSimpleIters");
    int k = 0;
    for (const QString& equation : equations.split(';'))
      child<QLineEdit>("eq_" + std::to_string(++k))->setText(equation);
    for (int i = 0; i < cells.count(';') + (newton ? 1 : 0); ++i)
      grid()->item(i / n, i % n)->setText(cells.section(';', i, i));
  }

  /// The fields of the results, "x1;x2;x3;x4;iterations".
  std::string results() const {
    QStringList texts;
    for (const char* field : {"res_x_1", "res_x_2", "res_x_3", "res_x_4", "iters"})
      texts << child<QLineEdit>(field)->text();
    return texts.join(';').toStdString();
  }

  std::string log() const {
    const QStringList names = QDir(directory.path()).entryList({"log-*.txt"}, QDir::Files);
    QFile file(directory.filePath(names.join('|')));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no single log";
  }

  /// Presses a button that opens a message box; dismisses the box.
  Box boxOf(const std::string& button) {
    seen = Box();
    child<QPushButton>(button)->click();
    return seen;
  }

  QTemporaryDir directory;
  int savedStderr = dup(STDERR_FILENO);
  std::unique_ptr<Widget> window;
  QTimer poll;
  Box seen;
};

#endif
