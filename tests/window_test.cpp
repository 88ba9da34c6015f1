// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <clocale>
#include <fstream>
#include <sys/resource.h>

#include "app/run_log.h"
#include "nordika/trace.h"
#include "window_fixture.h"

namespace {

using nordika::openRunLog;
using nordika::runLogName;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using ::testing::Throws;

int warnings = 0;

// The toolkit warns of a slot that it can connect to nothing.
TEST_F(WindowTest, EverySlotIsConnectedByItsName) {
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++warnings; });
  close();
  open();
  EXPECT_EQ(warnings, 0);
  const Box help = boxOf("helpButton");
  EXPECT_EQ(help.title, "Справка");
  EXPECT_EQ(help.text, golden("help.txt"));
  click("closeButton");
  EXPECT_FALSE(window->isVisible());
}

TEST_F(WindowTest, TheFormIsAsItsUsersKnowIt) {
  const QString properties =
      "objectName accessibleName accessibleDescription x y width height text toolTip minimum "
      "maximum singleStep decimals wordWrap focusPolicy frameShape frameShadow readOnly";
  QString form = window->windowTitle() + '\n';
  const QRegularExpression names("^(?!qt_).");
  for (const QWidget* widget : window->findChildren<QWidget*>(names)) {
    for (const QString& name : properties.split(' ')) {
      const QVariant value = widget->property(qPrintable(name));
      const bool isChoice = name.startsWith("f") && value.isValid();
      form += (isChoice ? QString::number(value.toInt()) : value.toString()) + '|';
    }
    const QFont& font = widget->font();
    form += QString("%1 %2\n").arg(font.pointSize()).arg(font.bold() ? "bold" : "");
  }
  const QWidget* focus = window.get();
  do {
    focus = focus->nextInFocusChain();
    if (names.match(focus->objectName()).hasMatch()) form += focus->objectName() + ' ';
  } while (focus != window.get());
  EXPECT_EQ(window->minimumSize(), QSize(820, 640));
  EXPECT_EQ(window->maximumSize(), QSize(820, 640));
  form.replace(QDir::current().filePath(logName()), "the run log");
  EXPECT_EQ(form.toStdString(), golden("form.txt"));
}

TEST_F(WindowTest, ACommaIsAPointInEveryDecimalBox) {
  ASSERT_EQ(QLocale::system().toString(1.5), "1,5");
  for (const auto& [name, keys, shown] : rowsOf<3>("typed.txt")) {
    auto* box = child<QDoubleSpinBox>(name);
    const double initial = box->value();
    QApplication::clipboard()->setText(keys.c_str());
    for (const bool pasted : {false, true}) {
      box->setValue(initial);
      box->selectAll();
      if (pasted)
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
      else
        QTest::keyClicks(box, keys.c_str());
      QTest::keyClick(box, Qt::Key_Return);
      EXPECT_EQ(box->text().toStdString(), shown) << name << pasted;
      EXPECT_EQ(box->value(), std::stod(shown)) << name << pasted;
    }
  }
  run("Simple", "0.03");  // estimated error: 0.00999…
  EXPECT_EQ(results(), "0.03;;;;1");
}

TEST_F(WindowTest, ThePanelFollowsBothChoices) {
  const std::string head = "<html><head/><body><p>";
  const std::string tail = "</p></body></html>";
  for (const bool newton : {false, true, false}) {
    for (const int n : {4, 1, 3, 2}) {
      SCOPED_TRACE(std::to_string(n) + (newton ? " Newton" : " simple"));
      enter(newton, n, "");
      for (const std::string k : {"1", "2", "3", "4"}) {
        for (const char* stem : {"label_phi_", "eq_", "label_eq_", "label_init_x_", "init_x_",
                                 "label_res_x_", "res_x_"})
          EXPECT_EQ(child(stem + k)->isVisible(), std::stoi(k) <= n) << stem << k;
        const std::string sub = "<span style=\" vertical-align:sub;\">" + k + "</span>";
        EXPECT_EQ(child<QLabel>("label_phi_" + k)->text().toStdString(),
                  head + (newton ? "f" : "φ") + sub + "(x) = " + tail);
        EXPECT_EQ(child<QLabel>("label_eq_" + k)->text().toStdString(),
                  newton ? " = 0" : head + " = x" + sub + tail);
      }
      const auto isDrawn = [this] {
        const QRect rows = child("frame_5")->geometry();
        const QPixmap screen = window->screen()->grabWindow(window->winId()).copy(rows);
        return screen.toImage().convertToFormat(QImage::Format_RGB32) ==
               window->grab(rows).toImage().convertToFormat(QImage::Format_RGB32);
      };
      EXPECT_TRUE(QTest::qWaitFor(isDrawn, 1000));
      EXPECT_NE(child("q")->isVisible(), newton);
      EXPECT_NE(child("label_q")->isVisible(), newton);
      EXPECT_EQ(grid()->rowCount(), newton ? n : 0);
      EXPECT_EQ(grid()->columnCount(), newton ? n : 0);
    }
  }
}

TEST_F(WindowTest, TheGridKeepsTheCellsThatStay) {
  run("Newton", "x1;x2;x3;x4-4", "1;;;;;1;0;;;;1;;;;;1", "0;0;0;4");
  child<QSpinBox>("n")->setValue(2);
  enter(true, 4, "x1");
  EXPECT_EQ(grid()->item(1, 1)->text(), "1");
  EXPECT_EQ(grid()->item(1, 2)->text(), "");
  click("checkSimpleIters");
  click("checkNewton");
  EXPECT_EQ(grid()->item(1, 1)->text(), "");
  EXPECT_EQ(child<QLineEdit>("eq_4")->text(), "x4-4");
  EXPECT_EQ(child<QDoubleSpinBox>("init_x_4")->value(), 4);
  EXPECT_EQ(results(), "0;0;0;4;1");
}

TEST_F(WindowTest, ClearingLeavesTheAccuracyAndTheSizeAlone) {
  enter(true, 2, "x1;x2;x3;x4", "1");
  QString left;
  for (auto* box : window->findChildren<QDoubleSpinBox*>()) {
    box->setValue(0.05);
    click("clearButton");
    left += box->objectName() + " " + box->text() + ";";
  }
  for (auto* equation : child("frame_5")->findChildren<QLineEdit*>())
    left += equation->text();
  EXPECT_EQ((left + window->focusWidget()->objectName()).toStdString(),
            "a 0.00;epsilon 0.05000;q 0.50;"
            "init_x_1 0.00;init_x_2 0.00;init_x_3 0.00;init_x_4 0.00;clearButton");
  EXPECT_EQ(grid()->rowCount(), 2);
  // The cells have no items until the grid is made again.
  EXPECT_EQ(boxOf("calcButton").text, "Неизвестная ошибка");
  EXPECT_EQ(grid()->currentIndex(), grid()->model()->index(0, 0));
  EXPECT_EQ(log(), "Error: undefined error.\n\n");
  run("Newton", "x1", "1");
  EXPECT_EQ(results(), "0;;;;1");
  click("clearButton");
  EXPECT_EQ(results(), ";;;;");
}

TEST_F(WindowTest, KnownSystemsAreSolved) {
  child<QDoubleSpinBox>("a")->setValue(4);
  for (const auto& [method, equations, cells, start, solved] : rowsOf<5>("systems.txt")) {
    run(method, equations.c_str(), cells.c_str(), start.c_str());
    EXPECT_EQ(results(), solved) << equations;
  }
}

TEST_F(WindowTest, WhatIsTypedIsReadByIndex) {
  enter(true, 2, "x1+a;x2-a", "1;;x1*4");
  child<QDoubleSpinBox>("a")->setValue(0.25);
  child<QDoubleSpinBox>("init_x_4")->setValue(7);
  EXPECT_EQ(window->parseFunction(2)({0, 1}), 0.75);
  EXPECT_EQ(window->parseFunction(1)({1}), 1.25);
  EXPECT_EQ(window->parseInitX(4), 7);
  EXPECT_EQ(window->parseJacobiMatrixElement(1, 0)({1}), 4);
  for (const int i : {0, 5}) {
    EXPECT_THAT([&] { window->parseFunction(i); }, Throws<int>(42));
    EXPECT_THAT([&] { window->parseInitX(i); }, Throws<int>(42));
    EXPECT_THAT([&] { window->parseJacobiMatrixElement(5 - i, i); }, Throws<int>(42));
  }
}

// The toolkit or a plug-in of it may set another locale at any time.
TEST_F(WindowTest, TheParameterHasAPointInEveryLocale) {
  EXPECT_STREQ(setlocale(LC_ALL, nullptr), "C");
  ASSERT_NE(setlocale(LC_ALL, "ru_RU.UTF-8"), nullptr);
  child<QDoubleSpinBox>("a")->setValue(-0.25);
  run("Newton", "x1-a", "a/a");
  EXPECT_EQ(results(), "-0.25;;;;2");
  EXPECT_STREQ(setlocale(LC_ALL, nullptr), "C");
}

TEST_F(WindowTest, EveryFailureIsLoggedAndShownAndLeavesNoResult) {
  for (const auto& [method, equation, cell, line, text] : rowsOf<5>("failures.txt")) {
    run("Simple", "1");
    ASSERT_EQ(results(), "1;;;;2");
    const std::string before = log();
    const Box box = run(method, equation.c_str(), cell.c_str());
    EXPECT_EQ(box.title, "Ошибка");
    EXPECT_EQ(box.text, text);
    EXPECT_THAT(log(), StartsWith(before));
    EXPECT_THAT(log(), EndsWith("\nError: " + line + "\n\n"));
    EXPECT_EQ(log().rfind("Error: "), log().find("Error: ", before.size()));
    EXPECT_EQ(box.logged, log().size());
    EXPECT_EQ(results(), ";;;;");
  }
  EXPECT_THAT(log(), HasSubstr("Iteration: 100000\nEpsilon: 1\nx = (0)\n\nError: it"));
}

TEST_F(WindowTest, AnOpenCellEditorCountsHoweverTheButtonIsPressed) {
  enter(true, 1, "x1-1", "0");
  grid()->editItem(grid()->item(0, 0));
  QTest::keyClicks(grid()->findChild<QLineEdit*>(), "1");
  click("calcButton");
  EXPECT_EQ(results(), "1;;;;2");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  grid()->editItem(grid()->item(0, 0));
  QTest::keyClicks(grid()->findChild<QLineEdit*>(), "0*x1");
  EXPECT_EQ(boxOf("calcButton").text, "Матрица Якоби для заданных аргументов является вырожденной");
}

TEST_F(WindowTest, ALogThatCannotGrowCostsNeitherTheResultNorLaterLines) {
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit small = {100, limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  const Box box = run("Simple", "0.5*x1+1");
  nordika::Trace() << "lost, but not in a run\n";
  setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_EQ(box.title, "Ошибка");
  EXPECT_EQ(box.text, "Не удалось полностью записать файл " + logName().toStdString() + ".");
  EXPECT_EQ(results(), "1.99999;;;;18");
  EXPECT_EQ(boxOf("calcButton").text, "");
  EXPECT_THAT(log(), EndsWith("stop (target accuracy achieved).\n\n"));
}

// As another window of the same second does, or a user who empties the file.
TEST_F(WindowTest, RunsGoToTheEndOfALogThatOthersChange) {
  run("Simple", "");
  const std::string one = log();
  std::ofstream((directory.path() + '/' + logName()).toStdString(), std::ios::app) << "other\n";
  run("Simple", "");
  EXPECT_EQ(log(), one + "other\n" + one);
  QFile::resize(directory.filePath(logName()), 0);
  run("Simple", "");
  EXPECT_EQ(log(), one);
}

TEST(RunLogTest, IsNamedAfterTheLocalTime) {
  setenv("TZ", "MSK-3", 1);
  EXPECT_EQ(runLogName(1794749152), "log-Sun-Nov-15-16-25-52-2026.txt");
  EXPECT_EQ(runLogName(1764569100), "log-Mon-Dec--1-09-05-00-2025.txt");
}

// The standard error stream of the child process stands for the terminal.
TEST(RunLogDeathTest, ALogIsStartedAfreshAndTheToolkitStillSpeaksToTheTerminal) {
  const auto run = [] {
    const QTemporaryDir directory;
    QFile file(directory.filePath("log"));
    if (!file.open(QIODevice::ReadWrite) || file.write("an old line of the log\n") < 0) return 2;
    file.flush();
    for (int windows = 0; windows < 2; ++windows)
      if (!openRunLog(file.fileName().toStdString())) return 3;
    QMessageLogger().warning(QLoggingCategory("bus"), "a word of the toolkit's");
    std::fputs("a line\n", stderr);
    return file.seek(0) && file.readAll() == "a line\n" ? 0 : 4;
  };
  EXPECT_EXIT(std::_Exit(run()), ::testing::ExitedWithCode(0), "bus: a word of the toolkit's\n$");
}

// Permission bits do not hold root off; a directory that is gone does.
TEST(RunLogDeathTest, ALogThatCannotBeOpenedEndsTheProcess) {
  const auto dismiss = [] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    const QRegularExpression text(
        "^ОшибкаНе удалось открыть файл log-[-A-Za-z0-9]+\\.txt на запись\\.$");
    if (box == nullptr || !text.match(box->windowTitle() + box->text()).hasMatch()) std::_Exit(3);
    qWarning("a word of the toolkit's");
    dprintf(STDERR_FILENO, "a word of a library's\n");
    box->button(QMessageBox::Ok)->click();
  };
  const auto run = [dismiss] {
    char gone[] = "/tmp/nordika-gone-XXXXXX";
    if (mkdtemp(gone) == nullptr || chdir(gone) != 0 || rmdir(gone) != 0) std::_Exit(2);
    QTimer::singleShot(100, dismiss);
    const Widget window;
  };
  EXPECT_EXIT(run(), ::testing::ExitedWithCode(1), "the toolkit's\na word of a library's\n");
}

}  // namespace

// The bus library keeps what it has set up once.
extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
  return "leak:libdbus";
}

int main(int argc, char** argv) {
  // Whatever the environment, numbers are to be read with a point.
  setenv("LC_ALL", "ru_RU.UTF-8", 1);
  ::testing::InitGoogleTest(&argc, argv);
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
