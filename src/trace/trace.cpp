// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "trace/trace.h"

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <limits>
#include <unistd.h>

#include "trace/fixed_decimals.h"
#include "trace/six_digits.h"

namespace {

void writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

Trace::Trace() {
  pending.reserve(room.size() / 2);
}

Trace& Trace::operator<<(std::string_view text) {
  pending += text;
  return *this;
}

Trace& Trace::operator<<(int number) {
  char text[std::numeric_limits<int>::digits10 + 3];
  pending.append(text, std::to_chars(text, text + sizeof text, number).ptr);
  return *this;
}

Trace& Trace::operator<<(double number) {
  char text[kSixDigitsLength];
  pending.append(text, writeSixDigits(text, number));
  return *this;
}

Trace& Trace::cell(double number, int width, int decimals) {
  char text[kFixedLength + 1];
  char* const end = writeFixed(text, number, width, decimals);
  *end = ' ';
  pending.append(text, end + 1);
  return *this;
}

void Trace::flush() {
  if (pending.empty()) return;
  std::fflush(stderr);
  writeAll(fileno(stderr), pending);
  pending.clear();
}
