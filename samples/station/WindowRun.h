// SPDX-License-Identifier: MIT
#pragma once

#include "Options.h"
#include "Single.h"

namespace Station
{

/// Runs the station in a window until that is closed, with answers to later ones, or paints it into the file
/// that is asked for. False if no window can be shown here; that is told on the standard error stream.
/// `XBadSettings` if the settings make no sense, or no picture can be kept in that file.
bool RunWindow(const TOptions& options, CSingleStation& single);

} // namespace Station
