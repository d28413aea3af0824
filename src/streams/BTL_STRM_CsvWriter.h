// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_TextWriter.h"

#include <initializer_list>
#include <memory>
#include <span>

namespace BTL
{

// Writes CSV, records of fields as RFC 4180 has them, so that a `CCsvReader` gets each text back as it was:
//
//     CCsvWriter out(u"measured.csv");
//     out.WriteRecord({u"Time", u"Voltage", u"Remark"});
//     out.WriteRecord(fields);                 // 10:15;"20;5 V";"said ""on"""
//     out.Close();                             // raises if the disk is full
//
//     UnicodeString line = CsvLine({u"a,b", u"c"}, u',');     // "\"a,b\",c"

/// The fields as a record without its line end. A field is put in quotes, and quotes in it doubled, if it
/// holds the delimiter, a quote or a line end, if a blank begins or ends it, or if it is the only one and
/// empty. `Sysutils::EArgumentException` if there are no fields, or if `delimiter` is `"`, CR or LF.
[[nodiscard]] TRS8_BTL_API System::UnicodeString CsvLine(std::span<const System::UnicodeString> fields,
                                                         System::WideChar delimiter = u';');
[[nodiscard]] TRS8_BTL_API System::UnicodeString CsvLine(std::initializer_list<System::UnicodeString> fields,
                                                         System::WideChar delimiter = u';');

/// Writes records, one a line or, with line ends in a field, several. The encoding is the matter of the
/// `CTextWriter`, which writes `?` or U+FFFD for characters that it lacks unless it is told to be strict.
class TRS8_BTL_API CCsvWriter
{
public:
    /// Creates or empties the file as `CTextWriter` does. `Sysutils::EArgumentException` if `delimiter` is
    /// `"`, CR or LF, or if lines have no ends by `form`.
    explicit CCsvWriter(const System::UnicodeString& path, System::WideChar delimiter = u';',
                        const TTextForm& form = {});
    /// As for a file, but at the position of `stream`, which must not be null and must live as long.
    explicit CCsvWriter(Classes::TStream* stream, System::WideChar delimiter = u';',
                        const TTextForm& form = {});
    /// As for a file, but behind what `lines` has written, which must live as long: `StandardOutput()`, a
    /// file that goes on.
    explicit CCsvWriter(CTextWriter& lines, System::WideChar delimiter = u';');
    CCsvWriter(const CCsvWriter&) = delete;
    CCsvWriter& operator=(const CCsvWriter&) = delete;
    /// As `Close`, but a failure is lost, and a `CTextWriter` that isn't owned stays open.
    ~CCsvWriter();

    /// Writes the fields by `CsvLine`; raises what that and `CTextWriter` raise, and has written nothing then
    /// of a record that can't be. The first field that it writes is also put in quotes if it begins with
    /// "ID" or beyond ASCII: programs would take the beginning of the file for that of another format, or for
    /// a byte order mark.
    void WriteRecord(std::span<const System::UnicodeString> fields);
    void WriteRecord(std::initializer_list<System::UnicodeString> fields);

    /// As `CTextWriter::Flush`.
    void Flush();
    /// As `CTextWriter::Close`.
    void Close();

private:
    CCsvWriter(std::unique_ptr<CTextWriter> lines, System::WideChar delimiter);

    std::unique_ptr<CTextWriter> mOwned;
    CTextWriter& mOut;
    System::WideChar mDelimiter;
    bool mIsFirst = true;
};

} // namespace BTL
