// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/visual/controls/Controls_CustomControl.h"

namespace Extctrls
{
class TTimer;
} // namespace Extctrls

namespace Comctrls
{

/// The direction in which a bar grows: to the right, or upwards.
enum TProgressBarOrientation
{
    pbHorizontal,
    pbVertical
};

/// Whether a bar shows its position, or a block that wanders while nobody knows how far things are.
enum TProgressBarStyle
{
    pbstNormal,
    pbstMarquee
};

/// How things are going, which a bar shows in its colour.
enum TProgressBarState
{
    pbsNormal,
    pbsError,
    pbsPaused
};

/// How far a long operation is.
///
///     bar->setMax(count);
///     for (int i = 0; i < count; ++i) { bar->setPosition(i + 1); }
class TRS8_BTL_API TProgressBar : public Controls::TCustomControl
{
    TRS8_BTL_CLASS(TProgressBar, Controls::TCustomControl)

public:
    explicit TProgressBar(Classes::TComponent* owner = nullptr);
    ~TProgressBar() override;

    /// 0 and 100 at first. A minimum above the maximum raises `Classes::EInvalidOperation`, and then nothing
    /// changes. The position is held between the two.
    int getMin() const noexcept { return mMin; }
    void setMin(int min) { SetRange(min, mMax); }
    int getMax() const noexcept { return mMax; }
    void setMax(int max) { SetRange(mMin, max); }
    /// Both at once.
    void SetRange(int min, int max);
    /// Held between minimum and maximum.
    int getPosition() const noexcept { return mPosition; }
    void setPosition(int position);
    /// What `StepIt` adds, 10 at first.
    int getStep() const noexcept { return mStep; }
    void setStep(int step) noexcept { mStep = step; }
    /// Adds `Step`; beyond an end the bar begins anew at the other one.
    void StepIt();
    /// Adds `delta`, up to an end.
    void StepBy(int delta);

    TProgressBarOrientation getOrientation() const noexcept { return mOrientation; }
    void setOrientation(TProgressBarOrientation orientation) { Change(mOrientation, orientation); }
    /// Whether the bar grows by pixels rather than by blocks; off at first.
    bool getSmooth() const noexcept { return mSmooth; }
    void setSmooth(bool isOn) { Change(mSmooth, isOn); }
    bool getSmoothReverse() const noexcept { return mSmoothReverse; }
    void setSmoothReverse(bool isOn) { Change(mSmoothReverse, isOn); }
    TProgressBarStyle getStyle() const noexcept { return mStyle; }
    void setStyle(TProgressBarStyle style);
    /// Milliseconds from move to move of the wandering block, 10 at first; 0 lets it stand.
    unsigned getMarqueeInterval() const noexcept { return mMarqueeInterval; }
    void setMarqueeInterval(unsigned milliseconds);
    TProgressBarState getState() const noexcept { return mState; }
    void setState(TProgressBarState state) { Change(mState, state); }
    /// The colours of the bar and of its ground; `clDefault` leaves them to the state and the form.
    Graphics::TColor getBarColor() const noexcept { return mBarColor; }
    void setBarColor(Graphics::TColor color) { Change(mBarColor, color); }
    Graphics::TColor getBackgroundColor() const noexcept { return mBackgroundColor; }
    void setBackgroundColor(Graphics::TColor color) { Change(mBackgroundColor, color); }

    void Dispatch(void* record) override;
    void Loaded() override;

protected:
    void CreateParams(Controls::TCreateParams& params) override;
    void CreateWnd() override;
    void Paint() override;

private:
    template <class Value>
    void Change(Value& member, Value value)
    {
        if (member != value) {
            member = value;
            ShowProgress();
            Invalidate();
        }
    }
    /// The window has to show what the bar does.
    void ShowProgress();
    void MarqueeTick(System::TObject* sender);
    void UpdateMarquee();
    Graphics::TColor GetShownBarColor() const;
    /// What the bar fills of the room along its direction.
    Types::TRect GetFilled(const Types::TRect& room) const;
    /// The part of the room from `begin` on, `length` long, along its direction.
    Types::TRect GetPart(const Types::TRect& room, int begin, int length) const;
    void PaintBlocks(const Types::TRect& filled);

    int mMin = 0;
    int mMax = 100;
    int mPosition = 0;
    int mStep = 10;
    unsigned mMarqueeInterval = 10;
    /// How far the wandering block is, in moves.
    unsigned mMarqueeMoves = 0;
    Graphics::TColor mBarColor = Graphics::clDefault;
    Graphics::TColor mBackgroundColor = Graphics::clDefault;
    TProgressBarOrientation mOrientation = pbHorizontal;
    TProgressBarStyle mStyle = pbstNormal;
    TProgressBarState mState = pbsNormal;
    bool mSmooth = false;
    bool mSmoothReverse = false;
    System::GOwner<Extctrls::TTimer> mTimer;
};

} // namespace Comctrls

namespace Typinfo
{

// The enumerations of a progress bar, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Comctrls::TProgressBarOrientation>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Comctrls::TProgressBarStyle>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Comctrls::TProgressBarState>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
