// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_CsvWriter.h"
#include "streams/BTL_STRM_CsvReader.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <array>
#include <random>
#include <vector>

#include <gtest/gtest.h>

using BTL::CCsvReader;
using BTL::CCsvWriter;
using BTL::CsvLine;
using System::UnicodeString;
using System::WideChar;
using Sysutils::EArgumentException;
using Sysutils::TEncoding;

namespace
{

using Record = std::vector<UnicodeString>;
using Records = std::vector<Record>;

/// What a reader in the given form gets of what is written; `bytes` is that.
Records ThereAndBack(const Records& records, WideChar delimiter, const BTL::TTextForm& form,
                     std::string* bytes = nullptr)
{
    Classes::TMemoryStream stream;
    CCsvWriter out(&stream, delimiter, form);
    for (const Record& record : records) {
        out.WriteRecord(record);
    }
    out.Close();
    if (bytes != nullptr) {
        *bytes = stream.AsView();
    }
    stream.setPosition(0);
    Records read;
    for (const Record& record : CCsvReader(&stream, delimiter, form.encoding, BTL::EDecoding::Strict)) {
        read.push_back(record);
    }
    return read;
}

TEST(CsvWriterTest, QuotesWhereItMust)
{
    struct TRow
    {
        Record fields;
        WideChar delimiter;
        UnicodeString line;
    };
    const TRow rows[] = {
        {{u"a"}, u';', u"a"},
        {{u"a", u"b c", u"1,5"}, u';', u"a;b c;1,5"},
        {{u"1,5", u"a;b"}, u',', u"\"1,5\",a;b"},
        {{u"a b", u"c"}, u' ', u"\"a b\" c"},
        {{u""}, u';', u"\"\""},
        {{u"", u""}, u';', u";"},
        {{u"", u"", u"x", u""}, u';', u";;x;"},
        {{u"say \"on\""}, u';', u"\"say \"\"on\"\"\""},
        {{u"\"", u"\"\""}, u';', u"\"\"\"\";\"\"\"\"\"\""},
        {{u"a\nb", u"\r", u"a\r\n"}, u';', u"\"a\nb\";\"\r\";\"a\r\n\""},
        {{u" a", u"a\t", u" ", u"a\u00A0"}, u';', u"\" a\";\"a\t\";\" \";a\u00A0"},
        {{u"ID", u"\u00E4"}, u';', u"ID;\u00E4"},
    };
    for (const TRow& row : rows) {
        EXPECT_EQ(CsvLine(row.fields, row.delimiter), row.line);
    }
    EXPECT_EQ(CsvLine({u"a;b", u"c"}), u"\"a;b\";c");
    EXPECT_THROW(static_cast<void>(CsvLine(Record{})), EArgumentException);
    for (const WideChar delimiter : {u'"', u'\n', u'\r'}) {
        EXPECT_THROW(static_cast<void>(CsvLine({u"a"}, delimiter)), EArgumentException);
    }
}

/// The beginning of a file is what programs tell its kind by.
TEST(CsvWriterTest, TheFirstFieldIsNoMark)
{
    struct TRow
    {
        UnicodeString field;
        System::CodePage codePage;
        bool isQuoted;
    };
    const TRow rows[] = {
        {u"Id", 1252, false},
        {u"a\u00EF", 1252, false},
        {u"", 1252, false},
        {u"ID", 1252, true},
        {u"\u00EF\u00BB\u00BFx", 1252, true},
        {u"\u00FF\u00FEx", 1252, true},
        {u"\u00FE\u00FFx", 1252, true},
        {u"\uFEFFx", System::CP_UTF8, true},
        {u"\uFEFFx", TEncoding::Utf16, true},
        {u"\uFFFEx", TEncoding::Utf16BigEndian, true},
        {u"\uBBEF\u00BFx", TEncoding::Utf16, true},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.field);
        const Records records = {{row.field, u"y"}, {row.field, u"z"}};
        const TEncoding encoding(row.codePage);
        std::string bytes;
        EXPECT_EQ(ThereAndBack(records, u';', {.encoding = encoding}, &bytes), records);
        const UnicodeString plain = row.field + u";y\n" + row.field + u";z\n";
        const UnicodeString quoted = u"\"" + row.field + u"\";y\n" + row.field + u";z\n";
        EXPECT_EQ(encoding.GetString(bytes), row.isQuoted ? quoted : plain);
    }
}

/// Any text but halves of pairs, mostly of what matters in records.
UnicodeString RandomText(std::mt19937& random)
{
    static constexpr std::array pieces = {u"\"", u"\"\"", u";", u",",  u"\t",     u" ",
                                          u"\r", u"\n",   u"a", u"ID", u"\uFEFF", u"\U0001F600"};
    UnicodeString text;
    for (auto left = random() % 6; left > 0; --left) {
        text += pieces[random() % pieces.size()];
    }
    return text;
}

TEST(CsvWriterTest, AReaderGetsAllTextsBack)
{
    std::mt19937 random(20220228);
    for (int i = 0; i < 3000; ++i) {
        Records records(1 + random() % 4);
        for (Record& record : records) {
            record.resize(1 + random() % 4);
            std::generate(record.begin(), record.end(), [&random] { return RandomText(random); });
        }
        const BTL::TTextForm form{
            .encoding = TEncoding(i % 2 == 0 ? System::CP_UTF8 : TEncoding::Utf16),
            .mark = random() % 2 == 0 ? BTL::EByteOrderMark::With : BTL::EByteOrderMark::Without,
            .lineEnd = std::array{BTL::ELineEnd::LF, BTL::ELineEnd::CRLF, BTL::ELineEnd::CR}[random() % 3],
            .strictness = BTL::EEncoding::Strict};
        const WideChar delimiter = std::array{u';', u',', u'\t', u' ', u'a'}[random() % 5];
        std::string bytes;
        ASSERT_EQ(ThereAndBack(records, delimiter, form, &bytes), records)
            << i << ": " << testing::PrintToString(bytes);
    }
}

TEST(CsvWriterTest, WritesToFilesAndBehindLines)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "a.csv").string());
    {
        CCsvWriter out(path, u',', {.lineEnd = BTL::ELineEnd::CRLF});
        out.WriteRecord({u"a", u"b,c"});
        out.Flush();
        EXPECT_EQ(BTL::LoadStringFromFile(path), "a,\"b,c\"\r\n");
        out.WriteRecord(Record{u"d"});
    }
    {
        BTL::CTextWriter lines(path, BTL::fomAppend);
        lines.WriteLine(u"Bench 3");
        CCsvWriter out(lines);
        out.WriteRecord({u"e", u"f"});
        lines.WriteLine(u"end");
        out.Close();
        EXPECT_THROW(out.WriteRecord({u"g"}), Classes::EStreamError);
    }
    EXPECT_EQ(BTL::LoadStringFromFile(path), "a,\"b,c\"\r\nd\r\nBench 3\ne;f\nend\n");
}

TEST(CsvWriterTest, NothingIsLostByWhatIsRefused)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "a.csv").string());
    BTL::SaveStringToFile(path, "old");
    EXPECT_THROW(CCsvWriter(path, u'"'), EArgumentException);
    EXPECT_THROW(CCsvWriter(path, u';', {.lineEnd = BTL::ELineEnd::None}), EArgumentException);
    EXPECT_EQ(BTL::LoadStringFromFile(path), "old");
    BTL::CTextWriter joined(path, BTL::fomAppend, {.lineEnd = BTL::ELineEnd::None});
    EXPECT_THROW(CCsvWriter{joined}, EArgumentException);

    Classes::TMemoryStream stream;
    CCsvWriter out(&stream, u';', {.encoding = TEncoding(1252), .strictness = BTL::EEncoding::Strict});
    EXPECT_THROW(out.WriteRecord({u"\u00FF\u2126"}), BTL::ECharacterFault);
    EXPECT_THROW(out.WriteRecord({}), EArgumentException);
    out.WriteRecord({u"\u00FF\u00FE"});
    EXPECT_EQ(stream.AsView(), "\"\xFF\xFE\"\n") << "the first that is written";
}

} // namespace
