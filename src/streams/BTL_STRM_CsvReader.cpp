// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_CsvReader.h"

#include "streams/internal/BTL_STRM_CsvDelimiter.h"
#include "streams/internal/BTL_STRM_LineEnd.h"

#include <algorithm>
#include <exception>
#include <string_view>
#include <utility>

namespace BTL
{

using Classes::TStream;
using Detail::CsvQuote;
using System::Int64;
using System::UnicodeString;
using System::WideChar;
using Sysutils::TEncoding;

namespace
{

UnicodeString PlaceText(Int64 line, int place)
{
    const UnicodeString text = u"Line " + UnicodeString(line);
    return place == 0 ? text : text + u", character " + UnicodeString(place);
}

/// A place in a line from 1 on.
int PlaceOf(std::size_t unit)
{
    return static_cast<int>(unit) + 1;
}

} // namespace

// ECsvFault

ECsvFault::ECsvFault(ECsvProblem problem, Int64 line, int place, const UnicodeString& text,
                     const UnicodeString& what)
    : EConvertError(PlaceText(line, place) + u": " + what),
      mProblem(problem),
      mLine(line),
      mPlace(place),
      mText(text)
{
}

ECsvFault::~ECsvFault() = default;

// CCsvReader

struct CCsvReader::TLine
{
    std::u16string_view View() const noexcept { return text.AsView(); }
    ECsvFault Fault(ECsvProblem problem, int place, const UnicodeString& what) const
    {
        return {problem, number, place, text, what};
    }

    UnicodeString text;
    ELineEnd end = ELineEnd::None;
    Int64 number = 0;
    /// Why it is no text in its encoding; null if it is one.
    std::exception_ptr textFault;
};

struct CCsvReader::TPlace
{
    std::size_t line;
    std::size_t unit;
};

CCsvReader::CCsvReader(const UnicodeString& path, WideChar delimiter, const TEncoding& encoding,
                       EDecoding decoding)
    : CCsvReader(std::make_unique<CTextReader>(path, encoding, decoding), delimiter)
{
}

CCsvReader::CCsvReader(TStream* stream, WideChar delimiter, const TEncoding& encoding, EDecoding decoding)
    : CCsvReader(std::make_unique<CTextReader>(stream, encoding, decoding), delimiter)
{
}

CCsvReader::CCsvReader(CTextReader& lines, WideChar delimiter)
    : mIn(lines), mDelimiter(Detail::CheckedCsvDelimiter(delimiter))
{
}

CCsvReader::CCsvReader(std::unique_ptr<CTextReader> lines, WideChar delimiter)
    : mOwned(std::move(lines)), mIn(*mOwned), mDelimiter(Detail::CheckedCsvDelimiter(delimiter))
{
}

CCsvReader::~CCsvReader() = default;

bool CCsvReader::ReadRecord(std::vector<UnicodeString>& fields)
{
    fields.clear();
    if (!FindRecord()) {
        return false;
    }
    mFirst = mUsed;
    mRecordLine = mLines[mFirst].number;
    TakeFields(fields);
    CheckRecord(fields.size());
    return true;
}

bool CCsvReader::ReadHeader()
{
    mHeader.clear();
    std::vector<UnicodeString> names;
    if (!ReadRecord(names)) {
        return false;
    }
    mHeader = std::move(names);
    mHeaderLine = mRecordLine;
    mHeaderText = mLines[mFirst].text;
    return true;
}

std::size_t CCsvReader::ColumnOf(const UnicodeString& name) const
{
    const auto found = std::find(mHeader.begin(), mHeader.end(), name);
    if (found == mHeader.end()) {
        throw ECsvFault(ECsvProblem::NoSuchField, mHeaderLine, 0, mHeaderText,
                        u"there is no field '" + name + u"'");
    }
    return static_cast<std::size_t>(found - mHeader.begin());
}

void CCsvReader::setDelimiter(WideChar delimiter)
{
    mDelimiter = Detail::CheckedCsvDelimiter(delimiter);
}

WideChar CCsvReader::FindDelimiter()
{
    if (!HasLine(mUsed)) {
        return mDelimiter;
    }
    // In a line with decimal commas there are more of these than of what is looked for.
    constexpr std::u16string_view candidates = u";\t,";
    std::size_t best = candidates.size();
    bool isQuoted = false;
    for (const WideChar unit : mLines[mUsed].View()) {
        isQuoted = isQuoted != (unit == CsvQuote);
        best = isQuoted ? best : std::min(best, candidates.find(unit));
    }
    if (best < candidates.size()) {
        mDelimiter = candidates[best];
    }
    return mDelimiter;
}

CCsvReader::CRecordIterator& CCsvReader::CRecordIterator::operator++()
{
    mIsAtEnd = !mReader->ReadRecord(mReader->mRecord);
    return *this;
}

/// Whether there is a line of that index in `mLines`, for which the next one may have to be read.
bool CCsvReader::HasLine(std::size_t index)
{
    if (index < mLines.size()) {
        return true;
    }
    TLine line;
    try {
        if (!mIn.ReadLine(line.text)) {
            return false;
        }
    } catch (const ETextFault& fault) {
        // Where its record ends shows only in its text.
        line.text = fault.getText();
        line.textFault = std::current_exception();
    }
    line.end = mIn.getLineEnd();
    line.number = mIn.getLineNumber();
    mLines.push_back(std::move(line));
    return true;
}

/// Whether there is a next record; it begins with the line `mUsed`.
bool CCsvReader::FindRecord()
{
    for (;; ++mUsed) {
        DropUsedLines();
        if (!HasLine(mUsed)) {
            return false;
        }
        const TLine& line = mLines[mUsed];
        if (mHeader.size() < 2 || !line.text.IsEmpty() || line.textFault) {
            return true;
        }
    }
}

/// Moves lines only where that costs no more than reading those did that go.
void CCsvReader::DropUsedLines()
{
    if (mUsed >= mLines.size() - mUsed) {
        mLines.erase(mLines.begin(), mLines.begin() + static_cast<std::ptrdiff_t>(mUsed));
        mUsed = 0;
    }
}

void CCsvReader::TakeFields(std::vector<UnicodeString>& fields)
{
    TPlace at{mUsed, 0};
    for (;; ++at.unit) {
        // Whatever is raised, reading goes on behind this line.
        mUsed = at.line + 1;
        const bool isQuoted = mLines[at.line].View().substr(at.unit).starts_with(CsvQuote);
        fields.push_back(isQuoted ? TakeQuotedField(at) : TakeBareField(at));
        if (at.unit == mLines[at.line].View().size()) {
            mUsed = at.line + 1;
            return;
        }
    }
}

/// The field at a place, which moves to what ends it.
UnicodeString CCsvReader::TakeBareField(TPlace& at) const
{
    const TLine& line = mLines[at.line];
    const std::u16string_view rest = line.View().substr(at.unit);
    const auto* const end = std::find_if(
        rest.begin(), rest.end(), [this](WideChar unit) { return unit == mDelimiter || unit == CsvQuote; });
    const auto length = static_cast<std::size_t>(end - rest.begin());
    at.unit += length;
    if (end != rest.end() && *end == CsvQuote) {
        throw line.Fault(ECsvProblem::QuoteInField, PlaceOf(at.unit),
                         u"a quote in a field that isn't quoted");
    }
    return UnicodeString(rest.substr(0, length));
}

/// As `TakeBareField`, but for one that begins with a quote; the place may move to a later line.
UnicodeString CCsvReader::TakeQuotedField(TPlace& at)
{
    const TPlace begin = at;
    const auto fault = [&](ECsvProblem problem, const UnicodeString& what) {
        return mLines[begin.line].Fault(problem, PlaceOf(begin.unit), what);
    };
    UnicodeString field;
    ++at.unit;
    for (;;) {
        const std::u16string_view text = mLines[at.line].View();
        const std::size_t quote = text.find(CsvQuote, at.unit);
        field.Append(text.substr(at.unit, quote - at.unit));
        if (quote == std::u16string_view::npos) {
            field.Append(Detail::EndText(mLines[at.line].end));
            at = {at.line + 1, 0};
            if (!HasLine(at.line)) {
                throw fault(ECsvProblem::UnclosedQuote, u"a quoted field without its closing quote");
            }
            continue;
        }
        at.unit = quote + 1;
        if (at.unit == text.size() || text[at.unit] == mDelimiter) {
            return field;
        }
        if (text[at.unit] != CsvQuote) {
            throw fault(ECsvProblem::TextBehindQuote,
                        u"a quoted field that goes on behind its closing quote in line " +
                            UnicodeString(mLines[at.line].number) + u", character " +
                            UnicodeString(PlaceOf(quote)));
        }
        field += CsvQuote;
        ++at.unit;
    }
}

/// Raises what is wrong with a record as a whole.
void CCsvReader::CheckRecord(std::size_t count) const
{
    for (std::size_t i = mFirst; i < mUsed; ++i) {
        if (mLines[i].textFault) {
            std::rethrow_exception(mLines[i].textFault);
        }
    }
    if (!mHeader.empty() && count != mHeader.size()) {
        throw mLines[mFirst].Fault(ECsvProblem::FieldCount, 0,
                                   UnicodeString(static_cast<Int64>(count)) +
                                       u" fields, where the header has " +
                                       UnicodeString(static_cast<Int64>(mHeader.size())));
    }
}

} // namespace BTL
