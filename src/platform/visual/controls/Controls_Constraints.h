// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Persistent.h"

namespace Controls
{

class TControl;

/// The limits of a control's size in pixels; 0 means none. A maximum below its minimum counts as the minimum.
///
///     control->getConstraints()->setMinWidth(200);                // wider at once, if it has to be
class TRS8_BTL_API TSizeConstraints : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TSizeConstraints, Classes::TPersistent)

public:
    explicit TSizeConstraints(TControl* control = nullptr) noexcept : mControl(control) {}
    ~TSizeConstraints() override;

    int getMinWidth() const noexcept { return mMinWidth; }
    int getMinHeight() const noexcept { return mMinHeight; }
    int getMaxWidth() const noexcept { return mMaxWidth; }
    int getMaxHeight() const noexcept { return mMaxHeight; }
    /// A negative value counts as 0. The control takes a size within the limits at once.
    void setMinWidth(int width) { Change(mMinWidth, width); }
    void setMinHeight(int height) { Change(mMinHeight, height); }
    void setMaxWidth(int width) { Change(mMaxWidth, width); }
    void setMaxHeight(int height) { Change(mMaxHeight, height); }

    void Assign(Classes::TPersistent* source) override;

private:
    void Change(int& limit, int value);
    void Apply();

    TControl* mControl;
    int mMinWidth = 0;
    int mMinHeight = 0;
    int mMaxWidth = 0;
    int mMaxHeight = 0;
};

} // namespace Controls
