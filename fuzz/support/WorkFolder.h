// SPDX-License-Identifier: MIT
#pragma once

#include "Fuzz.h"

#include <filesystem>

namespace Fuzz
{

/// A new folder for the files of a target, for the life of the program.
class WorkFolder
{
public:
    WorkFolder()
    {
        std::string path = (std::filesystem::temp_directory_path() / "trs8_btl_XXXXXX").string();
        Require(mkdtemp(path.data()) != nullptr);
        mPath = path;
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }

    const std::filesystem::path& Path() const { return mPath; }

private:
    std::filesystem::path mPath;
};

} // namespace Fuzz
