// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <mutex>

namespace BTL
{

/// The folder that was asked for last, made when it was another one before. Where one folder of several is
/// worked out from an argument, it is kept in this way until the next one is asked for.
///
///     static auto& last = *new CLastFolder;       // never destroyed
///     return last.Make(GetUserDataPath() + name + u'\\');
class CLastFolder
{
public:
    /// Gives `folder` back. That it can't be made isn't told.
    System::UnicodeString Make(const System::UnicodeString& folder);

private:
    std::mutex mMutex;
    System::UnicodeString mFolder;
};

} // namespace BTL
