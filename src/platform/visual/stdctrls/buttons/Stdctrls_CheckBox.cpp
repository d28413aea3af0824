// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Stdctrls_CheckBox.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/stdctrls/buttons/internal/Stdctrls_ButtonPainting.h"

namespace Stdctrls
{

System::TMetaClass* TCustomCheckBox::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomCheckBox>(u"TCustomCheckBox").Build();
    return record;
}

TCustomCheckBox::TCustomCheckBox(Classes::TComponent* owner) : TButtonControl(owner)
{
    SetBounds(0, 0, 97, 17);
}

TCustomCheckBox::~TCustomCheckBox() = default;

void TCustomCheckBox::setState(TCheckBoxState state)
{
    if (state == mState || state < cbUnchecked || state > cbGrayed) {
        return;
    }
    mState = state;
    if (GetWindow() != nullptr) {
        TellWindow(*GetWindow());
    }
    Invalidate();
    if (!getClicksDisabled()) {
        Click();
    }
}

void TCustomCheckBox::setAlignment(Classes::TAlignment alignment)
{
    if (alignment != mAlignment) {
        mAlignment = alignment;
        RecreateWnd();
        Invalidate();
    }
}

void TCustomCheckBox::Toggle()
{
    switch (mState) {
    case cbUnchecked:
        return setState(mAllowGrayed ? cbGrayed : cbChecked);
    case cbChecked:
        return setState(cbUnchecked);
    default:
        return setState(cbChecked);
    }
}

void TCustomCheckBox::PressMark()
{
    const Classes::TComponentWatch watch(this);
    SetFocus();
    if (watch.IsAlive() && Focused()) {
        Toggle();
    }
}

void TCustomCheckBox::Dispatch(void* record)
{
    auto& message = *static_cast<Messages::TMessage*>(record);
    switch (message.Msg) {
    case BM_GETCHECK:
        message.Result = mState;
        return;
    case BM_SETCHECK:
        setState(static_cast<TCheckBoxState>(message.WParam & 3));
        return;
    default:
        return TButtonControl::Dispatch(record);
    }
}

void TCustomCheckBox::CreateParams(Controls::TCreateParams& params)
{
    TButtonControl::CreateParams(params);
    params.Kind = Toolkits::EWindowKind::CheckBox;
}

void TCustomCheckBox::TellWindow(Toolkits::Window& window)
{
    window.SetCheck(static_cast<Toolkits::ECheck>(mState));
}

void TCustomCheckBox::Paint()
{
    CButtonPainter painter(*this, *getCanvas());
    painter.BoxWithCaption(
        GetClientRect(), mAlignment != Classes::taLeftJustify, getWordWrap(), Focused(),
        [&](const Types::TRect& box) { painter.CheckBox(box, static_cast<Toolkits::ECheck>(mState)); });
}

System::TMetaClass* TCheckBox::ClassRecord()
{
    static System::TMetaClass* const record =
        Controls::PublishFocus(Controls::PublishControl(System::GClassBuilder<TCheckBox>(u"TCheckBox")))
            .Property(u"Alignment", &TCheckBox::getAlignment, &TCheckBox::setAlignment,
                      {.defaultValue = Classes::taRightJustify})
            .Property(u"AllowGrayed", &TCheckBox::getAllowGrayed, &TCheckBox::setAllowGrayed,
                      {.defaultValue = 0})
            .Property(u"Caption", &TCheckBox::getCaption, &TCheckBox::setCaption)
            .Property(u"Checked", &TCheckBox::getChecked, &TCheckBox::setChecked, {.defaultValue = 0})
            .Property(u"State", &TCheckBox::getState, &TCheckBox::setState, {.defaultValue = cbUnchecked})
            .Property(u"WordWrap", &TCheckBox::getWordWrap, &TCheckBox::setWordWrap, {.defaultValue = 0})
            .Build();
    return record;
}

TCheckBox::~TCheckBox() = default;

} // namespace Stdctrls

namespace Typinfo
{

TTypeInfo GEnumType<Stdctrls::TCheckBoxState>::Make()
{
    return EnumType(u"TCheckBoxState", {u"cbUnchecked", u"cbChecked", u"cbGrayed"});
}

} // namespace Typinfo
