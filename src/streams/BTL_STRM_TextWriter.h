// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"
#include "streams/BTL_STRM_Stream.h"
#include "streams/BTL_STRM_TextForm.h"

#include <memory>

namespace BTL
{

// Writes a text file, or text to any stream:
//
//     CTextWriter out(u"results.txt");
//     for (const UnicodeString& line : lines) {
//         out.WriteLine(line);
//     }
//     out.Close();                         // raises if the disk is full
//
//     CTextWriter log(u"log.txt", fomAppend, {.lineEnd = ELineEnd::CRLF});

/// Writes text in an encoding, usually UTF-8. What can't be written raises `Classes::EWriteError`; a file
/// gathers small pieces, so that a full disk may show no sooner than at `Flush` or `Close`. Characters that a
/// code page lacks become `?`.
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

    /// Writes the text as it is. A surrogate pair may come in two pieces.
    void Write(const System::UnicodeString& text);
    /// Writes the text and the line end of the form.
    void WriteLine(const System::UnicodeString& text = {});

    /// Hands all to the host, so that other programs see it.
    void Flush();
    /// Writes all and ends the work on the stream, which is closed if it is owned. Further writing raises
    /// `Classes::EStreamError`.
    void Close();

private:
    void WriteText(System::UnicodeString text);
    void WriteBytes(std::string_view bytes);
    void WriteHalf();

    std::unique_ptr<Classes::TStream> mOwned;
    /// Null when closed.
    Classes::TStream* mStream;
    TTextForm mForm;
    bool mNeedsMark;
    /// The first half of a pair, whose second half may follow; 0 for none.
    System::WideChar mHalf = 0;
};

} // namespace BTL
