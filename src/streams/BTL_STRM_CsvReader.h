// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"
#include "streams/BTL_STRM_TextReader.h"

#include <cstddef>
#include <iterator>
#include <memory>
#include <vector>

namespace BTL
{

/// What is wrong with a record.
enum class ECsvProblem
{
    /// A quote within a field that doesn't begin with one: `5" pipe`, and `"b"` behind a blank.
    QuoteInField,
    /// A quoted field that goes on behind its closing quote: `"a"x`.
    TextBehindQuote,
    /// A quoted field that is open at the end of all.
    UnclosedQuote,
    /// A record with more or fewer fields than the header.
    FieldCount,
    /// A header without the field that is asked for.
    NoSuchField
};

/// A record that a `CCsvReader` can't take.
class TRS8_BTL_API ECsvFault : public Sysutils::EConvertError
{
public:
    ECsvFault(ECsvProblem problem, System::Int64 line, int place, const System::UnicodeString& text,
              const System::UnicodeString& what);
    ~ECsvFault() override;

    ECsvProblem getProblem() const noexcept { return mProblem; }
    /// The line in which the field with the fault begins; that of the record, or of the header, if it is the
    /// fault of no single field. From 1 on.
    System::Int64 getLine() const noexcept { return mLine; }
    /// The place in that line of the quote that opens the field, or of that within an unquoted one, in units
    /// of the text from 1 on; 0 if it is the fault of no single field.
    int getPlace() const noexcept { return mPlace; }
    /// That line, without its end.
    const System::UnicodeString& getText() const noexcept { return mText; }

private:
    ECsvProblem mProblem;
    System::Int64 mLine;
    int mPlace;
    System::UnicodeString mText;
};

// Reads CSV, records of fields as RFC 4180 has them, from files and streams of all kinds:
//
//     CCsvReader in(u"measured.csv");          // 10:15;"20,5 V";"said ""on"""
//     for (const std::vector<UnicodeString>& fields : in) {
//         Use(in.getLineNumber(), fields);
//     }
//
//     CCsvReader in(u"measured.csv", u',', TEncoding(1252), EDecoding::Strict);
//     if (in.ReadHeader()) {
//         const std::size_t volts = in.ColumnOf(u"Voltage");
//         for (std::vector<UnicodeString> fields; in.ReadRecord(fields);) { Use(fields[volts]); }
//     }

/// Reads records forwards, in time that is linear in the text. Fields stand between delimiters and lose
/// nothing, neither blanks nor empty ones. One that begins with `"` goes to the next single `"`, over
/// delimiters and line ends, which stay as they are; `""` in it is a quote. A record ends with its line, by
/// LF, CR LF or CR, the last one also without; an empty line is a record of one empty field.
///
/// What isn't so raises `ECsvFault`. Reading then goes on behind `getLine()` of the fault, so that a stray
/// quote costs its line and not the rest of the file; behind the record if it has the wrong count of fields.
/// `ETextFault` of a line comes when its record is read, which is lost as a whole.
class TRS8_BTL_API CCsvReader
{
public:
    /// Opens the file as `CTextReader` does. Files whose numbers have a decimal comma mostly have `;` between
    /// fields; `FindDelimiter` looks what a file has. `Sysutils::EArgumentException` if `delimiter` is `"`,
    /// CR or LF.
    explicit CCsvReader(const System::UnicodeString& path, System::WideChar delimiter = u';',
                        const Sysutils::TEncoding& encoding = Sysutils::TEncoding(System::CP_UTF8),
                        EDecoding decoding = EDecoding::Lenient);
    /// As for a file, but from the position of `stream` on, which must not be null and must live as long.
    explicit CCsvReader(Classes::TStream* stream, System::WideChar delimiter = u';',
                        const Sysutils::TEncoding& encoding = Sysutils::TEncoding(System::CP_UTF8),
                        EDecoding decoding = EDecoding::Lenient);
    /// As for a file, but from the next line of `lines` on, as of `StandardInput()`, which must live as long.
    explicit CCsvReader(CTextReader& lines, System::WideChar delimiter = u';');
    CCsvReader(const CCsvReader&) = delete;
    CCsvReader& operator=(const CCsvReader&) = delete;
    ~CCsvReader();

    /// The fields of the next record, at least one; false, and none, if there is no record. After a fault
    /// `fields` has what came in front of it: all if a line is no text or the count is wrong.
    bool ReadRecord(std::vector<System::UnicodeString>& fields);
    /// The line, from 1 on, in which the record that was read last begins; 0 in front of the first.
    System::Int64 getLineNumber() const noexcept { return mRecordLine; }

    /// Takes the next record for the names of the fields; false if there is none. From then on each record
    /// has as many fields, or raises `ECsvFault`; empty lines are passed over if that is more than one.
    bool ReadHeader();
    /// The names, empty without `ReadHeader`.
    const std::vector<System::UnicodeString>& getHeader() const noexcept { return mHeader; }
    /// The index from 0 on of the first field with just that name; `ECsvFault` if the header has none.
    std::size_t ColumnOf(const System::UnicodeString& name) const;

    /// What fields have between them.
    System::WideChar getDelimiter() const noexcept { return mDelimiter; }
    /// From the next record on. `Sysutils::EArgumentException` for `"`, CR and LF.
    void setDelimiter(System::WideChar delimiter);
    /// Looks at the next line, usually the first, for the delimiter, takes it from then on and gives it: `;`
    /// if the line has one outside quotes, else a tab, else `,`; without any it stays what it is.
    System::WideChar FindDelimiter();

    /// Reads on with each step.
    class TRS8_BTL_API CRecordIterator
    {
    public:
        /// Records are read once, so that only one walk is possible.
        using iterator_concept = std::input_iterator_tag;
        using value_type = std::vector<System::UnicodeString>;
        using difference_type = std::ptrdiff_t;

        explicit CRecordIterator(CCsvReader& reader) : mReader(&reader) { ++*this; }

        /// Valid until the next step.
        const value_type& operator*() const noexcept { return mReader->mRecord; }
        CRecordIterator& operator++();
        void operator++(int) { ++*this; }
        bool operator==(std::default_sentinel_t) const noexcept { return mIsAtEnd; }

    private:
        CCsvReader* mReader;
        bool mIsAtEnd = false;
    };

    /// The records from the next one on, as `ReadRecord` gives them. After a fault a new walk goes on.
    CRecordIterator begin() { return CRecordIterator(*this); }
    static std::default_sentinel_t end() noexcept { return {}; }

private:
    struct TLine;
    struct TPlace;

    CCsvReader(std::unique_ptr<CTextReader> lines, System::WideChar delimiter);

    bool HasLine(std::size_t index);
    bool FindRecord();
    void DropUsedLines();
    void TakeFields(std::vector<System::UnicodeString>& fields);
    System::UnicodeString TakeBareField(TPlace& at) const;
    System::UnicodeString TakeQuotedField(TPlace& at);
    void CheckRecord(std::size_t count) const;

    std::unique_ptr<CTextReader> mOwned;
    CTextReader& mIn;
    System::WideChar mDelimiter;
    /// Lines that were read. The record that was read last, or the fault in it, used the first `mUsed`.
    /// Others were read to find that fault, and are taken once more.
    std::vector<TLine> mLines;
    std::size_t mUsed = 0;
    /// Where among them the record begins.
    std::size_t mFirst = 0;
    System::Int64 mRecordLine = 0;
    std::vector<System::UnicodeString> mHeader;
    System::Int64 mHeaderLine = 0;
    System::UnicodeString mHeaderText;
    /// That of an iterator.
    std::vector<System::UnicodeString> mRecord;
};

} // namespace BTL
