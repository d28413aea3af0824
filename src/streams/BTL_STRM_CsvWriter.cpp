// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_CsvWriter.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/base/internal/System_Quoting.h"
#include "streams/internal/BTL_STRM_CsvDelimiter.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace BTL
{

using Classes::TStream;
using System::UnicodeString;
using System::WideChar;

namespace
{

using Fields = std::span<const UnicodeString>;

bool NeedsQuotes(std::u16string_view field, WideChar delimiter)
{
    if (field.empty()) {
        return false;
    }
    // Readers of others take blanks away there.
    if (System::Detail::IsAsciiSpace(field.front()) || System::Detail::IsAsciiSpace(field.back())) {
        return true;
    }
    return std::any_of(field.begin(), field.end(), [delimiter](WideChar unit) {
        return unit == delimiter || unit == Detail::CsvQuote || unit == u'\n' || unit == u'\r';
    });
}

bool LooksLikeOtherFormat(std::u16string_view beginning)
{
    return beginning.starts_with(u"ID") || (!beginning.empty() && beginning.front() > 0x7F);
}

enum class EFirstField
{
    AsNeeded,
    Quoted
};

UnicodeString Line(Fields fields, WideChar delimiter, EFirstField firstField)
{
    Detail::CheckedCsvDelimiter(delimiter);
    if (fields.empty()) {
        throw Sysutils::EArgumentException(u"A record has at least one field");
    }
    bool isQuoted = firstField == EFirstField::Quoted || (fields.size() == 1 && fields.front().IsEmpty());
    UnicodeString line;
    for (const UnicodeString& field : fields) {
        if (&field != fields.data()) {
            line += delimiter;
        }
        if (std::exchange(isQuoted, false) || NeedsQuotes(field, delimiter)) {
            System::Detail::AppendQuoted(line, field.AsView(), Detail::CsvQuote);
        } else {
            line += field;
        }
    }
    return line;
}

/// Raises what would make records that nobody can take apart.
void CheckForm(WideChar delimiter, const TTextForm& form)
{
    Detail::CheckedCsvDelimiter(delimiter);
    if (form.lineEnd == ELineEnd::None) {
        throw Sysutils::EArgumentException(u"Records need lines with ends");
    }
}

/// Checks before a file is emptied.
template <class Target>
std::unique_ptr<CTextWriter> NewWriter(const Target& target, WideChar delimiter, const TTextForm& form)
{
    CheckForm(delimiter, form);
    return std::make_unique<CTextWriter>(target, form);
}

} // namespace

UnicodeString CsvLine(Fields fields, WideChar delimiter)
{
    return Line(fields, delimiter, EFirstField::AsNeeded);
}

UnicodeString CsvLine(std::initializer_list<UnicodeString> fields, WideChar delimiter)
{
    return CsvLine(Fields(fields.begin(), fields.size()), delimiter);
}

// CCsvWriter

CCsvWriter::CCsvWriter(const UnicodeString& path, WideChar delimiter, const TTextForm& form)
    : CCsvWriter(NewWriter(path, delimiter, form), delimiter)
{
}

CCsvWriter::CCsvWriter(TStream* stream, WideChar delimiter, const TTextForm& form)
    : CCsvWriter(NewWriter(stream, delimiter, form), delimiter)
{
}

CCsvWriter::CCsvWriter(CTextWriter& lines, WideChar delimiter) : mOut(lines), mDelimiter(delimiter)
{
    CheckForm(delimiter, lines.getForm());
}

CCsvWriter::CCsvWriter(std::unique_ptr<CTextWriter> lines, WideChar delimiter)
    : mOwned(std::move(lines)), mOut(*mOwned), mDelimiter(delimiter)
{
}

CCsvWriter::~CCsvWriter() = default;

void CCsvWriter::WriteRecord(Fields fields)
{
    const bool isQuoted = mIsFirst && !fields.empty() && LooksLikeOtherFormat(fields.front());
    mOut.WriteLine(Line(fields, mDelimiter, isQuoted ? EFirstField::Quoted : EFirstField::AsNeeded));
    mIsFirst = false;
}

void CCsvWriter::WriteRecord(std::initializer_list<UnicodeString> fields)
{
    WriteRecord(Fields(fields.begin(), fields.size()));
}

void CCsvWriter::Flush()
{
    mOut.Flush();
}

void CCsvWriter::Close()
{
    mOut.Close();
}

} // namespace BTL
