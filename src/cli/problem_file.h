// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_PROBLEM_FILE_H
#define NORDIKA_CLI_PROBLEM_FILE_H

#include <map>
#include <string>
#include <vector>

namespace nordika {

/// What the value of a key is.
enum class Kind { kFlag, kNumber, kText, kNumbers, kTexts, kMatrix };

/// What has been given for a key.
struct Setting {
  std::string name;                 ///< what messages call it: "p.toml:3: eps"
  std::vector<std::string> values;  ///< one, except for lists; matrices row by row
};

/// Settings by their keys.
using Settings = std::map<std::string, Setting>;

/// What messages call a problem file: "-" is the standard input.
std::string shownFile(const std::string& file);

/// Reads a problem file, which is TOML.
/// @param file its name; "-" for the standard input
/// @param keys the keys that it may have
/// @throws WrongUsage with file, line and key
Settings readProblemFile(const std::string& file, const std::map<std::string, Kind>& keys);

}  // namespace nordika

#endif
