// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_CsvReader.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/ForwardOnlySupport.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <span>
#include <vector>

#include <gtest/gtest.h>

using namespace std::string_literals;

using BTL::CCsvReader;
using BTL::ECsvFault;
using BTL::ECsvProblem;
using BTL::EDecoding;
using System::Int64;
using System::UnicodeString;
using System::WideChar;
using Sysutils::TEncoding;

namespace
{

using Record = std::vector<UnicodeString>;
using Records = std::vector<Record>;

/// A stream that holds `bytes`, at its beginning.
class Holding : public Classes::TMemoryStream
{
public:
    explicit Holding(std::string_view bytes)
    {
        WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
        setPosition(0);
    }
    ~Holding() override = default;
};

/// What reading gives: records by their fields, each in `<>`, faults by their problem and place.
std::string TraceOf(CCsvReader& reader)
{
    std::string trace;
    Record fields;
    for (bool more = true; more;) {
        try {
            more = reader.ReadRecord(fields);
            trace += more ? std::to_string(reader.getLineNumber()) + ":" : "";
        } catch (const ECsvFault& fault) {
            trace += "fault" + std::to_string(static_cast<int>(fault.getProblem())) + "@" +
                     std::to_string(fault.getLine()) + "," + std::to_string(fault.getPlace()) + "(" +
                     System::ToUtf8(fault.getText()) + ") ";
            continue;
        } catch (const BTL::ETextFault& fault) {
            trace += "text@" + std::to_string(fault.getLine()) + "(" + System::ToUtf8(fault.getText()) + ") ";
            continue;
        }
        for (const UnicodeString& field : fields) {
            trace += "<" + System::ToUtf8(field) + ">";
        }
        trace += more ? " " : "";
    }
    EXPECT_TRUE(fields.empty());
    return trace;
}

std::string TraceOf(std::string_view bytes, WideChar delimiter = u';',
                    const TEncoding& encoding = TEncoding(System::CP_UTF8),
                    EDecoding decoding = EDecoding::Lenient)
{
    Holding stream(bytes);
    CCsvReader reader(&stream, delimiter, encoding, decoding);
    return TraceOf(reader);
}

TEST(CsvReaderTest, TakesRecordsApart)
{
    struct TRow
    {
        std::string text;
        std::string trace;
    };
    const TRow rows[] = {
        {"", ""},
        {"\n", "1:<> "},
        {"a", "1:<a> "},
        {"a;b\n", "1:<a><b> "},
        {";", "1:<><> "},
        {";;x\n;\n", "1:<><><x> 2:<><> "},
        {"a\n\nb\r\n\r\n", "1:<a> 2:<> 3:<b> 4:<> "},
        {"a;b\rc;d\r\ne;f\ng", "1:<a><b> 2:<c><d> 3:<e><f> 4:<g> "},
        {" a ;\tb; ", "1:< a ><\tb>< > "},
        {"a,b;1,5", "1:<a,b><1,5> "},
        {R"("")", "1:<> "},
        {R"("a";"b")"
         "\n",
         "1:<a><b> "},
        {R"("";"";)", "1:<><><> "},
        {R"("""";"a""b";"""x""")", R"(1:<"><a"b><"x"> )"},
        {R"("a;b";c)", "1:<a;b><c> "},
        {"\"a\nb\r\nc\rd\";e\nf", "1:<a\nb\r\nc\rd><e> 5:<f> "},
        {"\"\n\n\";\"\n\"\nx", "1:<\n\n><\n> 5:<x> "},
        {"a\0b;\"\0\"\n"s, "1:<a\0b><\0> "s},
        {"\xC3\xA4;\"\xF0\x9F\x98\x80\"", "1:<\xC3\xA4><\xF0\x9F\x98\x80> "},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.text);
        for (const System::CodePage codePage :
             {System::CP_UTF8, TEncoding::Utf16, TEncoding::Utf16BigEndian}) {
            const TEncoding encoding(codePage);
            const auto bytes = encoding.GetBytes(System::FromUtf8(row.text));
            EXPECT_EQ(TraceOf(bytes.AsView(), u';', encoding), row.trace);
            EXPECT_EQ(TraceOf(std::string(encoding.GetPreamble()) + std::string(bytes.AsView()), u';',
                              TEncoding(1252)),
                      row.trace)
                << "with a mark";
            Support::OwnReader slow(bytes.AsView());
            CCsvReader reader(&slow, u';', encoding);
            EXPECT_EQ(TraceOf(reader), row.trace) << "by few bytes";
        }
    }
}

/// Each fault costs the line in which its field begins.
TEST(CsvReaderTest, GoesOnBehindAFault)
{
    constexpr int inField = static_cast<int>(ECsvProblem::QuoteInField);
    constexpr int behind = static_cast<int>(ECsvProblem::TextBehindQuote);
    constexpr int unclosed = static_cast<int>(ECsvProblem::UnclosedQuote);
    struct TRow
    {
        std::string text;
        std::string trace;
    };
    const auto fault = [](int problem, const char* rest) {
        return "fault" + std::to_string(problem) + "@" + rest + " ";
    };
    const TRow rows[] = {
        {"a\nx;5\" pipe;y\nb", "1:<a> " + fault(inField, "2,4(x;5\" pipe;y)") + "3:<b> "},
        {"a; \"b\"\nc", fault(inField, "1,4(a; \"b\")") + "2:<c> "},
        {"a\"\nc", fault(inField, "1,2(a\")") + "2:<c> "},
        {"z;\"a\"x;y\nb", fault(behind, "1,3(z;\"a\"x;y)") + "2:<b> "},
        {R"("a" ;y)", fault(behind, R"(1,1("a" ;y))")},
        {R"(""""x)", fault(behind, R"(1,1(""""x))")},
        {"\"", fault(unclosed, "1,1(\")")},
        {R"(""")", fault(unclosed, R"(1,1("""))")},
        {"a\nb;\"c\n", "1:<a> " + fault(unclosed, "2,3(b;\"c)")},
        {"b;\"c\n1;2\n\n\"\";4", fault(unclosed, "1,3(b;\"c)") + "2:<1><2> 3:<> 4:<><4> "},
        // Until the next quoted field all seems to be in quotes.
        {"1;\"x\n2;y\n3;\"z\"\n4;w", fault(behind, "1,3(1;\"x)") + "2:<2><y> 3:<3><z> 4:<4><w> "},
        // The field in front of the bad one is whole, and its lines aren't looked at again.
        {"\"a\nb\";\"c\nd\"e\nf", fault(behind, "2,4(b\";\"c)") + fault(inField, "3,2(d\"e)") + "4:<f> "},
        {"\"1\n\"2\n\"3\n\"4", fault(behind, "1,1(\"1)") + fault(behind, "2,1(\"2)") +
                                   fault(behind, "3,1(\"3)") + fault(unclosed, "4,1(\"4)")},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(TraceOf(row.text), row.trace);
    }
}

TEST(CsvReaderTest, AFaultSaysWhatIsWrong)
{
    struct TRow
    {
        std::string text;
        UnicodeString message;
    };
    const TRow rows[] = {
        {"a\nb\"", u"Line 2, character 2: a quote in a field that isn't quoted"},
        {"a;\"b\n\"c",
         u"Line 1, character 3: a quoted field that goes on behind its closing quote in line 2, "
         u"character 1"},
        {"a;\"b", u"Line 1, character 3: a quoted field without its closing quote"},
    };
    for (const TRow& row : rows) {
        Holding stream(row.text);
        CCsvReader reader(&stream);
        Record fields;
        try {
            while (reader.ReadRecord(fields)) {
            }
            ADD_FAILURE() << row.text;
        } catch (const ECsvFault& fault) {
            EXPECT_EQ(fault.getMessage(), row.message);
        }
    }
}

/// A record with a bad line is lost as a whole, and no other.
TEST(CsvReaderTest, BadBytesCostTheirRecord)
{
    struct TRow
    {
        std::string bytes;
        std::string trace;
    };
    const TRow rows[] = {
        {"a\n\xE4;x\nb", "1:<a> text@2(\xEF\xBF\xBD;x) 3:<b> "},
        {"\"a\n\xE4\nc;d\n\";e\nf", "text@2(\xEF\xBF\xBD) 5:<f> "},
        {"\"a\n\xE4\n\xFF\"\nf", "text@2(\xEF\xBF\xBD) 4:<f> "},
        {"a;\"b\n\xE4\nc", "fault2@1,3(a;\"b) text@2(\xEF\xBF\xBD) 3:<c> "},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.bytes));
        EXPECT_EQ(TraceOf(row.bytes, u';', TEncoding(System::CP_UTF8), EDecoding::Strict), row.trace);
    }
    EXPECT_EQ(TraceOf("\xE4;x"), "1:<\xEF\xBF\xBD><x> ");
    EXPECT_EQ(TraceOf("\xE4;x", u';', TEncoding(1252), EDecoding::Strict), "1:<\xC3\xA4><x> ");
}

TEST(CsvReaderTest, DelimitersAreGivenOrFound)
{
    struct TRow
    {
        std::string text;
        WideChar found;
        std::string trace;
    };
    const TRow rows[] = {
        {"", u'|', ""},
        {"one\n1;2", u'|', "1:<one> 2:<1;2> "},
        {"a|b", u'|', "1:<a><b> "},
        {"a,b,c\n1.5,\"2,5\"", u',', "1:<a><b><c> 2:<1.5><2,5> "},
        {"1,5;2,5;3,5\n4", u';', "1:<1,5><2,5><3,5> 2:<4> "},
        {"1,5\t2,5\n", u'\t', "1:<1,5><2,5> "},
        {"a \"b\"", u'|', "fault0@1,3(a \"b\") "},
        {"\"a;b\",c", u',', "1:<a;b><c> "},
        {R"("a"";",c)", u',', "1:<a\";><c> "},
        {"\"a\n;\";c", u'|', "fault1@1,1(\"a) fault0@2,2(;\";c) "},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.text);
        Holding stream(row.text);
        CCsvReader reader(&stream, u'|');
        EXPECT_EQ(reader.FindDelimiter(), row.found);
        EXPECT_EQ(reader.getDelimiter(), row.found);
        EXPECT_EQ(TraceOf(reader), row.trace);
    }
}

TEST(CsvReaderTest, DelimitersThatMeanSomethingElseAreRefused)
{
    Holding stream("a\nb");
    for (const WideChar delimiter : {u'"', u'\n', u'\r'}) {
        EXPECT_THROW(CCsvReader(&stream, delimiter), Sysutils::EArgumentException);
        CCsvReader reader(&stream);
        EXPECT_THROW(reader.setDelimiter(delimiter), Sysutils::EArgumentException);
        EXPECT_EQ(reader.getDelimiter(), u';');
    }
}

TEST(CsvReaderTest, AHeaderHasTheNames)
{
    Holding stream("Time;Voltage;Time\n1;2;3\n\n\"\"\n4;5\n6;7;8;9\n\"x\ny\";z\na;b;c\n");
    CCsvReader reader(&stream);
    EXPECT_TRUE(reader.getHeader().empty());
    EXPECT_THROW(reader.ColumnOf(u"Time"), ECsvFault);
    ASSERT_TRUE(reader.ReadHeader());
    EXPECT_EQ(reader.getHeader(), (Record{u"Time", u"Voltage", u"Time"}));
    EXPECT_EQ(reader.ColumnOf(u"Time"), 0U);
    EXPECT_EQ(reader.ColumnOf(u"Voltage"), 1U);
    constexpr int count = static_cast<int>(ECsvProblem::FieldCount);
    const std::string fault = "fault" + std::to_string(count) + "@";
    EXPECT_EQ(TraceOf(reader), "2:<1><2><3> " + fault + "4,0(\"\") " + fault + "5,0(4;5) " + fault +
                                   "6,0(6;7;8;9) " + fault + "7,0(\"x) 9:<a><b><c> ");
    try {
        reader.ColumnOf(u"voltage");
        ADD_FAILURE();
    } catch (const ECsvFault& noField) {
        EXPECT_EQ(noField.getProblem(), ECsvProblem::NoSuchField);
        EXPECT_EQ(noField.getText(), u"Time;Voltage;Time");
        EXPECT_EQ(noField.getMessage(), u"Line 1: there is no field 'voltage'");
    }
    EXPECT_FALSE(reader.ReadHeader());
    EXPECT_TRUE(reader.getHeader().empty());
}

TEST(CsvReaderTest, AFaultLeavesWhatCameInFrontOfIt)
{
    Holding stream("a;b\n1;2;\"3\"4\n5\n6;\xFF\n");
    CCsvReader reader(&stream, u';', TEncoding(System::CP_UTF8), EDecoding::Strict);
    ASSERT_TRUE(reader.ReadHeader());
    Record fields;
    EXPECT_THROW(reader.ReadRecord(fields), ECsvFault);
    EXPECT_EQ(fields, (Record{u"1", u"2"}));
    EXPECT_THROW(reader.ReadRecord(fields), ECsvFault);
    EXPECT_EQ(fields, (Record{u"5"}));
    EXPECT_THROW(reader.ReadRecord(fields), BTL::ETextFault);
    EXPECT_EQ(fields, (Record{u"6", u"\uFFFD"}));
    EXPECT_FALSE(reader.ReadRecord(fields));
}

TEST(CsvReaderTest, AHeaderOfOneNameHasEmptyRecordsToo)
{
    Holding stream("Remark\n\nx\n");
    CCsvReader reader(&stream);
    ASSERT_TRUE(reader.ReadHeader());
    EXPECT_EQ(TraceOf(reader), "2:<> 3:<x> ");
}

/// Where a walk ended by a fault, another one goes on.
TEST(CsvReaderTest, RecordsAreARange)
{
    Holding stream("1;2\n3;4\n\"5\"6\n7\n");
    CCsvReader reader(&stream);
    std::vector<std::size_t> sizes;
    const auto walk = [&] {
        for (const Record& fields : reader) {
            const std::span<const UnicodeString> span = fields;
            sizes.push_back(span.size());
        }
    };
    EXPECT_THROW(walk(), ECsvFault);
    EXPECT_EQ(sizes, (std::vector<std::size_t>{2, 2}));
    walk();
    EXPECT_EQ(sizes, (std::vector<std::size_t>{2, 2, 1}));
    EXPECT_EQ(reader.getLineNumber(), 4);
    walk();
    EXPECT_EQ(sizes.size(), 3U);
}

/// As where a few lines tell how and where was measured.
TEST(CsvReaderTest, GoesOnFromALineOfText)
{
    Holding stream("Bench 3\n\na;b\n\"c\nd\";e\n");
    BTL::CTextReader lines(&stream);
    UnicodeString line;
    while (lines.ReadLine(line) && !line.IsEmpty()) {
    }
    CCsvReader reader(lines);
    EXPECT_EQ(TraceOf(reader), "3:<a><b> 4:<c\nd><e> ");
}

TEST(CsvReaderTest, FilesAreOpened)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "a.csv").string());
    EXPECT_THROW(CCsvReader{path}, Classes::EFOpenError);
    BTL::SaveStringToFile(path, "1,2\n\"3\",4");
    Records records;
    for (const Record& fields : CCsvReader(path, u',')) {
        records.push_back(fields);
    }
    EXPECT_EQ(records, (Records{{u"1", u"2"}, {u"3", u"4"}}));
}

/// Where work grew with the square of the input, these would take minutes.
TEST(CsvReaderTest, FieldsAndRecordsMayBeLong)
{
    constexpr std::size_t mega = 1'000'000;
    const auto first = [](const std::string& text) {
        Holding stream(text);
        CCsvReader reader(&stream);
        Record fields;
        EXPECT_TRUE(reader.ReadRecord(fields));
        return fields;
    };
    std::string lines;
    while (lines.size() < 10 * mega) {
        lines += std::string(97, 'x') + "\"\"\n";
    }
    Record fields = first("\"" + lines + "\";y");
    ASSERT_EQ(fields.size(), 2U);
    EXPECT_EQ(fields[0].Length(), static_cast<int>(lines.size() / 100 * 99));
    fields = first(std::string(10 * mega, 'x') + ";" + std::string(mega, ' '));
    ASSERT_EQ(fields.size(), 2U);
    EXPECT_EQ(fields[0].Length(), static_cast<int>(10 * mega));
    EXPECT_EQ(first(std::string(mega, ';')).size(), mega + 1);
}

/// Lines behind a stray quote are read twice, and no more often.
TEST(CsvReaderTest, StrayQuotesAreFoundInTime)
{
    std::string text;
    std::string trace;
    int line = 0;
    for (int i = 0; i < 3; ++i) {
        text += "x;\"stray\n";
        trace += "fault" +
                 std::to_string(
                     static_cast<int>(i < 2 ? ECsvProblem::TextBehindQuote : ECsvProblem::UnclosedQuote)) +
                 "@" + std::to_string(++line) + ",3(x;\"stray) ";
        for (int j = 0; j < 10'000; ++j) {
            text += "\"\";1\n";
            trace += std::to_string(++line) + ":<><1> ";
        }
    }
    EXPECT_EQ(TraceOf(text), trace);
}

class CsvReaderOfForwardOnlyTest : public Support::ForwardOnlyTest
{
};

INSTANTIATE_TEST_SUITE_P(Kinds, CsvReaderOfForwardOnlyTest, Support::EveryForwardKind);

TEST_P(CsvReaderOfForwardOnlyTest, RecordsCome)
{
    std::string content;
    std::string trace;
    for (int i = 1; i <= 1000; ++i) {
        content += std::to_string(i) + ";\"\xC3\xA4;\"\r\n";
        trace += std::to_string(i) + ":<" + std::to_string(i) + "><\xC3\xA4;> ";
    }
    CCsvReader reader(With(content));
    EXPECT_EQ(TraceOf(reader), trace);
}

} // namespace
