// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <utility>

namespace BTL
{

/// Adds to a file's stream what reads a simple data file. What isn't told here is as the function of that
/// name in the utilities for the stream. For `CFileInStream` and `std::ifstream`. The state follows the rule
/// that stands with `AStream`; a `std::ifstream` sets fail also for a last piece without its end, whose text
/// it gives nevertheless.
///
///     CFileInStreamEx in(u"row.txt");
///     for (AnsiString field = in.ReadUntil(';'); in; field = in.ReadUntil(';')) {
///         Use(field);
///     }
template <class Stream>
class TRS8_BTL_API GDataFile : public Stream
{
public:
    const System::UnicodeString& getFileName() const noexcept { return mFileName; }

    /// As the functions of these names in the utilities for the stream.
    void SkipLine();
    void SkipUntil(char c);
    void SkipBytes(int count);
    void SkipWhitespaces();

    // Fields of one character: the one behind it is read too. The character is 0 if there is none.

    char ReadTypeChar();
    char ReadOpChar() { return ReadTypeChar(); }
    /// A field that `marker` may stand in front of; the result tells whether it did.
    bool ReadTypeCharEx(char& c, char marker);

    /// As the functions of these names in the utilities for the stream.
    int ReadInteger();
    int ReadIntegerDef(int defaultValue);
    int ReadIntegerUnget(int defaultValue);
    System::Int64 ReadInt64();
    System::Int64 ReadInt64Unget(System::Int64 defaultValue);
    /// All up to the delimiter must be a number, else `Sysutils::EConvertError`.
    int ReadInteger(char delimiter);
    System::Int64 ReadInt64(char delimiter);

    /// As `operator>>`.
    System::AnsiString ReadString();
    System::AnsiString ReadUntil(char delimiter);
    System::AnsiString ReadUntil(const System::AnsiString& delimiters);
    System::AnsiString ReadBytes(int count);

    System::AnsiString getCurrStrLine();

protected:
    /// The arguments make the stream.
    template <class... Arguments>
    explicit GDataFile(const System::UnicodeString& path, Arguments&&... arguments)
        : Stream(std::forward<Arguments>(arguments)...), mFileName(path)
    {
    }
    ~GDataFile() override = default;

    /// How many line feeds stand in front of a position, from the last time somebody asked.
    struct TLineCount
    {
        System::Int64 position = 0;
        System::Int64 lines = 0;
    };
    TLineCount mLineCount;

private:
    System::UnicodeString mFileName;
};

} // namespace BTL
