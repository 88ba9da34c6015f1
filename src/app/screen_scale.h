// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_APP_SCREEN_SCALE_H
#define NORDIKA_APP_SCREEN_SCALE_H

class QSize;

namespace nordika {

/// How many tenths of its size the window is to have: for 144 dots per inch 15, for 120
/// of them 12, but no more than the room on the screen allows, and no less than 10. At
/// tenths all lines of the frames are drawn, at 1.25 some are not.
/// @param resolution in dots per inch; 0 where none is set
/// @param room in pixels of the screen, for the window with its title and border
int scaleInTenths(double resolution, const QSize& room);

/// Scales all of the window by the resolution that the resources of the X server name
/// (Xft.dpi), and in no other way, on Qt 6 as on Qt 5. Where none is named, the scale is
/// 1, whatever size the display reports. If a variable of the environment sets a scale, Qt
/// follows it and the resolution. Call it once, before QApplication is constructed.
void followChosenResolution();

}  // namespace nordika

#endif
