// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_Control.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/controls/Controls_Thread.h"
#include "platform/visual/controls/Controls_WinControl.h"
#include "platform/visual/controls/internal/Controls_Forget.h"
#include "platform/visual/controls/internal/Controls_Hint.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "platform/visual/graphics/Graphics_TextFormat.h"
#include "platform/visual/menus/Menus.h"

#include <algorithm>
#include <limits>

namespace Controls
{

using Classes::TComponentWatch;
using Classes::TShiftState;
using Messages::TMessage;
using System::UnicodeString;
using Types::TPoint;
using Types::TRect;

namespace
{

/// Sizes are held within this, so that sums of them don't overflow.
constexpr int MostPixels = std::numeric_limits<int>::max() / 4;

int AsPlace(int value) noexcept
{
    return std::clamp(value, -MostPixels, MostPixels);
}

int AsSize(int value) noexcept
{
    return std::clamp(value, 0, MostPixels);
}

/// `size` within limits of which 0 is none; the lower one counts more.
int Limit(int size, int least, int most) noexcept
{
    const int limited = most > 0 ? std::min(size, most) : size;
    return std::max(limited, least);
}

constinit TControl* captureControl = nullptr;

/// Never destroyed: controls of static lifetime may look at it last.
const Graphics::TFont& DefaultFont()
{
    static const auto& font = *new Graphics::TFont;
    return font;
}

bool Contains(const TRect& rect, TPoint place) noexcept
{
    return place.X >= rect.Left && place.X < rect.Right && place.Y >= rect.Top && place.Y < rect.Bottom;
}

/// A place beside another one, held within what a number without an overflow of its negative can be.
int Sum(int a, int b)
{
    constexpr int most = std::numeric_limits<int>::max();
    const auto sum = static_cast<long long>(a) + b;
    return static_cast<int>(std::clamp<long long>(sum, -most, most));
}

TPoint Sum(TPoint a, TPoint b)
{
    return {Sum(a.X, b.X), Sum(a.Y, b.Y)};
}

} // namespace

System::TMetaClass* TControl::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TControl>(u"TControl")
            .Property(u"Left", &TControl::getLeft, &TControl::setLeft)
            .Property(u"Top", &TControl::getTop, &TControl::setTop)
            .Property(u"Width", &TControl::getWidth, &TControl::setWidth)
            .Property(u"Height", &TControl::getHeight, &TControl::setHeight)
            .Property(u"Cursor", &TControl::getCursor, &TControl::setCursor, {.defaultValue = crDefault})
            .Property(u"Hint", &TControl::getHint, &TControl::setHint)
            .Property(u"HelpContext", &TControl::getHelpContext, &TControl::setHelpContext,
                      {.defaultValue = 0})
            .Build();
    return record;
}

TControl::TControl(Classes::TComponent* owner)
    : Classes::TComponent((CheckMainThread(), owner)), mColor(Graphics::clWindow)
{
}

TControl::~TControl()
{
    Destroying();
    if (captureControl == this) {
        captureControl = nullptr;
    }
    ForgetControl(this);
    if (mParent != nullptr) {
        mParent->TakeOut(*this);
    }
}

TRect TControl::getBoundsRect() const noexcept
{
    return {mLeft, mTop, mLeft + mWidth, mTop + mHeight};
}

void TControl::setBoundsRect(const TRect& bounds)
{
    SetBounds(bounds.Left, bounds.Top, bounds.Width(), bounds.Height());
}

void TControl::SetBounds(int left, int top, int width, int height)
{
    CheckMainThread();
    width = AsSize(width);
    height = AsSize(height);
    const TComponentWatch watch(this);
    if (!LimitSize(width, height) || !watch.IsAlive()) {
        return;
    }
    const TRect bounds{AsPlace(left), AsPlace(top), AsPlace(left) + AsSize(width),
                       AsPlace(top) + AsSize(height)};
    const TRect former = getBoundsRect();
    if (bounds != former) {
        Invalidate();
        mLeft = bounds.Left;
        mTop = bounds.Top;
        mWidth = bounds.Width();
        mHeight = bounds.Height();
    }
    KeepAnchorBase();
    if (bounds == former) {
        return;
    }
    const bool isSized = mWidth != former.Width() || mHeight != former.Height();
    Placed(isSized);
    if (isSized && watch.IsAlive()) {
        Perform(WM_SIZE, 0, PlaceToParam({mWidth, mHeight}));
    }
    if (watch.IsAlive() && (mLeft != former.Left || mTop != former.Top)) {
        Perform(WM_MOVE, 0, PlaceToParam({mLeft, mTop}));
    }
    if (watch.IsAlive()) {
        RequestAlign();
    }
}

void TControl::Placed(bool)
{
    Invalidate();
}

bool TControl::LimitSize(int& width, int& height)
{
    const TComponentWatch watch(this);
    if (!CanResize(width, height) || !watch.IsAlive()) {
        return false;
    }
    int minWidth = mConstraints == nullptr ? 0 : mConstraints->getMinWidth();
    int minHeight = mConstraints == nullptr ? 0 : mConstraints->getMinHeight();
    int maxWidth = mConstraints == nullptr ? 0 : mConstraints->getMaxWidth();
    int maxHeight = mConstraints == nullptr ? 0 : mConstraints->getMaxHeight();
    ConstrainedResize(minWidth, minHeight, maxWidth, maxHeight);
    width = Limit(width, minWidth, maxWidth);
    height = Limit(height, minHeight, maxHeight);
    return true;
}

bool TControl::CanResize(int& width, int& height)
{
    bool resize = true;
    if (OnCanResize) {
        OnCanResize(this, width, height, resize);
    }
    return resize;
}

void TControl::ConstrainedResize(int& minWidth, int& minHeight, int& maxWidth, int& maxHeight)
{
    if (OnConstrainedResize) {
        OnConstrainedResize(this, minWidth, minHeight, maxWidth, maxHeight);
    }
}

void TControl::Resize()
{
    if (OnResize) {
        OnResize(this);
    }
}

TRect TControl::GetClientRect() const
{
    return {0, 0, mWidth, mHeight};
}

void TControl::setClientWidth(int width)
{
    setWidth(AsSize(width) + mWidth - getClientWidth());
}

void TControl::setClientHeight(int height)
{
    setHeight(AsSize(height) + mHeight - getClientHeight());
}

TPoint TControl::GetClientOrigin() const
{
    TPoint origin;
    for (const TControl* outer = this; outer != nullptr; outer = outer->mParent) {
        const TPoint offset = outer->GetClientOffset();
        origin = Sum(origin, {outer->mLeft + offset.X, outer->mTop + offset.Y});
    }
    return origin;
}

TPoint TControl::ClientToScreen(TPoint place) const
{
    return Sum(GetClientOrigin(), place);
}

TPoint TControl::ScreenToClient(TPoint place) const
{
    const TPoint origin = GetClientOrigin();
    return Sum(place, {-origin.X, -origin.Y});
}

void TControl::SetParent(TWinControl* parent)
{
    CheckMainThread();
    if (parent == mParent) {
        return;
    }
    for (const TControl* outer = parent; outer != nullptr; outer = outer->mParent) {
        if (outer == this) {
            throw Classes::EInvalidOperation(u"A control cannot have itself as its parent");
        }
    }
    const TComponentWatch watch(this);
    if (mParent != nullptr) {
        mParent->RemoveControl(this);
    }
    // What heard of the removal may have destroyed the control, or put it elsewhere.
    if (watch.IsAlive() && mParent == nullptr && parent != nullptr) {
        parent->InsertControl(this);
    }
}

Classes::TComponent* TControl::GetParentComponent() const
{
    return mParent;
}

void TControl::SetParentComponent(Classes::TComponent* parent)
{
    if (auto* const control = dynamic_cast<TWinControl*>(parent)) {
        SetParent(control);
    }
}

bool TControl::IsPlaced() const
{
    static const TAnchors usual{akLeft, akTop};
    return mAlign != alNone || mAnchors != usual;
}

template <class Change>
void TControl::ChangePlacing(Change change)
{
    const bool wasPlaced = IsPlaced();
    change();
    if (mParent != nullptr) {
        mParent->mPlacedCount += static_cast<int>(IsPlaced()) - static_cast<int>(wasPlaced);
    }
}

void TControl::setAlign(TAlign align)
{
    if (align == mAlign) {
        return;
    }
    ChangePlacing([&] { mAlign = align; });
    if (align == alNone) {
        KeepAnchorBase();
    }
    // The others take the room that it leaves, though it is none of those that are placed any more.
    if (mParent != nullptr) {
        align == alNone ? mParent->Realign() : RequestAlign();
    }
}

void TControl::setAnchors(const TAnchors& anchors)
{
    ChangePlacing([&] { mAnchors = anchors; });
    KeepAnchorBase();
}

TSizeConstraints* TControl::getConstraints() const
{
    if (mConstraints == nullptr) {
        mConstraints = std::make_unique<TSizeConstraints>(const_cast<TControl*>(this));
    }
    return mConstraints.get();
}

void TControl::setConstraints(TSizeConstraints* constraints)
{
    getConstraints()->Assign(constraints);
}

void TControl::KeepAnchorBase()
{
    if (mParent == nullptr || mParent->IsAligning()) {
        return;
    }
    mAnchoredBounds = getBoundsRect();
    mAnchoredParent = {mParent->getClientWidth(), mParent->getClientHeight()};
}

namespace
{

/// Begin and end of an extent between two edges after the parent grew by `growth`.
std::pair<int, int> Anchor(int begin, int end, int growth, bool toBegin, bool toEnd) noexcept
{
    if (toBegin) {
        return {begin, toEnd ? end + growth : end};
    }
    // Held by neither edge, it keeps to the middle.
    const int moved = toEnd ? growth : growth / 2;
    return {begin + moved, end + moved};
}

} // namespace

TRect TControl::GetAnchored(int parentWidth, int parentHeight) const
{
    const auto [left, right] =
        Anchor(mAnchoredBounds.Left, mAnchoredBounds.Right, parentWidth - mAnchoredParent.X,
               mAnchors.Contains(akLeft), mAnchors.Contains(akRight));
    const auto [top, bottom] =
        Anchor(mAnchoredBounds.Top, mAnchoredBounds.Bottom, parentHeight - mAnchoredParent.Y,
               mAnchors.Contains(akTop), mAnchors.Contains(akBottom));
    return {left, top, right, bottom};
}

void TControl::RequestAlign()
{
    if (mParent != nullptr) {
        mParent->AlignControl(this);
    }
}

void TControl::SetAutoSize(bool isOn)
{
    if (isOn != mAutoSize) {
        mAutoSize = isOn;
        AdjustSize();
    }
}

void TControl::AdjustSize()
{
    int width = mWidth;
    int height = mHeight;
    if (mAutoSize && !IsLoading() && CanAutoSize(width, height)) {
        SetBounds(mLeft, mTop, width, height);
    }
}

bool TControl::CanAutoSize(int&, int&)
{
    return false;
}

void TControl::SetZOrder(bool inFront)
{
    if (mParent != nullptr) {
        mParent->MoveChild(*this, inFront);
    }
}

void TControl::SetText(const UnicodeString& text)
{
    CheckMainThread();
    if (GetText() != text) {
        mText = text;
        Perform(CM_TEXTCHANGED);
    }
}

void TControl::SetName(const UnicodeString& name)
{
    const bool isTextTheName = mControlStyle.Contains(csSetCaption) && !IsLoading() && getName() == GetText();
    TComponent::SetName(name);
    if (isTextTheName) {
        setText(name);
    }
}

void TControl::SetVisible(bool isVisible)
{
    CheckMainThread();
    if (isVisible == mVisible) {
        return;
    }
    const TComponentWatch watch(this);
    // What it covered is painted while its place is still known as visible.
    Invalidate();
    mVisible = isVisible;
    Perform(CM_VISIBLECHANGED, isVisible ? 1 : 0);
    if (watch.IsAlive()) {
        RequestAlign();
    }
}

void TControl::Show()
{
    if (mParent != nullptr) {
        mParent->ShowControl(this);
    }
    setVisible(true);
}

void TControl::SetEnabled(bool isEnabled)
{
    CheckMainThread();
    if (isEnabled != mEnabled) {
        mEnabled = isEnabled;
        Perform(CM_ENABLEDCHANGED);
    }
}

Graphics::TFont* TControl::getFont() const
{
    if (mFont == nullptr) {
        auto* const self = const_cast<TControl*>(this);
        auto font = std::make_unique<Graphics::TFont>();
        font->Assign(const_cast<Graphics::TFont*>(&GetShownFont()));
        font->setOnChange({self, &TControl::FontChanged});
        mFont = std::move(font);
    }
    return mFont.get();
}

void TControl::setFont(Graphics::TFont* font)
{
    getFont()->Assign(font);
}

const Graphics::TFont& TControl::GetShownFont() const
{
    for (const TControl* outer = this; outer != nullptr; outer = outer->mParent) {
        if (outer->mFont != nullptr) {
            return *outer->mFont;
        }
    }
    return DefaultFont();
}

void TControl::FontChanged(System::TObject*)
{
    if (!mIsTakingParentFont) {
        mParentFont = false;
    }
    Perform(CM_FONTCHANGED);
}

void TControl::setParentFont(bool isOn)
{
    if (isOn != mParentFont) {
        mParentFont = isOn;
        TakeParentFont();
    }
}

void TControl::TakeParentFont()
{
    if (!mParentFont || mParent == nullptr) {
        return;
    }
    if (mFont == nullptr) {
        Perform(CM_FONTCHANGED);
        return;
    }
    const TComponentWatch watch(this);
    mIsTakingParentFont = true;
    mFont->Assign(const_cast<Graphics::TFont*>(&mParent->GetShownFont()));
    if (watch.IsAlive()) {
        mIsTakingParentFont = false;
    }
}

System::UnicodeString TControl::GetOwnedPath() const
{
    System::UnicodeString path = getName();
    for (const TComponent* owner = getOwner(); owner != nullptr && !owner->getName().IsEmpty();
         owner = owner->getOwner()) {
        path = owner->getName() + u"." + path;
    }
    return path;
}

Toolkits::TWindowPart TControl::AsWindowPart() const
{
    return {.kind = Toolkits::EPartKind::Picture,
            .name = GetOwnedPath(),
            .text = ShortHint(mHint),
            .bounds = getBoundsRect(),
            .isEnabled = mEnabled};
}

void TControl::setColor(Graphics::TColor color)
{
    mParentColor = false;
    ChangeColor(color);
}

void TControl::ChangeColor(Graphics::TColor color)
{
    if (color != mColor) {
        mColor = color;
        Perform(CM_COLORCHANGED);
    }
}

void TControl::setParentColor(bool isOn)
{
    if (isOn != mParentColor) {
        mParentColor = isOn;
        TakeParentColor();
    }
}

void TControl::TakeParentColor()
{
    if (mParentColor && mParent != nullptr) {
        ChangeColor(mParent->getColor());
    }
}

void TControl::setCursor(TCursor cursor)
{
    if (cursor != mCursor) {
        mCursor = cursor;
        Perform(CM_CURSORCHANGED);
    }
}

void TControl::setShowHint(bool isOn)
{
    if (isOn != mShowHint) {
        mParentShowHint = false;
        mShowHint = isOn;
        Perform(CM_SHOWHINTCHANGED);
    }
}

void TControl::setParentShowHint(bool isOn)
{
    if (isOn != mParentShowHint) {
        mParentShowHint = isOn;
        TakeParentShowHint();
    }
}

void TControl::TakeParentShowHint()
{
    if (mParentShowHint && mParent != nullptr && mShowHint != mParent->getShowHint()) {
        mShowHint = mParent->getShowHint();
        Perform(CM_SHOWHINTCHANGED);
    }
}

void TControl::setPopupMenu(Menus::TPopupMenu* menu)
{
    mPopupMenu = menu;
    if (menu != nullptr) {
        menu->FreeNotification(this);
    }
}

void TControl::Notification(Classes::TComponent* component, Classes::TOperation operation)
{
    // A form tells each control of each other one, and few own anything.
    if (GetComponentCount() > 0) {
        TComponent::Notification(component, operation);
    }
    if (operation == Classes::opRemove && component == mPopupMenu) {
        mPopupMenu = nullptr;
    }
}

void TControl::setBiDiMode(Classes::TBiDiMode mode)
{
    mParentBiDiMode = false;
    if (mode != mBiDiMode) {
        mBiDiMode = mode;
        Perform(CM_BIDIMODECHANGED);
    }
}

void TControl::setParentBiDiMode(bool isOn)
{
    if (isOn != mParentBiDiMode) {
        mParentBiDiMode = isOn;
        TakeParentBiDiMode();
    }
}

void TControl::TakeParentBiDiMode()
{
    if (mParentBiDiMode && mParent != nullptr && mBiDiMode != mParent->getBiDiMode()) {
        mBiDiMode = mParent->getBiDiMode();
        Perform(CM_BIDIMODECHANGED);
    }
}

unsigned TControl::DrawTextBiDiModeFlags(unsigned flags) const noexcept
{
    if (UseRightToLeftAlignment() && (flags & DT_CENTER) == 0) {
        flags ^= DT_RIGHT;
    }
    return UseRightToLeftReading() ? flags | DT_RTLREADING : flags;
}

void TControl::Invalidate()
{
    CheckMainThread();
    if (mParent != nullptr && mVisible) {
        mParent->InvalidateArea(getBoundsRect());
    }
}

void TControl::Update()
{
    if (mParent != nullptr) {
        mParent->Update();
    }
}

void TControl::Repaint()
{
    Invalidate();
    Update();
}

std::intptr_t TControl::Perform(unsigned number, std::uintptr_t wParam, std::intptr_t lParam)
{
    TMessage message{.Msg = number, .WParam = wParam, .LParam = lParam};
    WndProc(message);
    return message.Result;
}

void TControl::WndProc(TMessage& message)
{
    Dispatch(&message);
}

void TControl::Dispatch(void* record)
{
    auto& message = *static_cast<TMessage*>(record);
    if (!DispatchMouse(message) && !DispatchChange(message)) {
        DefaultHandler(record);
    }
}

bool TControl::DispatchMouse(TMessage& message)
{
    switch (message.Msg) {
    case WM_MOUSEMOVE: {
        const TPoint place = ParamToPlace(message.LParam);
        MouseMove(ParamToShift(message.WParam), place.X, place.Y);
        return true;
    }
    case WM_LBUTTONDOWN:
        ButtonDown(message, mbLeft, {});
        return true;
    case WM_RBUTTONDOWN:
        ButtonDown(message, mbRight, {});
        return true;
    case WM_MBUTTONDOWN:
        ButtonDown(message, mbMiddle, {});
        return true;
    case WM_LBUTTONDBLCLK:
        DoubleClicked(message);
        return true;
    case WM_RBUTTONDBLCLK:
        ButtonDown(message, mbRight, {Classes::ssDouble});
        return true;
    case WM_MBUTTONDBLCLK:
        ButtonDown(message, mbMiddle, {Classes::ssDouble});
        return true;
    case WM_LBUTTONUP:
        ButtonUp(message, mbLeft);
        return true;
    case WM_RBUTTONUP:
        ButtonUp(message, mbRight);
        return true;
    case WM_MBUTTONUP:
        ButtonUp(message, mbMiddle);
        return true;
    default:
        return DispatchHover(message);
    }
}

bool TControl::DispatchHover(TMessage& message)
{
    switch (message.Msg) {
    case CM_MOUSEENTER:
        if (OnMouseEnter) {
            OnMouseEnter(this);
        }
        return true;
    case CM_MOUSELEAVE:
        if (OnMouseLeave) {
            OnMouseLeave(this);
        }
        return true;
    case CM_MOUSEWHEEL:
        message.Result = WheelTurned(message) ? 1 : 0;
        return true;
    default:
        return false;
    }
}

bool TControl::DispatchChange(const TMessage& message)
{
    switch (message.Msg) {
    case WM_SIZE:
        if (!IsLoading()) {
            Resize();
        }
        return true;
    case CM_VISIBLECHANGED:
    case CM_TEXTCHANGED:
    case CM_ENABLEDCHANGED:
    case CM_COLORCHANGED:
    case CM_FONTCHANGED:
    case CM_BIDIMODECHANGED:
        Invalidate();
        return true;
    case CM_PARENTFONTCHANGED:
        TakeParentFont();
        return true;
    case CM_PARENTCOLORCHANGED:
        TakeParentColor();
        return true;
    case CM_PARENTSHOWHINTCHANGED:
        TakeParentShowHint();
        return true;
    case CM_PARENTBIDIMODECHANGED:
        TakeParentBiDiMode();
        return true;
    default:
        return false;
    }
}

void TControl::DefaultHandler(void*) {}

void TControl::ButtonDown(const TMessage& message, TMouseButton button, const TShiftState& extra)
{
    if (mControlStyle.Contains(csCaptureMouse)) {
        setMouseCapture(true);
    }
    if (button == mbLeft) {
        setControlState(csLButtonDown, true);
        setControlState(csClicked, mControlStyle.Contains(csClickEvents));
    }
    const TPoint place = ParamToPlace(message.LParam);
    MouseDown(button, ParamToShift(message.WParam) + extra, place.X, place.Y);
}

void TControl::DoubleClicked(const TMessage& message)
{
    const TComponentWatch watch(this);
    if (mControlStyle.Contains(csClickEvents)) {
        DblClick();
    }
    if (watch.IsAlive()) {
        ButtonDown(message, mbLeft, {Classes::ssDouble});
        if (watch.IsAlive()) {
            // The second press was the double click; its release is no click of its own.
            setControlState(csClicked, false);
        }
    }
}

void TControl::ButtonUp(TMessage& message, TMouseButton button)
{
    const TComponentWatch watch(this);
    const TPoint place = ParamToPlace(message.LParam);
    if (mControlStyle.Contains(csCaptureMouse)) {
        setMouseCapture(false);
    }
    if (button == mbLeft) {
        const bool wasClicked = mControlState.Contains(csClicked);
        setControlState(csLButtonDown, false);
        setControlState(csClicked, false);
        if (wasClicked && Contains(GetClientRect(), place)) {
            Click();
        }
    }
    if (watch.IsAlive()) {
        MouseUp(button, ParamToShift(message.WParam), place.X, place.Y);
    }
    if (watch.IsAlive() && button == mbRight && Contains(GetClientRect(), place) && AskContextMenu(place)) {
        message.Result = 1;
    }
}

bool TControl::WheelTurned(const TMessage& message)
{
    const auto* const wheel = reinterpret_cast<const TWheelTurn*>(message.LParam);
    return MouseWheel(ParamToShift(message.WParam), wheel->delta, wheel->place);
}

bool TControl::AskContextMenu(TPoint place)
{
    const TComponentWatch watch(this);
    if (ContextPopup(place) || !watch.IsAlive()) {
        return true;
    }
    if (mPopupMenu == nullptr || !mPopupMenu->getAutoPopup()) {
        return mParent != nullptr && mParent->AskContextMenu({place.X + mLeft, place.Y + mTop});
    }
    const TPoint onScreen = ClientToScreen(place);
    mPopupMenu->setPopupComponent(this);
    mPopupMenu->Popup(onScreen.X, onScreen.Y);
    return true;
}

bool TControl::getMouseCapture() const noexcept
{
    return captureControl == this;
}

void TControl::setMouseCapture(bool isOn)
{
    if (isOn != getMouseCapture()) {
        SetCaptureControl(isOn ? this : nullptr);
    }
}

void TControl::Click()
{
    if (OnClick) {
        OnClick(this);
    }
}

void TControl::DblClick()
{
    if (OnDblClick) {
        OnDblClick(this);
    }
}

void TControl::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    if (OnMouseDown) {
        OnMouseDown(this, button, shift, x, y);
    }
}

void TControl::MouseMove(TShiftState shift, int x, int y)
{
    if (OnMouseMove) {
        OnMouseMove(this, shift, x, y);
    }
}

void TControl::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    if (OnMouseUp) {
        OnMouseUp(this, button, shift, x, y);
    }
}

bool TControl::MouseWheel(TShiftState shift, int delta, TPoint place)
{
    bool handled = false;
    if (OnMouseWheel) {
        OnMouseWheel(this, shift, delta, place, handled);
    }
    return handled;
}

bool TControl::ContextPopup(TPoint place)
{
    bool handled = false;
    if (OnContextPopup) {
        OnContextPopup(this, place, handled);
    }
    return handled;
}

void TControl::setControlState(TControlStateFlag flag, bool value)
{
    if (value) {
        mControlState << flag;
    } else {
        mControlState >> flag;
    }
}

void TControl::Loaded()
{
    TComponent::Loaded();
    KeepAnchorBase();
    TakeParentColor();
    TakeParentFont();
    TakeParentShowHint();
    TakeParentBiDiMode();
    AdjustSize();
}

TControl* GetCaptureControl() noexcept
{
    return captureControl;
}

void SetCaptureControl(TControl* control)
{
    CheckMainThread();
    captureControl = control;
}

std::uintptr_t ShiftToParam(const TShiftState& shift)
{
    std::uintptr_t bits = 0;
    for (const Classes::TShiftStateFlag flag : shift) {
        bits |= std::uintptr_t{1} << flag;
    }
    return bits;
}

TShiftState ParamToShift(std::uintptr_t param)
{
    TShiftState shift;
    for (int flag = Classes::ssShift; flag <= Classes::ssDouble; ++flag) {
        if ((param >> flag & 1) != 0) {
            shift << static_cast<Classes::TShiftStateFlag>(flag);
        }
    }
    return shift;
}

} // namespace Controls
