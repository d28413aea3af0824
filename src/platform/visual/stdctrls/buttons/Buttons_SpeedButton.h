// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_CustomControl.h"
#include "platform/visual/stdctrls/buttons/Buttons_Types.h"

namespace Graphics
{
class TBitmap;
} // namespace Graphics

namespace Buttons
{

class CButtonGlyph;

/// A small button without a window, for bars of tools: it can't have the focus. Those of one group in one
/// parent stay down, one at a time.
///
///     auto* const zoom = new Buttons::TSpeedButton(form);
///     zoom->setParent(toolPanel);
///     zoom->setGroupIndex(1);
///     zoom->setAllowAllUp(true);                                  // a second click lets it up again
class TRS8_BTL_API TSpeedButton : public Controls::TGraphicControl
{
    TRS8_BTL_CLASS(TSpeedButton, Controls::TGraphicControl)

public:
    explicit TSpeedButton(Classes::TComponent* owner = nullptr);
    ~TSpeedButton() override;

    void Dispatch(void* message) override;

    /// 0, which is first, for a button that doesn't stay down; any other number is its group.
    int getGroupIndex() const noexcept { return mGroupIndex; }
    void setGroupIndex(int group);
    /// Whether it stays down. Without a group it can't; the only one that is down can't be let up unless all
    /// may be.
    bool getDown() const noexcept { return mDown; }
    void setDown(bool isDown);
    /// Whether all buttons of the group may be up; off at first. It holds for the group.
    bool getAllowAllUp() const noexcept { return mAllowAllUp; }
    void setAllowAllUp(bool isOn);
    /// Whether the edge is seen only while the mouse is over it or it is down; off at first.
    bool getFlat() const noexcept { return mFlat; }
    void setFlat(bool isOn);
    /// Whether what is below shows through; on at first.
    bool getTransparent() const noexcept { return mTransparent; }
    void setTransparent(bool isOn);
    /// The picture, whose lower left pixel's colour lets through what is below. The button owns it; writing
    /// copies.
    Graphics::TBitmap* getGlyph() const noexcept;
    void setGlyph(Graphics::TBitmap* glyph);
    /// How many pictures, side by side, the glyph has: for a usual, disabled, pressed and held button, 1 to
    /// 4. A glyph that is a whole number of times as wide as high sets it.
    TNumGlyphs getNumGlyphs() const noexcept;
    void setNumGlyphs(TNumGlyphs count);
    TButtonLayout getLayout() const noexcept { return mLayout; }
    void setLayout(TButtonLayout layout);
    /// Pixels between the edge and what comes first; -1, which is first, puts it into the middle.
    int getMargin() const noexcept { return mMargin; }
    void setMargin(int margin);
    /// Pixels between picture and caption, 4 at first; -1 leaves the caption in the middle of the rest.
    int getSpacing() const noexcept { return mSpacing; }
    void setSpacing(int spacing);
    /// Whether the mouse is over it.
    bool getMouseInControl() const noexcept { return mMouseInControl; }

    /// A button, by its caption or else its hint.
    Toolkits::TWindowPart AsWindowPart() const override;
    void Loaded() override;

protected:
    void MouseDown(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y) override;
    void MouseMove(Classes::TShiftState shift, int x, int y) override;
    void MouseUp(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y) override;
    void Paint() override;
    /// What is drawn.
    TButtonState getState() const noexcept { return mState; }

private:
    void GlyphChanged(System::TObject* sender);
    void LetGo(bool isInside);
    /// Lets the other buttons of the group know.
    void UpdateExclusive();
    void OtherPressed(const Messages::TMessage& message);
    template <class T>
    void Put(T& field, T value);

    std::unique_ptr<CButtonGlyph> mGlyph;
    int mGroupIndex = 0;
    int mMargin = -1;
    int mSpacing = 4;
    TButtonLayout mLayout = blGlyphLeft;
    TButtonState mState = bsUp;
    bool mDown = false;
    bool mAllowAllUp = false;
    bool mFlat = false;
    bool mTransparent = true;
    bool mIsPressed = false;
    bool mMouseInControl = false;
};

} // namespace Buttons
