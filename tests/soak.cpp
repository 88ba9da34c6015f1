// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// soak COUNT: that many calculations in one window, of both methods, every n
//   and every failure in turn; says how memory and descriptors have grown.
// soak full: calculations until the disk is full, and one more with room again.
// soak shown: one calculation of each kind; prints what the fields show.
// soak endless: a calculation that does not end, without a window.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include <QtTest>
#include <QtWidgets>

#include "nordika/solver.h"
#include "widget.h"

namespace {

struct Kind {
  bool newton;
  int n;
  const char* equations;
  const char* cells;
  const char* shown;  // the first field, empty where the run fails
};

constexpr Kind kKinds[] = {
    {false, 1, "0.5*cos(x1)", "", "0.450183"},
    {true, 1, "x1^2-2", "2*x1", "1.41422"},
    {false, 2, "0.5*cos(x2);0.5*sin(x1)+0.2", "", "0.456466"},
    {true, 2, "x1^2+x2^2-4;x1-x2", "2*x1;2*x2;1;-1", "1.41422"},
    {false, 3, "0.1*x2;0.1*x3;0.5", "", "0.005"},
    {true, 4, "x1-1;x2-2;x3-3;x4-4", "1;;;;;1;;;;;1;;;;;1", "1"},
    {false, 1, "2*", "", ""},
    {true, 1, "y", "1", ""},
    {true, 1, "x1", "", ""},
    {false, 1, "1/(x1-1)", "", ""},
};

// The window, with its boxes closed as soon as they are up.
struct Session {
  Session() {
    window.show();
    QObject::connect(&poll, &QTimer::timeout, &poll, [this] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      lastBox = box->text();
      box->accept();
    });
    poll.start(0);
  }

  // The text of the first field.
  std::string run(const Kind& kind) {
    window.findChild<QSpinBox*>("n")->setValue(kind.n);
    window.findChild<QRadioButton*>(kind.newton ? "checkNewton" : "checkSimpleIters")->click();
    const QStringList equations = QString(kind.equations).split(';');
    for (int i = 0; i < equations.size(); ++i) {
      window.findChild<QLineEdit*>(QString("eq_%1").arg(i + 1))->setText(equations[i]);
      window.findChild<QDoubleSpinBox*>(QString("init_x_%1").arg(i + 1))->setValue(1);
    }
    auto* grid = window.findChild<QTableWidget*>("jacobiMatrix");
    const QStringList cells = QString(kind.cells).split(';');
    for (int i = 0; kind.newton && i < cells.size(); ++i) {
      grid->item(i / kind.n, i % kind.n)->setText(cells[i]);
    }
    lastBox.clear();
    window.findChild<QPushButton*>("calcButton")->click();
    return window.findChild<QLineEdit*>("res_x_1")->text().toStdString();
  }

  Widget window;
  QTimer poll;
  QString lastBox;
};

long residentPages() {
  std::ifstream statm("/proc/self/statm");
  long total = 0;
  long resident = 0;
  statm >> total >> resident;
  return resident;
}

long descriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

std::string logText() {
  for (const auto& entry : std::filesystem::directory_iterator(".")) {
    if (entry.path().filename().string().rfind("log-", 0) != 0) continue;
    std::ifstream file(entry.path());
    return {std::istreambuf_iterator<char>(file), {}};
  }
  return {};
}

std::size_t occurrences(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

int manyRuns(int count) {
  Session session;
  long pages = 0;
  long files = 0;
  for (int i = 0; i < count; ++i) {
    const Kind& kind = kKinds[static_cast<std::size_t>(i) % std::size(kKinds)];
    const std::string shown = session.run(kind);
    if (shown != kind.shown) return std::printf("run %d shows %s\n", i, shown.c_str()), 1;
    if (i == count / 10) {
      pages = residentPages();
      files = descriptors();
    }
  }
  const long grown = (residentPages() - pages) * 4;
  const long opened = descriptors() - files;
  const std::string log = logText();
  const auto ends = occurrences(log, "(target accuracy achieved)") + occurrences(log, "Error: ");
  std::printf("memory +%ld KiB after the first tenth, descriptors +%ld, %zu runs in the log\n",
              grown, descriptors() - files, ends);
  // Fewer runs only warm caches up.
  const bool flat = count < 1000 || (grown <= 2048 && opened == 0);
  return flat && ends == static_cast<std::size_t>(count) ? 0 : 1;
}

int fullDisk() {
  Session session;
  int runs = 0;
  do {
    if (session.run(kKinds[3]) != kKinds[3].shown) return 2;
  } while (session.lastBox.isEmpty() && ++runs < 1000);
  if (!session.lastBox.startsWith("Не удалось полностью записать файл log-")) return 3;
  // Room again: the log may be cut by whoever looks after the disk.
  for (const auto& entry : std::filesystem::directory_iterator(".")) {
    std::filesystem::resize_file(entry.path(), 0);
  }
  if (session.run(kKinds[3]) != kKinds[3].shown || !session.lastBox.isEmpty()) return 4;
  std::printf("full after %d runs\n", runs);
  return occurrences(logText(), "achieved).\n\n") == 1 ? 0 : 5;
}

int shown() {
  Session session;
  for (const Kind& kind : kKinds) {
    if (session.run(kind) != kind.shown) return 1;
  }
  return 0;
}

[[noreturn]] void endless() {
  if (std::freopen("trace.txt", "w", stderr) == nullptr) std::exit(1);
  while (true) {
    NewtonProblem problem({Function("x1-1"), Function("x2")}, {1, 0},
                          {{Function("1"), Function("0")}, {Function("0"), Function("1")}});
    int iters = 0;
    try {
      solve_nonlinear_system_newton(problem, 0, iters);
    } catch (const MaxItersCountAchieved&) {
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::string what = argc > 1 ? argv[1] : "";
  if (what == "endless") endless();
  const QApplication application(argc, argv);
  if (what == "full") return fullDisk();
  if (what == "shown") return shown();
  return manyRuns(std::stoi(what));
}
