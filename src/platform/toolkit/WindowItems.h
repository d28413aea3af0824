// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/toolkit/PaintTypes.h"

namespace Toolkits
{

/// The mark of a box that is checked, or neither checked nor unchecked. The numbers are those of a control's
/// state.
enum class ECheck
{
    Unchecked,
    Checked,
    Grayed
};

/// The items of a list, a check list or a combo box as their control has them: a window that shows them reads
/// them here and keeps nothing of its own that could differ. Indexes are within the count.
class TRS8_BTL_API WindowItems
{
public:
    virtual ~WindowItems();

    /// How many items there are now.
    virtual int GetItemCount() const = 0;
    /// What an item shows.
    virtual System::UnicodeString GetItemText(int index) const = 0;
    /// Of a check list.
    virtual ECheck GetItemCheck(int index) const;
    /// Whether the user can check the item; of a check list.
    virtual bool IsItemEnabled(int index) const;
    /// Whether the item is a heading without a box; of a check list.
    virtual bool IsItemHeader(int index) const;
    /// Whether the item is chosen; of a list.
    virtual bool IsItemChosen(int index) const;
};

/// How a list shows its items.
struct TListTraits
{
    /// Of each item, in pixels.
    int itemHeight = 16;
    /// What the box in front of an item takes, with what is empty behind it; 0 for a list without boxes.
    int boxWidth = 0;
    /// How much of the width can be moved to sight, by a bar below the items; 0 for no more than there is.
    int scrollWidth = 0;
    /// Whether several items can be chosen.
    bool isMultiple = false;
    bool hasBorder = true;
    /// Whether items begin at the right.
    bool isFromRight = false;
    TPixel headerText = OpaquePixel(0, 0, 0);
    TPixel headerGround = OpaquePixel(255, 255, 255);

    friend bool operator==(const TListTraits&, const TListTraits&) = default;
};

/// How a combo box behaves.
struct TComboTraits
{
    /// Whether the user can type a text that is no item's.
    bool isEditable = true;
    /// Most items that are seen at once in the open list.
    int dropDownCount = 8;
    /// Most characters that the user can bring the text to; 0 is no limit.
    int maxLength = 0;
};

} // namespace Toolkits
