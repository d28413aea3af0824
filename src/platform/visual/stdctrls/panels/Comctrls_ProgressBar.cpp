// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Comctrls_ProgressBar.h"

#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/internal/Extctrls_TickWhile.h"
#include "platform/visual/stdctrls/panels/Extctrls_Frame3D.h"

#include <algorithm>

namespace Typinfo
{

TTypeInfo GEnumType<Comctrls::TProgressBarOrientation>::Make()
{
    return EnumType(u"TProgressBarOrientation", {u"pbHorizontal", u"pbVertical"});
}

TTypeInfo GEnumType<Comctrls::TProgressBarStyle>::Make()
{
    return EnumType(u"TProgressBarStyle", {u"pbstNormal", u"pbstMarquee"});
}

TTypeInfo GEnumType<Comctrls::TProgressBarState>::Make()
{
    return EnumType(u"TProgressBarState", {u"pbsNormal", u"pbsError", u"pbsPaused"});
}

} // namespace Typinfo

namespace Comctrls
{

using Graphics::TColor;
using Types::TRect;
using Long = long long;

namespace
{

/// One that is longer than all screens is drawn in one piece.
constexpr int MostBlocks = 10'000;

} // namespace

System::TMetaClass* TProgressBar::ClassRecord()
{
    static System::TMetaClass* const record =
        Controls::PublishFocus(Controls::PublishControl(System::GClassBuilder<TProgressBar>(u"TProgressBar")),
                               false)
            .Property(u"BackgroundColor", &TProgressBar::getBackgroundColor,
                      &TProgressBar::setBackgroundColor, {.defaultValue = Graphics::clDefault})
            .Property(u"BarColor", &TProgressBar::getBarColor, &TProgressBar::setBarColor,
                      {.defaultValue = Graphics::clDefault})
            .Property(u"MarqueeInterval", &TProgressBar::getMarqueeInterval,
                      &TProgressBar::setMarqueeInterval, {.defaultValue = 10})
            .Property(u"Max", &TProgressBar::getMax, &TProgressBar::setMax, {.defaultValue = 100})
            .Property(u"Min", &TProgressBar::getMin, &TProgressBar::setMin, {.defaultValue = 0})
            .Property(u"Orientation", &TProgressBar::getOrientation, &TProgressBar::setOrientation,
                      {.defaultValue = pbHorizontal})
            .Property(u"Position", &TProgressBar::getPosition, &TProgressBar::setPosition,
                      {.defaultValue = 0})
            .Property(u"Smooth", &TProgressBar::getSmooth, &TProgressBar::setSmooth, {.defaultValue = 0})
            .Property(u"SmoothReverse", &TProgressBar::getSmoothReverse, &TProgressBar::setSmoothReverse,
                      {.defaultValue = 0})
            .Property(u"State", &TProgressBar::getState, &TProgressBar::setState, {.defaultValue = pbsNormal})
            .Property(u"Step", &TProgressBar::getStep, &TProgressBar::setStep, {.defaultValue = 10})
            .Property(u"Style", &TProgressBar::getStyle, &TProgressBar::setStyle,
                      {.defaultValue = pbstNormal})
            .Build();
    return record;
}

TProgressBar::TProgressBar(Classes::TComponent* owner) : TCustomControl(owner)
{
    setControlStyle({Controls::csDoubleClicks, Controls::csOpaque});
    SetBounds(0, 0, 150, 17);
}

TProgressBar::~TProgressBar() = default;

void TProgressBar::CreateParams(Controls::TCreateParams& params)
{
    TCustomControl::CreateParams(params);
    params.Kind = Toolkits::EWindowKind::ProgressBar;
}

void TProgressBar::CreateWnd()
{
    TCustomControl::CreateWnd();
    ShowProgress();
}

void TProgressBar::ShowProgress()
{
    if (GetWindow() == nullptr) {
        return;
    }
    const bool isGroundOwn = mBackgroundColor != Graphics::clDefault;
    GetWindow()->SetProgress(
        {.min = mMin,
         .max = mMax,
         .position = mPosition,
         .isVertical = mOrientation == pbVertical,
         .isWandering = mStyle == pbstMarquee,
         .bar = Graphics::ColorToPixel(GetShownBarColor()),
         .ground = Graphics::ColorToPixel(isGroundOwn ? mBackgroundColor : Graphics::clBtnFace)});
}

void TProgressBar::SetRange(int min, int max)
{
    // While a design is read, the other limit may not be there yet.
    if (min > max && !IsLoading()) {
        throw Classes::EInvalidOperation(u"The minimum " + System::UnicodeString(min) +
                                         u" of a progress bar is above its maximum " +
                                         System::UnicodeString(max));
    }
    Change(mMin, min);
    Change(mMax, max);
    setPosition(mPosition);
}

void TProgressBar::setPosition(int position)
{
    Change(mPosition, IsLoading() ? position : std::clamp(position, mMin, mMax));
}

void TProgressBar::StepIt()
{
    const Long next = Long{mPosition} + mStep;
    const Long span = Long{mMax} - mMin;
    if (next >= mMin && next <= mMax) {
        setPosition(static_cast<int>(next));
    } else if (span > 0) {
        setPosition(static_cast<int>(mMin + ((next - mMin) % span + span) % span));
    }
}

void TProgressBar::StepBy(int delta)
{
    setPosition(static_cast<int>(std::clamp<Long>(Long{mPosition} + delta, mMin, mMax)));
}

void TProgressBar::setStyle(TProgressBarStyle style)
{
    Change(mStyle, style);
    UpdateMarquee();
}

void TProgressBar::setMarqueeInterval(unsigned milliseconds)
{
    mMarqueeInterval = milliseconds;
    UpdateMarquee();
}

void TProgressBar::Loaded()
{
    TCustomControl::Loaded();
    mMax = std::max(mMin, mMax);
    setPosition(mPosition);
    UpdateMarquee();
}

void TProgressBar::UpdateMarquee()
{
    const bool isMoving = mStyle == pbstMarquee && getShowing() && !IsDesigning();
    Extctrls::TickWhile(isMoving, mTimer, mMarqueeInterval, {this, &TProgressBar::MarqueeTick});
}

void TProgressBar::MarqueeTick(System::TObject*)
{
    ++mMarqueeMoves;
    Invalidate();
}

void TProgressBar::Dispatch(void* record)
{
    TCustomControl::Dispatch(record);
    if (static_cast<Messages::TMessage*>(record)->Msg == CM_SHOWINGCHANGED) {
        UpdateMarquee();
    }
}

TColor TProgressBar::GetShownBarColor() const
{
    if (mBarColor != Graphics::clDefault) {
        return mBarColor;
    }
    constexpr TColor ofStates[] = {Graphics::clHighlight, Graphics::clRed, Graphics::clYellow};
    return ofStates[mState];
}

TRect TProgressBar::GetPart(const TRect& room, int begin, int length) const
{
    if (mOrientation == pbHorizontal) {
        return {room.Left + begin, room.Top, room.Left + begin + length, room.Bottom};
    }
    return {room.Left, room.Bottom - begin - length, room.Right, room.Bottom - begin};
}

TRect TProgressBar::GetFilled(const TRect& room) const
{
    const Long length = std::max(mOrientation == pbHorizontal ? room.Width() : room.Height(), 0);
    if (mStyle == pbstMarquee) {
        const Long block = length / 4;
        const Long begin = mMarqueeMoves % std::max(length - block, 1LL);
        return GetPart(room, static_cast<int>(begin), static_cast<int>(block));
    }
    const Long span = Long{mMax} - mMin;
    const Long done = Long{mPosition} - mMin;
    // A position is up to 32 bits of the span and a length up to 30.
    return GetPart(room, 0, span > 0 ? static_cast<int>(done * length / span) : 0);
}

void TProgressBar::PaintBlocks(const TRect& filled)
{
    const bool isAcross = mOrientation == pbHorizontal;
    const int block = std::max((isAcross ? filled.Height() : filled.Width()) * 2 / 3, 4);
    const int length = isAcross ? filled.Width() : filled.Height();
    if (length / block > MostBlocks) {
        return getCanvas()->FillRect(filled);
    }
    for (int begin = 0; begin < length; begin += block + 2) {
        getCanvas()->FillRect(GetPart(filled, begin, std::min(block, length - begin)));
    }
}

void TProgressBar::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    TRect room = GetClientRect();
    const bool isGroundOwn = mBackgroundColor != Graphics::clDefault;
    canvas.getBrush()->setColor(isGroundOwn ? mBackgroundColor : Graphics::clBtnFace);
    canvas.FillRect(room);
    Extctrls::Frame3D(&canvas, room, Graphics::clBtnShadow, Graphics::clBtnHighlight, 1);
    canvas.getBrush()->setColor(GetShownBarColor());
    const TRect filled = GetFilled({room.Left + 1, room.Top + 1, room.Right - 1, room.Bottom - 1});
    if (filled.Width() <= 0 || filled.Height() <= 0) {
        return;
    }
    if (mSmooth || mStyle == pbstMarquee) {
        canvas.FillRect(filled);
    } else {
        PaintBlocks(filled);
    }
}

} // namespace Comctrls
