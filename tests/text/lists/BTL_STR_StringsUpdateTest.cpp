// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringsUpdate.h"
#include "platform/runtime/classes/Classes.h"
#include "text/lists/BTL_STR_StringList.h"

#include <gtest/gtest.h>

namespace
{

using namespace BTL;

TEST(StringsUpdateTest, EndsWithItsScope)
{
    CStringList list;
    int changes = 0;
    list->setOnChange([&](System::TObject*) { ++changes; });
    try {
        const CStringsUpdate update(list.getList());
        list.Add(u"a");
        list.Add(u"b");
        EXPECT_EQ(changes, 0);
        throw Sysutils::EAbort("leaves");
    } catch (const Sysutils::EAbort&) {
        EXPECT_EQ(changes, 1);
    }
    EXPECT_FALSE(list->IsUpdating());
}

} // namespace
