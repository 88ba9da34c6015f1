// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

// until_mapped COMMAND [ARGUMENT ...]: starts a program, prints the milliseconds
// from its exec to its first mapped window, and kills it.

#include <X11/Xlib.h>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <unistd.h>

int main(int, char** argv) {
  Display* const display = XOpenDisplay(nullptr);
  if (display == nullptr) return 1;
  XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
  XSync(display, False);
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    execvp(argv[1], argv + 1);
    _exit(127);
  }
  XEvent event;
  do {
    XNextEvent(display, &event);
  } while (event.type != MapNotify);
  const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
  std::printf("%.1f\n", spent.count());
  kill(child, SIGKILL);
  XCloseDisplay(display);
  return 0;
}
