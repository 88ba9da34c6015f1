// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_FUZZ_OUTCOME_H
#define NORDIKA_FUZZ_OUTCOME_H

#include <bit>
#include <cstdint>
#include <string>

#include "nordika/expression.h"

/// Runs an action that returns a number. Returns the bits of the number or the
/// name of an exception. Any other exception ends the process.
template <typename Action>
std::string outcomeOf(Action action) {
  try {
    return std::to_string(std::bit_cast<std::uint64_t>(static_cast<double>(action())));
  } catch (const ExpressionWrongFormat&) {
    return "format";
  } catch (const ExpressionBadResult&) {
    return "bad result";
  } catch (const ExpressionUnknownVariable& unknown) {
    return "unknown " + unknown.name;
  }
}

#endif
