// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <vector>

namespace Toolkits
{

/// What the user is asked for.
enum class EFileQuestion
{
    /// Files to read.
    Open,
    /// A file to write.
    Save,
    /// A folder.
    Folder
};

/// A kind of files that the user can narrow the list to.
struct TFileFilter
{
    System::UnicodeString name;
    /// As "*.csv", or "*" for all; a file of one of them is listed.
    std::vector<System::UnicodeString> masks;
};

/// A modal question for files or a folder. Paths are those of the library, see `Sysutils::HostPath`. Whether
/// what is answered exists, and may be replaced, is for the asker to test: the toolkit neither refuses it nor
/// asks.
struct TFileQuestion
{
    EFileQuestion kind = EFileQuestion::Open;
    System::UnicodeString caption;
    /// The folder that is shown first; empty leaves it to the toolkit.
    System::UnicodeString folder;
    /// What stands in the line at first, without the folder; empty for nothing.
    System::UnicodeString fileName;
    std::vector<TFileFilter> filters;
    /// Of `filters`, the one in use at first.
    std::size_t filterIndex = 0;
    /// Whether several files may be chosen.
    bool isMultiple = false;
    /// Whether hidden files are listed too.
    bool showsHidden = false;
};

/// What the user chose.
struct TFileAnswer
{
    /// Absolute paths; none if the user cancelled.
    std::vector<System::UnicodeString> files;
    /// Of the question's filters, the one in use last.
    std::size_t filterIndex = 0;
};

} // namespace Toolkits
