// SPDX-License-Identifier: MIT
#pragma once

#include "support/ScopedVariable.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <iterator>

namespace Support
{

/// A session of the user's for a test alone: names that belong to a session are apart from all others.
class Session
{
public:
    Session() : mVariable("XDG_RUNTIME_DIR", mFolder.Path().string()) {}

    /// Where the names lie.
    std::filesystem::path Folder() const { return mFolder.Path() / "TRS8_BTL"; }

    /// How many names there are.
    std::ptrdiff_t CountNames() const
    {
        std::error_code ignored;
        return std::distance(std::filesystem::directory_iterator(Folder(), ignored), {});
    }

private:
    TempFolder mFolder;
    ScopedVariable mVariable;
};

} // namespace Support
