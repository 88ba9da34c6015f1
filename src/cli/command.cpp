// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>
#include <system_error>

#include "cli/problem_file.h"
#include "nordika/version.h"
#include "number/read_number.h"

namespace nordika {

namespace {

using Words = std::vector<std::string>;

// The options as CLI11 knows them. CLI11 only collects the texts; readCommand() converts
// them.
struct Options {
  CLI::App app{
      "Solves a system of nonlinear equations. The solution goes to the standard output, and\n"
      "every iteration to the standard error stream, as in the run log of the window.",
      "nordika-solve"};
  bool checksJacobian = false;
  bool printsJacobian = false;

  CLI::Option* method = add("--method", "simple|newton", "The method [simple]");
  CLI::Option* eps = add("--eps", "NUMBER", "The accuracy [1e-05]");
  CLI::Option* a = add("-a", "NUMBER", "The parameter a [0]");
  CLI::Option* q = add("-q", "NUMBER", "The contraction constant; only simple [0.5]");
  CLI::Option* start = add("--start", "V", "The initial approximation")->expected(1, -1);
  CLI::Option* functions = add("--functions", "TEXT", "The functions")->expected(1, -1);
  CLI::Option* jacobian =
      add("--jacobian", "TEXT", "The Jacobi matrix, row by row; only newton [derived]")
          ->expected(1, -1);
  CLI::Option* log = add("--log", "FILE", "Write the iterations to FILE");
  CLI::Option* config = app.set_config("--config", "", "Read options from FILE")->type_name("FILE");

  Options() {
    app.add_flag("--check-jacobian", checksJacobian,
                 "Only compare the Jacobi matrix with the derivatives of the functions");
    app.add_flag("--print-jacobian", printsJacobian,
                 "Only print the derivatives of the functions, as a line of a problem file");
    app.set_help_flag("--help", "Print this text");
    app.set_version_flag("--version", "nordika-solve " NORDIKA_VERSION "\n", "Print the version");
    app.config_formatter(std::make_shared<ProblemFile>(app));
    app.allow_extras();
  }

  CLI::Option* add(const char* name, const char* value, const std::string& help) {
    return app.add_option(name, help)->type_name(value);
  }
};

// The option that a word names, alone or before "=" and a value; nullptr for other words.
const CLI::Option* named(const Options& options, const std::string& word) {
  const std::size_t end = word.compare(0, 2, "--") == 0 ? word.find('=') : std::string::npos;
  return options.app.get_option_no_throw(word.substr(0, end));
}

// In CLI11 a word that begins with a minus ends a list, except directly after the option's
// name. So the name is put before each word of a list.
Words withNameBeforeEachValue(const Options& options, const Words& words) {
  Words result;
  std::set<const CLI::Option*> given;
  std::string list;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    const CLI::Option* const option = named(options, word);
    if (option == nullptr) {
      if (list == "--start" && word.compare(0, 2, "--") == 0) list.clear();  // no number
      if (!list.empty()) result.push_back(list);
      result.push_back(word);
      continue;
    }
    const std::string name = option->get_name();
    if (!given.insert(option).second) throw WrongUsage(name + " is given twice");
    const bool isFlag = option->get_expected_max() == 0;
    const bool isList = option->get_expected_max() > 1;
    list = isList ? name : "";
    if (!isFlag && word != name) {
      result.insert(result.end(), {name, word.substr(name.size() + 1)});
      continue;
    }
    if (!isFlag && (i + 1 == words.size() || named(options, words[i + 1]) != nullptr))
      throw WrongUsage(name + (isList ? " has no values" : " has no value"));
    if (!isList) result.push_back(word);
  }
  return result;
}

// Lets CLI11 read the words and the problem file.
// Returns the text of --help or --version, or nothing.
std::string parse(Options& options, const Words& words) {
  Words reversed = withNameBeforeEachValue(options, words);
  std::reverse(reversed.begin(), reversed.end());
  const auto file = [&options] { return options.config->as<std::string>(); };
  try {
    options.app.parse(reversed);
  } catch (const CLI::CallForHelp&) {
    return options.app.help();
  } catch (const CLI::CallForVersion& version) {
    return version.what();
  } catch (const CLI::FileError&) {
    throw WrongUsage("cannot read " + file());
  } catch (const CLI::ConfigError& fault) {
    throw WrongUsage(file() + ": " + fault.what());
  } catch (const CLI::Error& fault) {
    throw WrongUsage(fault.what());
  }
  const Words others = options.app.remaining();
  if (!others.empty()) throw WrongUsage("unknown option or argument " + others.front());
  if (options.config->count() > 0 && file().empty()) throw WrongUsage("--config names no file");
  return "";
}

std::string textOf(const CLI::Option* option, const char* otherwise) {
  return option->count() > 0 ? option->results().back() : otherwise;
}

double toNumber(const CLI::Option* option, const std::string& text) {
  std::string_view rest = text;
  const std::optional<double> value = detail::extractNumber(rest);
  if (!value || !rest.empty())
    throw WrongUsage(option->get_name() + ": \"" + text + "\" is not a finite number");
  return *value;
}

double numberOf(const CLI::Option* option, const char* otherwise) {
  return toNumber(option, textOf(option, otherwise));
}

void check(const Options& options, const Command& command) {
  const Problem& problem = command.problem;
  const auto require = [](bool holds, const std::string& fault) {
    if (!holds) throw WrongUsage(fault);
  };
  const std::string method = textOf(options.method, "simple");
  require(method == "simple" || method == "newton",
          "--method: \"" + method + "\" is neither simple nor newton");
  if (problem.isNewton) {
    require(options.q->count() == 0, "-q is only for --method simple");
  } else {
    require(options.jacobian->count() == 0, "--jacobian is only for --method newton");
    require(!command.checksJacobian, "--check-jacobian is only for --method newton");
    require(!command.printsJacobian, "--print-jacobian is only for --method newton");
  }
  require(!command.checksJacobian || !command.printsJacobian,
          "--check-jacobian and --print-jacobian exclude each other");
  require(!command.checksJacobian || options.jacobian->count() > 0, "--jacobian is missing");
  require(problem.eps > 0, "--eps is not positive");
  require(1e-8 < problem.q && problem.q < 1.0 - 1e-8, "-q is outside 1e-08 < q < 1 - 1e-08");
  const std::size_t n = problem.functions.size();
  require(n > 0, "--functions is missing");
  const auto requireCount = [&](const CLI::Option* option, std::size_t count, std::size_t wanted) {
    require(count == wanted, option->get_name() + " has " + std::to_string(count) +
                                 " values instead of " + std::to_string(wanted));
  };
  requireCount(options.start, problem.start.size(), n);
  if (options.jacobian->count() > 0) requireCount(options.jacobian, problem.jacobian.size(), n * n);
  std::error_code ignored;  // if a file is missing, the two are not the same
  require(!command.log ||
              !std::filesystem::equivalent(textOf(options.config, ""), *command.log, ignored),
          "--log names the problem file");
}

}  // namespace

Command readCommand(int argc, const char* const* argv) {
  Options options;
  Command command;
  command.answer = parse(options, {argv + std::min(argc, 1), argv + argc});
  if (!command.answer.empty()) return command;
  command.checksJacobian = options.checksJacobian;
  command.printsJacobian = options.printsJacobian;
  Problem& problem = command.problem;
  problem.isNewton = textOf(options.method, "simple") == "newton";
  problem.eps = numberOf(options.eps, "1e-05");
  problem.a = numberOf(options.a, "0");
  problem.q = numberOf(options.q, "0.5");
  for (const std::string& text : options.start->results())
    problem.start.push_back(toNumber(options.start, text));
  problem.functions = options.functions->results();
  const Words elements = options.jacobian->results();
  problem.jacobian.assign(elements.begin(), elements.end());
  // To derive takes no start.
  if (command.printsJacobian && problem.start.empty())
    problem.start.assign(problem.functions.size(), 0.0);
  if (options.log->count() > 0) command.log = options.log->results().back();
  check(options, command);
  return command;
}

}  // namespace nordika
