// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TRACE_SIX_DIGITS_H
#define NORDIKA_TRACE_SIX_DIGITS_H

/// The room that writeSixDigits() needs. Its longest text, "-1.23457e-308", is
/// shorter: it writes more than it returns.
constexpr int kSixDigitsLength = 16;

/// Writes x as the C conversion "%g" does in the "C" locale: six significant
/// digits, exponent notation below 1e-4 and from 1e6 on, no trailing zeros;
/// "inf" and "nan" with their sign. `out` has room for kSixDigitsLength
/// characters; no terminator is written.
/// @return the place after the last character
char* writeSixDigits(char* out, double x);

/// The double nearest to the text that writeSixDigits() makes of x: what is
/// left of x after a trip through text of six significant digits. The sign of
/// zero stays; infinities and NaN are returned as they are.
double roundToSixDigits(double x);

#endif
