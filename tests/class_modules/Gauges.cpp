// SPDX-License-Identifier: MIT
#include "Gauges.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "properties/classes/BTL_ClassModules.h"

namespace Gauges
{

TGaugeForm::~TGaugeForm() = default;

System::TMetaClass* TGaugeForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TGaugeForm>(u"TGaugeForm").Build();
    return record;
}

namespace
{

class TAboutForm : public TGaugeForm
{
    TRS8_BTL_CLASS(TAboutForm, TGaugeForm)

public:
    explicit TAboutForm(Classes::TComponent* owner = nullptr) : TGaugeForm(owner) { setCaption(u"Gauges"); }
};

System::TMetaClass* TAboutForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TAboutForm>(u"TAboutForm").Build();
    return record;
}

class TStoreModule : public Classes::TDataModule
{
    TRS8_BTL_CLASS(TStoreModule, Classes::TDataModule)

public:
    using TDataModule::TDataModule;
};

System::TMetaClass* TStoreModule::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TStoreModule>(u"TStoreModule").Build();
    return record;
}

/// Known by its name alone.
class TProbe : public Classes::TComponent
{
    TRS8_BTL_CLASS(TProbe, Classes::TComponent)

public:
    using TComponent::TComponent;
};

System::TMetaClass* TProbe::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TProbe>(u"TProbe").Build();
    return record;
}

[[maybe_unused]] const bool isRegistered = [] {
    BTL::RegisterFormClass(System::ClassOf<TAboutForm>());
    BTL::RegisterDataModuleClass(System::ClassOf<TStoreModule>());
    BTL::RegisterComponentClass(System::ClassOf<TProbe>());
    return true;
}();

} // namespace

} // namespace Gauges
