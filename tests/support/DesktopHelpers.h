// SPDX-License-Identifier: MIT
#pragma once

#include "support/ScopedVariable.h"
#include "support/Script.h"
#include "support/TempFolder.h"
#include "support/WaitUntil.h"

#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/wait.h>

namespace Support
{

/// Stand-ins for `xdg-open` and `xdg-email`, which tell what they are called with. They are the only programs
/// of their names on the search path, for the life of the object.
class DesktopHelpers
{
public:
    DesktopHelpers()
    {
        for (const char* name : {"xdg-open", "xdg-email"}) {
            WriteScript(mFolder.Path() / name, "printf '%s\\0' \"${0##*/}\" \"$@\" > \"$TOLD.part\"\n"
                                               "mv \"$TOLD.part\" \"$TOLD\"");
        }
        // What the scripts themselves call.
        for (const char* name : {"mv", "sleep"}) {
            std::filesystem::create_symlink(std::filesystem::path("/bin") / name, mFolder.Path() / name);
        }
    }

    /// The name and the arguments of the helper that was called last, once it is.
    std::vector<std::string> Await() const
    {
        if (!WaitUntil([&] { return std::filesystem::exists(mTold); })) {
            return {"nobody"};
        }
        const std::string text = ReadText(mTold);
        std::filesystem::remove(mTold);
        std::vector<std::string> parts;
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t end = text.find('\0', begin);
            parts.push_back(text.substr(begin, end - begin));
            begin = end + 1;
        }
        return parts;
    }

    /// Whether nobody was called that told so yet.
    bool IsSilent() const { return !std::filesystem::exists(mTold); }

    const std::filesystem::path& Folder() const { return mFolder.Path(); }

    /// Whether this process has no child, neither one that runs nor one that nobody asked for its end.
    static bool HasNoChild()
    {
        siginfo_t info;
        return waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == -1 && errno == ECHILD;
    }

private:
    TempFolder mFolder;
    std::filesystem::path mTold = mFolder.Path() / "told";
    ScopedVariable mPath{"PATH", mFolder.Path().string()};
    ScopedVariable mToldVariable{"TOLD", mTold.string()};
};

} // namespace Support
