// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"
#include "platform/toolkit/WindowItems.h"

namespace Toolkits
{

class PaintDevice;

/// Items of a combo box that its control may draw, rather than have the window show their texts. A call that
/// draws may raise, and may destroy the control and the window.
class TRS8_BTL_API DrawnItems : public WindowItems
{
public:
    ~DrawnItems() override;

    /// Whether the control draws them; while it doesn't, nothing else here is called.
    virtual bool AreItemsDrawn() const = 0;
    /// Of an item in the open list, in pixels.
    virtual int GetItemHeight(int index) const = 0;
    /// Draws an item of the open list within `bounds`.
    virtual void PaintItem(PaintDevice& device, int index, const Types::TRect& bounds,
                           bool isChosen) const = 0;
    /// Draws what the field of the box shows within `bounds`.
    virtual void PaintField(PaintDevice& device, const Types::TRect& bounds) const = 0;
};

} // namespace Toolkits
