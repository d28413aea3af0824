// SPDX-License-Identifier: MIT
#pragma once

#include <TRS8_BTL/config/BTL_INI_Ini.h>
#include <TRS8_BTL/platform/visual/Forms.h>
#include <TRS8_BTL/platform/visual/Stdctrls.h>

namespace Station
{

/// Where the user edits the settings: the time between two turns, and the channels, one a line as in a
/// channel file.
class TSettingsForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TSettingsForm, Forms::TForm)

public:
    explicit TSettingsForm(Classes::TComponent* owner = nullptr);

    /// Shows the settings. `XBadSettings` if they make no sense.
    virtual void Load(BTL::AIni& settings);
    /// Keeps in `settings` what is shown; saving them is the caller's. `XBadSettings` for an interval that
    /// isn't one and a line without a channel; nothing is kept then.
    virtual void Store(BTL::AIni& settings) const;

    Stdctrls::TEdit* fEdit_Interval = nullptr;
    Stdctrls::TMemo* fMemo_Channels = nullptr;
};

} // namespace Station
