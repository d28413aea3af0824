// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <memory>

// Searches for files: by a mask in one folder, by a name along a list of folders. The attributes are the `fa`
// bits of `Sysutils_File.h`.
//
//     TSearchRec found;
//     for (int error = FindFirst(u"logs/*.txt", faAnyFile, found); error == 0; error = FindNext(found)) {
//         Use(found.Name, found.Size);
//     }

namespace Sysutils
{

namespace Detail
{
struct TFileSearch;
}

/// An entry that `FindFirst` or `FindNext` found. Copies share the search.
struct TSearchRec
{
    /// The file date, as `FileAge` gives it.
    int Time = 0;
    /// In bytes; 0 for folders.
    System::Int64 Size = 0;
    int Attr = 0;
    /// Without the folder.
    System::UnicodeString Name;

    std::shared_ptr<Detail::TFileSearch> FindHandle;
};

/// Finds the first entry of a folder whose name fits the last part of `path`, in which `*` stands for any
/// characters and `?` for one; ".*" at the end also fits a name without a dot. Entries that are hidden, of
/// the system or folders come only if `attributes` has their bit; "." and ".." are such folders. The names
/// are those at the time of this call, in the order of their characters. 0, or the error: 2 for no fitting
/// name, 3 for a missing folder, 18 if `attributes` rules out all of them.
TRS8_BTL_API int FindFirst(const System::UnicodeString& path, int attributes, TSearchRec& found);
/// 0, or the error: 18 behind the last entry. An entry that is gone by now is passed over.
TRS8_BTL_API int FindNext(TSearchRec& found);
/// Frees the list of names. Left out, that happens with the end of the record.
TRS8_BTL_API void FindClose(TSearchRec& found);

/// Whether `name` fits `mask` as in `FindFirst`.
[[nodiscard]] TRS8_BTL_API bool FileNameFits(const System::UnicodeString& name,
                                             const System::UnicodeString& mask);

/// The path of `name` in the current directory, else in the first of the folders, parted by `;`, that holds
/// it; empty if none does.
[[nodiscard]] TRS8_BTL_API System::UnicodeString FileSearch(const System::UnicodeString& name,
                                                            const System::UnicodeString& folders);

} // namespace Sysutils
