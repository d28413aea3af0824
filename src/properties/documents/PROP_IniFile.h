// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/base/System_String.h"

namespace PROP
{

class ADocument;

// How documents stand in files. Both forms keep in the section "__INFO__" who made the file and when
// ("CreationAuthor..", "CreationDateTime"), who changed it last and when ("ChangeAuthor....",
// "ChangeDate......"), and what its translator notes of the state ("Translation.....", "?" in a new file).
// Times are written as the user's locale has them.
//
//     PROP::CSectionFormatIniFile(&document, u"texts.txt").Write();
//
// A file is written in one step, under the rules of `Host_Profile.h`; its folder is made. What the file can't
// hold is left out and told in one warning before the file is touched. `Sysutils::Exception` if it can't be
// written. Values and lists of names are read at any length.

/// Each object in a section of its name, each property under a key of its name.
class TRS8_BTL_API CSectionFormatIniFile
{
public:
    /// The document isn't owned; null is an internal fault, and nothing is read or written if the user lets
    /// that pass.
    CSectionFormatIniFile(ADocument* document, const System::UnicodeString& fileName);
    CSectionFormatIniFile(const CSectionFormatIniFile&) = delete;
    CSectionFormatIniFile& operator=(const CSectionFormatIniFile&) = delete;
    ~CSectionFormatIniFile();

    /// Adds an object for each section but "__INFO__" and one without a name ("[]"). Errors of the objects
    /// pass.
    void Read();
    /// Writes each object in place of its section, in the order of the names. Sections of other objects stay.
    void Write();

private:
    class CImp;
    System::GOwner<CImp> mImp;
};

/// All objects in one section, each under a key of its name, with its short form in brackets as the value.
class TRS8_BTL_API CKeyFormatIniFile
{
public:
    /// As of `CSectionFormatIniFile`.
    CKeyFormatIniFile(ADocument* document, const System::UnicodeString& fileName,
                      const System::UnicodeString& section);
    CKeyFormatIniFile(const CKeyFormatIniFile&) = delete;
    CKeyFormatIniFile& operator=(const CKeyFormatIniFile&) = delete;
    ~CKeyFormatIniFile();

    /// Adds an object for each key.
    void Read();
    /// Writes the objects, in the order of adding, in place of all that was in the section.
    void Write();

private:
    class CImp;
    System::GOwner<CImp> mImp;
};

} // namespace PROP
