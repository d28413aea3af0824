// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_Reader.h"

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/filer/Classes_Fixups.h"
#include "platform/runtime/filer/FilerSupport.h"
#include "platform/runtime/typinfo/System_MetaClass.h"

#include <gmock/gmock.h>

#include <functional>

using namespace Classes;
using namespace FilerTest;
using System::TMetaClass;
using System::UnicodeString;
using testing::ElementsAre;
using testing::HasSubstr;

namespace
{

/// Nothing is left of what a test made.
class ReaderTest : public testing::Test
{
protected:
    void SetUp() override { RegisterClasses(); }
    void TearDown() override
    {
        RemoveFixupReferences(nullptr, {});
        EXPECT_EQ(BoxCount(), 0);
    }
};

template <class Exception>
std::string MessageOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const Exception& fault) {
        return fault.what();
    }
    ADD_FAILURE() << "no exception, or another one";
    return {};
}

TEST_F(ReaderTest, ReadsPropertiesOfEachKind)
{
    const auto sheet = SheetOf(R"(object Main: TSheet
  width = 70000
  Caption = '5 µm'
  Kind = bktall
  Marks = [bkRound, bkTall]
  Visible = False
  Ratio = 0.5
  Precise = 0.1x
  Share = 1.5s
  Price = 12.34c
  When = 44620.25d
  Big = 5000000000
  Letter = 'µ'
  Colour = clGreen
  Extra = ('a' 1 True nil 2.5)
  Font.Size = 12
  Font.Face = 'Sans'
  Lines.Strings = (
    'one'
    'two')
  Columns = <
    item
      Title = 'first'
    end
    item
      Title = 'second'
    end>
  Inner = 7
  Blob = {00FF}
  OnClick = BoxClick
end)");
    EXPECT_EQ(sheet->getName(), u"Main");
    EXPECT_EQ(sheet->Width, 70000);
    EXPECT_EQ(sheet->Caption, u"5 \u00B5m");
    EXPECT_EQ(sheet->Kind, bkTall);
    EXPECT_EQ(sheet->Marks, TMarks() << bkRound << bkTall);
    EXPECT_FALSE(sheet->Visible);
    EXPECT_EQ(sheet->Ratio, 0.5);
    EXPECT_EQ(sheet->Precise, 0.1L);
    EXPECT_EQ(sheet->Share, 1.5F);
    EXPECT_EQ(sheet->Price, System::Currency(12.34));
    EXPECT_EQ(sheet->When.Val, 44620.25);
    EXPECT_EQ(sheet->Big, 5'000'000'000);
    EXPECT_EQ(sheet->Letter, u'\u00B5');
    EXPECT_EQ(sheet->Colour, 0xFF00);
    EXPECT_EQ(sheet->Extra.GetElement(0), u"a");
    EXPECT_EQ(sheet->Extra.ArrayHighBound(), 4);
    EXPECT_EQ(sheet->getFont()->Size, 12);
    EXPECT_EQ(sheet->getFont()->Face, u"Sans");
    EXPECT_EQ(sheet->getLines()->getCommaText(), u"one,two");
    ASSERT_EQ(sheet->getColumns()->GetCount(), 2);
    EXPECT_EQ(static_cast<TColumn*>(sheet->getColumns()->GetItem(1))->Title, u"second");
    EXPECT_EQ(sheet->Inner, 7);
    EXPECT_EQ(sheet->Blob, std::string("\0\xFF", 2));
    sheet->OnClick(nullptr);
    EXPECT_EQ(sheet->Clicks, 1);
    EXPECT_EQ(sheet->LoadedCount, 1);
    EXPECT_EQ(sheet->getComponentState(), TComponentState());
}

TEST_F(ReaderTest, BuildsTheTreeAndBindsFieldsAndReferences)
{
    const auto sheet = SheetOf(R"(object Main: TSheet
  Buddy = Panel.Missing
  object Panel: TBox
    Buddy = Button1
    Columns = <
      item
        Source = Button1
      end
      item
        Source = Owner
      end>
    object Button1: TBox
      Buddy = Main
      OnClick = BoxClick
    end
  end
  object Loose: TComponent
    Left = 40
    Top = -8
  end
end)");
    auto* const panel = dynamic_cast<TBox*>(sheet->FindComponent(u"Panel"));
    ASSERT_NE(panel, nullptr);
    ASSERT_NE(sheet->Button1, nullptr);
    EXPECT_EQ(sheet->Button1->getOwner(), sheet.get());
    EXPECT_EQ(sheet->Button1->GetParentComponent(), panel);
    EXPECT_EQ(panel->Buddy, sheet->Button1);
    EXPECT_EQ(sheet->Button1->Buddy, sheet.get());
    EXPECT_EQ(static_cast<TColumn*>(panel->getColumns()->GetItem(0))->Source, sheet->Button1);
    EXPECT_EQ(static_cast<TColumn*>(panel->getColumns()->GetItem(1))->Source, sheet.get());
    EXPECT_EQ(panel->LoadedCount, 1);
    EXPECT_EQ(sheet->FindComponent(u"Loose")->getDesignInfo(), -8 * 0x10000 + 40);
    // It may come with another form.
    EXPECT_EQ(sheet->Buddy, nullptr);
    EXPECT_TRUE(sheet->getComponentState().Contains(csFixups));
}

TSheet* OtherSheet = nullptr;

TComponent* FindOther(const UnicodeString& name)
{
    return OtherSheet != nullptr && OtherSheet->getName().CompareIC(name) == 0 ? OtherSheet : nullptr;
}

TEST_F(ReaderTest, ReferencesToOtherFormsWaitForThem)
{
    RegisterFindGlobalComponentProc(FindOther);
    const auto sheet =
        SheetOf("object Main: TSheet\n  Buddy = Other.Panel\n  object A: TBox\n    Buddy = Other\n  "
                "  Columns = <item end item Source = Other.Panel end>\n  end\nend");
    auto* const a = static_cast<TBox*>(sheet->FindComponent(u"A"));
    TStringList names;
    GetFixupReferenceNames(sheet.get(), &names);
    EXPECT_EQ(names.getCommaText(), u"Other");
    {
        // What is gone by then isn't touched.
        const auto gone = SheetOf("object Gone: TSheet\n  Buddy = Other.Panel\nend");
    }
    const auto other = SheetOf("object Other: TSheet\n  object Panel: TBox\n  end\nend");
    OtherSheet = other.get();
    GlobalFixupReferences();
    EXPECT_EQ(sheet->Buddy, other->FindComponent(u"Panel"));
    EXPECT_EQ(a->Buddy, other.get());
    EXPECT_EQ(static_cast<TColumn*>(a->getColumns()->GetItem(1))->Source, other->FindComponent(u"Panel"));
    EXPECT_FALSE(sheet->getComponentState().Contains(csFixups));
    // A second form of a name gets another one.
    const auto twin = SheetOf("object Other: TSheet\nend");
    EXPECT_EQ(twin->getName(), u"Other_1");
    UnregisterFindGlobalComponentProc(FindOther);
    OtherSheet = nullptr;
}

TEST_F(ReaderTest, ANullRootIsMadeOfTheClassThatTheFormNames)
{
    const auto stream = StreamOf(Compiled("object Main: TSheet\n  object A: TBox\n  end\nend"));
    TReader reader(stream.get(), 16);
    const std::unique_ptr<TComponent> root(reader.ReadRootComponent(nullptr));
    EXPECT_EQ(root->ClassName(), u"TSheet");
    EXPECT_EQ(root->GetComponentCount(), 1);
    EXPECT_EQ(reader.getRoot(), root.get());
}

/// Two forms of one design may have one owner, as the application.
TEST_F(ReaderTest, FormsOfOneOwnerHaveNamesOfTheirOwn)
{
    TComponent owner;
    for (const char16_t* const name : {u"Main", u"Main_1", u"Main_2"}) {
        auto* const root = new TSheet(&owner);
        const auto stream = StreamOf(Compiled("object Main: TSheet\nend"));
        TReader(stream.get(), 16).ReadRootComponent(root);
        EXPECT_EQ(root->getName(), name);
    }
}

TEST_F(ReaderTest, InheritedComponentsAreChangedAndMoved)
{
    const auto sheet =
        SheetOf("object Main: TSheet\n  object A: TBox\n    Width = 5\n  end\n  object B: TBox\n  "
                "end\n  object C: TBox\n  end\nend");
    const auto stream =
        StreamOf(Compiled("inherited Main: TSheet\n  inherited C: TBox [0]\n    Caption = 'new'\n  "
                          "end\n  object D: TBox [1]\n  end\nend"));
    TReader(stream.get()).ReadRootComponent(sheet.get());
    EXPECT_EQ(sheet->Order(), "C D A B");
    EXPECT_EQ(sheet->Children()[0]->Caption, u"new");
    EXPECT_EQ(sheet->Children()[2]->Width, 5);
}

TEST_F(ReaderTest, InlinePartsOwnWhatIsInThem)
{
    System::TMetaClass* const type = System::ClassOf<TPart>();
    const std::string design = Compiled("object Part: TPart\n  object Inside: TBox\n  end\nend");
    const std::span bytes(reinterpret_cast<const System::Byte*>(design.data()), design.size());
    RegisterResource(type->getName(), bytes);
    const auto sheet = SheetOf(R"(object Main: TSheet
  inline Part1: TPart
    inherited Inside: TBox
      Caption = 'first'
      Buddy = Inside
      OnClick = BoxClick
    end
  end
  inline Part2: TPart
    inherited Inside: TBox
      Buddy = Part1.Inside
    end
  end
end)");
    UnregisterResource(type->getName(), bytes);
    EXPECT_FALSE(FormResourceExists(type));
    auto* const first = static_cast<TBox*>(FindNestedComponent(sheet.get(), u"Part1.Inside"));
    auto* const second = static_cast<TBox*>(FindNestedComponent(sheet.get(), u"Part2.Inside"));
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_TRUE(first->getOwner()->getComponentState().Contains(csInline));
    EXPECT_EQ(first->Caption, u"first");
    EXPECT_EQ(first->Buddy, first);
    EXPECT_EQ(second->Buddy, first);
    // Once for all that the two designs say of it.
    EXPECT_EQ(first->LoadedCount, 1);
    first->OnClick(first);
    EXPECT_EQ(sheet->Clicks, 1);
}

TEST_F(ReaderTest, FaultsTellThePlaceAndLeaveNothing)
{
    const struct
    {
        const char* body;
        const char* message;
    } cases[] = {
        {"  Nonsense = 1\n",
         "Error reading Main.Nonsense (TSheet) at byte 25: There is no property Nonsense in a TSheet"},
        {"  Font.Weight = 1\n", "Main.Font.Weight (TSheet)"},
        {"  Fant.Size = 1\n", "There is no property Fant with parts"},
        {"  Width = 'text'\n", "Here stands a text, which doesn't fit"},
        {"  Width = 5000000000\n", "5000000000 is no value of property Width"},
        {"  Width = clRed\n", "'clRed' is no value of property Width"},
        {"  Colour = clPink\n", "'clPink' is no value of property Colour"},
        {"  Kind = bkSquare\n", "bkPlain, bkRound, bkTall"},
        {"  Kind = 1\n", "Here stands an integer"},
        {"  Marks = [bkSquare]\n", "'bkSquare' is no element of the set"},
        {"  Visible = 1\n", "Main.Visible (TSheet)"},
        {"  Share = 1e300\n", "beyond the range of property Share"},
        {"  Price = 1e300\n", "Main.Price (TSheet)"},
        {"  Letter = 'ab'\n", "Main.Letter (TSheet)"},
        {"  OnClick = Nobody\n", "The method Nobody isn't there"},
        {"  OnClick = Unpublished\n", "The method Unpublished isn't there"},
        {"  ChildCount = 1\n", "The property ChildCount is read-only"},
        {"  Lines.Strings = (1)\n", "Main.Lines.Strings (TSheet)"},
        {"  Columns = <item end item Title = 1 end>\n", "Main.Columns[1].Title (TSheet)"},
        {"  Font = <item end>\n", "The property Font has no collection"},
        {"  Font = Other\n", "The property Font refers to no component"},
        {"  Strict = -1\n", "Main.Strict (TSheet) at byte 23: less than nothing"},
        {"  object A: TBox\n    object B: TBox\n      Strict = -1\n    end\n  end\n",
         "Main.A.B.Strict (TBox)"},
        {"  object A: TBox\n    object B: TBroken\n    end\n  end\n",
         "Main.A.B (TBroken) at byte 25: can't be built"},
        {"  object A: TUnknown\n  end\n", "Main.A (TUnknown) at byte 17: Class TUnknown not found"},
        {"  object A: TBox\n  end\n  object a: TBox\n  end\n", "A component named a already exists"},
        {"  inherited A: TBox\n  end\n", "The inherited component isn't there"},
        {"  object A: TBox\n    FailsLoaded = True\n  end\n", "Main.A (TBox), when it was loaded: not today"},
        {"  object A: TBox\n    DiesOnStrict = True\n    Strict = 1\n  end\n",
         "was destroyed while it was read"},
        {"  object A: TBox\n    Buddy = L\n  end\n  object L: TComponent\n  end\n", "Main.A.Buddy (TBox)"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.body);
        const auto stream = StreamOf(Compiled("object Main: TSheet\n" + std::string(row.body) + "end"));
        TSheet sheet;
        const auto read = [&] { TReader(stream.get()).ReadRootComponent(&sheet); };
        EXPECT_THAT(MessageOf<Sysutils::Exception>(read), HasSubstr(row.message));
        EXPECT_EQ(sheet.GetComponentCount(), 0);
        EXPECT_EQ(sheet.getComponentState(), TComponentState());
        stream->setPosition(0);
        EXPECT_THROW(TReader(stream.get()).ReadRootComponent(nullptr), Sysutils::Exception);
        EXPECT_EQ(BoxCount(), 1);
    }
}

TEST_F(ReaderTest, FaultsAreOfTheKindOfTheirReason)
{
    const auto read = [](const char* text) { SheetOf(text); };
    EXPECT_THROW(read("object Main: TSheet\n  object A: TNone\n  end\nend"), EClassNotFound);
    EXPECT_THROW(read("object Main: TSheet\n  object A: TBox\n  end\n  object A: TBox\n  end\nend"),
                 EComponentError);
    EXPECT_THROW(read("object Main: TSheet\n  Width = 'x'\nend"), EReadError);
}

TEST_F(ReaderTest, EachCutOfAFormIsAFault)
{
    const std::string bytes =
        Compiled("object Main: TSheet\n  Caption = 'text'\n  Columns = <item Title = 'x' end>\n  "
                 "object A: TBox\n    Marks = [bkRound]\n    Blob = {0102}\n  end\nend");
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        SCOPED_TRACE(size);
        const auto stream = StreamOf(bytes.substr(0, size));
        TSheet sheet;
        EXPECT_THROW(TReader(stream.get()).ReadRootComponent(&sheet), EReadError);
        EXPECT_EQ(BoxCount(), 1);
    }
}

TEST_F(ReaderTest, DepthHasABound)
{
    std::string deep;
    std::string ends;
    for (int i = 0; i < 499; ++i) {
        deep += "object A" + std::to_string(i) + ": TBox\n";
        ends += "end\n";
    }
    EXPECT_EQ(SheetOf("object Main: TSheet\n" + deep + ends + "end")->GetComponentCount(), 499);
    using namespace std::string_literals;
    std::string bytes = "TPF0\x06TSheet\0\0"s;
    for (int i = 0; i < 100'000; ++i) {
        bytes += "\x04TBox\0\0"s;
    }
    TSheet sheet;
    const auto stream = StreamOf(bytes);
    const auto read = [&] { TReader(stream.get()).ReadRootComponent(&sheet); };
    EXPECT_THAT(MessageOf<EReadError>(read), HasSubstr("nested deeper than 500 levels"));
}

TEST_F(ReaderTest, AnErrorHandlerMayPassOverFaults)
{
    const auto stream = StreamOf(Compiled(R"(object Main: TSheet
  Nonsense = <item A = (1 2) end>
  Strict = -1
  Caption = 'kept'
  object A: TUnknown
    Width = 1
    object B: TBox
    end
  end
  object C: TBox
    Width = 'x'
    Height = 3
  end
end)"));
    TSheet sheet;
    TReader reader(stream.get());
    std::vector<std::string> faults;
    reader.OnError = [&](TReader*, const UnicodeString& message, bool& handled) {
        faults.push_back(System::ToUtf8(message));
        handled = true;
    };
    reader.ReadRootComponent(&sheet);
    EXPECT_THAT(faults, ElementsAre(HasSubstr("Main.Nonsense"), HasSubstr("less than nothing"),
                                    HasSubstr("TUnknown not found"), HasSubstr("Main.C.Width")));
    EXPECT_EQ(sheet.Caption, u"kept");
    ASSERT_EQ(sheet.Order(), "C");
    EXPECT_EQ(sheet.Children()[0]->Height, 3);
}

TEST_F(ReaderTest, EventsDecide)
{
    const auto stream = StreamOf(Compiled(R"(object Main: TSheet
  OnClick = Anything
  object A: TOther
    Buddy = There
  end
  inherited There: TBox
    Width = 3
  end
end)"));
    TSheet sheet;
    std::vector<TMetaClass*> classes;
    auto* const there = new TBox(&sheet);
    TReader reader(stream.get());
    reader.OnFindMethod = [&](TReader*, const UnicodeString& name, System::TMethodAddress& address,
                              bool& error) {
        EXPECT_EQ(name, u"Anything");
        EXPECT_TRUE(error);
        address = sheet.MethodAddress(u"BoxClick");
        error = false;
    };
    reader.OnFindComponentClass = [&](TReader*, const UnicodeString& name, TMetaClass*& type) {
        EXPECT_EQ(name, u"TOther");
        EXPECT_EQ(type, nullptr);
        type = System::ClassOf<TBox>();
    };
    reader.OnCreateComponent = [&](TReader* self, TMetaClass* type, TComponent*& component) {
        classes.push_back(type);
        component = new TPart(self->getOwner());
    };
    reader.OnSetName = [](TReader*, TComponent*, UnicodeString& name) { name += u"X"; };
    reader.OnReferenceName = [](TReader*, UnicodeString& name) { name += u"X"; };
    reader.OnAncestorNotFound = [&](TReader*, const UnicodeString& name, TMetaClass* type,
                                    TComponent*& component) {
        EXPECT_EQ(name, u"There");
        EXPECT_EQ(type, System::ClassOf<TBox>());
        there->setName(u"ThereX");
        component = there;
    };
    reader.ReadRootComponent(&sheet);
    EXPECT_THAT(classes, ElementsAre(System::ClassOf<TBox>()));
    EXPECT_EQ(sheet.getName(), u"MainX");
    auto* const a = dynamic_cast<TPart*>(sheet.FindComponent(u"AX"));
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->Buddy, there);
    EXPECT_EQ(there->Width, 3);
    sheet.OnClick(nullptr);
    EXPECT_EQ(sheet.Clicks, 1);
}

TEST_F(ReaderTest, SingleComponentsAreReadIntoARoot)
{
    const auto sheet = SheetOf("object Main: TSheet\n  object A: TBox\n  end\nend");
    const std::string bytes = Compiled("object B: TBox\n  Buddy = A\nend").substr(4);
    const auto stream = StreamOf(bytes + bytes);
    TReader reader(stream.get());
    EXPECT_THROW(reader.ReadProperty(nullptr), EReadError);
    reader.setRoot(sheet.get());
    reader.setOwner(sheet.get());
    reader.setParent(sheet->FindComponent(u"A"));
    auto* const b = static_cast<TBox*>(reader.ReadComponent(nullptr));
    EXPECT_EQ(b->Buddy, sheet->FindComponent(u"A"));
    EXPECT_EQ(b->GetParentComponent(), b->Buddy);
    EXPECT_EQ(b->LoadedCount, 1);
    EXPECT_EQ(reader.getPosition(), static_cast<System::Int64>(bytes.size()));
    EXPECT_THROW(reader.ReadComponent(nullptr), EComponentError);
    EXPECT_EQ(sheet->GetComponentCount(), 2);
}

TEST_F(ReaderTest, ADesignedRootKeepsItsName)
{
    const auto stream = StreamOf(Compiled("object Main: TSheet\nend"));
    TSheet sheet;
    sheet.SetDesigning(true);
    sheet.setName(u"Mine");
    TReader(stream.get()).ReadRootComponent(&sheet);
    EXPECT_EQ(sheet.getName(), u"Mine");
}

TEST_F(ReaderTest, AQuietEndStaysOne)
{
    const auto stream =
        StreamOf(Compiled("object Main: TSheet\n  object A: TBox\n  end\n  object B: TBox\n  end\nend"));
    TSheet sheet;
    TReader reader(stream.get());
    reader.OnSetName = [](TReader*, TComponent*, UnicodeString& name) {
        if (name == u"B") {
            throw Sysutils::EAbort(u"enough");
        }
    };
    EXPECT_THROW(reader.ReadRootComponent(&sheet), Sysutils::EAbort);
    EXPECT_EQ(BoxCount(), 1);
}

} // namespace
