// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <cstring>
#include <string>

#include "cli/check_jacobian.h"
#include "cli/command.h"
#include "cli/output.h"
#include "cli/streams.h"
#include "run/jacobian.h"
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

int run(const Command& command) {
  nordika::LogFile log;
  if (command.log && !log.open(*command.log)) {
    complain(aboutLog(messages::kLogNotOpened, *command.log));
    return kWrongUsage;
  }
  std::string output;
  std::optional<nordika::Failure> failure;
  bool isWrong = false;
  if (command.checksJacobian) {
    failure = nordika::attempt(command.problem, [&](nordika::System& system) {
      output = nordika::linesOnWrongElements(system, command.problem.start);
      isWrong = !output.empty();
      if (!isWrong) output = nordika::lineOfAgreement(command.problem.jacobian.size());
    });
  } else if (command.printsJacobian) {
    failure = nordika::attempt(command.problem, [&](const nordika::System& system) {
      output = nordika::lineOfJacobian(nordika::derivedJacobian(system.functions));
    });
  } else {
    const nordika::Outcome outcome = nordika::solve(command.problem);
    failure = outcome.failure;
    output = nordika::linesOf(outcome);
  }
  const bool isLogWhole = log.close();
  if (!isLogWhole) complain(aboutLog(messages::kLogNotWhole, *command.log));
  if (failure) {
    complain(failure->message);
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
