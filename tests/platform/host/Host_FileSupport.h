// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/Host_Path.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace Support
{

/// What others than the library see in a file.
inline std::string OnTheHost(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A test with a folder of its own, whose files it names by their last part.
class FolderTest : public testing::Test
{
protected:
    System::UnicodeString Name(const System::UnicodeString& name) const
    {
        return Sysutils::FromHostPath(mFolder.Path().string()) + u"\\" + name;
    }
    std::filesystem::path Host(const std::string& name) const { return mFolder.Path() / name; }

    void Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(Host(name), std::ios::binary) << text;
    }
    std::string Read(const std::string& name) const { return OnTheHost(Host(name)); }
    /// With all levels above it.
    void MakeFolder(const std::string& name) const { std::filesystem::create_directories(Host(name)); }

private:
    TempFolder mFolder;
};

/// Names the file that `PathOfChild` gives in the child programs started from now on.
inline void TellChildren(const std::filesystem::path& file)
{
    setenv("FILE_OF_CHILD", file.c_str(), 1);
}

/// The file that the parent tells a child.
inline System::UnicodeString PathOfChild()
{
    const char* const path = std::getenv("FILE_OF_CHILD");
    return path == nullptr ? System::UnicodeString() : System::FromUtf8(path);
}

} // namespace Support
