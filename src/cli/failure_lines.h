// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_FAILURE_LINES_H
#define NORDIKA_CLI_FAILURE_LINES_H

#include <string>

#include "run/run.h"

namespace nordika {

/// The name of a text: "functions[2]", "jacobian[1][2]".
std::string nameOf(const TextPlace& place);

/// A line, without its end, that names the text to blame; where it has no value, also the
/// approximation; otherwise its first character that the language lacks. Empty where no
/// single text is to blame.
std::string lineOnText(const Failure& failure);

/// A line, without its end, for a run that ended at its limit of iterations. Empty if the
/// smallest estimate came in the last half of them: the estimates still fell.
std::string lineOnEstimates(const Problem& problem, const Course& course);

}  // namespace nordika

#endif
