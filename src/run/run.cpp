// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "run/run.h"

#include "nordika/solver.h"
#include "nordika/trace.h"
#include "number/six_digits.h"
#include "run/blame.h"
#include "run/jacobian.h"
#include "run/messages.h"

namespace nordika {

namespace {

// Derives the texts of the Jacobi matrix if Newton's method has none.
System compileAll(Problem& problem) {
  const std::string parameters = parameterText(problem.a);
  System system;
  for (const std::string& text : problem.functions)
    system.functions.push_back(compile(text, parameters));
  if (problem.isNewton && problem.jacobian.empty()) {
    const std::vector<std::string> derived = derivedJacobian(system.functions);
    problem.jacobian.assign(derived.begin(), derived.end());
  }
  const std::size_t n = problem.functions.size();
  for (std::size_t i = 0; i < problem.jacobian.size(); ++i) {
    if (i % n == 0) system.jacobian.emplace_back();
    system.jacobian.back().push_back(compile(problem.jacobian[i], parameters));
  }
  return system;
}

// Tells of the exception that is handled. Each detail is appended to its text.
Failure describe() {
  const auto failure = [](const messages::Texts& texts, const std::string& loggedDetail = {},
                          const std::string& shownDetail = {}) {
    std::string cause = texts.logged + loggedDetail;
    Trace() << "Error: " << cause << "\n\n";
    if (cause.back() == '.') cause.pop_back();
    return Failure{cause, texts.shown + shownDetail, {}};
  };
  try {
    throw;
  } catch (const ExpressionWrongFormat&) {
    return failure(messages::kWrongFormat);
  } catch (const ExpressionBadResult&) {
    return failure(messages::kBadResult);
  } catch (const ExpressionUnknownVariable& variable) {
    return failure(messages::kUnknownVariable, variable.name, variable.name);
  } catch (const MaxItersCountAchieved&) {
    return failure(messages::kLimitAchieved, {}, std::to_string(kMaxIterations));
  } catch (const MatrixIsSingular&) {
    return failure(messages::kSingularMatrix);
  } catch (...) {
    return failure(messages::kUndefinedError);
  }
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

std::optional<Failure> attempt(Problem problem, const std::function<void(System&)>& use) {
  std::vector<double> x = problem.start;
  const IterationWatch watch([&x](int, double, const std::vector<double>& approximation) {
    x = approximation;
    return true;
  });
  try {
    System system = compileAll(problem);
    use(system);
    return std::nullopt;
  } catch (const MaxItersCountAchieved&) {
    return describe();  // every text had a value
  } catch (...) {
    Failure failure = describe();
    failure.blame = findBlame(problem, x);
    return failure;
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
