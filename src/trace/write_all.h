// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TRACE_WRITE_ALL_H
#define NORDIKA_TRACE_WRITE_ALL_H

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <unistd.h>

namespace nordika::detail {

/// Writes the text to a file descriptor, also past interruptions by signals.
/// @return how many bytes were written; if not all, errno tells why
inline std::size_t writeAll(int file, std::string_view text) {
  std::string_view rest = text;
  while (!rest.empty()) {
    const ssize_t written = write(file, rest.data(), rest.size());
    if (written > 0) {
      rest.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      break;
    }
  }
  return text.size() - rest.size();
}

}  // namespace nordika::detail

#endif
