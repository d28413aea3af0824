// SPDX-License-Identifier: MIT
#pragma once

#include "languages/BTL_ID_Strings.h"
#include "os/WIN_CriticalSection.h"
#include "platform/base/System_Owner.h"

#include <span>

namespace Classes
{
class TStringList;
} // namespace Classes

namespace BTL
{

/// The folder of a language file.
enum class EIDS_Path
{
    /// The name holds it.
    None = 0,
    /// `GetProgramIDSPath()`.
    ProgramIDS = 1,
    /// `GetBinPath()`.
    Bin = 2,
};

/// The fixed texts of a program or a part of one: a constant table has their numbers in the language file,
/// and ends with -1; the program asks by the places in this table. All texts are read at first use and kept.
/// A number that the file lacks, or each one if there is no file, gives a text that says so, and the log
/// tells of it once. Threads may ask at once, also while `Clear` or `Init` is called.
///
///     constexpr int Ids[] = {100000100, 100000110, -1};
///     BTL::AIDSFile texts(BTL::EIDS_Path::ProgramIDS, u"Station_German.ids", Ids);
///     const auto second = texts.GetString(1);                     // key 100000110
class TRS8_BTL_API AIDSFile : public AID_Strings
{
public:
    /// Without a file, until `Init` tells it. `ids` isn't copied and must outlive the object; null is an
    /// empty table.
    explicit AIDSFile(const int* ids);
    /// The section "IDS" of `file`.
    AIDSFile(const System::UnicodeString& file, const int* ids);
    AIDSFile(EIDS_Path where, const System::UnicodeString& file, const int* ids);
    /// `path` is put in front of `file` as it is.
    AIDSFile(const System::UnicodeString& path, const System::UnicodeString& file,
             const System::UnicodeString& section, const int* ids);
    AIDSFile(const AIDSFile&) = delete;
    AIDSFile& operator=(const AIDSFile&) = delete;
    ~AIDSFile() override;

    /// Takes another section and file, from the next text on. `path` is put in front of `file` as it is.
    void Init(const System::UnicodeString& section, const System::UnicodeString& file,
              const System::UnicodeString& path);
    /// Puts `path` in front of the name of the file that it has; with `check` as `ExistsCheck` then.
    void InitWithPath(const System::UnicodeString& path, bool check);
    /// Forgets the texts, so that the next one asked for is read from the file anew.
    void Clear();

    /// Whether the file is there.
    bool Exists();
    /// As `Exists`, but a box tells if it isn't.
    bool ExistsCheck();

    /// The text at a place of the table, from 0. `Classes::EStringListError` beyond its end.
    System::UnicodeString GetString(int index) override;
    /// As `GetString`, but read from the file at each call, and `defaultValue`, with its escapes applied, if
    /// it isn't there. A place beyond the end of the table gets it too.
    System::UnicodeString GetStringDef(int index, const System::UnicodeString& defaultValue) override;

protected:
    TOrigin GetOrigin(int index) override;

private:
    struct TPlaceOfFile
    {
        System::UnicodeString file;
        System::UnicodeString section;
    };

    TPlaceOfFile PlaceOfFile();
    std::span<const int> TableOfIds() const;
    Classes::TStringList& LoadedStrings();
    System::GOwner<Classes::TStringList> LoadStrings() const;

    WIN::CCriticalSectionObject mLock;
    System::UnicodeString mFile;
    System::UnicodeString mSection;
    const int* mIds;
    System::GOwner<Classes::TStringList> mStrings;
};

} // namespace BTL
