// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_FormText.h"

#include "platform/runtime/filer/FilerSupport.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

using namespace Classes;
using namespace FilerTest;
using System::UnicodeString;
using testing::HasSubstr;

namespace
{

/// Everything that a form can say, as it is written.
constexpr std::string_view Whole = R"(object Main: TMain
  Small = 5
  Less = -129
  More = 70000
  Most = 5000000000
  Half = 0.5
  Whole = 5.0
  Tiny = 1e-300
  Single = 1.5s
  Money = -12.34c
  Day = 44620.25d
  Long = 0.1x
  Infinite = %7FF0000000000000
  NoNumber = %7FC00000s
  Lost = %00000000000000000001x
  Zero = -0.0
  Smallest = 5e-324
  Text = 'It''s'#13#10'two lines'
  Empty = ''
  Wide = '5 µm'
  Half.Pair = #55357
  Name = bkRound
  Path = Other.Panel1.Edit
  Yes = True
  No = False
  None = nil
  Void = Null
  Marks = [a, b, c]
  NoMarks = []
  Bytes = {
    000102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F
    2021}
  NoBytes = {}
  List = (
    'a'
    1
    (
      2
      ())
    True)
  NoList = ()
  Columns = <
    item
      Title = 'x'
      Font.Size = 9
    end
    item [3]
    end>
  NoColumns = <>
  inherited Old: TOld [2]
    Caption = 'new'
  end
  inline Part: TPart
    inherited Inside: TBox
    end
  end
  inherited inline Both: TPart
  end
  object TNameless
  end
end
)";

TEST(FormTextTest, TextAndBinaryTellTheSame)
{
    const std::string bytes = Compiled(Whole);
    EXPECT_EQ(Decompiled(bytes), Whole);
    EXPECT_EQ(Compiled(Decompiled(bytes)), bytes);
}

TEST(FormTextTest, BinaryHasTheKnownBytes)
{
    using namespace std::string_literals;
    EXPECT_EQ(Compiled("object A: TB\n X = 1\n S = [q]\n object C: TD\n end\nend"),
              "TPF0\x02TB\x01"
              "A\x01X\x02\x01\x01S\x0B\x01q\0\0\x02TD\x01"
              "C\0\0\0"s);
    EXPECT_EQ(Compiled("inherited inline A: B [300]\nend"), "TPF0\xF7\x03\x2C\x01\x01"
                                                            "B\x01"
                                                            "A\0\0"s);
}

TEST(FormTextTest, FormsOfOneValueMeanTheSame)
{
    const auto value = [](std::string_view text) {
        return Compiled("object A: B\nX = " + std::string(text) + "\nend");
    };
    for (const auto& [text, same] : {std::pair("$1F", "31"),
                                     {"'a' + 'b'", "'ab'"},
                                     {"'a'  +\n\n  #66 + 'c'", "'aBc'"},
                                     {"#$41#066", "'AB'"},
                                     {"#181", "'µ'"},
                                     {"#55357#56832", "'\xF0\x9F\x98\x80'"},
                                     {"#128512", "'\xF0\x9F\x98\x80'"},
                                     {"TRUE", "True"},
                                     {"NIL", "nil"},
                                     {"[a,b]", "[ a , b ]"},
                                     {"1E3", "1000.0"},
                                     {"1.50c", "1.5c"},
                                     {"( 1 2 )", "(1\n2)"},
                                     {"{ 0a0B }", "{0A0B}"}}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(value(text), value(same));
    }
}

TEST(FormTextTest, LongValuesGoOverSeveralLines)
{
    const std::string text(1000, 'x');
    const std::string bytes = Compiled("object A: B\n  X = '" + text + "'\nend");
    const std::string decompiled = Decompiled(bytes);
    EXPECT_THAT(decompiled, HasSubstr("' +\n"));
    EXPECT_EQ(Compiled(decompiled), bytes);
}

TEST(FormTextTest, FaultsHaveLineAndColumn)
{
    const struct
    {
        const char* text;
        int line;
        int column;
        const char* message;
    } cases[] = {
        {"", 1, 1, "'object', 'inherited' or 'inline' is missing"},
        {"object", 1, 7, "the name or class of a component is missing"},
        {"object A:", 1, 10, "the class of a component is missing"},
        {"object A: TB\n  X = 'a\nend", 2, 7, "A.X (TB): a text has no closing quote in its line"},
        {"object A: TB\n  X = 'a", 2, 7, "closing quote"},
        {"object A: TB\n  µ = 1 2\nend", 2, 9, "a property, a component or 'end' is missing"},
        {"object A: TB\n  X 1\nend", 2, 5, "'=' is missing"},
        {"object A: TB\n  X = 1.5.2\nend", 2, 7, "'1.5.2' is no number"},
        {"object A: TB\n  X = 99999999999999999999\nend", 2, 7, "a number is beyond 64 bits"},
        {"object A: TB\n  X = 1e999\nend", 2, 7, "'1e999' is no number"},
        {"object A: TB\n  X = {0}\nend", 2, 9, "two hexadecimal digits"},
        {"object A: TB\n  X = {0g}\nend", 2, 9, "a hexadecimal digit or '}' is missing"},
        {"object A: TB\n  X = {00", 2, 7, "the closing '}' is missing"},
        {"object A: TB\n  X = (Null)\nend", 2, 8, "a list has no Null"},
        {"object A: TB\n  X = [a b]\nend", 2, 10, "']' is missing"},
        {"object A: TB\n  X = <itm>\nend", 2, 8, "'item' or '>' is missing"},
        {"object A: TB\n  X = #1114112\nend", 2, 7, "no character has such a number"},
        {"object A: TB\n  X = a..b\nend", 2, 9, "a name is missing behind the point"},
        {"object A: TB\n  object C: TD\n  end\n  X = 1\nend", 4, 3, "properties come first"},
        {"object A: TB\r\n  X = 1\r\nend\r\nend", 4, 1, "there is more behind the end"},
        {"object A: TB\n  X = '\xFF'\nend", 2, 8, "the text is no UTF-8"},
        {"object A: TB\n  X = '\x01'\nend", 2, 8, "written by its number"},
        {"object A: TB\n  object C: TD\n    Font.Size =\n  end\nend", 5, 4,
         "a component or 'end' is missing"},
        {"object A: TB\n  X = -\nend", 2, 7, "'-' is no whole number"},
        {"object A: TB\n  X = <item A = 1 B>\nend", 2, 20, "'=' is missing"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.text);
        try {
            Compiled(row.text);
            ADD_FAILURE() << "no exception";
        } catch (const EParserError& fault) {
            EXPECT_EQ(fault.getLine(), row.line) << fault.what();
            EXPECT_EQ(fault.getColumn(), row.column) << fault.what();
            EXPECT_THAT(fault.what(), HasSubstr(row.message));
        }
    }
}

TEST(FormTextTest, DepthHasABound)
{
    std::string objects;
    std::string ends;
    for (int i = 0; i < 501; ++i) {
        objects += "object A: B\n";
        ends += "end\n";
    }
    EXPECT_THROW(Compiled(objects + ends), EParserError);
    EXPECT_NO_THROW(Compiled(objects.substr(12) + ends.substr(4)));
    EXPECT_THROW(Compiled("object A: B\nX = " + std::string(100'000, '(')), EParserError);
    using namespace std::string_literals;
    std::string bytes = "TPF0";
    for (int i = 0; i < 501; ++i) {
        bytes += "\x01"
                 "B\x01"
                 "A\0"s;
    }
    EXPECT_THROW(Decompiled(bytes + std::string(501, '\0')), EReadError);
}

TEST(FormTextTest, DamagedBytesTellTheirPlace)
{
    using namespace std::string_literals;
    const struct
    {
        std::string bytes;
        const char* message;
    } cases[] = {
        {"", "ends at byte 0"},
        {"TPF1\x01", "doesn't begin with TPF0"},
        {"TPF0\x02T", "ends at byte 6"},
        {"TPF0\x02TB\x01"s + "A\x01X\x16", "A.X (TB) at byte 11: There is no value of type 22"},
        {"TPF0\x02TB\x01"s + "A\x01X\x0C\xFF\xFF\xFF\x7F", "ends at byte 16"},
        {"TPF0\x02TB\x01"s + "A\x01X\x0C\xFF\xFF\xFF\xFF", "A size is negative"},
        {"TPF0\x02TB\x01"s + "A\x01 \x02\x01", "no identifier"},
        {"TPF0\x02TB\x01"s + "A\x01X\x14\x01\0\0\0\xFF"s, "no UTF-8"},
        {"TPF0\xF8\x02TB\x01"s + "A\0\0"s, "unknown flags"},
        {"TPF0\x02TB\x01"s + "A\x01X\x0E\x02\x05\x02\x05", "Here stands an integer"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.message);
        try {
            Decompiled(row.bytes);
            ADD_FAILURE() << "no exception";
        } catch (const EReadError& fault) {
            EXPECT_THAT(fault.what(), HasSubstr(row.message));
        }
    }
}

TEST(FormTextTest, TextOfTheCodePageBecomesUtf8)
{
    using namespace std::string_literals;
    const std::string text = Decompiled("TPF0\x02TB\x01"s + "A\x01X\x06\x02\xB5m\0\0"s);
    EXPECT_THAT(text, HasSubstr("X = 'µm'"));
}

TEST(FormTextTest, AStreamIsLeftBehindTheForm)
{
    const Support::TempFolder folder;
    const std::string bytes = Compiled(Whole);
    TFileStream file(folder.Path() / "two", fmCreate);
    file.WriteBuffer((bytes + bytes + "rest").data(), static_cast<System::Int64>(2 * bytes.size() + 4));
    file.setPosition(0);
    for (int i = 1; i <= 2; ++i) {
        TMemoryStream text;
        ObjectBinaryToText(&file, &text);
        EXPECT_EQ(text.AsView(), Whole);
        EXPECT_EQ(file.getPosition(), i * static_cast<System::Int64>(bytes.size()));
    }
}

TEST(FormTextTest, AResourceHasTheNameOfTheClass)
{
    TMemoryStream resource;
    ObjectTextToResource(StreamOf(Whole).get(), &resource);
    resource.setPosition(0);
    EXPECT_EQ(TestStreamFormat(&resource), sofBinary);
    TMemoryStream text;
    ObjectResourceToText(&resource, &text);
    EXPECT_EQ(text.AsView(), Whole);
    EXPECT_EQ(resource.getPosition(), resource.getSize());

    TMemoryStream inherited;
    ObjectTextToResource(StreamOf("inherited A: TBox [2]\nend").get(), &inherited);
    EXPECT_EQ(inherited.AsView().substr(3, 5), std::string_view("TBOX\0", 5));
    EXPECT_THROW(ObjectResourceToText(StreamOf(Compiled(Whole)).get(), &text), EInvalidImage);
    EXPECT_EQ(text.AsView(), Whole);
}

TEST(FormTextTest, TellsTheFormatOfAStream)
{
    for (const auto& [bytes, format] : {std::pair("TPF0....", sofBinary),
                                        {"\n object A: B", sofText},
                                        {"INHERITED A", sofText},
                                        {"\xEF\xBB\xBFobject A: B", sofUTF8Text},
                                        {"[Section]", sofUnknown},
                                        {"", sofUnknown}}) {
        SCOPED_TRACE(bytes);
        const auto stream = StreamOf(bytes);
        EXPECT_EQ(TestStreamFormat(stream.get()), format);
        EXPECT_EQ(stream->getPosition(), 0);
    }
}

TEST(FormTextTest, NullStreamsAreRefused)
{
    TMemoryStream stream;
    EXPECT_THROW(ObjectBinaryToText(nullptr, &stream), EStreamError);
    EXPECT_THROW(ObjectTextToBinary(&stream, nullptr), EStreamError);
    EXPECT_THROW(ObjectTextToResource(&stream, nullptr), EStreamError);
    EXPECT_THROW(ObjectResourceToText(nullptr, &stream), EStreamError);
}

} // namespace
