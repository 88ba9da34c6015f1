// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_COMMAND_H
#define NORDIKA_CLI_COMMAND_H

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace nordika {

/// The options and the problem file do not make a command; what() is one sentence.
class WrongUsage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What the user asks for. If `answer` is empty, a calculation: n texts of functions, n
/// numbers of the start, and for Newton's method n × n texts of the Jacobi matrix, row
/// by row; eps > 0 and 1e-8 < q < 1 - 1e-8.
struct Command {
  /// The text of --help or --version, which asks for nothing more.
  std::string answer;
  /// Newton's method instead of simple iterations.
  bool isNewton = false;
  /// Check the Jacobi matrix instead of solving.
  bool checksJacobian = false;
  /// The accuracy.
  double eps = 0;
  /// The parameter of the functions.
  double a = 0;
  /// The contraction constant, for simple iterations.
  double q = 0;
  /// The initial approximation.
  std::vector<double> start;
  /// The texts of the functions.
  std::vector<std::string> functions;
  /// The texts of the elements of the Jacobi matrix.
  std::vector<std::string> jacobian;
  /// The file for the trace; without one it goes to the standard error stream.
  std::optional<std::string> log;
};

/// Reads the command line, and the problem file that it names.
/// @throws WrongUsage
Command readCommand(int argc, const char* const* argv);

}  // namespace nordika

#endif
