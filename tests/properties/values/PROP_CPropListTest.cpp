// SPDX-License-Identifier: MIT
#include "properties/values/PROP_CPropList.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "properties/values/PROP_Filter.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

namespace
{

using PROP::CPropList;
using PROP::CTypeKinds;
using Support::ScriptedBoxes;
using Typinfo::TPropInfo;

std::string Names(const CPropList& list)
{
    std::string names;
    for (const TPropInfo* const info : list) {
        names += System::ToUtf8(info->getName()) + ' ';
    }
    return names;
}

TEST(PropListTest, ListsAllPropertiesInTheirOrder)
{
    const ScriptedBoxes boxes;
    Stdctrls::TLabel label(nullptr);
    const CPropList all(&label);
    const auto& known = label.ClassType()->Properties();
    EXPECT_TRUE(std::ranges::equal(all, known));
    EXPECT_EQ(all.GetCount(), static_cast<int>(known.size()));
    EXPECT_EQ(all[1], known[1]);
    EXPECT_TRUE(std::ranges::equal(CPropList(System::ClassOf<Stdctrls::TLabel>()), known));
    EXPECT_TRUE(std::ranges::equal(CPropList(&label, nullptr), known)) << "no filter takes all";
}

TEST(PropListTest, ListsThoseOfSomeKinds)
{
    const ScriptedBoxes boxes;
    Stdctrls::TLabel label(nullptr);
    const CPropList events(&label, CTypeKinds{Typinfo::tkMethod});
    EXPECT_GT(events.GetCount(), 3);
    EXPECT_TRUE(std::ranges::all_of(
        events, [](const TPropInfo* info) { return info->getKind() == Typinfo::tkMethod; }));
    const CPropList none(&label, CTypeKinds{Typinfo::tkInterface});
    EXPECT_EQ(none.GetCount(), 0);
    EXPECT_EQ(none.getList(), nullptr);
}

/// What a derived class is given to fill lists with.
class CSortedEvents : public CPropList
{
public:
    explicit CSortedEvents(System::TMetaClass* type) : CPropList(type)
    {
        initPropList(type, CTypeKinds{Typinfo::tkMethod}, true);
    }
};

TEST(PropListTest, SortsByName)
{
    const CSortedEvents events(System::ClassOf<Stdctrls::TLabel>());
    ASSERT_GT(events.GetCount(), 3);
    EXPECT_TRUE(std::ranges::is_sorted(events, {}, [](const TPropInfo* info) { return info->getName(); }));
}

TEST(PropListTest, AsksAFilterForClassAndProperties)
{
    const ScriptedBoxes boxes;
    Forms::TForm form(nullptr);
    Stdctrls::TLabel label(nullptr);
    PROP::CFilter filter;
    filter.getProperties().setCommaText(u"Visible,Caption,Nothing");
    filter.getNotOnForms().setCommaText(u"Visible");
    EXPECT_EQ(Names(CPropList(&form, &filter)), "Caption ");
    EXPECT_EQ(CPropList(&label, &filter).GetCount(), 2);
    filter.getNotClasses().setCommaText(u"TLabel");
    const CPropList refused(&label, &filter);
    EXPECT_EQ(refused.GetCount(), 0);
    EXPECT_EQ(refused.getList(), nullptr);
    EXPECT_EQ(Names(CPropList(System::ClassOf<Forms::TForm>(), &filter)), "Caption ");
}

TEST(PropListTest, TakesNullForAFault)
{
    const ScriptedBoxes boxes({IDYES, IDYES, IDNO});
    EXPECT_THROW(CPropList(static_cast<System::TMetaClass*>(nullptr)), UTL::XAssert);
    EXPECT_THROW(CPropList(static_cast<System::TObject*>(nullptr)), UTL::XAssert);
    EXPECT_EQ(CPropList(static_cast<System::TMetaClass*>(nullptr)).GetCount(), 0);
}

} // namespace
