// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

namespace Toolkits
{

/// Raises `std::runtime_error`, which tells why, where Qt can show no windows. It would end the program
/// itself: at a display that can't be reached, and at an application object of the program's own that has
/// none.
void RequireDisplay();

/// To be called once there is an application object, for `HasLostDisplay`. From then on the loss of a Wayland
/// compositor ends the program by `exit`, as that of an X server does.
void WatchDisplay();

/// Whether the X server or the compositor that the windows are on has ended or cut the program off. False on
/// other platforms, which don't tell.
bool HasLostDisplay();

/// All screens together. While there is none, as when the last one was just taken away, that of a usual one.
QRect DesktopGeometry();
/// As `DesktopGeometry`, but the first one.
QRect FirstScreenGeometry();

} // namespace Toolkits
