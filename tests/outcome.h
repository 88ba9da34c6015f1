// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TESTS_OUTCOME_H
#define NORDIKA_TESTS_OUTCOME_H

#include <sstream>
#include <string>

#include "nordika/solver.h"

/// How an action ends: with its result, all digits of it, or in which exception.
template <typename Action>
std::string outcomeOf(Action action) {
  try {
    std::ostringstream result;
    result.precision(17);
    result << action();
    return result.str();
  } catch (const ExpressionWrongFormat&) {
    return "format";
  } catch (const ExpressionBadResult&) {
    return "bad result";
  } catch (const ExpressionUnknownVariable& unknown) {
    return "unknown " + unknown.name;
  } catch (const MatrixIsSingular&) {
    return "singular";
  } catch (const MatrixWrongDimensions&) {
    return "dimensions";
  } catch (const MaxItersCountAchieved&) {
    return "limit";
  }
}

#endif
