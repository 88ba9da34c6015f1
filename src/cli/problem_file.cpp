// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/problem_file.h"

#include <set>
#include <sstream>
#include <string>

namespace nordika {

namespace {

using CLI::ConfigError;
using CLI::detail::trim_copy;

// The array that begins with `first`, on one line. CLI11 reads some arrays over several
// lines, ends one that never ends, and takes a blank before a comma for one more, empty
// text.
std::string wholeArray(const std::string& key, std::string first, std::istream& input) {
  std::string array;
  for (std::string line = std::move(first);;) {
    line = trim_copy(line.substr(0, line.find('#')));
    if (!array.empty()) array += ' ';
    for (const char c : line) {
      if (c == ',') array.erase(array.find_last_not_of(" \t") + 1);
      array += c;
    }
    if (array.back() == ']') return array;
    if (!std::getline(input, line)) throw ConfigError(key + ": the array does not end");
  }
}

// The lines of the file, an array on one line. CLI11 joins the values of a key that is
// given twice, or uses the first ones, and skips lines of one and two characters.
std::string checkedLines(std::istream& input) {
  std::string text;
  std::set<std::string> keys;
  for (std::string line; std::getline(input, line);) {
    line = trim_copy(line);
    if (line.empty() || line[0] == ';' || line[0] == '#') continue;
    if (line[0] == '[') throw ConfigError("unknown section " + line);
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos || line.size() < 3)
      throw ConfigError("no value in the line \"" + line + "\"");
    std::string key = trim_copy(line.substr(0, equals));
    CLI::detail::remove_quotes(key);
    if (!keys.insert(key).second) throw ConfigError(key + " is given twice");
    const std::string value = trim_copy(line.substr(equals + 1));
    if (!value.empty() && value[0] == '[')
      line = line.substr(0, equals + 1) + wholeArray(key, value, input);
    text += line + "\n";
  }
  return text;
}

}  // namespace

std::vector<CLI::ConfigItem> ProblemFile::from_config(std::istream& input) const {
  std::istringstream lines(checkedLines(input));
  if (input.bad()) throw CLI::FileError("reading failed");
  std::vector<CLI::ConfigItem> read = CLI::ConfigTOML::from_config(lines);
  for (const CLI::ConfigItem& item : read) {
    const std::string name = item.fullname();
    const CLI::Option* const option =
        app.get_option_no_throw((name.size() == 1 ? "-" : "--") + name);
    if (option == nullptr || !option->get_configurable()) throw ConfigError("unknown key " + name);
    for (const std::string& value : item.inputs) {
      if (value.find_first_of("\"'`") != std::string::npos)
        throw ConfigError(name + ": the quotes do not agree");
    }
  }
  return read;
}

}  // namespace nordika
