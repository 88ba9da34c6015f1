// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "app/run_log.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

#include <QString>

namespace nordika {

namespace {

// The destination of the standard error stream when the process started.
int terminal = -1;

std::string opened;

void writeToTerminal(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  const QString line = qFormatLogMessage(type, context, message);
  if (!line.isNull()) dprintf(terminal, "%s\n", qPrintable(line));
}

}  // namespace

std::string runLogName(std::time_t start) {
  std::string moment = std::ctime(&start);
  moment.pop_back();
  std::replace_if(
      moment.begin(), moment.end(), [](char c) { return c == ':' || c == ' '; }, '-');
  return "log-" + moment + ".txt";
}

bool openRunLog(const std::string& name) {
  opened = name;
  // Otherwise reaching RLIMIT_FSIZE kills the process instead of failing the write.
  std::signal(SIGXFSZ, SIG_IGN);
  // A second window finds the stream redirected already.
  if (terminal < 0) terminal = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  qInstallMessageHandler(writeToTerminal);
  if (std::freopen(name.c_str(), "w", stderr) != nullptr) {
    std::setbuf(stderr, nullptr);  // as it was: a file makes it buffered
    // Whoever else writes to the file, or empties it, no line lands inside another.
    fcntl(fileno(stderr), F_SETFL, O_APPEND);
    return true;
  }
  // The failure has freed the descriptor. If a file or socket of the toolkit got
  // its number, messages of libraries would be written there.
  dup2(terminal, STDERR_FILENO);
  return false;
}

const std::string& openedRunLog() {
  return opened;
}

}  // namespace nordika
