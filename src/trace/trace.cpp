// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/trace.h"

#include <atomic>
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
std::atomic<bool> hasLost = false;
std::atomic<bool> endsInsideLine = false;

// The innermost redirection of this thread.
thread_local TraceRedirect* innermost = nullptr;

// Returns the number of bytes written; an error ends the writing.
std::size_t writeAll(std::string_view bytes) {
  const int file = fileno(stderr);
  if (file < 0) {
    const std::size_t written = std::fwrite(bytes.data(), 1, bytes.size(), stderr);
    return std::fflush(stderr) == 0 ? written : 0;
  }
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

void writeToStandardError(std::string_view text) {
  std::fflush(stderr);
  if (endsInsideLine && writeAll("\n") == 1) endsInsideLine = false;
  const std::size_t written = endsInsideLine ? 0 : writeAll(text);
  if (written == text.size()) return;
  hasLost = true;
  if (written > 0) endsInsideLine = text[written - 1] != '\n';
}

}  // namespace

TraceRedirect::TraceRedirect(std::function<void(std::string_view)> destination)
    : write(std::move(destination)), outer(innermost) {
  innermost = this;
}

TraceRedirect::~TraceRedirect() {
  TraceRedirect** link = &innermost;
  while (*link != this)
    link = &(*link)->outer;
  *link = outer;
}

Trace::Trace() {
  if (!ignores()) pending.reserve(1024);  // the largest block of lines of a window's run
}

Trace& Trace::operator<<(std::string_view text) {
  if (!ignores()) pending += text;
  return *this;
}

Trace& Trace::operator<<(int number) {
  if (ignores()) return *this;
  char text[std::numeric_limits<int>::digits10 + 3];
  pending.append(text, std::to_chars(text, text + sizeof text, number).ptr);
  return *this;
}

Trace& Trace::operator<<(double number) {
  if (ignores()) return *this;
  char text[detail::kSixDigitsLength];
  pending.append(text, detail::writeSixDigits(text, number));
  return *this;
}

Trace& Trace::cell(double number, int width, int decimals) {
  if (ignores()) return *this;
  char room[detail::kFixedLength];
  pending += detail::writeFixed(room, number, width, decimals);
  pending += ' ';
  return *this;
}

void Trace::flush() noexcept {
  if (pending.empty()) return;
  TraceRedirect* const redirect = currentRedirect();
  if (redirect == nullptr) {
    writeToStandardError(pending);
  } else if (redirect->write) {
    redirect->isSuspended = true;
    try {
      redirect->write(pending);
    } catch (...) {
      hasLost = true;
    }
    redirect->isSuspended = false;
  }
  pending.clear();
}

TraceRedirect* Trace::currentRedirect() {
  TraceRedirect* redirect = innermost;
  while (redirect != nullptr && redirect->isSuspended)
    redirect = redirect->outer;
  return redirect;
}

bool Trace::isDiscarded() {
  const TraceRedirect* const redirect = currentRedirect();
  return redirect != nullptr && !redirect->write;
}

bool Trace::takeLoss() {
  return hasLost.exchange(false);
}

}  // namespace nordika
