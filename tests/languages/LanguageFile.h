// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/Host_Path.h"
#include "support/TempFolder.h"

#include <fstream>
#include <string_view>

namespace Support
{

/// A file of texts in a folder of its own. The name looks as if it had escapes and placeholders.
class LanguageFile
{
public:
    explicit LanguageFile(std::string_view content) { Write(content); }

    void Write(std::string_view content) const { std::ofstream(mFile, std::ios::binary) << content; }
    void SetReadOnly() const { std::filesystem::permissions(mFile, std::filesystem::perms::owner_read); }
    void Remove() const { std::filesystem::remove(mFile); }

    /// The folder with a separator behind.
    System::UnicodeString Path() const
    {
        return Sysutils::FromHostPath(mFile.parent_path().string()) + u'\\';
    }
    System::UnicodeString Name() const { return Path() + u"new 100%d.ids"; }

private:
    TempFolder mFolder;
    std::filesystem::path mFile = mFolder.Path() / "new 100%d.ids";
};

} // namespace Support
