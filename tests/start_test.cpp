// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// The program from main() to its end in environments of users, each in a process of
// its own.

#include <fcntl.h>
#include <fstream>

#include <QtTest>

#include "app/screen_scale.h"
#include "window_fixture.h"

int nordikaMain(int argc, char** argv);  // main() of the program

namespace {

struct Environment {
  const char* style;
  const char* fonts;       // the only folder of fonts
  const char* resolution;  // Xft.dpi
  double scale;
  int margin;  // that the style sets in line edits
};

const Environment kEnvironments[] = {
    {"fusion", "liberation", "", 1, 0},  // the fonts of the package
    {"windows", "liberation", "96.07", 1, 14},
    {"fusion", "dejavu", "", 1, 0},
    {"fusion", "open-sans", "", 1, 0},  // high lines
    {"fusion", "../opentype/cantarell", "", 1, 8},
    {"fusion", "liberation", "120", 1.25, 0},
    {"windows", "dejavu", "144", 1.5, 0},
};

const Environment* environment = nullptr;

// What the process finds goes to the standard error stream that it was started with.
int report = -1;
int faults = 0;

void expect(bool holds, const QString& what) {
  if (holds) return;
  ++faults;
  dprintf(report, "%s\n", qPrintable(what));
}

void check(Widget& window) {
  expect(QTest::qWaitForWindowExposed(&window), "no window");
  expect(window.devicePixelRatioF() == environment->scale,
         QString("scale %1").arg(window.devicePixelRatioF()));
  for (int file = 0; file <= STDERR_FILENO; ++file)
    expect(QFileInfo(QString("/proc/self/fd/%1").arg(file))
               .symLinkTarget()
               .endsWith(file < STDERR_FILENO ? "/dev/null" : ".txt"),
           QString("descriptor %1").arg(file));
  window.findChild<QSpinBox*>("n")->setValue(4);
  window.findChild<QSpinBox*>("n")->findChild<QLineEdit*>()->deselect();
  const QStringList values = {"-1.23457e-300", "-0.0000123456", "12345678901", "x4"};
  for (int k = 1; k <= 4; ++k)
    window.findChild<QLineEdit*>(QString("eq_%1").arg(k))->setText(values[k - 1]);
  for (const char* method : {"checkSimpleIters", "checkNewton"}) {
    window.findChild<QRadioButton*>(method)->click();
    if (window.findChild<QWidget*>("q")->isVisible())
      window.findChild<QPushButton*>("calcButton")->click();
    for (auto* box : window.findChildren<QDoubleSpinBox*>())
      box->setValue(box->minimum());
    window.findChild<QWidget*>("closeButton")->setFocus();
    for (auto* widget : window.findChildren<QWidget*>()) {
      if (!widget->isVisible() || !widget->property("text").isValid()) continue;
      if (widget->inherits("QAbstractSpinBox")) continue;  // its line edit is looked at
      expect(!isCut(*widget), QString("%1 of %2 is cut: %3, stretch %4")
                                  .arg(widget->objectName(), widget->parent()->objectName(),
                                       widget->property("text").toString())
                                  .arg(widget->font().stretch()));
    }
  }
  window.findChild<QPushButton*>("closeButton")->click();
}

class Style : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;
  void polish(QWidget* widget) override {
    QProxyStyle::polish(widget);
    auto* edit = qobject_cast<QLineEdit*>(widget);
    if (edit != nullptr) edit->setTextMargins(environment->margin, 0, environment->margin, 0);
  }
};

// Called by the constructor of QApplication.
void prepare() {
  QApplication::setStyle(new Style(environment->style));
  QTimer::singleShot(0, QCoreApplication::instance(), [] {
    check(*qobject_cast<Widget*>(QApplication::topLevelWidgets().constFirst()));
  });
}

int start() {
  const QTemporaryDir directory;
  QDir::setCurrent(directory.path());
  std::ofstream("fonts.conf")
      << "<!DOCTYPE fontconfig SYSTEM \"urn:fontconfig:fonts.dtd\"><fontconfig><dir>"
      << "/usr/share/fonts/truetype/" << environment->fonts << "</dir><dir>"
      << "/usr/share/fonts/truetype/" << environment->fonts << "2"  // liberation2 in Debian 12
      << "</dir><cachedir>.</cachedir><include>/etc/fonts/conf.d</include></fontconfig>";
  setenv("FONTCONFIG_FILE", qPrintable(directory.filePath("fonts.conf")), 1);
  std::ofstream("resources") << "Xft.dpi: " << environment->resolution << "\n";
  setenv("XENVIRONMENT", "resources", 1);
  report = dup(STDERR_FILENO);
  for (int file = 0; file <= STDERR_FILENO; ++file)
    close(file);
  qAddPreRoutine(prepare);
  char name[] = "nordika";
  char* arguments[] = {name, nullptr};
  return nordikaMain(1, arguments) + (faults > 0 ? 2 : 0);
}

TEST(StartTest, TheScaleIsChosenUnlessTheUserHasChosenIt) {
  const char* const rows[][2] = {{"QT_ENABLE_HIGHDPI_SCALING", "1"},
                                 {"QT_SCALE_FACTOR_ROUNDING_POLICY", "PassThrough"},
                                 {"QT_FONT_DPI", "96"}};
  for (const auto& [name, chosen] : rows) {
    setenv(name, "user's", 1);
    nordika::followChosenResolution();
    EXPECT_STREQ(getenv(name), "user's");
    unsetenv(name);
    nordika::followChosenResolution();
    EXPECT_STREQ(getenv(name), chosen);
  }
}

TEST(StartDeathTest, TheWindowIsWholeInEveryEnvironment) {
  EXPECT_EXIT((setenv("DISPLAY", "", 1), nordika::followChosenResolution(), std::_Exit(0)),
              ::testing::ExitedWithCode(0), "");
  // Its connection keeps the server from resetting between the programs.
  nordika::followChosenResolution();
  unsetenv("QT_FONT_DPI");
  for (const Environment& each : kEnvironments) {
    environment = &each;
    EXPECT_EXIT(std::_Exit(start()), ::testing::ExitedWithCode(0), "")
        << each.style << " " << each.fonts;
  }
}

}  // namespace
