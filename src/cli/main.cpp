// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <cstring>
#include <string>

#include "cli/check_jacobian.h"
#include "cli/command.h"
#include "cli/failure_lines.h"
#include "cli/json.h"
#include "cli/output.h"
#include "cli/streams.h"
#include "run/messages.h"
#include "run/run.h"

using nordika::Command;
using nordika::complain;
namespace messages = nordika::messages;

namespace {

enum Status { kSolved = 0, kFailed = 1, kWrongUsage = 2, kWrongJacobian = 3 };

constexpr char kName[] = "nordika-solve: ";

std::string aboutLog(std::string message, const std::string& name) {
  return message.replace(message.find("%1"), 2, name);
}

int finish(const std::string& text, int status) {
  if (nordika::print(text)) return status;
  complain(std::string(kName) + "cannot write the results: " + std::strerror(errno));
  return kFailed;
}

// The message is the last line.
void complainOf(const nordika::Failure& failure, const nordika::Problem& problem,
                const nordika::Course& course) {
  const bool isLimit = failure.message.starts_with(messages::kLimitAchieved.shown);
  const std::string line =
      isLimit ? nordika::lineOnEstimates(problem, course) : nordika::lineOnText(failure);
  if (!line.empty()) complain(kName + line);
  complain(failure.message);
}

int run(const Command& command) {
  nordika::LogFile log;
  std::optional<nordika::TraceRedirect> silence;
  if (command.isQuiet) silence.emplace(nullptr);
  if (command.log && !log.open(*command.log)) {
    complain(aboutLog(messages::kLogNotOpened, *command.log));
    return kWrongUsage;
  }
  std::string output;
  bool isWrong = false;
  nordika::Outcome outcome;
  if (command.checksJacobian) {
    outcome.failure = nordika::attempt(command.problem, [&](nordika::System& system) {
      output = nordika::linesOnWrongElements(system, command.problem);
      isWrong = !output.empty();
      if (!isWrong) output = nordika::lineOfAgreement(command.problem.jacobian.size());
    });
  } else if (command.printsJacobian) {
    outcome.failure = nordika::attempt(command.problem, [&](const nordika::System& system) {
      output = nordika::lineOfJacobian(nordika::derivedJacobian(system.functions));
    });
  } else {
    outcome = nordika::solve(command.problem);
    output = command.isJson ? nordika::jsonOf(command.problem, outcome) : nordika::linesOf(outcome);
  }
  const bool isLogWhole = log.close();
  if (!isLogWhole) complain(aboutLog(messages::kLogNotWhole, *command.log));
  if (outcome.failure) {
    if (command.isJson) finish(output, kFailed);
    complainOf(*outcome.failure, command.problem, outcome.course);
    return kFailed;
  }
  return finish(output, !isLogWhole ? kWrongUsage : isWrong ? kWrongJacobian : kSolved);
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
  return command.answer.empty() ? run(command) : finish(command.answer, kSolved);
}
