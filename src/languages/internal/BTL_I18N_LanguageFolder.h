// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/sysutils/Sysutils_File.h"

namespace BTL
{

/// The folder that one of the functions for folders of languages gave last. It is of the main thread.
class CLanguageFolder
{
public:
    /// Makes the folder at `path`, unless it is the one of the last call, and gives `path` back.
    System::UnicodeString Make(const System::UnicodeString& path)
    {
        if (path != mLast) {
            Sysutils::ForceDirectories(path);
            mLast = path;
        }
        return mLast;
    }

private:
    System::UnicodeString mLast;
};

} // namespace BTL
