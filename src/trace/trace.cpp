// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "nordika/trace.h"

#include <algorithm>
#include <atomic>
#include <cassert>
#include <charconv>
#include <cstdio>
#include <limits>
#include <stdio_ext.h>
#include <utility>

#include "number/fixed_decimals.h"
#include "number/six_digits.h"
#include "trace/scoped_function.h"
#include "trace/write_all.h"

namespace nordika {

namespace {

using Destination = detail::ScopedFunction<void(std::string_view)>;

// State of the standard error stream, shared by all writers. The first one is a whole
// word: GCC 12 for riscv64 cannot exchange a byte without another library.
std::atomic<int> hasLost = 0;
std::atomic<bool> endsInsideLine = false;

// Returns the number of bytes written.
std::size_t writeAll(std::string_view bytes) {
  const int file = fileno(stderr);
  if (file >= 0) return detail::writeAll(file, bytes);
  const std::size_t written = std::fwrite(bytes.data(), 1, bytes.size(), stderr);
  return std::fflush(stderr) == 0 ? written : 0;
}

void writeToStandardError(std::string_view text) {
  if (__fpending(stderr) > 0) std::fflush(stderr);
  if (endsInsideLine && writeAll("\n") == 1) endsInsideLine = false;
  const std::size_t written = endsInsideLine ? 0 : writeAll(text);
  if (written == text.size()) return;
  hasLost = 1;
  if (written > 0) endsInsideLine = text[written - 1] != '\n';
}

constexpr std::size_t kCellLength = detail::kFixedLength + 1;

}  // namespace

TraceRedirect::TraceRedirect(std::function<void(std::string_view)> destination)
    : function(std::move(destination)) {}

TraceRedirect::~TraceRedirect() = default;

Trace::Trace() {
  if (!ignores()) room.resize(4096);  // twice the largest block of lines of a window's run
}

char* Trace::roomFor(std::size_t characters) {
  if (room.size() - pending < characters) room.resize(2 * room.size() + characters);
  return room.data() + pending;
}

void Trace::endAt(const char* end) {
  pending = static_cast<std::size_t>(end - room.data());
}

Trace& Trace::operator<<(std::string_view text) {
  if (!ignores()) endAt(std::copy(text.begin(), text.end(), roomFor(text.size())));
  return *this;
}

Trace& Trace::operator<<(int number) {
  if (ignores()) return *this;
  constexpr std::size_t kLength = std::numeric_limits<int>::digits10 + 2;
  char* const out = roomFor(kLength);
  endAt(std::to_chars(out, out + kLength, number).ptr);
  return *this;
}

Trace& Trace::operator<<(double number) {
  if (!ignores()) endAt(detail::writeSixDigits(roomFor(detail::kSixDigitsLength), number));
  return *this;
}

Trace& Trace::row(const double* elements, int n, int width, int decimals) {
  assert(n >= 0 && 0 <= width && width <= 16 && 1 <= decimals && decimals <= 6);
  if (ignores()) return *this;
  char* end = roomFor(static_cast<std::size_t>(n) * kCellLength + 1);
  for (int j = 0; j < n; ++j) {
    end = detail::writeFixed(end, elements[j], width, decimals);
    *end++ = ' ';
  }
  *end++ = '\n';
  endAt(end);
  return *this;
}

void Trace::flush() noexcept {
  if (pending == 0) return;
  const std::string_view lines(room.data(), pending);
  pending = 0;
  Destination* const destination = Destination::current();
  if (destination == nullptr) {
    writeToStandardError(lines);
  } else if (!destination->isEmpty()) {
    try {
      destination->call(lines);
    } catch (...) {
      hasLost = 1;
    }
  }
}

bool Trace::isDiscarded() {
  const Destination* const destination = Destination::current();
  return destination != nullptr && destination->isEmpty();
}

bool Trace::takeLoss() {
  return hasLost.exchange(0) != 0;
}

}  // namespace nordika
