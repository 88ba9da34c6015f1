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

using Functions = std::vector<Function>;

// Compiles `count` of the texts, from `first` on.
Functions compiled(const std::vector<std::string>& texts, std::size_t first, std::size_t count,
                   const std::string& parameters) {
  Functions functions;
  functions.reserve(count);
  for (std::size_t i = first; i < first + count; ++i)
    functions.push_back(nordika::compiled(texts[i], parameters));
  return functions;
}

std::string solve(const Command& command, const Functions& functions,
                  const std::vector<Functions>& jacobian) {
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

// What goes to the standard output. Texts are compiled in the order of the window.
std::string calculate(const Command& command) {
  const std::string parameters = nordika::parameterText(command.a);
  const std::size_t n = command.functions.size();
  Functions functions = compiled(command.functions, 0, n, parameters);
  std::vector<Functions> jacobian;
  for (std::size_t first = 0; first < command.jacobian.size(); first += n)
    jacobian.push_back(compiled(command.jacobian, first, n, parameters));
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
  nordika::surviveFailedWrites();
  Command command;
  try {
    command = nordika::readCommand(argc, argv);
  } catch (const std::exception& fault) {
    complain(std::string(kName) + fault.what());
    return kWrongUsage;
  }
  return command.answer.empty() ? run(command) : printed(command.answer, kSolved);
}
