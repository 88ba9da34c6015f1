// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <cstring>
#include <string>

#include "check_jacobian.h"
#include "command.h"
#include "messages.h"
#include "nordika/solver.h"
#include "number_text.h"
#include "output.h"
#include "run.h"

using nordika::Command;
using nordika::complain;
namespace messages = nordika::messages;

namespace {

enum Status { kSolved = 0, kFailed = 1, kWrongUsage = 2, kWrongJacobian = 3 };

constexpr char kName[] = "nordika-solve: ";

// Compiles in the order of the window: the first fault decides.
std::vector<Function> compiled(const std::vector<std::string>& texts, double a) {
  std::vector<Function> functions;
  functions.reserve(texts.size());
  for (const std::string& text : texts)
    functions.push_back(nordika::compiled(text, nordika::parameterText(a)));
  return functions;
}

std::vector<std::vector<Function>> rowsOf(std::vector<Function> elements, std::size_t n) {
  std::vector<std::vector<Function>> rows;
  for (auto first = elements.begin(); first != elements.end(); first += std::ssize(rows.back()))
    rows.emplace_back(first, first + static_cast<std::ptrdiff_t>(n));
  return rows;
}

std::string solve(const Command& command, const std::vector<Function>& functions,
                  const std::vector<std::vector<Function>>& jacobian) {
  int iterations = 0;
  std::vector<double> x;
  if (command.isNewton) {
    NewtonProblem problem(functions, command.start, jacobian);
    x = solve_nonlinear_system_newton(problem, command.eps, iterations);
  } else {
    SimpleItersProblem problem(functions, command.start, command.q);
    x = solve_nonlinear_system_simple_iters(problem, command.eps, iterations);
  }
  std::string lines;
  for (std::size_t i = 0; i < x.size(); ++i)
    lines.append("x")
        .append(std::to_string(i + 1))
        .append(" = ")
        .append(nordika::shownNumber(x[i]))
        .append("\n");
  return lines.append("iterations = ").append(std::to_string(iterations)).append("\n");
}

// What goes to the standard output.
std::string calculate(const Command& command) {
  std::vector<Function> functions = compiled(command.functions, command.a);
  auto jacobian = rowsOf(compiled(command.jacobian, command.a), functions.size());
  if (command.checksJacobian) return nordika::wrongElements(functions, jacobian, command.start);
  return solve(command, functions, jacobian);
}

std::string aboutLog(std::string message, const std::string& name) {
  return message.replace(message.find("%1"), 2, name);
}

int printed(const std::string& text, int status) {
  if (nordika::print(text)) return status;
  complain(std::string(kName) + "cannot write the results: " + std::strerror(errno));
  return kFailed;
}

int run(const Command& command) {
  nordika::LogFile log;
  if (command.log && !log.open(*command.log)) {
    complain(aboutLog(messages::kLogNotOpened, *command.log));
    return kWrongUsage;
  }
  std::string output;
  std::string failure;
  try {
    output = calculate(command);
  } catch (...) {
    failure = nordika::reportFailure();
  }
  const bool isLogWhole = log.close();
  if (!isLogWhole) complain(aboutLog(messages::kLogNotWhole, *command.log));
  if (!failure.empty()) {
    complain(failure);
    return kFailed;
  }
  const bool isWrong = command.checksJacobian && !output.empty();
  return printed(output, !isLogWhole ? kWrongUsage : isWrong ? kWrongJacobian : kSolved);
}

}  // namespace

int main(int argc, char* argv[]) {
  nordika::prepareStreams();
  Command command;
  try {
    command = nordika::readCommand(argc, argv);
  } catch (const std::exception& fault) {
    complain(std::string(kName) + fault.what());
    return kWrongUsage;
  }
  return command.answer.empty() ? run(command) : printed(command.answer, kSolved);
}
