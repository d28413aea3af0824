// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_Writer.h"

#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/FilerSupport.h"

#include <gmock/gmock.h>

#include <limits>

using namespace Classes;
using namespace FilerTest;
using System::UnicodeString;

namespace
{

class WriterTest : public testing::Test
{
protected:
    void SetUp() override { RegisterClasses(); }
    void TearDown() override { EXPECT_EQ(BoxCount(), 0); }
};

constexpr std::string_view Design = R"(object Main: TSheet
  Caption = '5 µm'
  Kind = bkTall
  Marks = [bkRound, bkTall]
  Visible = False
  Ratio = 0.1
  Precise = 0.1x
  Share = 1.5s
  Price = 12.34c
  When = 44620.25d
  Big = 5000000000
  Letter = 'µ'
  Colour = clGreen
  Extra = (
    'a'
    1)
  Font.Size = 12
  Lines.Strings = (
    'one'
    'two')
  Columns = <
    item
      Title = 'first'
      Source = Panel
    end>
  Buddy = Panel
  OnClick = BoxClick
  Inner = 7
  Blob = {
    00FF}
  object Panel: TBox
    Width = 20
    Buddy = Owner
    object Edit: TBox
      Colour = 77
    end
    object Label: TBox
    end
  end
  object Empty: TBox
  end
end
)";

TEST_F(WriterTest, WritesWhatWasRead)
{
    EXPECT_EQ(TextOf(*SheetOf(Design)), Design);
}

TEST_F(WriterTest, WritesNothingThatEqualsTheAncestor)
{
    const auto sheet = SheetOf(Design);
    const auto ancestor = SheetOf(Design);
    EXPECT_EQ(TextOf(*sheet, ancestor.get()), "inherited Main: TSheet\nend\n");
}

TEST_F(WriterTest, WritesTheDifferenceToTheAncestor)
{
    const auto ancestor = SheetOf(Design);
    const auto sheet = SheetOf(Design);
    auto* const panel = static_cast<TBox*>(sheet->FindComponent(u"Panel"));
    auto* const edit = static_cast<TBox*>(sheet->FindComponent(u"Edit"));
    sheet->Caption = u"";
    sheet->Kind = bkPlain;
    sheet->Ratio = 0;
    sheet->Buddy = nullptr;
    sheet->OnClick = nullptr;
    sheet->getFont()->Size = 8;
    sheet->getLines()->Clear();
    sheet->getColumns()->Clear();
    edit->Width = 11;
    (new TBox(sheet.get()))->setName(u"New");
    static_cast<TBox*>(sheet->FindComponent(u"New"))->Height = 1;
    const auto stream =
        StreamOf(Compiled("inherited Main: TSheet\n  inherited Panel: TBox\n    object New2: TBox [0]\n"
                          "    end\n    inherited Label: TBox [1]\n    end\n  end\nend"));
    TReader(stream.get()).ReadRootComponent(sheet.get());
    EXPECT_EQ(panel->Order(), "New2 Label Edit");
    const std::string text = TextOf(*sheet, ancestor.get());
    EXPECT_EQ(text, R"(inherited Main: TSheet
  Caption = ''
  Kind = bkPlain
  Ratio = 0.0
  Font.Size = 8
  Lines.Strings = ()
  Columns = <>
  Buddy = nil
  OnClick = nil
  inherited Panel: TBox
    object New2: TBox [0]
    end
    inherited Label: TBox [1]
    end
    inherited Edit: TBox [2]
      Width = 11
    end
  end
end
)");
    // Laid over the ancestor it gives the same again.
    const auto again = StreamOf(Compiled(text));
    TReader(again.get()).ReadRootComponent(ancestor.get());
    sheet->FindComponent(u"New")->setName(u"Gone");
    EXPECT_EQ(TextOf(*ancestor), TextOf(*sheet));
}

TEST_F(WriterTest, PartsAreWrittenAsTheDifferenceToTheirDesign)
{
    const std::string design =
        Compiled("object Part: TPart\n  object Inside: TBox\n  end\n  object Second: TBox\n  "
                 "end\nend");
    const std::span bytes(reinterpret_cast<const System::Byte*>(design.data()), design.size());
    RegisterResource(u"TPart", bytes);
    const std::string text = R"(object Main: TSheet
  Buddy = Part1.Inside
  inline Part1: TPart
    Width = 30
    inherited Inside: TBox
      Caption = 'new'
      Buddy = Second
    end
  end
end
)";
    const auto sheet = SheetOf(text);
    TMemoryStream stream;
    {
        std::vector<std::unique_ptr<TPart>> fresh;
        TWriter writer(&stream);
        writer.OnFindAncestor = [&](TWriter*, TComponent* component, const UnicodeString& name,
                                    TComponent*& ancestor, TComponent*& rootAncestor) {
            EXPECT_EQ(name, component->getName());
            if (dynamic_cast<TPart*>(component) != nullptr && ancestor == nullptr) {
                fresh.push_back(std::make_unique<TPart>());
                ancestor = rootAncestor = fresh.back().get();
            }
        };
        writer.WriteRootComponent(sheet.get());
    }
    EXPECT_EQ(Decompiled(stream.AsView()), text);
    const auto ancestor = SheetOf(text);
    EXPECT_EQ(TextOf(*sheet, ancestor.get()), "inherited Main: TSheet\nend\n");
    static_cast<TBox*>(ancestor->FindComponent(u"Part1"))->Children()[0]->Caption = u"";
    EXPECT_EQ(TextOf(*sheet, ancestor.get()), R"(inherited Main: TSheet
  inherited Part1: TPart
    inherited Inside: TBox
      Caption = 'new'
    end
  end
end
)");
    UnregisterResource(u"TPart", bytes);
}

TEST_F(WriterTest, LeavesOutWhatCannotBeTold)
{
    TSheet sheet;
    sheet.Hidden = 5;
    sheet.OnClick = {&sheet, &TSheet::Unpublished};
    TBox nameless;
    sheet.Buddy = &nameless;
    EXPECT_EQ(TextOf(sheet), "object TSheet\nend\n");
}

TEST_F(WriterTest, EventsMayNameMethods)
{
    TSheet sheet;
    sheet.OnClick = {&sheet, &TSheet::Unpublished};
    TMemoryStream stream;
    TWriter writer(&stream);
    writer.OnFindMethodName = [](TWriter*, const System::TMethod&, UnicodeString& name) {
        EXPECT_EQ(name, u"");
        name = u"Given";
    };
    writer.WriteRootComponent(&sheet);
    EXPECT_EQ(Decompiled(stream.AsView()), "object TSheet\n  OnClick = Given\nend\n");
}

TEST_F(WriterTest, ChildrenMayBeLeftOut)
{
    const auto sheet = SheetOf("object Main: TSheet\n  object A: TBox\n  end\nend");
    TMemoryStream stream;
    TWriter writer(&stream);
    writer.setIgnoreChildren(true);
    writer.WriteRootComponent(sheet.get());
    EXPECT_EQ(Decompiled(stream.AsView()), "object Main: TSheet\nend\n");
}

TEST_F(WriterTest, AFailureLeavesTheStreamAsItWas)
{
    const auto sheet = SheetOf("object Main: TSheet\n  object A: TBox\n  end\nend");
    static_cast<TBox*>(sheet->FindComponent(u"A"))->Extra = System::Variant({0, 1, 0, 1}, System::varInteger);
    TMemoryStream stream;
    TWriter writer(&stream);
    EXPECT_THROW(writer.WriteRootComponent(sheet.get()), EWriteError);
    EXPECT_EQ(stream.getSize(), 0);
    EXPECT_THROW(writer.WriteRootComponent(nullptr), EWriteError);
}

TEST_F(WriterTest, TooDeepIsRefused)
{
    TSheet sheet;
    TBox* inner = &sheet;
    for (int i = 0; i < 600; ++i) {
        TComponent* const parent = inner;
        inner = new TBox(&sheet);
        const auto stream = StreamOf(Compiled("object B" + std::to_string(i) + ": TBox\nend").substr(4));
        TReader reader(stream.get());
        reader.setRoot(&sheet);
        reader.setParent(parent);
        delete inner;
        reader.setOwner(&sheet);
        inner = static_cast<TBox*>(reader.ReadComponent(nullptr));
    }
    TMemoryStream stream;
    EXPECT_THROW(TWriter(&stream).WriteRootComponent(&sheet), EWriteError);
}

TEST_F(WriterTest, ValuesComeBack)
{
    TMemoryStream stream;
    {
        TWriter writer(&stream, 4);
        for (const System::Int64 value : {0LL, -128LL, 128LL, 40000LL, -3'000'000'000LL}) {
            writer.WriteInteger(value);
        }
        writer.WriteFloat(0.1L);
        writer.WriteFloat(std::numeric_limits<double>::infinity());
        writer.WriteString(UnicodeString(std::u16string_view(u"\xD800", 1)));
        writer.WriteString(UnicodeString::StringOfChar(u'x', 300));
        writer.WriteIdent(u"A.B");
        writer.WriteBoolean(true);
        writer.WriteChar(u'\u00B5');
        writer.WriteVariant(System::Variant::Null());
        writer.WriteCurrency(System::Currency(1.25));
        writer.WriteDate(2.5);
        EXPECT_THROW(writer.WriteIdent(u"no name"), EWriteError);
    }
    stream.setPosition(0);
    TReader reader(&stream);
    for (const System::Int64 value : {0LL, -128LL, 128LL, 40000LL, -3'000'000'000LL}) {
        EXPECT_EQ(reader.ReadInt64(), value);
    }
    EXPECT_EQ(reader.ReadFloat(), 0.1L);
    EXPECT_EQ(reader.ReadFloat(), std::numeric_limits<long double>::infinity());
    EXPECT_EQ(reader.ReadString(), UnicodeString(std::u16string_view(u"\xD800", 1)));
    EXPECT_EQ(reader.ReadString().Length(), 300);
    EXPECT_EQ(reader.ReadIdent(), u"A.B");
    EXPECT_TRUE(reader.ReadBoolean());
    EXPECT_EQ(reader.ReadChar(), u'\u00B5');
    EXPECT_TRUE(reader.ReadVariant().IsNull());
    EXPECT_EQ(reader.ReadCurrency(), System::Currency(1.25));
    EXPECT_EQ(reader.ReadDate().Val, 2.5);
    EXPECT_THROW(reader.ReadInteger(), EReadError);
}

} // namespace
