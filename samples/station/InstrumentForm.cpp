// SPDX-License-Identifier: MIT
#include "InstrumentForm.h"

#include "Settings.h"

#include <TRS8_BTL/platform/runtime/typinfo/System_ClassBuilder.h>

namespace Station
{

System::TMetaClass* TInstrumentForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TInstrumentForm>(u"TInstrumentForm")
                                                  .Field(u"fEdit_Port", &TInstrumentForm::fEdit_Port)
                                                  .Build();
    return record;
}

TInstrumentForm::TInstrumentForm(Classes::TComponent* owner) : TSettingsForm(owner)
{
    ReadDesign();
}

void TInstrumentForm::Load(BTL::AIni& settings)
{
    TSettingsForm::Load(settings);
    const std::optional<int> port = LoadPort(settings);
    fEdit_Port->setText(port ? u"COM" + System::UnicodeString(*port) : System::UnicodeString());
}

void TInstrumentForm::Store(BTL::AIni& settings) const
{
    const std::optional<int> port = ReadPortName(fEdit_Port->getText());
    TSettingsForm::Store(settings);
    StorePort(settings, port);
}

} // namespace Station
