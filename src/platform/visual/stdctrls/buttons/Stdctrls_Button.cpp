// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"

#include "platform/visual/controls/Controls_FormHost.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/stdctrls/buttons/internal/Stdctrls_ButtonPainting.h"

namespace Stdctrls
{

using Messages::TMessage;

System::TMetaClass* TCustomButton::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TCustomButton>(u"TCustomButton").Build();
    return record;
}

TCustomButton::TCustomButton(Classes::TComponent* owner) : TButtonControl(owner)
{
    SetBounds(0, 0, 75, 25);
}

TCustomButton::~TCustomButton() = default;

void TCustomButton::Click()
{
    if (Controls::AFormHost* const form = Controls::FindFormHost(this)) {
        form->setModalResult(mModalResult);
    }
    TButtonControl::Click();
}

void TCustomButton::setDefault(bool isDefault)
{
    if (isDefault != mDefault) {
        mDefault = isDefault;
        ShowActive();
    }
}

bool TCustomButton::getActive() const
{
    const Controls::AFormHost* const form = Controls::FindFormHost(this);
    const auto* const focused =
        form == nullptr ? nullptr : dynamic_cast<const TCustomButton*>(form->getActiveControl());
    return focused == nullptr ? mDefault : focused == this;
}

void TCustomButton::ShowActive()
{
    if (GetWindow() != nullptr) {
        GetWindow()->SetDefaultButton(getActive());
    }
    Invalidate();
}

void TCustomButton::TellWindow(Toolkits::Window& window)
{
    window.SetDefaultButton(getActive());
}

void TCustomButton::CreateParams(Controls::TCreateParams& params)
{
    TButtonControl::CreateParams(params);
    params.Kind = Toolkits::EWindowKind::Button;
}

bool TCustomButton::PressedBy(const TMessage& message) const
{
    const bool isMine =
        (message.WParam == VK_RETURN && getActive()) || (message.WParam == VK_ESCAPE && mCancel);
    return isMine && message.LParam == 0 && CanFocus();
}

void TCustomButton::Dispatch(void* record)
{
    auto& message = *static_cast<TMessage*>(record);
    switch (message.Msg) {
    case CM_DIALOGKEY:
        if (PressedBy(message)) {
            message.Result = 1;
            Click();
            return;
        }
        break;
    case CM_FOCUSCHANGED:
        ShowActive();
        break;
    default:
        break;
    }
    TButtonControl::Dispatch(record);
}

void TCustomButton::Paint()
{
    CButtonPainter painter(*this, *getCanvas());
    painter.Face(GetClientRect(), {.isDown = IsHeldDown(), .isDefault = getActive()});
    painter.Caption(GetClientRect(), Classes::taCenter, getWordWrap(), IsHeldDown());
}

System::TMetaClass* TButton::ClassRecord()
{
    static System::TMetaClass* const record =
        PublishButton(
            Controls::PublishFocus(Controls::PublishControl(System::GClassBuilder<TButton>(u"TButton"))))
            .Build();
    return record;
}

TButton::~TButton() = default;

} // namespace Stdctrls
