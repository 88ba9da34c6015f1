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

#include "app/widget.h"
#include "outcome.h"

/// How many points a label, button or line edit of this size changes for its text.
inline int ink(QWidget& widget, const QSize& size) {
  const QSignalBlocker blocker(widget);
  const QVariant text = widget.property("text");
  widget.resize(size);
  const QImage with = widget.grab().toImage();
  widget.setProperty("text", "");
  const QImage without = widget.grab().toImage();
  widget.setProperty("text", text);
  int count = 0;
  for (int i = 0; i < with.width() * with.height(); ++i)
    if (with.pixel(i % with.width(), i / with.width()) !=
        without.pixel(i % with.width(), i / with.width()))
      ++count;
  return count;
}

/// True if more room would show more of the text. The room on each side of a text in
/// the middle grows by whole points of screens of the scales 1.25 and 1.5, too.
inline bool isCut(QWidget& widget) {
  const QSize size = widget.size();
  const bool cut = ink(widget, size) != ink(widget, size + QSize(64, 16));
  widget.resize(size);
  return cut;
}

/// What was seen when a message box stood on the screen.
struct Box {
  std::string title;
  std::string text;
  std::size_t logged;  // bytes of the log
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
      if (box == nullptr || box->parent() != nullptr || (takesFocus && !box->isActiveWindow()))
        return;
      const QFileInfo file(directory.filePath(logName()));
      const bool tells = box->icon() == QMessageBox::Information && !box->windowIcon().isNull() &&
                         box->standardButtons() == QMessageBox::Ok;
      // The texts of several boxes follow each other.
      seen = {tells ? box->windowTitle().toStdString() : "another kind of box",
              seen.text + box->text().toStdString(), static_cast<std::size_t>(file.size())};
      QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    poll.start(0);
  }
  void TearDown() override {
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

  QString logName() const {
    return QDir(directory.path()).entryList({"log-*.txt"}, QDir::Files).join('|');
  }
  std::string log() const { return content(directory.filePath(logName()).toStdString()); }

  /// Presses a button that opens a message box; dismisses the box.
  Box boxOf(const std::string& button) {
    seen = Box();
    child<QPushButton>(button)->click();
    return seen;
  }

  /// Enters all of a run with n initial values, and calculates.
  Box run(const std::string& method, const QString& equations, const QString& cells = "",
          const QString& start = "0") {
    const QStringList values = start.split(';');
    enter(method == "Newton", static_cast<int>(values.size()), equations, cells);
    int k = 0;
    for (const QString& value : values)
      child<QDoubleSpinBox>("init_x_" + std::to_string(++k))->setValue(value.toDouble());
    return boxOf("calcButton");
  }

  QTemporaryDir directory;
  int savedStderr = dup(STDERR_FILENO);
  std::unique_ptr<Widget> window;
  bool takesFocus = false;  // the box, before it is dismissed
  QTimer poll;
  Box seen;
};

#endif
