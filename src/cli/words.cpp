// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/words.h"

#include <CLI/CLI.hpp>
#include <set>

#include "cli/command.h"

namespace nordika {

namespace {

bool beginsWithDashes(const std::string& word) {
  return word.compare(0, 2, "--") == 0;
}

// The option that a word names, alone or before "=" and a value; nullptr for other words.
const CLI::Option* named(const CLI::App& options, const std::string& word) {
  const std::size_t end = beginsWithDashes(word) ? word.find('=') : std::string::npos;
  return options.get_option_no_throw(word.substr(0, end));
}

// The option that a word like "-a2" gives a value; nullptr for other words.
const CLI::Option* namedInFront(const CLI::App& options, const std::string& word) {
  const CLI::Option* const option = named(options, word.substr(0, 2));
  return option == nullptr || isFlag(option) ? nullptr : option;
}

}  // namespace

bool isFlag(const CLI::Option* option) {
  return option->get_expected_max() == 0;
}

bool isList(const CLI::Option* option) {
  return option->get_expected_max() > 1;
}

Words withNameBeforeEachValue(const CLI::App& options, const Words& words) {
  Words result;
  std::set<const CLI::Option*> given;
  std::string list;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    const CLI::Option* option = named(options, word);
    const bool isInFront = option == nullptr && list.empty() && !beginsWithDashes(word);
    if (isInFront) option = namedInFront(options, word);
    if (option == nullptr) {
      if (beginsWithDashes(word) || (list.empty() && word[0] == '-'))
        throw WrongUsage("unknown option " + word + "; see nordika-solve --help");
      if (list.empty()) throw WrongUsage("\"" + word + "\" belongs to no option");
      result.insert(result.end(), {list, word});
      continue;
    }
    const std::string name = isInFront ? word.substr(0, 2) : word.substr(0, word.find('='));
    if (!given.insert(option).second) throw WrongUsage(name + " is given twice");
    list = isList(option) ? name : "";
    if (word == name) {
      if (!isFlag(option) && (i + 1 == words.size() || named(options, words[i + 1]) != nullptr))
        throw WrongUsage(name + (isList(option) ? " has no values" : " has no value"));
      if (!isList(option)) result.push_back(word);
      if (!isFlag(option) && !isList(option)) result.push_back(words[++i]);
      continue;
    }
    if (isFlag(option)) throw WrongUsage(name + " takes no value");
    result.insert(result.end(), {name, word.substr(name.size() + (isInFront ? 0 : 1))});
  }
  return result;
}

}  // namespace nordika
