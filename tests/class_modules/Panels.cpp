// SPDX-License-Identifier: MIT
#include "Gauges.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "properties/classes/BTL_ClassModules.h"

namespace
{

/// Bears the name of a class of the other module.
class TAboutForm : public Gauges::TGaugeForm
{
    TRS8_BTL_CLASS(TAboutForm, Gauges::TGaugeForm)

public:
    explicit TAboutForm(Classes::TComponent* owner = nullptr) : TGaugeForm(owner) { setCaption(u"Panels"); }
};

System::TMetaClass* TAboutForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TAboutForm>(u"TAboutForm").Build();
    return record;
}

class TPanelFrame : public Forms::TFrame
{
    TRS8_BTL_CLASS(TPanelFrame, Forms::TFrame)

public:
    using TFrame::TFrame;
};

System::TMetaClass* TPanelFrame::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TPanelFrame>(u"TPanelFrame").Build();
    return record;
}

[[maybe_unused]] const bool isRegistered = [] {
    BTL::RegisterFormClass(System::ClassOf<TAboutForm>());
    BTL::RegisterFrameClass(System::ClassOf<TPanelFrame>());
    return true;
}();

} // namespace
