// SPDX-License-Identifier: MIT
#include "platform/visual/dialogs/Filectrl_SelectDirectory.h"

#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/toolkit/Dialogs.h"
#include "platform/toolkit/Toolkit.h"

namespace Filectrl
{

using System::UnicodeString;

namespace
{

bool AskFolder(const UnicodeString& caption, UnicodeString& folder)
{
    Toolkits::TFileQuestion question;
    question.kind = Toolkits::EFileQuestion::Folder;
    question.caption = caption;
    question.folder = folder;
    const Toolkits::TFileAnswer answer = Toolkits::CurrentToolkit().AskFiles(question);
    if (answer.files.empty()) {
        return false;
    }
    folder = answer.files.front();
    return true;
}

void Tell(const UnicodeString& folder, const UnicodeString& fault)
{
    Dialogs::MessageDlg(folder + u"\n" + fault, Dialogs::mtWarning, {Dialogs::mbOK}, 0);
}

/// Whether a folder that isn't there may be had, which is made if that is wanted.
bool Provide(const UnicodeString& folder, const TSelectDirOpts& options)
{
    if (Sysutils::DirectoryExists(folder)) {
        return true;
    }
    if (!options.Contains(sdAllowCreate)) {
        Tell(folder, u"This folder does not exist.");
        return false;
    }
    const bool isWanted =
        !options.Contains(sdPrompt) ||
        Dialogs::MessageDlg(folder + u"\nThis folder does not exist. Create it?", Dialogs::mtConfirmation,
                            {Dialogs::mbYes, Dialogs::mbNo}, 0) == mrYes;
    if (!isWanted) {
        return false;
    }
    if (options.Contains(sdPerformCreate) && !Sysutils::ForceDirectories(folder)) {
        Tell(folder, u"This folder could not be created.");
        return false;
    }
    return true;
}

} // namespace

bool SelectDirectory(const UnicodeString& caption, const UnicodeString& root, UnicodeString& directory)
{
    UnicodeString folder = directory.IsEmpty() ? root : directory;
    if (!AskFolder(caption, folder)) {
        return false;
    }
    directory = folder;
    return true;
}

bool SelectDirectory(UnicodeString& directory, TSelectDirOpts options, int)
{
    UnicodeString folder = directory;
    do {
        if (!AskFolder(u"Select Directory", folder)) {
            return false;
        }
    } while (!Provide(folder, options));
    directory = folder;
    return true;
}

} // namespace Filectrl
