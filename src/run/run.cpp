// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "run/run.h"

#include <utility>

#include "nordika/trace.h"
#include "run/messages.h"

namespace nordika {

namespace {

// Tells of the exception that is handled, in a run with this limit of iterations. Each
// detail is appended to its text.
Failure describe(int maxIterations) {
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
  } catch (const Stopped&) {
    return failure(messages::kLimitAchieved, {}, std::to_string(maxIterations));
  } catch (const MatrixIsSingular&) {
    return failure(messages::kSingularMatrix);
  } catch (...) {
    return failure(messages::kUndefinedError);
  }
}

}  // namespace

std::optional<Failure> attempt(Problem problem, const std::function<void(System&)>& use) {
  Course course;
  return attempt(std::move(problem), use, course);
}

std::optional<Failure> attempt(Problem problem, const std::function<void(System&)>& use,
                               Course& course) {
  course = {problem.start};
  // The last iteration that is allowed is also stopped here, so that every limit counts alike.
  const IterationWatch watch([&](int k, double estimate, const std::vector<double>& x) {
    course.x = x;
    course.estimate = estimate;
    if (estimate < course.smallest) {
      course.smallest = estimate;
      course.smallestAt = k;
      course.sizeThere = vnorm(x);
    }
    return k < problem.maxIterations;
  });
  try {
    System system = compileAll(problem);
    use(system);
    return std::nullopt;
  } catch (const Stopped&) {
    return describe(problem.maxIterations);  // every text had a value
  } catch (const BlamedFault& fault) {
    try {
      std::rethrow_exception(fault.cause);
    } catch (...) {
      Failure failure = describe(problem.maxIterations);
      failure.blame = fault.blame;
      return failure;
    }
  } catch (...) {
    Failure failure = describe(problem.maxIterations);
    failure.blame = findBlame(problem, course.x);
    return failure;
  }
}

Outcome solve(const Problem& problem) {
  Outcome outcome;
  const auto use = [&](const System& system) {
    if (problem.isNewton) {
      NewtonProblem newton(system.functions, problem.start, system.jacobian);
      outcome.solution = solve_nonlinear_system_newton(newton, problem.eps, outcome.iterations);
    } else {
      SimpleItersProblem simple(system.functions, problem.start, problem.q);
      outcome.solution =
          solve_nonlinear_system_simple_iters(simple, problem.eps, outcome.iterations);
    }
  };
  outcome.failure = attempt(problem, use, outcome.course);
  return outcome;
}

}  // namespace nordika
