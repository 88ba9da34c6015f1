// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "trace/trace.h"

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <limits>
#include <unistd.h>

#include "trace/six_digits.h"

namespace {

// The largest double has 309 digits before the point; sign, point and
// decimals come on top.
constexpr int kFixedLength = 400;

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

Trace& Trace::fixed(double number, int width, int decimals) {
  char text[kFixedLength];
  const char* end =
      std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, decimals).ptr;
  const auto length = static_cast<std::size_t>(end - text);
  const auto wanted = static_cast<std::size_t>(width);
  if (length < wanted) pending.append(wanted - length, ' ');
  pending.append(text, length);
  return *this;
}

void Trace::flush() {
  if (pending.empty()) return;
  std::fflush(stderr);
  writeAll(fileno(stderr), pending);
  pending.clear();
}
