// SPDX-License-Identifier: MIT
#pragma once

#include "languages/BTL_ID_Ini.h"

namespace BTL
{

/// The language file of a program or a part of one: named by a prefix, it lies with the other ones of the
/// program.
///
///     BTL::Ci18nIniFile texts(u"Station", nullptr);               // Station_German.ids, nine digits
///     if (texts.Exists(12)) { ... }
///     texts.WriteString(12, u"two\nlines");
class TRS8_BTL_API Ci18nIniFile : public CIDSIniFile
{
public:
    /// Without a file, until `Init` tells it.
    Ci18nIniFile();
    /// As `Init` of a prefix.
    Ci18nIniFile(const System::UnicodeString& prefix, const char* format);
    Ci18nIniFile(const System::UnicodeString& file, const System::UnicodeString& section, const char* format);
    ~Ci18nIniFile() override;

    /// The section "IDS" of the file `prefix` and "_German.ids" in `GetProgramIDSPath()`. A null `format` of
    /// the keys means "000000000".
    void Init(const System::UnicodeString& prefix, const char* format);
    /// As `Init` of a prefix, with all parts given; `path` is put in front of `file` as it is.
    void Init(const System::UnicodeString& section, const System::UnicodeString& file,
              const System::UnicodeString& path, const char* format);

    /// Whether the file is there.
    bool Exists();
    /// Whether it has a text of this number that isn't empty.
    bool Exists(int id);

    using CIDSIniFile::WriteString;
    /// As `WriteIDString`.
    void WriteString(int id, const System::UnicodeString& text);
};

} // namespace BTL
