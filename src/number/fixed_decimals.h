// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_NUMBER_FIXED_DECIMALS_H
#define NORDIKA_NUMBER_FIXED_DECIMALS_H

namespace nordika::detail {

/// The room that writeFixed() needs. The largest double has 309 digits before
/// the point.
inline constexpr int kFixedLength = 330;

/// Writes x as the C conversion "%<width>.<decimals>f" does in the "C" locale.
/// @param out room for kFixedLength characters; no terminator is written
/// @param width at most 16
/// @param decimals 1 to 6
/// @return the place after the last character
char* writeFixed(char* out, double x, int width, int decimals);

}  // namespace nordika::detail

#endif
