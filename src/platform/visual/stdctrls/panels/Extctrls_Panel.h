// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_CustomControl.h"
#include "platform/visual/forms/Forms_Types.h"

namespace Extctrls
{

/// An area with edges and a caption that holds other controls. The border, the bevels and `BorderWidth` lie
/// within its client area: controls that are aligned keep clear of them.
///
///     auto* const panel = new Extctrls::TPanel(form);
///     panel->setParent(form);
///     panel->setAlign(Controls::alBottom);
///     panel->setBevelOuter(Controls::bvNone);
class TRS8_BTL_API TCustomPanel : public Controls::TCustomControl
{
    TRS8_BTL_CLASS(TCustomPanel, Controls::TCustomControl)

public:
    explicit TCustomPanel(Classes::TComponent* owner = nullptr);
    ~TCustomPanel() override;

    /// Where the caption stands; in the middle at first.
    Classes::TAlignment getAlignment() const noexcept { return mAlignment; }
    void setAlignment(Classes::TAlignment alignment) { Change(mAlignment, alignment); }
    Classes::TVerticalAlignment getVerticalAlignment() const noexcept { return mVerticalAlignment; }
    void setVerticalAlignment(Classes::TVerticalAlignment alignment)
    {
        Change(mVerticalAlignment, alignment);
    }
    /// Whether the caption is drawn; on at first.
    bool getShowCaption() const noexcept { return mShowCaption; }
    void setShowCaption(bool isOn) { Change(mShowCaption, isOn); }
    /// The edge inside of `BorderWidth`, none at first, and the one outside of it, raised at first.
    Controls::TBevelCut getBevelInner() const noexcept { return mBevelInner; }
    void setBevelInner(Controls::TBevelCut bevel) { Change(mBevelInner, bevel); }
    Controls::TBevelCut getBevelOuter() const noexcept { return mBevelOuter; }
    void setBevelOuter(Controls::TBevelCut bevel) { Change(mBevelOuter, bevel); }
    /// Pixels of each bevel, 1 at first; less counts as 1.
    int getBevelWidth() const noexcept { return mBevelWidth; }
    void setBevelWidth(int width);
    /// A frame around all of it, two pixels wide, or one without `Ctl3D`: `bsSingle`, or `bsNone` at first.
    Forms::TFormBorderStyle getBorderStyle() const noexcept { return mBorderStyle; }
    void setBorderStyle(Forms::TFormBorderStyle style) { Change(mBorderStyle, style); }
    /// Whether all of it is painted anew when its size changes, on at first, or only the caption.
    bool getFullRepaint() const noexcept { return mFullRepaint; }
    void setFullRepaint(bool isOn) noexcept { mFullRepaint = isOn; }
    /// Whether another program's object may put its own bars in its place. Kept for designs.
    bool getLocked() const noexcept { return mLocked; }
    void setLocked(bool isOn) noexcept { mLocked = isOn; }
    /// Whether the parent's ground may show through. Kept for designs: the panel fills itself with its
    /// colour.
    bool getParentBackground() const;
    void setParentBackground(bool isOn);

    void Dispatch(void* message) override;

protected:
    void Paint() override;
    void AdjustClientRect(Types::TRect& rect) override;
    void Resize() override;
    /// The size that holds all controls in it.
    bool CanAutoSize(int& width, int& height) override;

private:
    template <class Value>
    void Change(Value& member, Value value)
    {
        if (member != value) {
            member = value;
            EdgesChanged();
        }
    }
    void EdgesChanged();
    int GetFrameWidth() const;
    void PaintCaption(Types::TRect rect);

    int mBevelWidth = 1;
    Classes::TAlignment mAlignment = Classes::taCenter;
    Classes::TVerticalAlignment mVerticalAlignment = Classes::taVerticalCenter;
    Controls::TBevelCut mBevelInner = Controls::bvNone;
    Controls::TBevelCut mBevelOuter = Controls::bvRaised;
    Forms::TFormBorderStyle mBorderStyle = Forms::bsNone;
    bool mShowCaption = true;
    bool mFullRepaint = true;
    bool mLocked = false;
};

/// A panel, with all of it published.
class TRS8_BTL_API TPanel : public TCustomPanel
{
    TRS8_BTL_CLASS(TPanel, TCustomPanel)

public:
    using TCustomPanel::TCustomPanel;
    ~TPanel() override;
};

} // namespace Extctrls
