// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_RUN_LOG_H
#define NORDIKA_APP_RUN_LOG_H

#include <ctime>
#include <string>

namespace nordika {

/// The name of the run log of a process started at the given time, local time:
/// "log-Sun-Nov-15-16-25-52-2026.txt". A day below 10 gives two dashes.
std::string runLogName(std::time_t start);

/// Reopens the standard error stream onto the named file, which is created or
/// truncated. The toolkit's own messages still go to the stream's former
/// destination, so the file holds only what the program writes.
/// @return false when the file cannot be opened; the stream is then closed, and
///   its descriptor has its former destination
bool openRunLog(const std::string& name);

/// The name of the run log that was opened last.
const std::string& openedRunLog();

}  // namespace nordika

#endif
