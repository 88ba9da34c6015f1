// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "run/run.h"

#include "nordika/solver.h"
#include "nordika/trace.h"
#include "number/six_digits.h"
#include "run/messages.h"

namespace nordika {

namespace {

System compile(const Problem& problem) {
  const std::string parameters = parameterText(problem.a);
  System system;
  for (const std::string& text : problem.functions)
    system.functions.push_back(nordika::compile(text, parameters));
  const std::size_t n = problem.functions.size();
  for (std::size_t i = 0; i < problem.jacobian.size(); ++i) {
    if (i % n == 0) system.jacobian.emplace_back();
    system.jacobian.back().push_back(nordika::compile(problem.jacobian[i], parameters));
  }
  return system;
}

bool isMalformed(const std::optional<std::string>& text, const Problem& problem, bool evaluated) {
  try {
    Function function = nordika::compile(text, parameterText(problem.a));
    if (evaluated) function(problem.start);
  } catch (const ExpressionWrongFormat&) {
    return true;
  } catch (...) {  // another fault, of another text maybe
  }
  return false;
}

// The engine finds a leading operator only at evaluation, so the texts that compile are
// then tried at the start.
std::optional<TextPlace> findMalformed(const Problem& problem) {
  std::vector<std::pair<TextPlace, std::optional<std::string>>> texts;
  const int n = static_cast<int>(problem.functions.size());
  for (int i = 0; i < n; ++i)
    texts.push_back({{true, i, 0}, problem.functions.begin()[i]});
  for (int i = 0; i < static_cast<int>(problem.jacobian.size()); ++i)
    texts.push_back({{false, i / n, i % n}, problem.jacobian.begin()[i]});
  for (const bool evaluated : {false, true}) {
    for (const auto& [place, text] : texts) {
      if (isMalformed(text, problem, evaluated)) return place;
    }
  }
  return std::nullopt;
}

// Writes the line of the run log. The details follow their texts.
Failure report(const messages::Failure& failure, const std::string& loggedDetail = {},
               const std::string& shownDetail = {}) {
  Trace() << "Error: " << failure.logged << loggedDetail << "\n\n";
  return {failure.shown + shownDetail, std::nullopt};
}

}  // namespace

std::string parameterText(double a) {
  char digits[detail::kSixDigitsLength];
  return "a = " + std::string(digits, detail::writeSixDigits(digits, a));
}

Function compile(const std::optional<std::string>& text, const std::string& parameters) {
  if (!text) throw 42;
  return {text->empty() ? "0" : *text, parameters};
}

std::optional<Failure> attempt(const Problem& problem, const std::function<void(System&)>& use) {
  try {
    System system = compile(problem);
    use(system);
    return std::nullopt;
  } catch (const ExpressionWrongFormat&) {
    Failure failure = report(messages::kWrongFormat);
    failure.place = findMalformed(problem);
    return failure;
  } catch (const ExpressionBadResult&) {
    return report(messages::kBadResult);
  } catch (const ExpressionUnknownVariable& variable) {
    return report(messages::kUnknownVariable, variable.name, variable.name);
  } catch (const MaxItersCountAchieved&) {
    return report(messages::kLimitAchieved, {}, std::to_string(kMaxIterations));
  } catch (const MatrixIsSingular&) {
    return report(messages::kSingularMatrix);
  } catch (...) {
    return report(messages::kUndefinedError);
  }
}

Outcome solve(const Problem& problem) {
  Outcome outcome;
  outcome.failure = attempt(problem, [&](const System& system) {
    if (problem.isNewton) {
      NewtonProblem newton(system.functions, problem.start, system.jacobian);
      outcome.solution = solve_nonlinear_system_newton(newton, problem.eps, outcome.iterations);
    } else {
      SimpleItersProblem simple(system.functions, problem.start, problem.q);
      outcome.solution =
          solve_nonlinear_system_simple_iters(simple, problem.eps, outcome.iterations);
    }
  });
  return outcome;
}

}  // namespace nordika
