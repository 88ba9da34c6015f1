// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/check_jacobian.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <optional>
#include <string_view>

#include "cli/failure_lines.h"
#include "cli/output.h"
#include "number/read_number.h"

namespace nordika {

namespace {

using Limits = std::numeric_limits<double>;
using Point = std::vector<double>;

// A computed value and a bound of its rounding error.
struct Rounded {
  double value;
  double error;
};

// The result of an operation. It is as wrong as the operands can make it, at the corners of
// what they may be, and by its own rounding: good C libraries stay within two units in the
// last place. std::fmax() passes over NaN, for corners outside the domain.
template <typename Operation>
Rounded apply(Operation operation, Rounded a, Rounded b = {0, 0}) {
  const double value = operation(a.value, b.value);
  if (!std::isfinite(a.error + b.error)) return {value, Limits::infinity()};
  double error = 0;
  for (const double x : {a.value - a.error, a.value + a.error}) {
    for (const double y : {b.value - b.error, b.value + b.error})
      error = std::fmax(error, std::fabs(operation(x, y) - value));
  }
  return {value, error + 4 * Limits::epsilon() * std::fabs(value) + Limits::min()};
}

// The value at a point, where the function has one.
Rounded valueAt(Function& function, const Point& x) {
  function(x);
  std::vector<Rounded> stack;
  const auto pop = [&stack] {
    const Rounded top = stack.back();
    stack.pop_back();
    return top;
  };
  for (const Expression::token& t : function.postfix) {
    if (t.type == Expression::number) {
      stack.push_back({detail::numberValue(t.text), 0});
    } else if (t.type == Expression::variable) {
      stack.push_back({function.variables.at(t.text), 0});
    } else if (t.type == Expression::binary_operator) {
      const Rounded right = pop();
      const Rounded left = pop();
      stack.push_back(apply([&](double u, double v) { return function.apply_binary(t.text, u, v); },
                            left, right));
    } else if (t.type == Expression::unary_operator) {
      stack.back().value = function.apply_unary(t.text, stack.back().value);
    } else {
      const Rounded u = pop();
      stack.push_back(
          apply([&](double v, double) { return function.apply_function(t.text, v); }, u));
      // Within so much, a function may swing.
      if (u.error > 0.1) stack.back().error = Limits::infinity();
    }
  }
  return stack.back();
}

// The start, then eight points around it: half of them within a part of each component, so
// that its sign stays, the others also within a part of 1. No two components have the same
// offset.
std::vector<Point> pointsAround(const Point& start) {
  constexpr double kRadii[] = {1e-3, 0.02, 0.1, 0.5};
  constexpr double kGoldenRatio = 0.6180339887498949;
  std::vector<Point> points = {start};
  int offsets = 0;
  for (const double least : {0.0, 1.0}) {
    for (const double radius : kRadii) {
      points.push_back(start);
      for (double& x : points.back()) {
        const double size = x == 0 ? 1 : std::max(std::fabs(x), least);
        x += radius * size * (2 * std::fmod(++offsets * kGoldenRatio, 1) - 1);
      }
    }
  }
  return points;
}

// What belongs to an element.
struct Trio {
  Function& function;
  Function& element;
  Function& derivative;
};

// The line on an element that is wrong, nothing on others.
std::string lineOnElement(const Trio& trio, const Blame (&blames)[3],
                          const std::vector<Point>& points) {
  std::optional<BlamedFault> first;
  bool isDefined = false;
  for (const Point& x : points) {
    const Blame* blame = blames;
    try {
      trio.function(x);
      ++blame;
      const Rounded typed = valueAt(trio.element, x);
      ++blame;
      const Rounded expected = valueAt(trio.derivative, x);
      isDefined = true;
      const double larger = std::max(std::fabs(typed.value), std::fabs(expected.value));
      const double tolerance = 1e-5 * larger + 4 * (typed.error + expected.error);
      if (std::fabs(typed.value - expected.value) > tolerance)
        return std::string("J")
            .append(nameOf(blames[1].place).substr(std::string_view("jacobian").size()))
            .append(": typed ")
            .append(shownNumber(typed.value))
            .append(", expected ")
            .append(shownNumber(expected.value));
    } catch (...) {
      if (!first) first = {std::current_exception(), *blame};
    }
  }
  if (!isDefined) throw BlamedFault(*first);
  return "";
}

}  // namespace

std::string linesOnWrongElements(System& system, const Problem& problem) {
  const std::vector<Point> points = pointsAround(problem.start);
  const std::size_t n = system.functions.size();
  const std::vector<std::string> derivatives = derivedJacobian(system.functions);
  std::string lines;
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = 0; j < n; ++j) {
      const std::size_t k = i * n + j;
      Function derivative(derivatives[k]);
      derivative.variables = system.functions[i].variables;
      const TextPlace place = {false, static_cast<int>(i), static_cast<int>(j)};
      const Trio trio = {system.functions[i], system.jacobian[i][j], derivative};
      const Blame blames[] = {{{true, place.row, 0}, problem.functions[i], problem.start},
                              {place, *problem.jacobian[k], problem.start},
                              {place, derivatives[k], problem.start}};
      const std::string line = lineOnElement(trio, blames, points);
      if (!line.empty()) lines.append(line).append(" = ").append(derivatives[k]).append("\n");
    }
  }
  return lines;
}

}  // namespace nordika
