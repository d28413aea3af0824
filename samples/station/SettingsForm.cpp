// SPDX-License-Identifier: MIT
#include "SettingsForm.h"

#include "Settings.h"

#include <TRS8_BTL/platform/runtime/typinfo/System_ClassBuilder.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Floats.h>

#include <limits>

namespace Station
{

System::TMetaClass* TSettingsForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TSettingsForm>(u"TSettingsForm")
                                                  .Field(u"fEdit_Interval", &TSettingsForm::fEdit_Interval)
                                                  .Field(u"fMemo_Channels", &TSettingsForm::fMemo_Channels)
                                                  .Build();
    return record;
}

TSettingsForm::TSettingsForm(Classes::TComponent* owner) : TForm(owner)
{
    ReadDesign();
}

void TSettingsForm::Load(BTL::AIni& settings)
{
    fEdit_Interval->setText(System::UnicodeString(LoadInterval(settings)));
    LoadChannelLines(settings, *fMemo_Channels->getLines());
}

void TSettingsForm::Store(BTL::AIni& settings) const
{
    double interval = std::numeric_limits<double>::quiet_NaN();
    BTL::ToDouble(fEdit_Interval->getText(), interval);
    StoreSettings(settings, interval, *fMemo_Channels->getLines());
}

} // namespace Station
