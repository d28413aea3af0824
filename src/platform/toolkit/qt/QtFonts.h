// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/Types.h"
#include "platform/toolkit/PaintTypes.h"

#include <QFont>

namespace Toolkits
{

/// The font that is taken for the data; fontconfig chooses one for a name that the host doesn't have. Those
/// of a design are kept ready. Of the main thread.
const QFont& ToQFont(const TFontData& data);

TTextMetrics MetricsOf(const TFontData& data);
/// As `Toolkit::TextExtent`; what is beyond any screen is measured by the average width.
Types::TSize ExtentOf(const TFontData& data, const System::UnicodeString& text);

} // namespace Toolkits
