// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_RUN_RUN_H
#define NORDIKA_RUN_RUN_H

#include <string>

#include "nordika/functions.h"

namespace nordika {

/// The value of the parameter a as an assignment text, "a = 0.4"; six digits.
std::string parameterText(double a);

/// Compiles a text of the user with the parameters bound. An empty text is the
/// constant 0.
/// @throws ExpressionWrongFormat for malformed text
Function compiled(const std::string& text, const std::string& parameters);

/// Tells why a calculation failed: by its line in the run log, which this writes,
/// and by the text for the user, which this returns. To be called while the
/// exception is handled.
std::string reportFailure();

}  // namespace nordika

#endif
