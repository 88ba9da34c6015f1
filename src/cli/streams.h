// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_STREAMS_H
#define NORDIKA_CLI_STREAMS_H

#include <optional>
#include <string>
#include <string_view>

#include "nordika/trace.h"

namespace nordika {

/// Makes a failed write an error instead of the end of the process: a pipe without a
/// reader, a file that may not grow.
void surviveFailedWrites();

/// Writes the text to the standard output, as the last thing that goes there.
/// @return whether all of it was written; errno tells why not
bool print(std::string_view text);

/// The content of a file, or of the standard input for the name "-"; nothing if it cannot be
/// read.
std::optional<std::string> contentOf(const std::string& name);

/// Writes a line to the standard error stream. Control characters of the text
/// become question marks, so that it stays one line.
void complain(std::string text);

/// While it lives, the trace goes to its file instead of the standard error stream.
class LogFile {
 public:
  LogFile() = default;
  /// Not copyable: it owns the open file.
  LogFile(const LogFile&) = delete;
  /// @copydoc LogFile(const LogFile&)
  LogFile& operator=(const LogFile&) = delete;
  ~LogFile() { close(); }

  /// Creates the file, or empties it.
  /// @return false if it cannot be opened for writing
  bool open(const std::string& name);

  /// Closes the file, if one is open; to be called after the last line.
  /// @return whether the file has the whole trace
  bool close();

 private:
  std::optional<TraceRedirect> redirect;
  int file = -1;
  bool isWhole = true;
};

}  // namespace nordika

#endif
