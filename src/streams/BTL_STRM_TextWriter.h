// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "streams/BTL_STRM_Stream.h"
#include "streams/BTL_STRM_TextForm.h"

#include <memory>

namespace BTL
{

/// A character that the encoding lacks, where a `CTextWriter` or `BytesOfText` encodes strictly.
class TRS8_BTL_API ECharacterFault : public Sysutils::EConvertError
{
public:
    ECharacterFault(int place, char32_t character);
    /// Of the character at a 1-based place of `text`.
    ECharacterFault(std::u16string_view text, int place);
    ~ECharacterFault() override;

    /// The place of the character in the text that was to be written, in units of that text from 1 on; 0 if
    /// it came with a text before.
    int getPlace() const noexcept { return mPlace; }
    /// Its code; that of a lone surrogate is in 0xD800 to 0xDFFF.
    char32_t getCharacter() const noexcept { return mCharacter; }
    /// The message without the place, "U+2126: not in the encoding that is written", for a program that has a
    /// place of its own to tell: a file and a line, where the text is one of many.
    System::UnicodeString getReason() const;

private:
    int mPlace;
    char32_t mCharacter;
};

// Writes a text file, or text to any stream:
//
//     CTextWriter out(u"results.txt");
//     for (const UnicodeString& line : lines) {
//         out.WriteLine(line);
//     }
//     out.Close();                         // raises if the disk is full
//
//     CTextWriter log(u"log.txt", fomAppend, {.lineEnd = ELineEnd::CRLF});
//     CTextWriter old(u"old.txt", {.encoding = TEncoding(1252), .strictness = EEncoding::Strict});

/// Writes text in an encoding, usually UTF-8. What can't be written raises `Classes::EWriteError`; a file
/// gathers small pieces, so that a full disk may show no sooner than at `Flush` or `Close`. Characters that a
/// code page lacks become `?`, or raise `ECharacterFault` with `EEncoding::Strict`: nothing of that text is
/// written then, and writing can go on with another one.
class TRS8_BTL_API CTextWriter
{
public:
    /// Creates or empties the file, or goes on behind what it holds with `fomAppend`; others may read it
    /// meanwhile. `Classes::EFCreateError` or `Classes::EFOpenError` if it can't be opened.
    explicit CTextWriter(const System::UnicodeString& path, EFileOpenMode mode = fomCreate,
                         const TTextForm& form = {});
    CTextWriter(const System::UnicodeString& path, const TTextForm& form);
    /// Writes at the position of `stream`, which must not be null and must live as long.
    explicit CTextWriter(Classes::TStream* stream, const TTextForm& form = {});
    /// As for a stream that lives elsewhere, but owns it.
    explicit CTextWriter(std::unique_ptr<Classes::TStream> stream, const TTextForm& form = {});
    CTextWriter(const CTextWriter&) = delete;
    CTextWriter& operator=(const CTextWriter&) = delete;
    /// As `Close`, but a failure is lost.
    ~CTextWriter();

    /// Writes the text as it is. A surrogate pair may come in two pieces; a first half whose second one
    /// doesn't come is a fault of the text behind it, or of `Close`, and is given up with that.
    void Write(const System::UnicodeString& text);
    /// Writes the text and the line end of the form.
    void WriteLine(const System::UnicodeString& text = {});

    /// Hands all to the host, so that other programs see it.
    void Flush();
    /// Writes all and ends the work on the stream, which is closed if it is owned. Further writing raises
    /// `Classes::EStreamError`.
    void Close();

    const TTextForm& getForm() const noexcept { return mForm; }

private:
    void WriteText(System::UnicodeString text);
    void WriteBytes(std::string_view bytes);
    System::RawByteString Encoded(const System::UnicodeString& text, int before);

    std::unique_ptr<Classes::TStream> mOwned;
    /// Null when closed.
    Classes::TStream* mStream;
    TTextForm mForm;
    bool mNeedsMark;
    /// The first half of a pair, whose second half may follow; 0 for none.
    System::WideChar mHalf = 0;
};

} // namespace BTL
