// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/controls/Controls_WinControl.h"
#include "platform/visual/controls/internal/Controls_Nesting.h"

#include <algorithm>

// Where a windowed control places what is in it.

namespace Controls
{

using Classes::TComponentWatch;
using Types::TRect;

namespace
{

/// Whether `a` comes before `b` at the edge that both fill: the nearer one to it.
bool IsNearer(TAlign align, const TControl* a, const TControl* b)
{
    const TRect one = a->getBoundsRect();
    const TRect other = b->getBoundsRect();
    switch (align) {
    case alTop:
        return one.Top < other.Top;
    case alBottom:
        return one.Bottom > other.Bottom;
    case alLeft:
        return one.Left < other.Left;
    case alRight:
        return one.Right > other.Right;
    default:
        return false;
    }
}

/// The bounds of a control at its edge of what is left of the room.
TRect PlaceAt(TAlign align, const TControl& control, const TRect& room)
{
    const TRect left{room.Left, room.Top, std::max(room.Right, room.Left), std::max(room.Bottom, room.Top)};
    const int width = control.getWidth();
    const int height = control.getHeight();
    switch (align) {
    case alTop:
        return {left.Left, left.Top, left.Right, left.Top + height};
    case alBottom:
        return {left.Left, left.Bottom - height, left.Right, left.Bottom};
    case alLeft:
        return {left.Left, left.Top, left.Left + width, left.Bottom};
    case alRight:
        return {left.Right - width, left.Top, left.Right, left.Bottom};
    default:
        return left;
    }
}

/// Takes from the room what the control now fills.
void TakeFrom(TRect& room, TAlign align, const TControl& control)
{
    switch (align) {
    case alTop:
        room.Top += control.getHeight();
        break;
    case alBottom:
        room.Bottom -= control.getHeight();
        break;
    case alLeft:
        room.Left += control.getWidth();
        break;
    case alRight:
        room.Right -= control.getWidth();
        break;
    default:
        break;
    }
}

} // namespace

/// One pass over the controls in a parent. Handlers of the sizes that it gives may destroy any of them.
class TWinControl::CAligner
{
public:
    CAligner(TWinControl& parent, TControl* first, const TRect& room)
        : mParent(parent), mWatch(&parent), mFirst(first), mRoom(room)
    {
    }

    void Run()
    {
        // Most controls stay where they are put, and many come one after the other: such a one moves nobody.
        const bool isFirstPlaced = mFirst == nullptr || mFirst->IsPlaced();
        if (mParent.mPlacedCount == 0 || !isFirstPlaced) {
            return;
        }
        for (const TAlign align : {alTop, alBottom, alLeft, alRight, alClient}) {
            for (TControl* control : Collect(align)) {
                PlaceAligned(align, control);
            }
        }
        for (TControl* control : Collect(alNone)) {
            PlaceAnchored(control);
        }
    }

private:
    std::vector<TControl*> Collect(TAlign align) const
    {
        std::vector<TControl*> found;
        if (!mWatch.IsAlive()) {
            return found;
        }
        for (int i = 0; i < mParent.GetControlCount(); ++i) {
            TControl* control = mParent.GetControl(i);
            if (control->getAlign() == align && control->IsPlaced() &&
                (align == alNone || control->getVisible())) {
                found.push_back(control);
            }
        }
        // Of two that are equally near, the one for whose sake it is done goes first.
        std::stable_partition(found.begin(), found.end(),
                              [this](const TControl* control) { return control == mFirst; });
        std::ranges::stable_sort(found, [align](TControl* a, TControl* b) { return IsNearer(align, a, b); });
        return found;
    }

    bool IsThere(const TControl* control) const { return mWatch.IsAlive() && mParent.HasChild(control); }

    void PlaceAligned(TAlign align, TControl* control)
    {
        if (!IsThere(control)) {
            return;
        }
        control->setBoundsRect(PlaceAt(align, *control, mRoom));
        if (IsThere(control)) {
            TakeFrom(mRoom, align, *control);
        }
    }

    void PlaceAnchored(TControl* control) const
    {
        if (IsThere(control)) {
            const TRect client = mParent.GetClientRect();
            control->setBoundsRect(control->GetAnchored(client.Width(), client.Height()));
        }
    }

    TWinControl& mParent;
    TComponentWatch mWatch;
    TControl* mFirst;
    TRect mRoom;
};

void TWinControl::AlignControls(TControl* control, TRect& rect)
{
    AdjustClientRect(rect);
    CAligner(*this, control, rect).Run();
}

void TWinControl::AdjustClientRect(TRect& rect)
{
    rect.Left += mBorderWidth;
    rect.Top += mBorderWidth;
    rect.Right -= mBorderWidth;
    rect.Bottom -= mBorderWidth;
}

void TWinControl::AlignControl(TControl* control)
{
    if (IsDestroying() || mIsAligning) {
        return;
    }
    if (mAlignLevel > 0 || IsLoading()) {
        setControlState(csAlignmentNeeded, true);
        return;
    }
    mAlignedFor = control;
    RunNested(*this, [](TWinControl& parent) { parent.AlignNow(); });
}

void TWinControl::AlignNow()
{
    setControlState(csAlignmentNeeded, false);
    const TComponentWatch watch(this);
    TRect rect = GetClientRect();
    mIsAligning = true;
    const auto end = [&] {
        if (watch.IsAlive()) {
            mIsAligning = false;
            mAlignedFor = nullptr;
        }
    };
    try {
        AlignControls(mAlignedFor, rect);
    } catch (...) {
        end();
        throw;
    }
    end();
}

void TWinControl::EnableAlign()
{
    if (mAlignLevel > 0 && --mAlignLevel == 0 && getControlState().Contains(csAlignmentNeeded)) {
        Realign();
    }
}

} // namespace Controls
