// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintTypes.h"

#include <string_view>

namespace Toolkits
{

/// The measures of a font that exists in a table only, so that they are the same on each machine. They come
/// from the height, the pitch and whether it is bold; the name tells the pitch where that isn't given.
class CFontTable
{
public:
    explicit CFontTable(const TFontData& font);

    TTextMetrics Metrics() const;
    /// Pixels that the unit takes; the second one of a surrogate pair and marks above others take none.
    int Advance(System::WideChar unit) const;
    /// The sum of the advances, held to what an `int` has.
    int Width(std::u16string_view text) const;

private:
    int mEm;
    int mLeading;
    int mBold;
    bool mIsFixed;
};

} // namespace Toolkits
