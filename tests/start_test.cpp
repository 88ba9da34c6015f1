// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// The program from main() to its end in environments of users, each in a process of
// its own.

#include <fstream>

#include <QtTest>

#include "app/screen_scale.h"
#include "window_fixture.h"

// After the headers of Qt, which its macros would break.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

int nordikaMain(int argc, char** argv);  // main() of the program

namespace {

struct Environment {
  const char* style;
  const char* fonts;       // the only folder of fonts
  const char* resolution;  // Xft.dpi
  int tenths;              // the scale
  int margin;              // that the style sets in line edits
};

const Environment kEnvironments[] = {
    {"fusion", "liberation", "", 10, 0},  // the fonts of the package
    {"windows", "liberation", "96.07", 10, 14},
    {"fusion", "dejavu", "", 10, 0},
    {"fusion", "open-sans", "", 10, 0},  // high lines
    {"fusion", "../opentype/cantarell", "", 10, 8},
    {"fusion", "liberation", "120", 12, 0},
    {"windows", "dejavu", "144", 15, 0},
    {"fusion", "liberation", "192", 15, 0},  // the screen has no room for more
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

// Looks at points of all four sides.
void checkFrames(Widget& window) {
  const qreal scale = window.devicePixelRatioF();
  const QImage image = window.grab().toImage();
  const auto frames = window.findChildren<QFrame*>(QRegularExpression("^frame"));
  expect(frames.size() == 7, "seven frames");
  for (const QFrame* frame : frames) {
    const QRectF edge = frame->geometry();
    const QPointF corners[] = {edge.topLeft(), edge.topRight(), edge.bottomRight(),
                               edge.bottomLeft(), edge.topLeft()};
    const QPointF inward[] = {{0, 1}, {-1, 0}, {0, -1}, {1, 0}};
    const auto colour = [&](const QPointF& place) {
      return image.pixel(static_cast<int>(place.x() * scale), static_cast<int>(place.y() * scale));
    };
    for (int point = 0; point < 400; point += 20) {
      const int side = point / 100;
      const QPointF from = corners[side];
      const QPointF along = from + (corners[side + 1] - from) * (point % 100 + 10) / 100;
      bool seen = false;
      for (const qreal depth : {-0.5, -0.25, 0.0, 0.25, 0.5, 0.75, 1.0, 1.25})
        seen =
            seen || colour(along + inward[side] * depth) != colour(edge.topLeft() + QPointF(4, 4));
      expect(seen, QString("side %1 of %2 at %3").arg(side).arg(frame->objectName()).arg(scale));
    }
  }
}

void checkTexts(Widget& window) {
  for (const auto* box : window.findChildren<QAbstractSpinBox*>()) {
    QStyleOptionSpinBox option;
    option.initFrom(box);
    option.buttonSymbols = box->buttonSymbols();
    const QRect edit =
        box->style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, box);
    const bool hasButtons = box->buttonSymbols() == QAbstractSpinBox::UpDownArrows;
    expect(
        hasButtons ? 2 * edit.width() >= box->width() : edit == box->rect().adjusted(2, 2, -2, -2),
        box->objectName() + " leaves its text no room");
    expect(hasButtons || environment->margin > 0, box->objectName() + " has no buttons");
  }
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
}

void check(Widget& window) {
  expect(QTest::qWaitForWindowExposed(&window), "no window");
  expect(qAbs(window.devicePixelRatioF() - environment->tenths / 10.0) < 1e-4,
         QString("scale %1").arg(window.devicePixelRatioF()));
  for (int file = 0; file <= STDERR_FILENO; ++file)
    expect(QFileInfo(QString("/proc/self/fd/%1").arg(file))
               .symLinkTarget()
               .endsWith(file < STDERR_FILENO ? "/dev/null" : ".txt"),
           QString("descriptor %1").arg(file));
  checkFrames(window);
  // At other scales grabbed pictures of labels end within a point.
  if (environment->tenths % 5 == 0) checkTexts(window);
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
  // The buttons of a style with a margin are beside each other, each 28 points wide.
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override {
    QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
    const auto* box = qobject_cast<const QAbstractSpinBox*>(widget);
    if (environment->margin > 0 && part == SC_SpinBoxEditField && box != nullptr &&
        box->buttonSymbols() != QAbstractSpinBox::NoButtons)
      rect.setRight(option->rect.right() - 56);
    return rect;
  }
};

// Called by the constructor of QApplication.
void prepare() {
  QApplication::setStyle(new Style(environment->style));
  QTimer::singleShot(0, QCoreApplication::instance(), [] {
    check(*qobject_cast<Widget*>(QApplication::topLevelWidgets().constFirst()));
  });
}

void setResources(Display* display, const std::string& resources) {
  XChangeProperty(display, DefaultRootWindow(display), XA_RESOURCE_MANAGER, XA_STRING, 8,
                  PropModeReplace, reinterpret_cast<const unsigned char*>(resources.data()),
                  static_cast<int>(resources.size()));
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
  std::ofstream("resources") << "Xft.dpi: 192\n";  // not to be read
  setenv("XENVIRONMENT", "resources", 1);
  Display* const display = XOpenDisplay(nullptr);
  setResources(display, std::string("Xft.dpi:\t") + environment->resolution + "\n");
  XCloseDisplay(display);
  report = dup(STDERR_FILENO);
  for (int file = 0; file <= STDERR_FILENO; ++file)
    close(file);
  qAddPreRoutine(prepare);
  char name[] = "nordika";
  char* arguments[] = {name, nullptr};
  return nordikaMain(1, arguments) + (faults > 0 ? 2 : 0);
}

TEST(StartTest, TheScaleFollowsTheResolutionAndTheRoom) {
  for (const auto& [resolution, width, height, tenths] : rowsOf<4>("scales.txt"))
    EXPECT_EQ(nordika::scaleInTenths(std::stod(resolution), {std::stoi(width), std::stoi(height)}),
              std::stoi(tenths))
        << resolution << " " << width << " " << height;
}

TEST(StartTest, TheScaleIsChosenUnlessTheUserHasChosenIt) {
  Display* const display = XOpenDisplay(nullptr);
  setResources(display, "Xft.dpi: 144\n");
  const Atom name = XInternAtom(display, "_NET_WORKAREA", False);
  const long area[] = {0, 30, 1900, 1000};  // left, top, width, height
  const std::array<const char*, 5> names = {"QT_ENABLE_HIGHDPI_SCALING",
                                            "QT_SCALE_FACTOR_ROUNDING_POLICY", "QT_FONT_DPI",
                                            "QT_SCREEN_SCALE_FACTORS", "QT_SCALE_FACTOR"};
  // One of the variables that the user has chosen; none; none, and no area that can be read.
  for (std::size_t chosen = 0; chosen < names.size() + 2; ++chosen) {
    const bool isOfBytes = chosen > names.size();
    XChangeProperty(display, DefaultRootWindow(display), name, XA_CARDINAL, isOfBytes ? 8 : 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(area), 4);
    XSync(display, False);
    std::array<std::string, 5> expected = {"1", "PassThrough", "144", "unset", "unset"};
    if (chosen >= names.size())
      expected = {"1", "PassThrough", "96", "unset", isOfBytes ? "1.5" : "1.4"};
    for (const char* each : names)
      unsetenv(each);
    if (chosen < names.size()) setenv(names[chosen], (expected[chosen] = "user's").c_str(), 1);
    nordika::followChosenResolution();
    for (std::size_t i = 0; i < names.size(); ++i) {
      const char* const value = getenv(names[i]);
      EXPECT_EQ(value != nullptr ? value : "unset", expected[i]) << names[i] << " " << chosen;
    }
  }
  for (const char* each : names)
    unsetenv(each);
  XDeleteProperty(display, DefaultRootWindow(display), name);
  XCloseDisplay(display);
}

TEST(StartDeathTest, TheWindowIsWholeInEveryEnvironment) {
  EXPECT_EXIT((setenv("DISPLAY", "", 1), nordika::followChosenResolution(), std::_Exit(0)),
              ::testing::ExitedWithCode(0), "");
  // Keeps the server from resetting between the programs.
  Display* const display = XOpenDisplay(nullptr);
  for (const Environment& each : kEnvironments) {
    environment = &each;
    EXPECT_EXIT(std::_Exit(start()), ::testing::ExitedWithCode(0), "")
        << each.style << " " << each.fonts;
  }
  for (int tenths = 10; tenths <= 20; ++tenths) {
    for (const char* style : {"fusion", "windows"}) {
      const Environment scaled = {style, "liberation", "", tenths, 0};
      environment = &scaled;
      setenv("QT_SCALE_FACTOR", qPrintable(QString::number(tenths / 10.0)), 1);
      EXPECT_EXIT(std::_Exit(start()), ::testing::ExitedWithCode(0), "") << style << tenths;
    }
  }
  XCloseDisplay(display);
}

}  // namespace
