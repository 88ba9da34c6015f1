// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "window_fixture.h"

namespace {

class KeysTest : public WindowTest {
 protected:
  KeysTest() {
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }

  // Of the words, parted by blanks, some are keys and others are typed.
  static void press(const QString& words) {
    static const QMap<QString, Qt::Key> keys = {{"tab", Qt::Key_Tab},
                                                {"back", Qt::Key_Backtab},
                                                {"down", Qt::Key_Down},
                                                {"space", Qt::Key_Space}};
    for (const QString& word : words.split(' ')) {
      const auto held = word.startsWith("ctrl-") ? Qt::ControlModifier : Qt::NoModifier;
      if (keys.contains(word.section("ctrl-", -1))) {
        QTest::keyClick(QApplication::focusWidget(), keys[word.section("ctrl-", -1)], held);
      } else {
        for (const QChar letter : word)
          QTest::keyClicks(QApplication::focusWidget(), letter);
      }
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
  }

  // The widget with the focus; of the grid the current cell, too.
  std::string focus() const {
    const QWidget* widget = QApplication::focusWidget();
    while (widget != nullptr && widget->parentWidget() == grid()->viewport())
      widget = grid();
    if (widget == nullptr) return "none";
    const QString cell = QString("%1 %2").arg(grid()->currentRow()).arg(grid()->currentColumn());
    return (widget == grid() ? cell : widget->objectName()).toStdString();
  }
};

TEST_F(KeysTest, TheExampleOfTheGuideNeedsNoMouse) {
  EXPECT_EQ(focus(), "n");
  press("2 tab tab 0.4 tab tab 2*x1-cos(x2) tab 2*x2-sin(x1)-a tab");
  press("tab tab tab down tab");  // the grid has no cells yet
  EXPECT_EQ(focus(), "calcButton");
  press("back back back back");
  EXPECT_EQ(focus(), "0 0");
  press("2 tab sin(x2) tab -cos(x1) tab 2 tab");
  EXPECT_EQ(focus(), "init_x_1");
  press("tab tab tab space tab");
  EXPECT_EQ(focus(), "clearButton");
  EXPECT_EQ(results(), "0.456466;0.420389;;;4");
}

const char* const kWays[][3] = {{"0 0", "tab", "0 1"},
                                {"0 1", "tab", "1 0"},
                                {"1 1", "tab", "init_x_1"},
                                {"1 1", "back", "1 0"},
                                {"1 0", "back", "0 1"},
                                {"0 0", "back", "eq_2"},
                                {"0 1", "ctrl-tab", "init_x_1"},
                                {"1 0", "ctrl-back", "eq_2"},
                                {"0 0", "x1 tab", "0 1"},
                                {"1 1", "x1 tab", "init_x_1"},
                                {"0 0", "x1 back", "eq_2"},
                                {"1 0", "x1 back", "0 1"},
                                {"0 1", "x1 ctrl-tab", "init_x_1"},
                                {"1 0", "x1 ctrl-back", "eq_2"},
                                {"0 0", "x1 tab x2", "0 1"}};

TEST_F(KeysTest, TabWalksThroughTheGridAndOutOfIt) {
  for (const auto& [from, keys, to] : kWays) {
    enter(true, 2, "1;2", "");
    grid()->setFocus();
    const int row = from[0] - '0';
    const int column = from[2] - '0';
    grid()->setCurrentCell(row, column);
    press(keys);
    EXPECT_EQ(focus(), to) << from << " " << keys;
    EXPECT_EQ(grid()->item(row, column)->text(), keys[0] == 'x' ? "x1" : "");
  }
}

const char* const kBlamed[][5] = {
    {"Simple", "x1;2*", "", "eq_2", "2*"},
    {"Simple", "x1\u22121;2*", "", "eq_1", "x1\u22121"},
    {"Simple", "*x1;2*", "", "eq_2", "2*"},
    {"Simple", "x1;*x2", "", "eq_2", "*x2"},
    {"Newton", "x1;х2", "(", "eq_2", "х2"},
    {"Newton", "x1;x2", "1;;x1\u00a0;(", "1 0", ""},
    {"Newton", "x1;x2", "1;*1;*1;1", "0 1", ""},
    {"Newton", "x1;x2", "1;;;(", "1 1", ""},
    {"Simple", "x1;x3", "", "calcButton", ""},
    {"Simple", "1/x1;1", "", "calcButton", ""},
    {"Newton", "x1;x2", "", "calcButton", ""},
};

TEST_F(KeysTest, TheFirstMalformedTextIsSelected) {
  for (const auto& [method, equations, cells, blamed, selected] : kBlamed) {
    enter(method == std::string("Newton"), 2, equations, cells);
    child("calcButton")->setFocus();
    EXPECT_NE(boxOf("calcButton").text, "");
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_EQ(focus(), blamed) << equations << " " << cells;
    auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    EXPECT_EQ(edit != nullptr ? edit->selectedText() : "", selected);
  }
}

TEST_F(KeysTest, TheWheelTurnsOnlyABoxWithTheFocus) {
  enter(false, 3, "");
  for (auto* box : window->findChildren<QAbstractSpinBox*>()) {
    for (const bool focused : {false, true}) {
      child(focused ? box->objectName().toStdString() : "closeButton")->setFocus();
      const QString before = box->text();
      const QPointF inside(5, 5);
      QWheelEvent turn(inside, box->mapToGlobal(inside.toPoint()), QPoint(), QPoint(0, 120),
                       Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(box, &turn);
      EXPECT_EQ(box->text() != before, focused) << box->objectName().toStdString();
      EXPECT_EQ(turn.isAccepted(), focused);
    }
    EXPECT_EQ(box->focusPolicy(), Qt::StrongFocus);  // the wheel does not give it
  }
}

TEST_F(KeysTest, EveryCellHasAName) {
  enter(true, 2, "", ";2*x1");
  auto* cells = QAccessible::queryAccessibleInterface(grid())->tableInterface();
  EXPECT_EQ(cells->cellAt(0, 1)->text(QAccessible::Name), "Строка 1, столбец 2: 2*x1");
  click("clearButton");
  grid()->model()->setData(grid()->model()->index(1, 0), "");
  EXPECT_EQ(cells->cellAt(1, 0)->text(QAccessible::Name), "Строка 2, столбец 1");
}

}  // namespace
