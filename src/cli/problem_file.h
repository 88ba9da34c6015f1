// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_PROBLEM_FILE_H
#define NORDIKA_CLI_PROBLEM_FILE_H

#include <CLI/CLI.hpp>
#include <istream>
#include <vector>

namespace nordika {

/// The problem files, as CLI11 reads TOML and INI, but without what it passes over
/// in silence or mistakes: that is refused.
class ProblemFile : public CLI::ConfigTOML {
 public:
  /// For the files of a program with these options.
  explicit ProblemFile(const CLI::App& program) : app(program) {}

  /// Reads the keys and their values.
  /// @throws CLI::ConfigError for a file that is refused
  std::vector<CLI::ConfigItem> from_config(std::istream& input) const override;

 private:
  const CLI::App& app;
};

}  // namespace nordika

#endif
