// SPDX-License-Identifier: MIT
#pragma once

#include "SettingsForm.h"

namespace Station
{

/// The settings of a station that asks an instrument: those of each station, and the instrument's port.
class TInstrumentForm : public TSettingsForm
{
    TRS8_BTL_CLASS(TInstrumentForm, TSettingsForm)

public:
    explicit TInstrumentForm(Classes::TComponent* owner = nullptr);

    void Load(BTL::AIni& settings) override;
    /// As of the base; `XBadSettings` also for what is no port.
    void Store(BTL::AIni& settings) const override;

    Stdctrls::TEdit* fEdit_Port = nullptr;
};

} // namespace Station
