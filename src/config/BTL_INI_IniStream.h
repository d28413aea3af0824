// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_Ini.h"
#include "config/BTL_INI_IniStreamImp.h"
#include "platform/runtime/classes/Classes_Stream.h"

#include <concepts>

namespace BTL
{

/// In which coding the values of an ini text are loaded: any value but 0 is UTF-8.
enum EIniMode : int
{
    /// The system's code page.
    imAnsi = 0,
    imUTF8 = 1
};

/// Settings as ini text in any stream: in a memory block, a string, a part of a file. `CIniStreamImp` tells
/// what the text looks like and which texts don't come back. All is in memory between `Load` and `Save`.
///
///     BTL::CIniStream ini(&stream, true);                         // the stream stays the caller's
///     ini.setSection(u"Range");                                   // none is set after a load
///     const double upper = ini.ReadFloat("Upper", 10);
///     ini.WriteFloat("Upper", 2 * upper);
///     ini.Save();                                                 // replaces all that the stream holds
class TRS8_BTL_API CIniStream : public AIni
{
public:
    /// With no stream: `Save` and `Load` do nothing.
    CIniStream();
    /// Null is no stream.
    CIniStream(Classes::TStream* stream, bool load);
    /// Loads in that coding; later loads are those that are called.
    CIniStream(Classes::TStream* stream, EIniMode mode, bool load);
    /// As with a stream alone, and sets `file` as the name that `getFile` tells.
    CIniStream(Classes::TStream* stream, const System::UnicodeString& file, bool load);
    ~CIniStream() override;

    /// As of `CIniStreamImp`.
    void ReadHeadline();
    /// As `Save`, with values in the system's code page.
    void SaveAnsi();
    /// As `Load` and `Save`, of a stream that isn't kept; null does nothing.
    void LoadFromStream(Classes::TStream* stream);
    void SaveToStream(Classes::TStream* stream);
    /// The keys of all sections, or of one.
    int GetItemCount() const;
    int GetItemCount(const System::UnicodeString& section) const;
    /// The bytes of the stream; 0 without one.
    System::Int64 getStreamSize() const;

    /// The first line in front of all sections, empty for none. To load it there must be one already, or
    /// `ReadHeadline` be called.
    System::UnicodeString getHeadline() const;
    void setHeadline(const System::UnicodeString& headline);

    // What is told while the text is loaded and saved; empty closures hear nothing. They may use the stream,
    // which stands behind what was read or written so far, but must not change the store while it is saved.

    const TIniHeadlineEvent& getOnReadHeadline() const noexcept;
    void setOnReadHeadline(const TIniHeadlineEvent& event);
    const TIniLoadSectionEvent& getOnLoadSection() const noexcept;
    void setOnLoadSection(const TIniLoadSectionEvent& event);
    const TIniLoadKeyEvent& getOnLoadKey() const noexcept;
    void setOnLoadKey(const TIniLoadKeyEvent& event);
    const TIniSaveSectionEvent& getOnSaveSection() const noexcept;
    void setOnSaveSection(const TIniSaveSectionEvent& event);
    const TIniSaveKeyEvent& getOnSaveKey() const noexcept;
    void setOnSaveKey(const TIniSaveKeyEvent& event);

protected:
    CIniStreamImp& getStore() const noexcept { return *mStreamStore; }

private:
    explicit CIniStream(CIniStreamImp* store);

    CIniStreamImp* mStreamStore;
};

/// As `CIniStream`, with a stream of its own.
class TRS8_BTL_API CIniStreamEx : public CIniStream
{
public:
    /// With no stream, up to `setFile`.
    CIniStreamEx();
    /// Makes a new file, whose former content is lost. Raises as `Classes::TFileStream` does.
    CIniStreamEx(const System::UnicodeString& file, const System::UnicodeString& section);
    /// Opens the file by a mode of `Classes::TFileStream`, and raises as that does.
    CIniStreamEx(const System::UnicodeString& file, unsigned short mode, bool load);
    /// Takes the stream over; null is none.
    CIniStreamEx(Classes::TStream* stream, bool load);
    /// Ini text itself.
    template <std::same_as<bool> Flag>
    CIniStreamEx(const System::UnicodeString& text, Flag load) : CIniStreamEx(TextStream(text), load)
    {
    }
    ~CIniStreamEx() override;

    /// Gives the former stream up and reads the file, unless it is missing or empty; what the store held
    /// stays then. The file can't be saved: the stream only reads.
    void setFile(const System::UnicodeString& file);

private:
    static Classes::TStream* TextStream(const System::UnicodeString& text);
    void Bind(Classes::TStream* stream);

    System::GOwner<Classes::TStream> mOwned;
};

/// Ini text in a string, which is loaded at once.
///
///     BTL::CIniStringStream ini(u"[Range]\r\nUpper=10\r\n");
///     ini.setSection(u"Range");
class TRS8_BTL_API CIniStringStream : public CIniStream
{
public:
    CIniStringStream();
    explicit CIniStringStream(const System::UnicodeString& text);
    /// The bytes of a text, with values in UTF-8.
    explicit CIniStringStream(const System::AnsiString& text);
    explicit CIniStringStream(const char* text) : CIniStringStream(System::AnsiString(text)) {}
    ~CIniStringStream() override;

private:
    System::GOwner<Classes::TStream> mOwned;
};

} // namespace BTL
