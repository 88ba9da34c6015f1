// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_OUTPUT_H
#define NORDIKA_CLI_OUTPUT_H

#include <optional>
#include <string>
#include <string_view>

#include "nordika/trace.h"

namespace nordika {

/// Makes sure that no file gets the number of a standard stream that the caller left
/// closed, and that a failed write is an error and not the end of the process.
void prepareStreams();

/// Writes the text to the standard output, as the last thing that goes there.
/// @return whether all of it was written; errno tells why not
bool print(std::string_view text);

/// Writes a line to the standard error stream. Control characters of the text
/// become question marks, so that it stays one line.
void complain(std::string text);

/// Sends the trace to a file instead of the standard error stream, until close().
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

  /// Ends the redirection and closes the file, if one is open.
  /// @return whether the file has the whole trace
  bool close();

 private:
  std::optional<TraceRedirect> redirect;
  int file = -1;
  bool isWhole = true;
};

}  // namespace nordika

#endif
