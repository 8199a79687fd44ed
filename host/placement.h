// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Where the panel opens.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace quode::host {

/// The frame of a popover that was requested at a point, such as the icon in a tray: in the middle above or below the
/// point, whichever side of the screen is larger, and wholly inside the screen.
/// @param wanted     its size; it gets less where the screen is smaller
/// @param pointer    the point on the screen; one outside counts as the nearest one inside
/// @param available  the area of the screen that windows may cover
QRect popoverFrame(QSize wanted, QPoint pointer, const QRect& available);

/// The frame of a popover that is open and wants another size: it grows to the right and downwards, so that nothing
/// moves away under the pointer, and only as far as the screen goes. It moves to the left where it would otherwise be
/// cut.
/// @param present  its frame
QRect grownFrame(const QRect& present, QSize wanted, const QRect& available);

/// The largest size that a window can have on a screen, with some room for its frame.
QSize largestWindow(const QRect& available);

}  // namespace quode::host
