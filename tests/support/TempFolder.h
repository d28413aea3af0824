// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace Support
{

/// A new folder for a test's files, removed with all that is in it at the end.
class TempFolder
{
public:
    TempFolder()
    {
        std::string path = (std::filesystem::temp_directory_path() / "trs8_btl_XXXXXX").string();
        if (mkdtemp(path.data()) == nullptr) {
            throw std::runtime_error("No temporary folder can be made.");
        }
        mPath = path;
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }

    const std::filesystem::path& Path() const { return mPath; }

private:
    std::filesystem::path mPath;
};

} // namespace Support
