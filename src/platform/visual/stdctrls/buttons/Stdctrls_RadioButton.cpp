// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Stdctrls_RadioButton.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/stdctrls/buttons/internal/Stdctrls_ButtonPainting.h"

namespace Stdctrls
{

using Classes::TComponentWatch;

namespace
{

/// While the mouse presses a button, that gives it the focus, but its mark only when the mouse is let go.
class CMousePress
{
public:
    CMousePress(const TRadioButton& button, bool& flag) : mWatch(&button), mFlag(flag) { mFlag = true; }
    CMousePress(const CMousePress&) = delete;
    CMousePress& operator=(const CMousePress&) = delete;
    ~CMousePress()
    {
        if (mWatch.IsAlive()) {
            mFlag = false;
        }
    }

private:
    TComponentWatch mWatch;
    bool& mFlag;
};

} // namespace

System::TMetaClass* TRadioButton::ClassRecord()
{
    static System::TMetaClass* const record =
        Controls::PublishFocus(Controls::PublishControl(System::GClassBuilder<TRadioButton>(u"TRadioButton")),
                               false)
            .Property(u"Alignment", &TRadioButton::getAlignment, &TRadioButton::setAlignment,
                      {.defaultValue = Classes::taRightJustify})
            .Property(u"Caption", &TRadioButton::getCaption, &TRadioButton::setCaption)
            .Property(u"Checked", &TRadioButton::getChecked, &TRadioButton::setChecked, {.defaultValue = 0})
            .Property(u"WordWrap", &TRadioButton::getWordWrap, &TRadioButton::setWordWrap,
                      {.defaultValue = 0})
            .Build();
    return record;
}

TRadioButton::TRadioButton(Classes::TComponent* owner) : TButtonControl(owner)
{
    SetBounds(0, 0, 113, 17);
    setTabStop(false);
}

TRadioButton::~TRadioButton() = default;

void TRadioButton::SetChecked(bool isChecked)
{
    if (isChecked == mChecked) {
        return;
    }
    const TComponentWatch watch(this);
    mChecked = isChecked;
    setTabStop(isChecked);
    if (GetWindow() != nullptr) {
        TellWindow(*GetWindow());
    }
    Invalidate();
    if (!isChecked) {
        return;
    }
    UncheckOthers();
    if (watch.IsAlive() && !getClicksDisabled()) {
        Click();
    }
}

void TRadioButton::UncheckOthers()
{
    Controls::TWinControl* const parent = getParent();
    for (int i = 0; parent != nullptr && i < parent->GetControlCount(); ++i) {
        auto* const other = dynamic_cast<TRadioButton*>(parent->GetControl(i));
        if (other != nullptr && other != this) {
            other->SetChecked(false);
        }
    }
}

void TRadioButton::setAlignment(Classes::TAlignment alignment)
{
    if (alignment != mAlignment) {
        mAlignment = alignment;
        RecreateWnd();
        Invalidate();
    }
}

void TRadioButton::Dispatch(void* record)
{
    auto& message = *static_cast<Messages::TMessage*>(record);
    switch (message.Msg) {
    case WM_SETFOCUS:
        FocusCame(record);
        return;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
        const CMousePress scope(*this, mIsMouseDown);
        TButtonControl::Dispatch(record);
        return;
    }
    case BM_GETCHECK:
        message.Result = mChecked ? 1 : 0;
        return;
    case BM_SETCHECK:
        SetChecked(message.WParam != 0);
        return;
    default:
        return TButtonControl::Dispatch(record);
    }
}

void TRadioButton::FocusCame(void* record)
{
    const TComponentWatch watch(this);
    TButtonControl::Dispatch(record);
    if (watch.IsAlive() && !mIsMouseDown) {
        SetChecked(true);
    }
}

void TRadioButton::CreateParams(Controls::TCreateParams& params)
{
    TButtonControl::CreateParams(params);
    params.Kind = Toolkits::EWindowKind::RadioButton;
}

void TRadioButton::TellWindow(Toolkits::Window& window)
{
    window.SetCheck(mChecked ? Toolkits::ECheck::Checked : Toolkits::ECheck::Unchecked);
}

void TRadioButton::Paint()
{
    CButtonPainter painter(*this, *getCanvas());
    painter.BoxWithCaption(GetClientRect(), mAlignment != Classes::taLeftJustify, getWordWrap(), Focused(),
                           [&](const Types::TRect& box) { painter.RadioButton(box, mChecked); });
}

} // namespace Stdctrls
