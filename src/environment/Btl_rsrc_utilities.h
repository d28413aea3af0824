// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <vector>

namespace BTL
{

// What a program, a library or an add-in says of itself: texts that the CMake function `trs8_btl_version`
// puts into the file.
//
//     BTL::CVersionInfo info;
//     if (BTL::ReadVersionInfo(Forms::Application->getExeName(), info)) {
//         Show(info.Product + u' ' + info.ProductVersion);
//     }
//     unsigned major = 0, minor = 0, release = 0, build = 0;
//     BTL::GetFileVersionNos(major, minor, release, build);       // of the running program

/// The version data of a file. In front of each field stands the key that it is read from. A `&` of company,
/// product, comments, copyright and trademarks stands twice, so that a label shows it as one.
struct CVersionInfo
{
    /// "OriginalFilename".
    System::UnicodeString OriginalFilename;
    /// "InternalName".
    System::UnicodeString InternalName;
    /// "Autor".
    System::UnicodeString Author;
    /// "FileDescription".
    System::UnicodeString Description;
    /// "FileVersion".
    System::UnicodeString FileVersion;
    /// "Dateidatum".
    System::UnicodeString FileDate;
    /// "Builder".
    System::UnicodeString Builder;
    /// For the caller's use; reading leaves it alone.
    System::UnicodeString Reserved;
    /// "CompanyName".
    System::UnicodeString Company;
    /// "ProductName".
    System::UnicodeString Product;
    /// "ProductVersion".
    System::UnicodeString ProductVersion;
    /// "Comments".
    System::UnicodeString Comments;
    /// "LegalCopyright".
    System::UnicodeString Copyright;
    /// "LegalTrademarks"; "Not available!" without that key.
    System::UnicodeString Trademarks;
    /// The file that was read, by the name it was asked for.
    System::UnicodeString File;
    /// A number of the caller's.
    int Tag = 0;
};

/// The version data of several files; what is read goes to the end.
using CFileList = std::vector<CVersionInfo>;

/// Reads the version data of a file, with the tag 0. A key that isn't there leaves its field empty. False,
/// with `info` as it was, for a file that has none or can't be read. False also for damaged data, which don't
/// tell their language: then company, copyright and trademarks are "TARMIS", the comments "No Versioninfo
/// available!", and all else is empty.
TRS8_BTL_API bool ReadVersionInfo(const System::UnicodeString& file, CVersionInfo& info);
TRS8_BTL_API bool ReadVersionInfo(const System::WideChar* file, CVersionInfo& info);

/// Reads the version data of `file` and takes the version of the file as four numbers, by
/// `VersionStrToVersionNos`, whose result it gives: false for a text that is no version, true with four zeros
/// for a file without version data.
TRS8_BTL_API bool GetFileVersionNos(const System::UnicodeString& file, unsigned& a, unsigned& b, unsigned& c,
                                    unsigned& d);
/// As the form with a file, of the running program.
TRS8_BTL_API bool GetFileVersionNos(unsigned& a, unsigned& b, unsigned& c, unsigned& d);
/// As `GetFileVersionNos`, but of the version of the product.
TRS8_BTL_API bool GetProductVersionNos(const System::UnicodeString& file, unsigned& a, unsigned& b,
                                       unsigned& c, unsigned& d);
/// As the form with a file, of the running program.
TRS8_BTL_API bool GetProductVersionNos(unsigned& a, unsigned& b, unsigned& c, unsigned& d);

} // namespace BTL
