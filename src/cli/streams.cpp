// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/streams.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

#include "trace/write_all.h"

namespace nordika {

namespace {

bool writeAll(int file, std::string_view text) {
  return detail::writeAll(file, text) == text.size();
}

}  // namespace

void surviveFailedWrites() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

bool print(std::string_view text) {
  return writeAll(STDOUT_FILENO, text) && close(STDOUT_FILENO) == 0;
}

std::optional<std::string> contentOf(const std::string& name) {
  const int file = name == "-" ? STDIN_FILENO : ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
  std::string content;
  char part[4096];
  ssize_t size = 0;
  while ((size = read(file, part, sizeof part)) > 0)
    content.append(part, static_cast<std::size_t>(size));
  if (file > STDIN_FILENO) ::close(file);
  if (size < 0) return std::nullopt;
  return content;
}

void complain(std::string text) {
  const auto isControl = [](char c) { return (c >= '\0' && c < ' ') || c == '\x7f'; };
  std::replace_if(text.begin(), text.end(), isControl, '?');
  writeAll(STDERR_FILENO, text + "\n");
}

bool LogFile::open(const std::string& name) {
  file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0666);
  if (file < 0) return false;
  redirect.emplace([this](std::string_view lines) {
    if (!writeAll(file, lines)) isWhole = false;
  });
  return true;
}

bool LogFile::close() {
  if (file >= 0 && ::close(file) != 0) isWhole = false;
  file = -1;
  return isWhole;
}

}  // namespace nordika
