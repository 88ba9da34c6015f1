// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// The writer of the trace.

#ifndef NORDIKA_TRACE_H
#define NORDIKA_TRACE_H

#include <string>
#include <string_view>

namespace nordika {

/// Gathers lines of the run log in memory and writes them to the standard error
/// stream at flush(). Flushed lines are in the kernel and survive any end of
/// the process. Lines between two flushes are written together. Numbers have
/// the form of the C conversions in the "C" locale, whatever the locale is.
///
/// The destructor flushes, also during an exception.
class Trace {
 public:
  /// A writer without lines.
  Trace();
  /// Not copyable: a line is written once.
  Trace(const Trace&) = delete;
  /// @copydoc Trace(const Trace&)
  Trace& operator=(const Trace&) = delete;
  /// Calls flush().
  ~Trace() { flush(); }

  /// Appends the text unchanged.
  Trace& operator<<(std::string_view text);

  /// Appends the number in decimal.
  Trace& operator<<(int number);

  /// Appends the number as "%g" prints it, with six significant digits.
  Trace& operator<<(double number);

  /// Appends an element of a matrix as "%<width>.<decimals>f " prints it, the
  /// blank included.
  /// @param width at most 16
  /// @param decimals 1 to 6
  Trace& cell(double number, int width, int decimals);

  /// Writes the gathered lines to the standard error stream, after the text
  /// that the C library still holds for that stream. Lines that cannot be
  /// written (full disk, closed stream) are dropped; a calculation never stops
  /// for them. A line that was cut off is ended before the next one.
  void flush();

  /// Whether any writer has dropped anything since the last call.
  static bool takeLoss();

 private:
  std::string pending;
};

}  // namespace nordika

#endif
