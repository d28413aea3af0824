// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Toolkit.h"

class QDialog;

namespace Toolkits
{

/// Runs the message loop until the dialog is answered, and gives its result. What is raised meanwhile comes
/// out of the loop that the dialog interrupts.
int RunDialog(Toolkit& toolkit, QDialog& dialog);

/// As `Toolkit::ShowBox`, `Toolkit::AskInput` and `Toolkit::AskFiles`.
int ShowQtBox(Toolkit& toolkit, const TBox& box);
bool AskByQt(Toolkit& toolkit, const TInput& input, System::UnicodeString& value);
TFileAnswer AskFilesByQt(Toolkit& toolkit, const TFileQuestion& question);

/// As `Toolkit::ShowMenu`.
int ShowQtMenu(Toolkit& toolkit, const std::vector<TMenuEntry>& entries, Types::TPoint place);

/// Runs the message loop as long as `isOn` says; faults as of `RunDialog`.
void RunLoop(Toolkit& toolkit, const std::function<bool()>& isOn);

} // namespace Toolkits
