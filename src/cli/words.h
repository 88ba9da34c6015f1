// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_WORDS_H
#define NORDIKA_CLI_WORDS_H

#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace nordika {

/// Words of a command line.
using Words = std::vector<std::string>;

/// Whether the option takes no value.
bool isFlag(const CLI::Option* option);

/// Whether the option takes several values.
bool isList(const CLI::Option* option);

/// The words of a command line, with the name of their option before each value. In CLI11 a
/// word that begins with a minus ends a list, except directly after the option's name.
/// @throws WrongUsage for unknown options, for an option that is given twice, and for values
///   that are missing or too many
Words withNameBeforeEachValue(const CLI::App& options, const Words& words);

}  // namespace nordika

#endif
