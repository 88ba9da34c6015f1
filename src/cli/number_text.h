// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_CLI_NUMBER_TEXT_H
#define NORDIKA_CLI_NUMBER_TEXT_H

#include <optional>
#include <string>
#include <string_view>

namespace nordika {

/// The finite number that the whole text is: a sign, digits with at most one point
/// among them, an exponent, in any locale. Nothing for other texts.
std::optional<double> readNumber(std::string_view text);

/// A finite number as the window shows it: six significant digits, 0 for minus
/// zero, halves rounded away from zero.
std::string shownNumber(double x);

}  // namespace nordika

#endif
