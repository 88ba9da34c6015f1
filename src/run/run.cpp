// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "run.h"

#include <cstdio>

#include "messages.h"
#include "nordika/solver.h"
#include "nordika/trace.h"

namespace nordika {

namespace {

// The details follow their texts.
std::string report(const messages::Failure& failure, const std::string& loggedDetail = {},
                   const std::string& shownDetail = {}) {
  Trace() << "Error: " << failure.logged << loggedDetail << "\n\n";
  return failure.shown + shownDetail;
}

}  // namespace

std::string parameterText(double a) {
  char text[32];
  std::snprintf(text, sizeof text, "a = %lg", a);
  return text;
}

Function compiled(const std::string& text, const std::string& parameters) {
  return {text.empty() ? "0" : text, parameters};
}

std::string reportFailure() {
  try {
    throw;
  } catch (const ExpressionWrongFormat&) {
    return report(messages::kWrongFormat);
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

}  // namespace nordika
