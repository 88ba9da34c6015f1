// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// The writer of the trace, and where the trace goes.

#ifndef NORDIKA_TRACE_H
#define NORDIKA_TRACE_H

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "nordika/detail/scoped_function.h"

namespace nordika {

/// While it lives, gets all that the solvers and matrix routines of its thread
/// write, in order and byte for byte, instead of the standard error stream. Other
/// threads are not affected. Text that the program itself writes to the standard
/// error stream stays there.
///
/// Redirections nest: the innermost one gets the text. They may end in any order,
/// but each must end in the thread that made it, and not while its own destination runs.
///
/// A shared object that links the library has a copy of its own. A redirection gets
/// the text of its own copy alone.
class TraceRedirect {
 public:
  /// Redirects the trace to `destination`, which gets the lines between two
  /// flushes at once. When a routine returns or throws, `destination` has all of
  /// its text. An empty function discards the trace; nothing is formatted then.
  ///
  /// While `destination` runs, this redirection is suspended: if it calls a solver,
  /// the text of that solver goes to the next outer redirection or to the standard
  /// error stream. An exception of `destination` ends there; the text of that call
  /// counts as lost, see Trace::takeLoss().
  [[nodiscard]] explicit TraceRedirect(std::function<void(std::string_view)> destination);
  /// Not copyable: it belongs to a scope.
  TraceRedirect(const TraceRedirect&) = delete;
  /// @copydoc TraceRedirect(const TraceRedirect&)
  TraceRedirect& operator=(const TraceRedirect&) = delete;
  /// Ends the redirection.
  ~TraceRedirect();

 private:
  detail::ScopedFunction<void(std::string_view)> function;
};

/// Gathers lines of the run log in memory and writes them to the standard error
/// stream, or to the TraceRedirect of the thread, at flush(). Flushed lines are in
/// the kernel and survive any end of the process. Lines between two flushes are
/// written together. Numbers have the form of the C conversions in the "C" locale,
/// whatever the locale is.
///
/// Several threads may write at the same time; the order of their lines in the
/// stream is then not defined, but each flush() is one piece. The destructor
/// flushes, also during an exception.
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

  /// Appends a line of n elements of a matrix, each as "%<width>.<decimals>f "
  /// prints it, the blank included.
  /// @pre n >= 0, 0 <= width <= 16, 1 <= decimals <= 6; asserted in every build
  Trace& row(const double* elements, int n, int width, int decimals);

  /// Writes the gathered lines. In the standard error stream they follow the text
  /// that the C library still holds for that stream. A stream without a descriptor
  /// gets them by the functions of the C library. Lines that cannot be written
  /// (full disk, closed stream) are dropped; a calculation never stops for them. A
  /// line that was cut off is ended before the next one.
  void flush() noexcept;

  /// True if a TraceRedirect with an empty function discards what this thread
  /// writes: lines that are costly to compute need not be.
  static bool isDiscarded();

  /// Whether any writer, in any thread, has dropped anything since the last call.
  /// Discarded text does not count.
  static bool takeLoss();

 private:
  // A block that has begun is always finished, so that it is whole or absent.
  bool ignores() const { return pending == 0 && isDiscarded(); }

  char* roomFor(std::size_t characters);
  void endAt(const char* end);

  std::vector<char> room;
  std::size_t pending = 0;  // the characters at the front of the room that wait for flush()
};

}  // namespace nordika

#endif
