// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// The writer of the trace.

#ifndef NORDIKA_TRACE_TRACE_H
#define NORDIKA_TRACE_TRACE_H

#include <array>
#include <cstddef>
#include <memory_resource>
#include <string>
#include <string_view>

/// Gathers lines of the run log in memory and hands them to the standard error
/// stream at flush(). Whatever was flushed is with the kernel, so that it
/// outlives the process however that ends; lines between two flushes go out
/// together. The numbers look as the C++ streams and the C conversions print
/// them in the "C" locale, whatever locale is in force.
///
/// A writer that leaves its scope flushes what it still holds, also when an
/// exception carries control away.
class Trace {
 public:
  /// A writer that holds nothing yet.
  Trace();
  /// Not to be copied: a line is written once.
  Trace(const Trace&) = delete;
  /// @copydoc Trace(const Trace&)
  Trace& operator=(const Trace&) = delete;
  /// Hands over what it still holds, as flush() does.
  ~Trace() { flush(); }

  /// Appends the text as it stands.
  Trace& operator<<(std::string_view text);

  /// Appends the number in decimal.
  Trace& operator<<(int number);

  /// Appends the number with six significant digits, as "%g" prints it.
  Trace& operator<<(double number);

  /// Appends an element of a matrix, as "%<width>.<decimals>f " prints it, the
  /// blank included; at most 16 wide, 1 to 8 decimals.
  Trace& cell(double number, int width, int decimals);

  /// Writes everything gathered so far to the standard error stream, after
  /// what the C library still holds for that stream. What cannot be written
  /// (a full disk, a closed stream) is dropped: the trace never stops a
  /// calculation. A line that was cut off is ended before the next one.
  void flush();

  /// Whether anything was dropped, by any writer, since the last call.
  static bool takeLoss();

 private:
  // The lines between two flushes are few: they rarely leave this room.
  std::array<std::byte, 4096> room;
  std::pmr::monotonic_buffer_resource memory{room.data(), room.size()};
  std::pmr::string pending{&memory};
};

#endif
