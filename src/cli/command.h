// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_COMMAND_H
#define NORDIKA_CLI_COMMAND_H

#include <optional>
#include <stdexcept>
#include <string>

#include "run/run.h"

namespace nordika {

/// The options and the problem file do not make a command; what() is one sentence.
class WrongUsage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What the user asks for. If `answer` is empty, `problem` is complete: n > 0, all counts
/// agree, eps > 0.
struct Command {
  std::string answer;              ///< the text of --help or --version
  bool checksJacobian = false;     ///< check the Jacobi matrix instead of solving
  bool printsJacobian = false;     ///< print the derived Jacobi matrix instead of solving
  bool isJson = false;             ///< print the outcome as JSON
  bool isQuiet = false;            ///< write no trace
  Problem problem;                 ///< what is to be solved or checked
  std::optional<std::string> log;  ///< the file for the trace, if not the error stream
};

/// Reads the command line, and the problem file that it names.
/// @throws WrongUsage
Command readCommand(int argc, const char* const* argv);

}  // namespace nordika

#endif
