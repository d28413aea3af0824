// SPDX-License-Identifier: MIT
#pragma once

#include "environment/BTL_RSRC_VersionInfo.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

/// Adds the version data of the files in a folder and those below it that fit `mask`, in the order of
/// `SearchDirForFiles`, each with `tag`. Files that have none are passed over.
///
///     BTL::CFileList addIns;
///     BTL::GetFileDescriptions(BTL::GetAddInsPath(), u"*.so", addIns, 0);
TRS8_BTL_API void GetFileDescriptions(const System::UnicodeString& folder, const System::UnicodeString& mask,
                                      CFileList& list, int tag);
/// As `GetFileDescriptions`, of the files named.
TRS8_BTL_API void AddFileDescriptions(const Classes::TStrings& files, CFileList& list, int tag);

} // namespace BTL
