// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "window_fixture.h"

namespace {

class KeysTest : public WindowTest {
 protected:
  KeysTest() { activate(); }

  // There is no window manager to do it.
  void activate() const {
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }

  // Of the words, parted by blanks, some are keys and others are typed.
  static void press(const QString& words) {
    static const QMap<QString, Qt::Key> keys = {
        {"tab", Qt::Key_Tab},       {"back", Qt::Key_Backtab}, {"down", Qt::Key_Down},
        {"return", Qt::Key_Return}, {"enter", Qt::Key_Enter},  {"delete", Qt::Key_Delete},
        {"c", Qt::Key_C},           {"v", Qt::Key_V},          {"f1", Qt::Key_F1},
        {"f2", Qt::Key_F2},         {"space", Qt::Key_Space}};
    for (const QString& word : words.split(' ')) {
      const auto held = word.startsWith("ctrl-")  ? Qt::ControlModifier
                        : word.startsWith("pad-") ? Qt::KeypadModifier
                                                  : Qt::NoModifier;
      if (keys.contains(word.section('-', -1)) && word != "-") {
        QTest::keyClick(QApplication::focusWidget(), keys[word.section('-', -1)], held);
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
  press("tab tab tab space");
  // The result was said of the button.
  EXPECT_EQ(child("calcButton")->accessibleDescription(), "");
  press("tab");
  EXPECT_EQ(focus(), "clearButton");
  EXPECT_EQ(results(), "0.456466;0.420389;;;4");
}

TEST_F(KeysTest, TabWalksThroughTheGridAndOutOfIt) {
  for (const auto& [from, keys, to] : rowsOf<3>("ways.txt")) {
    enter(true, 2, "1;2", "");
    grid()->setFocus();
    const int row = from[0] - '0';
    const int column = from[2] - '0';
    grid()->setCurrentCell(row, column);
    press(keys.c_str());
    EXPECT_EQ(focus(), to) << from << " " << keys;
    EXPECT_EQ(grid()->item(row, column)->text(), keys[0] == 'x' ? "x1" : "");
  }
}

TEST_F(KeysTest, CtrlEnterCalculatesWhatIsTypedAndF1Helps) {
  enter(true, 1, "x1-a", "1");
  const std::array<std::string, 2> rows[] = {{"7 ctrl-return", "a"},
                                             {"8 ctrl-enter", "a"},
                                             {"f2 2 ctrl-enter", "jacobiMatrix"},
                                             {"0.0 ctrl-return", "epsilon"}};
  std::string shown;
  for (const auto& [keys, field] : rows) {
    child(field)->setFocus(Qt::TabFocusReason);
    press(keys.c_str());
    shown += results() + " " + child<QDoubleSpinBox>("epsilon")->text().toStdString() + "; ";
  }
  EXPECT_EQ(shown, "7;;;;2 0.00001; 78;;;;2 0.00001; 78;;;;22 0.00001; 78;;;;22 0.00001; ");
  grid()->setFocus();
  takesFocus = true;
  press("f2 2 f1");
  activate();
  EXPECT_EQ(seen.title, "Справка");
  for (const auto* shortcut : window->findChildren<QShortcut*>())
    EXPECT_FALSE(shortcut->autoRepeat());
  // The text of the cell goes on.
  press("3 ctrl-enter");
  EXPECT_EQ(grid()->item(0, 0)->text(), "23");
}

TEST_F(KeysTest, BlocksOfCellsAreCopiedPastedAndEmptied) {
  const QString signs[] = {"\t", "→", "\n", "↵", "\r", "←"};
  for (const auto& [selected, keys, clipboard, cells] : rowsOf<4>("blocks.txt")) {
    QString text = clipboard.c_str();
    for (const int sign : {0, 2, 4})
      text.replace(signs[sign + 1], signs[sign]);
    QApplication::clipboard()->setText(keys == "ctrl-c" ? "other" : text);
    enter(true, 3, "", "1;2;3;4;5;6;7;8;9\t9");
    grid()->setFocus();
    const auto at = [&place = selected](std::size_t i) { return place[2 * i] - '0'; };
    grid()->clearSelection();
    grid()->setCurrentCell(at(0), at(1), QItemSelectionModel::NoUpdate);
    for (std::size_t i = 0; 2 * i + 6 < selected.size(); i += 4)
      grid()->setRangeSelected({std::min(at(i), at(i + 2)), std::min(at(i + 1), at(i + 3)),
                                std::max(at(i), at(i + 2)), std::max(at(i + 1), at(i + 3))},
                               true);
    press(keys.c_str());
    EXPECT_EQ(QApplication::clipboard()->text(), text) << keys;
    QStringList left;
    for (int i = 0; i < 9; ++i)
      left << grid()->item(i / 3, i % 3)->text().replace('\t', "→");
    EXPECT_EQ(left.join(';').toStdString(), cells) << keys << " " << clipboard;
  }
}

TEST_F(KeysTest, TheTextToBlameIsSelected) {
  for (const auto& [method, equations, cells, selected, blamed] : rowsOf<5>("blamed.txt")) {
    enter(method == "Newton", 2, equations.c_str(), cells.c_str());
    child("calcButton")->setFocus();
    EXPECT_NE(boxOf("calcButton").text, "");
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_EQ(focus(), blamed) << equations << " " << cells;
    auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    EXPECT_EQ(edit != nullptr ? edit->selectedText().toStdString() : "", selected);
  }
}

TEST_F(KeysTest, ADoubleOrTripleClickSelectsANumberWhole) {
  run("Simple", "-1.23457e-05");
  child<QDoubleSpinBox>("a")->setValue(-1.25);
  for (const char* name : {"n", "a", "q", "epsilon", "init_x_1", "res_x_1", "iters"}) {
    auto* edit = qobject_cast<QLineEdit*>(child(name));
    if (edit == nullptr) edit = child(name)->findChild<QLineEdit*>();
    const QPoint inside(9, edit->height() / 2);
    QTest::mouseDClick(edit, Qt::LeftButton, Qt::KeyboardModifiers(), inside);
    EXPECT_EQ(edit->selectedText(), edit->text()) << name;
    QTest::mouseClick(edit, Qt::LeftButton, Qt::KeyboardModifiers(), inside);
    EXPECT_EQ(edit->selectedText(), edit->text()) << name;
    const auto send = [edit](QEvent::Type type, int x) {
      const QPointF at(x, 9);
      QMouseEvent event(type, at, edit->mapToGlobal(at.toPoint()), Qt::LeftButton, Qt::LeftButton,
                        Qt::NoModifier);
      QCoreApplication::sendEvent(edit, &event);
    };
    // A hand that trembles, then one that selects a part.
    send(QEvent::MouseButtonDblClick, edit->width() - 4);
    send(QEvent::MouseMove, 4);
    EXPECT_EQ(edit->selectedText(), edit->text()) << name;
    send(QEvent::MouseButtonRelease, 4);
    send(QEvent::MouseButtonPress, 1);
    send(QEvent::MouseMove, edit->width() - 4);
    EXPECT_NE(edit->selectedText(), "") << name;
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

TEST_F(KeysTest, EverythingHasANameForAssistiveTools) {
  enter(true, 2, "", ";2*x1");
  auto* cells = QAccessible::queryAccessibleInterface(grid())->tableInterface();
  EXPECT_EQ(cells->cellAt(0, 1)->text(QAccessible::Name), "Строка 1, столбец 2: 2*x1");
  click("clearButton");
  const auto* bare = cells->cellAt(1, 0)->tableCellInterface();
  const auto nameOf = [](QAccessibleInterface* header) {
    QAccessible::registerAccessibleInterface(header);  // so that it has an owner
    return header->text(QAccessible::Name);
  };
  EXPECT_EQ(nameOf(bare->rowHeaderCells().at(0)), "f2");
  EXPECT_EQ(nameOf(bare->columnHeaderCells().at(0)), "x1");
  grid()->model()->setData(grid()->model()->index(1, 0), "");
  EXPECT_EQ(cells->cellAt(1, 0)->text(QAccessible::Name), "Строка 2, столбец 1");

  EXPECT_EQ(QAccessible::queryAccessibleInterface(window.get())->role(), QAccessible::Window);
  EXPECT_EQ(child("eq_2")->accessibleName(), "f2(x)");
  for (const std::string method : {"checkSimpleIters", "checkNewton"}) {
    auto* button = QAccessible::queryAccessibleInterface(child(method))->actionInterface();
    button->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(grid()->rowCount(), method == "checkNewton" ? 2 : 0);
  }
  EXPECT_EQ(child("taskView")->accessibleDescription().left(8), "f(x) = 0");
}

}  // namespace
