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

TComponent* Outer = nullptr;

TComponent* FindOuter(const UnicodeString&)
{
    return Outer;
}

TComponent* FindNone(const UnicodeString&)
{
    return nullptr;
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
