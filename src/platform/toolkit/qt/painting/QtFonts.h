// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/Types.h"
#include "platform/toolkit/PaintTypes.h"

#include <QFont>

namespace Toolkits
{

/// A font with what each use of it asks for; Qt looks the measures up anew at each question.
struct TQtFont
{
    QFont font;
    TTextMetrics metrics;
};

/// The font that is taken for the data; fontconfig chooses one for a name that the host doesn't have. Those
/// of a design are kept ready; the reference is good up to the next call. Of the main thread.
const TQtFont& ReadyFont(const TFontData& data);

/// As `ReadyFont`, the font alone.
inline const QFont& ToQFont(const TFontData& data)
{
    return ReadyFont(data).font;
}

inline const TTextMetrics& MetricsOf(const TFontData& data)
{
    return ReadyFont(data).metrics;
}

/// As `Toolkit::TextExtent`; what is beyond any screen is measured by the average width.
Types::TSize ExtentOf(const TFontData& data, const System::UnicodeString& text);

} // namespace Toolkits
