// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/Stdctrls_Label.h"

#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/controls/Forms_Accelerator.h"
#include "platform/visual/graphics/Graphics_Canvas.h"

namespace Stdctrls
{

using Messages::TMessage;
using System::UnicodeString;
using Types::TRect;

System::TMetaClass* TCustomLabel::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TCustomLabel>(u"TCustomLabel").Build();
    return record;
}

TCustomLabel::TCustomLabel(Classes::TComponent* owner) : TGraphicControl(owner)
{
    setControlStyle(getControlStyle() +
                    Controls::TControlStyle{Controls::csOpaque, Controls::csReplicatable} -
                    Controls::TControlStyle{Controls::csAcceptsControls});
    TControl::SetAutoSize(true);
    // There is no text yet that it could take the size of.
    SetBounds(0, 0, 65, 17);
}

TCustomLabel::~TCustomLabel()
{
    if (mFocusControl != nullptr) {
        mFocusControl->setSpokenLabel({});
    }
}

template <class T>
void TCustomLabel::Take(T& field, T value)
{
    if (field != value) {
        field = value;
        Invalidate();
        AdjustBounds();
    }
}

void TCustomLabel::setAlignment(Classes::TAlignment alignment)
{
    Take(mAlignment, alignment);
}

void TCustomLabel::setLayout(TTextLayout layout)
{
    Take(mLayout, layout);
}

void TCustomLabel::setWordWrap(bool isOn)
{
    Take(mWordWrap, isOn);
}

void TCustomLabel::setShowAccelChar(bool isOn)
{
    Take(mShowAccelChar, isOn);
}

void TCustomLabel::setEllipsisPosition(TEllipsisPosition position)
{
    Take(mEllipsisPosition, position);
}

void TCustomLabel::setTransparent(bool isOn)
{
    if (isOn == getTransparent()) {
        return;
    }
    Controls::TControlStyle style = getControlStyle();
    setControlStyle(isOn ? style >> Controls::csOpaque : style << Controls::csOpaque);
    Invalidate();
}

UnicodeString TCustomLabel::SpokenText() const
{
    return mShowAccelChar ? Forms::WithoutAccel(GetLabelText()) : GetLabelText();
}

Toolkits::TWindowPart TCustomLabel::AsWindowPart() const
{
    Toolkits::TWindowPart part = TGraphicControl::AsWindowPart();
    part.kind = Toolkits::EPartKind::Text;
    part.text = SpokenText();
    return part;
}

void TCustomLabel::setFocusControl(Controls::TWinControl* control)
{
    if (control == mFocusControl) {
        return;
    }
    if (mFocusControl != nullptr) {
        mFocusControl->setSpokenLabel({});
    }
    mFocusControl = control;
    if (control != nullptr) {
        control->FreeNotification(this);
        control->setSpokenLabel(SpokenText());
    }
}

void TCustomLabel::Notification(Classes::TComponent* component, Classes::TOperation operation)
{
    TGraphicControl::Notification(component, operation);
    if (operation == Classes::opRemove && component == mFocusControl) {
        mFocusControl = nullptr;
    }
}

void TCustomLabel::Dispatch(void* record)
{
    auto& message = *static_cast<TMessage*>(record);
    switch (message.Msg) {
    case CM_DIALOGCHAR:
        if (mFocusControl != nullptr && getEnabled() && getVisible() && mShowAccelChar &&
            Forms::IsAccel(static_cast<System::Word>(message.WParam), getCaption()) &&
            mFocusControl->CanFocus()) {
            message.Result = 1;
            mFocusControl->SetFocus();
        }
        return;
    case CM_TEXTCHANGED:
        if (mFocusControl != nullptr) {
            mFocusControl->setSpokenLabel(SpokenText());
        }
        [[fallthrough]];
    case CM_FONTCHANGED:
        TGraphicControl::Dispatch(record);
        AdjustBounds();
        return;
    default:
        TGraphicControl::Dispatch(record);
    }
}

unsigned TCustomLabel::LayoutFlags() const
{
    constexpr unsigned alignments[] = {DT_LEFT, DT_RIGHT, DT_CENTER};
    return DrawTextBiDiModeFlags(DT_EXPANDTABS | alignments[mAlignment] | (mWordWrap ? DT_WORDBREAK : 0));
}

void TCustomLabel::AdjustBounds()
{
    if (!getAutoSize() || IsLoading()) {
        return;
    }
    TRect rect = GetClientRect();
    DoDrawText(rect, LayoutFlags() | DT_CALCRECT);
    int left = getLeft();
    if (mAlignment == Classes::taRightJustify) {
        left += getWidth() - rect.Right;
    }
    SetBounds(left, getTop(), rect.Right, rect.Bottom);
}

void TCustomLabel::DoDrawText(TRect& rect, unsigned flags)
{
    constexpr unsigned ellipses[] = {0, DT_PATH_ELLIPSIS, DT_END_ELLIPSIS, DT_WORD_ELLIPSIS};
    UnicodeString text = GetLabelText();
    const bool isMeasured = (flags & DT_CALCRECT) != 0;
    if (isMeasured && (text.IsEmpty() || (mShowAccelChar && text == u"&"))) {
        text = u" ";
    }
    if (!mShowAccelChar) {
        flags |= DT_NOPREFIX;
    }
    if (mEllipsisPosition != epNone && !getAutoSize()) {
        flags = (flags & ~DT_EXPANDTABS) | ellipses[mEllipsisPosition] |
                (mEllipsisPosition == epWordEllipsis ? 0 : DT_SINGLELINE);
    }
    Graphics::TCanvas& canvas = *getCanvas();
    if (isMeasured || getEnabled()) {
        canvas.DrawText(text, rect, flags);
        return;
    }
    // Engraved, since it can't be used.
    TRect lower{rect.Left + 1, rect.Top + 1, rect.Right + 1, rect.Bottom + 1};
    canvas.getFont()->setColor(Graphics::clBtnHighlight);
    canvas.DrawText(text, lower, flags);
    canvas.getFont()->setColor(Graphics::clBtnShadow);
    canvas.DrawText(text, rect, flags);
}

void TCustomLabel::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    if (!getTransparent()) {
        canvas.FillRect(GetClientRect());
    }
    canvas.getBrush()->setStyle(Graphics::bsClear);
    TRect rect = GetClientRect();
    const unsigned flags = LayoutFlags();
    if (mLayout != tlTop) {
        TRect needed = rect;
        DoDrawText(needed, flags | DT_CALCRECT);
        const int space = getHeight() - needed.Bottom;
        const int down = mLayout == tlBottom ? space : space / 2;
        rect = {rect.Left, rect.Top + down, rect.Right, rect.Bottom + down};
    }
    DoDrawText(rect, flags);
}

System::TMetaClass* TLabel::ClassRecord()
{
    static System::TMetaClass* const record =
        Controls::PublishControl(System::GClassBuilder<TLabel>(u"TLabel"))
            .Property(u"Alignment", &TLabel::getAlignment, &TLabel::setAlignment, {.defaultValue = 0})
            .Property(u"AutoSize", &TLabel::getAutoSize, &TLabel::setAutoSize, {.defaultValue = 1})
            .Property(u"Caption", &TLabel::getCaption, &TLabel::setCaption)
            .Property(u"EllipsisPosition", &TLabel::getEllipsisPosition, &TLabel::setEllipsisPosition,
                      {.defaultValue = epNone})
            .Property(u"FocusControl", &TLabel::getFocusControl, &TLabel::setFocusControl)
            .Property(u"Layout", &TLabel::getLayout, &TLabel::setLayout, {.defaultValue = tlTop})
            .Property(u"ShowAccelChar", &TLabel::getShowAccelChar, &TLabel::setShowAccelChar,
                      {.defaultValue = 1})
            .Property(u"Transparent", &TLabel::getTransparent, &TLabel::setTransparent, {.defaultValue = 0})
            .Property(u"WordWrap", &TLabel::getWordWrap, &TLabel::setWordWrap, {.defaultValue = 0})
            .Build();
    return record;
}

TLabel::~TLabel() = default;

} // namespace Stdctrls

namespace Typinfo
{

TTypeInfo GEnumType<Stdctrls::TTextLayout>::Make()
{
    return EnumType(u"TTextLayout", {u"tlTop", u"tlCenter", u"tlBottom"});
}

TTypeInfo GEnumType<Stdctrls::TEllipsisPosition>::Make()
{
    return EnumType(u"TEllipsisPosition",
                    {u"epNone", u"epPathEllipsis", u"epEndEllipsis", u"epWordEllipsis"});
}

} // namespace Typinfo
