// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Buttons_SpeedButton.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/controls/Forms_Accelerator.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/buttons/internal/Buttons_Glyph.h"
#include "platform/visual/stdctrls/buttons/internal/Stdctrls_ButtonPainting.h"

#include <algorithm>
#include <utility>

namespace Buttons
{

using Classes::TComponentWatch;
using Classes::TShiftState;
using Controls::TMouseButton;
using Messages::TMessage;

System::TMetaClass* TSpeedButton::ClassRecord()
{
    using T = TSpeedButton;
    static System::TMetaClass* const record =
        Controls::PublishControl(System::GClassBuilder<T>(u"TSpeedButton"))
            // What a button that is down needs comes before that.
            .Property(u"AllowAllUp", &T::getAllowAllUp, &T::setAllowAllUp, {.defaultValue = 0})
            .Property(u"GroupIndex", &T::getGroupIndex, &T::setGroupIndex, {.defaultValue = 0})
            .Property(u"Down", &T::getDown, &T::setDown, {.defaultValue = 0})
            .Property(u"Caption", &T::getCaption, &T::setCaption)
            .Property(u"Flat", &T::getFlat, &T::setFlat, {.defaultValue = 0})
            .Property(u"Glyph", &T::getGlyph, &T::setGlyph)
            .Property(u"Layout", &T::getLayout, &T::setLayout, {.defaultValue = blGlyphLeft})
            .Property(u"Margin", &T::getMargin, &T::setMargin, {.defaultValue = -1})
            .Property(u"NumGlyphs", &T::getNumGlyphs, &T::setNumGlyphs, {.defaultValue = 1})
            .Property(u"Spacing", &T::getSpacing, &T::setSpacing, {.defaultValue = 4})
            .Property(u"Transparent", &T::getTransparent, &T::setTransparent, {.defaultValue = 1})
            .Build();
    return record;
}

TSpeedButton::TSpeedButton(Classes::TComponent* owner)
    : TGraphicControl(owner), mGlyph(std::make_unique<CButtonGlyph>())
{
    setControlStyle({Controls::csCaptureMouse, Controls::csDoubleClicks});
    ChangeColor(Graphics::clBtnFace);
    SetBounds(0, 0, 23, 22);
    mGlyph->setOnChange({this, &TSpeedButton::GlyphChanged});
}

TSpeedButton::~TSpeedButton()
{
    mGlyph->setOnChange({});
}

template <class T>
void TSpeedButton::Put(T& field, T value)
{
    if (field != value) {
        field = value;
        Invalidate();
    }
}

void TSpeedButton::setLayout(TButtonLayout layout)
{
    Put(mLayout, layout);
}

void TSpeedButton::setMargin(int margin)
{
    Put(mMargin, std::max(margin, -1));
}

void TSpeedButton::setSpacing(int spacing)
{
    Put(mSpacing, std::max(spacing, -1));
}

void TSpeedButton::setFlat(bool isOn)
{
    Put(mFlat, isOn);
}

void TSpeedButton::setTransparent(bool isOn)
{
    Put(mTransparent, isOn);
}

Graphics::TBitmap* TSpeedButton::getGlyph() const noexcept
{
    return mGlyph->Bitmap();
}

void TSpeedButton::setGlyph(Graphics::TBitmap* glyph)
{
    mGlyph->Assign(glyph);
    Invalidate();
}

TNumGlyphs TSpeedButton::getNumGlyphs() const noexcept
{
    return mGlyph->getParts();
}

void TSpeedButton::setNumGlyphs(TNumGlyphs count)
{
    mGlyph->setParts(std::clamp(count, 1, 4));
}

void TSpeedButton::GlyphChanged(System::TObject*)
{
    Invalidate();
}

void TSpeedButton::UpdateExclusive()
{
    if (mGroupIndex != 0 && getParent() != nullptr) {
        getParent()->Broadcast(CM_BUTTONPRESSED, static_cast<std::uintptr_t>(mGroupIndex),
                               reinterpret_cast<std::intptr_t>(this));
    }
}

void TSpeedButton::setGroupIndex(int group)
{
    if (group != mGroupIndex) {
        mGroupIndex = group;
        UpdateExclusive();
    }
}

void TSpeedButton::setAllowAllUp(bool isOn)
{
    if (isOn != mAllowAllUp) {
        mAllowAllUp = isOn;
        UpdateExclusive();
    }
}

void TSpeedButton::setDown(bool isDown)
{
    // A design may say so before it names the group.
    isDown = isDown && (mGroupIndex != 0 || IsLoading());
    if (isDown == mDown || (mDown && !mAllowAllUp)) {
        return;
    }
    mDown = isDown;
    mState = isDown ? bsExclusive : bsUp;
    Invalidate();
    if (isDown) {
        UpdateExclusive();
    }
}

void TSpeedButton::OtherPressed(const TMessage& message)
{
    const auto* const sender = reinterpret_cast<const TSpeedButton*>(message.LParam);
    if (sender == this || sender == nullptr || mGroupIndex == 0 ||
        message.WParam != static_cast<std::uintptr_t>(mGroupIndex)) {
        return;
    }
    if (sender->mDown && mDown) {
        mDown = false;
        mState = bsUp;
        Invalidate();
    }
    mAllowAllUp = sender->mAllowAllUp;
}

Toolkits::TWindowPart TSpeedButton::AsWindowPart() const
{
    Toolkits::TWindowPart part = TGraphicControl::AsWindowPart();
    part.kind = Toolkits::EPartKind::Button;
    part.isDown = mDown;
    if (const System::UnicodeString caption = Forms::WithoutAccel(GetText()); !caption.IsEmpty()) {
        part.text = caption;
    }
    return part;
}

void TSpeedButton::Loaded()
{
    TGraphicControl::Loaded();
    mDown = mDown && mGroupIndex != 0;
    mState = !getEnabled() ? bsDisabled : mDown ? bsExclusive : bsUp;
}

void TSpeedButton::Dispatch(void* record)
{
    auto& message = *static_cast<TMessage*>(record);
    switch (message.Msg) {
    case CM_BUTTONPRESSED:
        OtherPressed(message);
        return;
    case CM_DIALOGCHAR:
        if (Forms::IsAccel(static_cast<System::Word>(message.WParam), getCaption()) && getEnabled() &&
            getVisible() && getParent() != nullptr && getParent()->getShowing()) {
            message.Result = 1;
            Click();
            return;
        }
        break;
    case CM_MOUSEENTER:
    case CM_MOUSELEAVE:
        Put(mMouseInControl, message.Msg == CM_MOUSEENTER && getEnabled());
        break;
    case CM_ENABLEDCHANGED:
        mState = !getEnabled() ? bsDisabled : mDown ? bsExclusive : bsUp;
        break;
    case WM_LBUTTONDBLCLK: {
        const TComponentWatch watch(this);
        TGraphicControl::Dispatch(record);
        if (watch.IsAlive() && mDown) {
            DblClick();
        }
        return;
    }
    default:
        break;
    }
    TGraphicControl::Dispatch(record);
}

void TSpeedButton::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    const TComponentWatch watch(this);
    TGraphicControl::MouseDown(button, shift, x, y);
    if (!watch.IsAlive() || button != Controls::mbLeft || !getEnabled()) {
        return;
    }
    if (!mDown) {
        mState = bsDown;
        Invalidate();
    }
    mIsPressed = true;
}

void TSpeedButton::MouseMove(TShiftState shift, int x, int y)
{
    const TComponentWatch watch(this);
    TGraphicControl::MouseMove(shift, x, y);
    if (!watch.IsAlive() || !mIsPressed) {
        return;
    }
    const bool isInside = GetClientRect().Contains({x, y});
    Put(mState, mDown ? bsExclusive : isInside ? bsDown : bsUp);
}

void TSpeedButton::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    const TComponentWatch watch(this);
    TGraphicControl::MouseUp(button, shift, x, y);
    if (watch.IsAlive() && button == Controls::mbLeft && std::exchange(mIsPressed, false)) {
        LetGo(GetClientRect().Contains({x, y}));
    }
}

void TSpeedButton::LetGo(bool isInside)
{
    if (mGroupIndex == 0) {
        mState = bsUp;
    } else if (isInside) {
        setDown(!mDown);
    }
    mState = mDown ? bsExclusive : bsUp;
    Invalidate();
    if (isInside) {
        Click();
    }
}

void TSpeedButton::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    const Types::TRect client = GetClientRect();
    const bool isDown = mState == bsDown || mState == bsExclusive;
    Stdctrls::CButtonPainter painter(*this, canvas);
    painter.Face(client, {.isDown = isDown,
                          .hasEdge = !mFlat || (mMouseInControl && getEnabled()),
                          .isFilled = !mTransparent || !mFlat});
    canvas.setFont(const_cast<Graphics::TFont*>(&GetShownFont()));
    mGlyph->Draw(*this, canvas, client, {mLayout, mMargin, mSpacing}, mState, false);
}

} // namespace Buttons
