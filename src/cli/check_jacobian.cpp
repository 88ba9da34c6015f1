// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/check_jacobian.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "cli/output.h"
#include "number/read_number.h"

namespace nordika {

namespace {

// A computed value and how far rounding may have led it astray.
struct Rounded {
  double value;
  double error;
};

// The result of an operation. It is as wrong as the operands can make it, at the corners of
// what they may be, and by its own rounding: good C libraries stay within two units in the
// last place. std::fmax() passes over NaN, for corners outside the domain.
template <typename Operation>
Rounded apply(Operation operation, Rounded a, Rounded b = {0, 0}) {
  using Limits = std::numeric_limits<double>;
  const double value = operation(a.value, b.value);
  if (!std::isfinite(a.error + b.error)) return {value, Limits::infinity()};
  double error = 0;
  for (const double x : {a.value - a.error, a.value + a.error}) {
    for (const double y : {b.value - b.error, b.value + b.error})
      error = std::fmax(error, std::fabs(operation(x, y) - value));
  }
  return {value, error + 4 * Limits::epsilon() * std::fabs(value) + Limits::min()};
}

// The rounding error of the value that the last call has returned.
double roundingError(const Function& function) {
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
      stack.push_back({function.variables.find(t.text)->second, 0});
    } else if (t.type == Expression::binary_operator) {
      const Rounded right = pop();
      const Rounded left = pop();
      stack.push_back(apply([&](double x, double y) { return function.apply_binary(t.text, x, y); },
                            left, right));
    } else if (t.type == Expression::function) {
      const Rounded x = pop();
      Rounded y = apply([&](double v, double) { return function.apply_function(t.text, v); }, x);
      // A difference of numbers near π/2.
      if (t.text == "arcctg") y.error += 4 * std::numeric_limits<double>::epsilon();
      stack.push_back(y);
    } else if (t.text == "-") {
      stack.back().value = -stack.back().value;
    }
  }
  return stack.back().error;
}

// The value where the unknown of that name has this value, and all others have theirs of the
// last call. The arguments of a call would be rounded to six digits.
Rounded valueAt(Function& function, const std::string& name, double x) {
  function.variables.insert_or_assign(name, x);
  return {function.calculate(function.postfix), roundingError(function)};
}

Rounded centralDifference(Function& function, const std::string& name, double x, double step) {
  const Rounded right = valueAt(function, name, x + step);
  const Rounded left = valueAt(function, name, x - step);
  const double width = (x + step) - (x - step);
  return {(right.value - left.value) / width, (right.error + left.error) / width};
}

// Whether the differences for finer steps, as far as their rounding errors let them tell a
// gap of this size, stay with the one for this step. Otherwise the function swings, jumps or
// has a pole within the step.
bool isSteady(const Rounded& difference, double gap, Function& function, const std::string& name,
              double x, double step) {
  while (true) {
    step /= 10;
    if (x + step == x - step) return true;
    const Rounded finer = centralDifference(function, name, x, step);
    if (std::isinf(finer.error)) return false;
    if (4 * finer.error >= gap) return true;
    if (std::fabs(finer.value - difference.value) >
        0.1 * std::fabs(difference.value) + 4 * finer.error)
      return false;
  }
}

// How far the element goes from its value within the step. The samples lie irregularly: an
// element that swings may be the same at equal distances.
double swing(Function& element, const std::string& name, double x, double step, double typed) {
  constexpr int kSamples = 24;
  constexpr double kGoldenRatio = 0.6180339887498949;
  double largest = 0;
  for (int k = 1; k <= kSamples; ++k) {
    const double offset = step * (2 * std::fmod(k * k * kGoldenRatio, 1) - 1);
    element.variables.insert_or_assign(name, x + offset);
    largest = std::max(largest, std::fabs(element.calculate(element.postfix) - typed));
  }
  return largest;
}

// One unit of the sixth digit, by which arguments can differ.
double stepAt(double x) {
  return x == 0 ? 1e-7 : std::pow(10, std::floor(std::log10(std::fabs(x))) - 5);
}

// The line on an element that is wrong, nothing on others.
std::string lineOnElement(Function& function, Function& element, const std::vector<double>& point,
                          std::size_t i, std::size_t j) {
  std::string name = "x";
  name += std::to_string(j + 1);
  const double value = element(point);
  const Rounded typed = {value, roundingError(element)};
  function(point);
  const double x = function.variables.find(name)->second;
  const double step = stepAt(x);
  const Rounded expected = centralDifference(function, name, x, step);
  const double gap = std::fabs(typed.value - expected.value);
  const double tolerance = 1e-4 * std::max(std::fabs(typed.value), std::fabs(expected.value)) +
                           4 * (typed.error + expected.error);
  const bool isWrong = gap > tolerance && isSteady(expected, gap, function, name, x, step) &&
                       gap > tolerance + 2 * swing(element, name, x, step, typed.value);
  std::string line;
  if (isWrong) {
    line.append("J[").append(std::to_string(i + 1)).append("][").append(std::to_string(j + 1));
    line.append("]: typed ").append(shownNumber(typed.value));
    line.append(", expected ").append(shownNumber(expected.value)).append("\n");
  }
  return line;
}

}  // namespace

std::string linesOnWrongElements(System& system, const std::vector<double>& point) {
  std::string lines;
  for (std::size_t i = 0; i < system.functions.size(); ++i) {
    for (std::size_t j = 0; j < system.functions.size(); ++j)
      lines += lineOnElement(system.functions[i], system.jacobian[i][j], point, i, j);
  }
  return lines;
}

}  // namespace nordika
