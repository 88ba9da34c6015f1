// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/trace.h"

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <limits>
#include <unistd.h>
#include <utility>

#include "number/fixed_decimals.h"
#include "number/six_digits.h"

namespace nordika {

namespace {

// State of the standard error stream, shared by all writers.
bool hasLost = false;
bool endsInsideLine = false;

// Returns the number of bytes written; an error ends the writing.
std::size_t writeAll(int file, std::string_view bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t now = write(file, bytes.data() + written, bytes.size() - written);
    if (now > 0) {
      written += static_cast<std::size_t>(now);
    } else if (now == 0 || errno != EINTR) {
      break;
    }
  }
  return written;
}

}  // namespace

Trace::Trace() {
  pending.reserve(1024);  // the largest block of lines of a window's run
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
  char text[detail::kSixDigitsLength];
  pending.append(text, detail::writeSixDigits(text, number));
  return *this;
}

Trace& Trace::cell(double number, int width, int decimals) {
  char room[detail::kFixedLength];
  pending += detail::writeFixed(room, number, width, decimals);
  pending += ' ';
  return *this;
}

void Trace::flush() {
  if (pending.empty()) return;
  std::fflush(stderr);
  const int file = fileno(stderr);
  if (endsInsideLine && writeAll(file, "\n") == 1) endsInsideLine = false;
  const std::size_t written = endsInsideLine ? 0 : writeAll(file, pending);
  if (written < pending.size()) {
    hasLost = true;
    if (written > 0) endsInsideLine = pending[written - 1] != '\n';
  }
  pending.clear();
}

bool Trace::takeLoss() {
  return std::exchange(hasLost, false);
}

}  // namespace nordika
