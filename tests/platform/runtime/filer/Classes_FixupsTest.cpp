// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_Fixups.h"

#include "platform/runtime/filer/FilerSupport.h"

#include <gtest/gtest.h>

using namespace Classes;
using namespace FilerTest;
using System::UnicodeString;

namespace
{

TEST(FixupsTest, PathsLeadByOwners)
{
    TComponent form;
    auto* const frame = new TComponent(&form);
    frame->setName(u"Frame1");
    auto* const edit = new TComponent(frame);
    edit->setName(u"Edit1");
    for (const auto& [path, found] :
         std::initializer_list<std::pair<const char16_t*, TComponent*>>{{u"Frame1", frame},
                                                                        {u"FRAME1.edit1", edit},
                                                                        {u"Edit1", nullptr},
                                                                        {u"Frame1.Edit1.Edit1", nullptr},
                                                                        {u"Owner", &form},
                                                                        {u"owner.Frame1", frame},
                                                                        {u"", nullptr},
                                                                        {u".", nullptr}}) {
        SCOPED_TRACE(System::ToUtf8(path));
        EXPECT_EQ(FindNestedComponent(&form, path), found);
    }
    EXPECT_EQ(FindNestedComponent(nullptr, u"Frame1"), nullptr);
}

TEST(FixupsTest, ReferencesCanBeGivenUp)
{
    const auto first =
        SheetOf("object First: TSheet\n  Buddy = Late.A\n  object B: TBox\n    Buddy = Never\n  end\nend");
    const auto second = SheetOf("object Second: TSheet\n  Buddy = late.B\nend");
    TStringList names;
    GetFixupReferenceNames(nullptr, &names);
    EXPECT_EQ(names.getCommaText(), u"Late,Never");
    names.Clear();
    RemoveFixupReferences(first.get(), u"LATE");
    GetFixupReferenceNames(first.get(), &names);
    EXPECT_EQ(names.getCommaText(), u"Never");
    EXPECT_FALSE(first->getComponentState().Contains(csFixups));
    EXPECT_TRUE(first->FindComponent(u"B")->getComponentState().Contains(csFixups));
    RemoveFixupReferences(nullptr, u"");
    names.Clear();
    GetFixupReferenceNames(nullptr, &names);
    EXPECT_EQ(names.getCount(), 0);
    EXPECT_FALSE(second->getComponentState().Contains(csFixups));
}

std::string Waiting(TComponent* root)
{
    TStringList names;
    GetFixupReferenceNames(root, &names);
    return System::ToUtf8(names.getCommaText());
}

TEST(FixupsTest, TheEndOfAComponentOrOfItsFormGivesReferencesUp)
{
    auto first =
        SheetOf("object First: TSheet\n  object A: TBox\n    Buddy = Late\n  end\n  object B: TBox\n    "
                "Buddy = Never.B\n  end\nend");
    delete first->FindComponent(u"A");
    EXPECT_EQ(Waiting(first.get()), "Never");
    TComponent* const kept = first->FindComponent(u"B");
    first->RemoveComponent(kept);
    // It outlives the form in which it was read.
    const std::unique_ptr<TComponent> owned(kept);
    dynamic_cast<TBox&>(*kept).Leave();
    first.reset();
    EXPECT_EQ(Waiting(nullptr), "");
    EXPECT_FALSE(kept->getComponentState().Contains(csFixups));
}

TEST(FixupsTest, PartsGiveTheirReferencesUpAlone)
{
    const auto sheet =
        SheetOf("object Main: TSheet\n  Buddy = Late.A\n  Columns = <\n    item\n      Source = "
                "Soon.B\n    end\n    item\n      Source = Never.C\n    end>\nend");
    RemoveFixups(nullptr);
    RemoveFixups(sheet->getColumns()->GetItem(0));
    EXPECT_EQ(Waiting(nullptr), "Late,Never");
    RemoveFixups(sheet.get());
    EXPECT_EQ(Waiting(nullptr), "");
    EXPECT_FALSE(sheet->getComponentState().Contains(csFixups));
}

TComponent* Outer = nullptr;

TComponent* FindOuter(const UnicodeString&)
{
    return Outer;
}

TComponent* FindNone(const UnicodeString&)
{
    return nullptr;
}

TEST(FixupsTest, ReferencesCanWaitForAnotherForm)
{
    const auto other = SheetOf("object Other: TSheet\n  object A: TBox\n  end\nend");
    const auto sheet = SheetOf("object Main: TSheet\n  Buddy = Late.A\n  object B: TBox\n    Buddy = Late\n  "
                               "end\n  object C: TBox\n    Buddy = late.Missing\n  end\nend");
    TStringList paths;
    GetFixupInstanceNames(sheet.get(), u"LATE", &paths);
    EXPECT_EQ(paths.getCommaText(), u"A,Missing");
    Outer = other.get();
    const auto find = [](const UnicodeString& name) {
        return name.CompareIC(u"Other") == 0 ? Outer : nullptr;
    };
    RegisterFindGlobalComponentProc(find);
    RedirectFixupReferences(other.get(), u"Late", u"Other");
    EXPECT_EQ(sheet->Buddy, nullptr);
    RedirectFixupReferences(sheet.get(), u"late", u"Other");
    EXPECT_EQ(sheet->Buddy, other->FindComponent(u"A"));
    EXPECT_EQ(static_cast<TBox*>(sheet->FindComponent(u"B"))->Buddy, other.get());
    // What isn't in the other form stays null and is listed.
    EXPECT_EQ(static_cast<TBox*>(sheet->FindComponent(u"C"))->Buddy, nullptr);
    EXPECT_EQ(Waiting(nullptr), "Other");
    UnregisterFindGlobalComponentProc(find);
    Outer = nullptr;
}

TEST(FixupsTest, TheLastFinderThatKnowsHolds)
{
    TComponent form;
    Outer = &form;
    RegisterFindGlobalComponentProc(FindOuter);
    RegisterFindGlobalComponentProc(FindNone);
    RegisterFindGlobalComponentProc(nullptr);
    EXPECT_EQ(FindGlobalComponent(u"Any"), &form);
    UnregisterFindGlobalComponentProc(FindOuter);
    EXPECT_EQ(FindGlobalComponent(u"Any"), nullptr);
    UnregisterFindGlobalComponentProc(FindNone);
    Outer = nullptr;
}

} // namespace
