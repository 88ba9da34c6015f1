// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/trace.h"
#include "window_fixture.h"

// After the headers of Qt, which its macros would break.
#include <X11/Xlib.h>
#undef KeyPress
#undef KeyRelease

namespace {

// As a window manager does when its button is pressed.
void requestClose(const QWidget& window) {
  Display* const display = XOpenDisplay(nullptr);
  XEvent request{};
  request.xclient.type = ClientMessage;
  request.xclient.window = window.winId();
  request.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
  request.xclient.format = 32;
  request.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
  XSendEvent(display, window.winId(), False, NoEventMask, &request);
  XCloseDisplay(display);
}

TEST_F(WindowTest, ACloseRequestDuringARunIsHonouredAfterItsBox) {
  const auto state = [this] {
    const QCursor* cursor = QApplication::overrideCursor();
    const bool waits = cursor != nullptr && cursor->shape() == Qt::WaitCursor;
    return std::string(waits ? "waits " : "") + (window->isVisible() ? "open" : "closed");
  };
  std::string states;
  const nordika::TraceRedirect during([&](std::string_view) {
    if (!states.empty()) return;
    states = state() + ", ";
    requestClose(*window);
    // Input of a user who is in a hurry.
    QTimer::singleShot(0, window.get(), [this] {
      auto* n = child("n");
      QTest::mouseClick(n, Qt::LeftButton, Qt::KeyboardModifiers(), QPoint(n->width() - 5, 5));
      QTest::keyClicks(child("eq_1"), "x");
      QTest::keyClick(window.get(), Qt::Key_F1);
    });
  });
  poll.stop();
  window->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  QTimer dismiss;
  int ticks = 0;
  dismiss.callOnTimeout([&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || ++ticks < 50) return;  // so that the request reaches the box
    states += state() + ", ";
    box->button(QMessageBox::Ok)->click();
  });
  dismiss.start(0);
  run("Simple", "1-x1");
  EXPECT_EQ(states + state(), "waits open, open, closed");
  EXPECT_EQ(child("eq_1")->property("text").toString() + child("n")->property("text").toString(),
            "1-x11");
}

TEST_F(WindowTest, ACloseRequestIsHonouredAfterASuccessfulRun) {
  const nordika::TraceRedirect during([&](std::string_view) { requestClose(*window); });
  run("Simple", "1");
  EXPECT_EQ(results(), "1;;;;2");
  EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
}

TEST_F(WindowTest, TheWindowHasAnIconOfManySizes) {
  for (const QSize& size : window->windowIcon().availableSizes())
    EXPECT_EQ(window->windowIcon().pixmap(size).size(), size);
  EXPECT_EQ(window->windowIcon().availableSizes().size(), 4);
}

}  // namespace
