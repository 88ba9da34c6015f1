// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <map>
#include <sys/stat.h>

#include "cli/problem_file.h"
#include "cli/words.h"
#include "nordika/version.h"
#include "number/read_number.h"

namespace nordika {

namespace {

// The options as CLI11 knows them. CLI11 only collects the texts; readCommand() converts
// them.
struct Options {
  CLI::App app{
      "Solves a system of nonlinear equations. The solution goes to the standard output, and\n"
      "every iteration to the standard error stream, as in the run log of the window.",
      "nordika-solve"};

  CLI::Option* method = add("--method", "simple|newton", "The method [simple]");
  CLI::Option* eps = add("--eps", "NUMBER", "The accuracy [1e-05]");
  CLI::Option* a = add("-a", "NUMBER", "The parameter a [0]");
  CLI::Option* q = add("-q", "NUMBER", "The contraction constant; only simple [0.5]");
  CLI::Option* start = addList("--start", "V", "The initial approximation");
  CLI::Option* functions = addList("--functions", "TEXT", "The functions");
  CLI::Option* jacobian =
      addList("--jacobian", "TEXT", "The Jacobi matrix, row by row; only newton [derived]");
  CLI::Option* maxIterations =
      add("--max-iterations", "NUMBER", "The limit of iterations [100000]");
  CLI::Option* log = add("--log", "FILE", "Write the iterations to FILE");
  CLI::Option* quiet = addFlag("--quiet", "Write no iterations");
  CLI::Option* json = addFlag("--json", "Print the outcome as a JSON object");
  CLI::Option* config = add("--config", "FILE", "Read options from FILE");
  CLI::Option* checkJacobian = addFlag(
      "--check-jacobian", "Only compare the Jacobi matrix with the derivatives of the functions");
  CLI::Option* printJacobian = addFlag(
      "--print-jacobian", "Only print the derivatives of the functions, for a problem file");
  CLI::Option* help = app.set_help_flag("-h,--help", "Print this text");
  CLI::Option* version =
      app.set_version_flag("--version", "nordika-solve " NORDIKA_VERSION "\n", "Print the version");

  Options() {
    app.allow_extras();
    app.footer(
        "Example:\n"
        "  nordika-solve --functions '0.5*cos(x2)' '0.5*sin(x1)+0.2' --start 0 0");
  }

  CLI::Option* add(const char* name, const char* value, const std::string& meaning) {
    return app.add_option(name, meaning)->type_name(value);
  }

  CLI::Option* addFlag(const char* name, const std::string& meaning) {
    return app.add_flag(name, meaning);
  }

  // CLI11 would take a word in brackets as several values.
  CLI::Option* addList(const char* name, const char* value, const std::string& meaning) {
    return add(name, value, meaning)->expected(1, -1)->allow_extra_args(false);
  }
};

std::string keyOf(const CLI::Option* option) {
  const std::string name = option->get_name();
  return name.substr(name.find_first_not_of('-'));
}

// The keys that a problem file may have.
std::map<std::string, Kind> keysOf(const Options& options) {
  std::map<std::string, Kind> keys;
  for (const CLI::Option* const option : options.app.get_options()) {
    const bool isNumber = option->get_type_name() == "NUMBER" || option == options.start;
    keys[keyOf(option)] = option == options.jacobian ? Kind::kMatrix
                          : isFlag(option)           ? Kind::kFlag
                          : isList(option)           ? (isNumber ? Kind::kNumbers : Kind::kTexts)
                                                     : (isNumber ? Kind::kNumber : Kind::kText);
  }
  for (const CLI::Option* const option : {options.config, options.help, options.version})
    keys.erase(keyOf(option));
  return keys;
}

// What the command line and the problem file give; the command line wins.
class Given {
 public:
  explicit Given(const Options& options) {
    for (const CLI::Option* const option : options.app.get_options()) {
      if (option->count() > 0) settings[keyOf(option)] = {option->get_name(), option->results()};
    }
    if (options.config->count() == 0) return;
    file = options.config->results().back();
    if (file.empty()) throw WrongUsage("--config names no file");
    settings.merge(readProblemFile(file, keysOf(options)));
  }

  bool has(const CLI::Option* option) const { return settings.contains(keyOf(option)); }

  bool isSet(const CLI::Option* flag) const {
    return has(flag) && valuesOf(flag) != Words{"false"};
  }

  Words valuesOf(const CLI::Option* option) const {
    return has(option) ? settings.at(keyOf(option)).values : Words();
  }

  std::string textOf(const CLI::Option* option, const char* otherwise) const {
    return has(option) ? valuesOf(option).back() : otherwise;
  }

  double numberOf(const CLI::Option* option, const char* otherwise) const {
    return toNumber(option, textOf(option, otherwise));
  }

  std::vector<double> numbersOf(const CLI::Option* option) const {
    std::vector<double> numbers;
    for (const std::string& text : valuesOf(option))
      numbers.push_back(toNumber(option, text));
    return numbers;
  }

  // What messages call the option. Where it is missing, it could also stand in the file.
  std::string nameOf(const CLI::Option* option) const {
    if (has(option)) return settings.at(keyOf(option)).name;
    return file.empty() ? option->get_name() : shownFile(file) + ": " + keyOf(option);
  }

  // The path of the problem file; empty if there is none.
  std::string path() const { return file == "-" ? "/dev/stdin" : file; }

 private:
  double toNumber(const CLI::Option* option, const std::string& text) const {
    std::string_view rest = text;
    const std::optional<double> value = detail::extractNumber(rest);
    if (!value || !rest.empty())
      throw WrongUsage(nameOf(option) + ": \"" + text + "\" is not a finite number");
    return *value;
  }

  Settings settings;
  std::string file;
};

// Lets CLI11 read the words.
// Returns the text of --help or --version, or nothing.
std::string parse(Options& options, const Words& words) {
  Words reversed = withNameBeforeEachValue(options.app, words);
  std::reverse(reversed.begin(), reversed.end());
  try {
    options.app.parse(reversed);
  } catch (const CLI::CallForHelp&) {
    return options.app.help();
  } catch (const CLI::CallForVersion& version) {
    return version.what();
  } catch (const CLI::Error& fault) {
    throw WrongUsage(fault.what());
  }
  return "";
}

// Also of pipes, which std::filesystem::equivalent() cannot compare.
bool isOneFile(const std::string& a, const std::string& b) {
  struct stat first = {};
  struct stat second = {};
  return stat(a.c_str(), &first) == 0 && stat(b.c_str(), &second) == 0 &&
         first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

// 0 for what is no limit of iterations.
int toLimit(double number) {
  const bool isLimit = number >= 1 && number <= kMaxIterations && number == std::trunc(number);
  return isLimit ? static_cast<int>(number) : 0;
}

void check(const Options& options, const Given& given, const Command& command) {
  const Problem& problem = command.problem;
  const auto refuseIf = [&given](bool isWrong, const CLI::Option* option,
                                 const std::string& fault) {
    if (isWrong) throw WrongUsage(given.nameOf(option) + fault);
  };
  const auto refuseOther = [&](const CLI::Option* option, const char* method) {
    refuseIf(given.has(option), option, std::string(" is only for --method ") + method);
  };
  const std::string method = given.textOf(options.method, "simple");
  refuseIf(method != "simple" && method != "newton", options.method,
           ": \"" + method + "\" is neither simple nor newton");
  if (problem.isNewton) {
    refuseOther(options.q, "simple");
  } else {
    refuseOther(options.jacobian, "newton");
    refuseIf(command.checksJacobian, options.checkJacobian, " is only for --method newton");
    refuseIf(command.printsJacobian, options.printJacobian, " is only for --method newton");
  }
  refuseIf(command.checksJacobian && command.printsJacobian, options.printJacobian,
           " cannot go with --check-jacobian");
  refuseIf(command.isJson && command.checksJacobian, options.json,
           " cannot go with --check-jacobian");
  refuseIf(command.isJson && command.printsJacobian, options.json,
           " cannot go with --print-jacobian");
  refuseIf(command.checksJacobian && problem.jacobian.empty(), options.jacobian, " is missing");
  refuseIf(command.isQuiet && command.log, options.quiet, " cannot go with --log");
  refuseIf(problem.eps <= 0, options.eps, " is not positive");
  refuseIf(problem.q <= 1e-8 || problem.q >= 1.0 - 1e-8, options.q,
           " is outside 1e-08 < q < 1 - 1e-08");
  refuseIf(problem.maxIterations == 0, options.maxIterations,
           " is not a whole number from 1 to " + std::to_string(kMaxIterations));
  const std::size_t n = problem.functions.size();
  refuseIf(n == 0, options.functions, " is missing; see nordika-solve --help");
  const auto requireCount = [&](const CLI::Option* option, std::size_t count, std::size_t wanted) {
    refuseIf(count == 0, option, " is missing");
    refuseIf(count != wanted, option,
             " has " + std::to_string(count) + " values instead of " + std::to_string(wanted));
  };
  requireCount(options.start, problem.start.size(), n);
  if (given.has(options.jacobian)) requireCount(options.jacobian, problem.jacobian.size(), n * n);
  refuseIf(command.log && isOneFile(given.path(), *command.log), options.log,
           " names the problem file");
}

}  // namespace

Command readCommand(int argc, const char* const* argv) {
  Options options;
  Command command;
  command.answer = parse(options, {argv + std::min(argc, 1), argv + argc});
  if (!command.answer.empty()) return command;
  const Given given(options);
  command.isJson = given.isSet(options.json);
  command.isQuiet = given.isSet(options.quiet);
  command.checksJacobian = given.isSet(options.checkJacobian);
  command.printsJacobian = given.isSet(options.printJacobian);
  Problem& problem = command.problem;
  problem.isNewton = given.textOf(options.method, "simple") == "newton";
  problem.eps = given.numberOf(options.eps, "1e-05");
  problem.a = given.numberOf(options.a, "0");
  problem.q = given.numberOf(options.q, "0.5");
  problem.maxIterations = toLimit(given.numberOf(options.maxIterations, "100000"));
  problem.start = given.numbersOf(options.start);
  problem.functions = given.valuesOf(options.functions);
  const Words elements = given.valuesOf(options.jacobian);
  problem.jacobian.assign(elements.begin(), elements.end());
  // To derive takes no start.
  if (command.printsJacobian && problem.start.empty())
    problem.start.assign(problem.functions.size(), 0.0);
  if (given.has(options.log)) command.log = given.textOf(options.log, "");
  check(options, given, command);
  return command;
}

}  // namespace nordika
