// SPDX-License-Identifier: MIT
#pragma once

#include <TRS8_BTL/config/BTL_INI_Ini.h>

#include <ostream>
#include <vector>

namespace Station
{

/// Prints the forms of the station with the settings in them, each control with its place, text and state.
/// They show the texts of `language`, those of their designs if that is empty, and stand where their user
/// left them. `changes` are what the user does now, "SettingsForm.fEdit_Interval.Text=0.5" say; the settings
/// and the places are kept for the next time. `XBadSettings` for a change that can't be made.
void WriteForms(std::ostream& out, BTL::AIni& settings, const System::UnicodeString& language,
                const std::vector<System::UnicodeString>& changes);

/// Prints each form as the text of what differs from the form that it derives from.
void WriteDesigns(std::ostream& out, const System::UnicodeString& language);

} // namespace Station
