// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"
#include "platform/base/System_String.h"

namespace Filectrl
{

/// Whether a folder that isn't there may be chosen, whether it is made then, and whether the user is asked
/// before.
enum TSelectDirOpt
{
    sdAllowCreate,
    sdPerformCreate,
    sdPrompt
};
/// All that holds for the choice of a folder.
using TSelectDirOpts = System::Set<TSelectDirOpt, sdAllowCreate, sdPrompt>;

/// Asks for a folder. `directory` is shown first; without it, `root` is. True with the folder in `directory`;
/// false, and `directory` as it was, if the user cancelled.
///
///     UnicodeString folder = u"/data";
///     if (Filectrl::SelectDirectory(u"Folder of the values", u"", folder)) { Load(folder); }
TRS8_BTL_API bool SelectDirectory(const System::UnicodeString& caption, const System::UnicodeString& root,
                                  System::UnicodeString& directory);
/// As `SelectDirectory`, but refuses a folder that isn't there unless `options` allow it: then asks again.
/// one that can't be made is told to the user too. `helpContext` isn't looked at.
TRS8_BTL_API bool SelectDirectory(System::UnicodeString& directory, TSelectDirOpts options, int helpContext);

} // namespace Filectrl
