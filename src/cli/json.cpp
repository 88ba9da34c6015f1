// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/json.h"

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "cli/failure_lines.h"
#include "run/messages.h"

namespace nordika {

namespace {

// The value at x, which a call would round; NaN where there is none.
double valueAt(Function function, const std::vector<double>& x) {
  for (std::size_t i = 0; i < x.size(); ++i) {
    std::string name = "x";
    function.variables.insert_or_assign(name += std::to_string(i + 1), x[i]);
  }
  try {
    return function.calculate(function.postfix);
  } catch (const ExpressionBadResult&) {
    return std::numeric_limits<double>::quiet_NaN();
  }
}

// The texts have been solved, so they compile.
std::vector<double> residualOf(const Problem& problem, const std::vector<double>& x) {
  std::vector<double> residual;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double value = valueAt(compile(problem.functions[i], parameterText(problem.a)), x);
    residual.push_back(problem.isNewton ? value : value - x[i]);
  }
  return residual;
}

std::string nameOfBlamed(const Problem& problem, const Failure& failure) {
  if (failure.blame) return nameOf(failure.blame->place);
  const bool isSingular = failure.message == messages::kSingularMatrix.shown;
  return isSingular && problem.functions.size() == 1 ? nameOf({false, 0, 0}) : "";
}

}  // namespace

std::string jsonOf(const Problem& problem, const Outcome& outcome) {
  nlohmann::ordered_json object;
  if (outcome.failure) {
    object["error"] = outcome.failure->cause;
    const std::string name = nameOfBlamed(problem, *outcome.failure);
    if (!name.empty()) object["text"] = name;
  } else {
    object["method"] = problem.isNewton ? "newton" : "simple";
    object["x"] = outcome.solution;
    object["residual"] = residualOf(problem, outcome.solution);
    object["iterations"] = outcome.iterations;
    object["estimate"] = outcome.course.estimate;
  }
  return object.dump() + "\n";
}

}  // namespace nordika
