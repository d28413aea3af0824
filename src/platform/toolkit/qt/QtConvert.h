// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/Types.h"
#include "platform/toolkit/PaintTypes.h"

#include <QPoint>
#include <QRect>
#include <QRgb>
#include <QString>

namespace Toolkits
{

/// A line that is longer than this fits no screen, and takes Qt longer to lay out than anybody waits.
inline constexpr int MostLineUnits = 1 << 15;

/// Texts with all their units, zeros and lone surrogates among them.
inline QString ToQString(const System::UnicodeString& text)
{
    const std::u16string_view units = text.AsView();
    return QString(reinterpret_cast<const QChar*>(units.data()), static_cast<qsizetype>(units.size()));
}

/// The units as a text that shares them, and so must not outlive them.
inline QString ViewOf(std::u16string_view units)
{
    return QString::fromRawData(reinterpret_cast<const QChar*>(units.data()),
                                static_cast<qsizetype>(units.size()));
}

inline System::UnicodeString FromQString(const QString& text)
{
    return System::UnicodeString(std::u16string_view(reinterpret_cast<const char16_t*>(text.constData()),
                                                     static_cast<std::size_t>(text.size())));
}

inline Types::TPoint FromQPoint(const QPoint& point)
{
    return {point.x(), point.y()};
}

inline Types::TRect FromQRect(const QRect& rect)
{
    return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}

inline QRect ToQRect(const Types::TRect& rect)
{
    return {rect.Left, rect.Top, rect.Width(), rect.Height()};
}

/// As of `TEditTraits`: 0 at the left, 1 at the right, 2 in the middle. The sides are those of the screen,
/// whichever way the text is read.
inline Qt::Alignment ToQtAlignment(int alignment)
{
    return alignment == 2 ? Qt::AlignHCenter
                          : Qt::AlignAbsolute | (alignment == 1 ? Qt::AlignRight : Qt::AlignLeft);
}

// Colours are the same numbers here and there.
static_assert(sizeof(QRgb) == sizeof(TPixel) && QRgb(0xFF000000U) == OpaquePixel(0, 0, 0));

} // namespace Toolkits
