// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_SCREEN_SCALE_H
#define NORDIKA_APP_SCREEN_SCALE_H

namespace nordika {

/// Makes Qt 5 scale all of a window by the resolution that the user has set for the
/// X server (Xft.dpi), as Qt 6 does: 1.25 at 120 dots per inch. Where none is set, the
/// scale is 1, whatever size the display reports. Variables of the environment that
/// set a scale keep their meaning. Call it once, before QApplication is constructed.
void followChosenResolution();

}  // namespace nordika

#endif
