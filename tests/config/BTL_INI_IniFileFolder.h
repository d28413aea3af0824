// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/Host_Path.h"
#include "support/TempFolder.h"

#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace Support
{

/// A file in a folder of its own, with what a test puts there and finds there.
class IniFileFolder
{
public:
    void Fill(std::string_view bytes) const { std::ofstream(Path(), std::ios::binary) << bytes; }
    std::string Content() const
    {
        std::ostringstream text;
        text << std::ifstream(Path(), std::ios::binary).rdbuf();
        return text.str();
    }
    std::filesystem::path Path() const { return folder.Path() / "a.ini"; }

    const TempFolder folder;
    const System::UnicodeString file = Sysutils::FromHostPath(Path().string());
};

} // namespace Support
