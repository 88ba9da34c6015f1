// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_TRACE_FIXED_DECIMALS_H
#define NORDIKA_TRACE_FIXED_DECIMALS_H

/// The room that writeFixed() needs: the largest double has 309 digits before
/// the point.
constexpr int kFixedLength = 400;

/// Writes x as the C conversion "%<width>.<decimals>f" does in the "C" locale.
/// @param out room for kFixedLength characters; no terminator is written
/// @param width at most 16
/// @param decimals 1 to 8
/// @return the place after the last character
char* writeFixed(char* out, double x, int width, int decimals);

#endif
