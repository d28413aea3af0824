// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_CsvReader.h"
#include "streams/BTL_STRM_CsvWriter.h"
#include "support/Fuzz.h"

#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

namespace
{

using Classes::TMemoryStream;
using Fuzz::Require;
using System::CodePage;
using System::Int64;
using System::UnicodeString;
using System::WideChar;
using Sysutils::TEncoding;

using Record = std::vector<UnicodeString>;

/// The records of all that isn't refused. Whatever comes, reading gets on.
std::vector<Record> ReadAll(BTL::CCsvReader& reader)
{
    std::vector<Record> records;
    Record fields;
    Int64 lastFault = 0;
    for (bool more = true; more;) {
        const Int64 before = reader.getLineNumber();
        try {
            more = reader.ReadRecord(fields);
        } catch (const BTL::ECsvFault& fault) {
            Require(fault.getLine() >= reader.getLineNumber() && fault.getLine() > lastFault);
            Require(fault.getPlace() >= 1 && fault.getText()[fault.getPlace()] == u'"');
            lastFault = fault.getLine();
            continue;
        } catch (const BTL::ETextFault& fault) {
            Require(fault.getLine() >= reader.getLineNumber());
            continue;
        }
        Require(fields.empty() != more && (!more || reader.getLineNumber() > before));
        if (more) {
            records.push_back(fields);
        }
    }
    return records;
}

/// What is written is read back.
void CheckWritten(const std::vector<Record>& records, WideChar delimiter, CodePage codePage)
{
    TMemoryStream stream;
    BTL::CCsvWriter out(&stream, delimiter, {.encoding = TEncoding(codePage)});
    for (const Record& record : records) {
        out.WriteRecord(record);
    }
    out.Close();
    stream.setPosition(0);
    BTL::CCsvReader reader(&stream, delimiter, TEncoding(codePage), BTL::EDecoding::Strict);
    Require(ReadAll(reader) == records);
}

/// Halves of surrogate pairs, which UTF-16 keeps, are no text to write.
UnicodeString Text(const UnicodeString& field)
{
    return System::FromUtf8(System::ToUtf8(field));
}

} // namespace

/// The first byte chooses the delimiter, the encoding and the strictness; the rest is a file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1) {
        return 0;
    }
    Fuzz::Input input(data, size);
    const auto choice = input.Take<std::uint8_t>();
    constexpr WideChar delimiters[] = {u';', u',', u'\t', u' '};
    constexpr CodePage codePages[] = {System::CP_UTF8, TEncoding::Utf16, 1252, TEncoding::Utf16BigEndian};
    const WideChar delimiter = delimiters[choice % 4];
    const TEncoding encoding(codePages[choice / 4 % 4]);
    const auto decoding = choice / 16 % 2 == 0 ? BTL::EDecoding::Lenient : BTL::EDecoding::Strict;
    TMemoryStream stream;
    stream.WriteBuffer(input.getText().data(), static_cast<Int64>(input.getText().size()));
    stream.setPosition(0);
    BTL::CCsvReader reader(&stream, delimiter, encoding, decoding);
    std::vector<Record> records = ReadAll(reader);
    for (Record& record : records) {
        for (UnicodeString& field : record) {
            field = Text(field);
        }
    }
    CheckWritten(records, delimiter, System::CP_UTF8);
    CheckWritten(records, delimiter, TEncoding::Utf16);
    return 0;
}
