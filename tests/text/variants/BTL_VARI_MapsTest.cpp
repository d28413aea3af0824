// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Maps.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/variants/Variants.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"
#include "text/lists/BTL_STR_StringList.h"

#include <limits>

#include <gtest/gtest.h>

namespace
{

using namespace BTL;
using System::Int64;
using System::Variant;
using Variants::Null;

TEST(VariantMapTest, FindsByText)
{
    CStrVariantMap map;
    map[u"b"] = u"12abc";
    map[u"a"] = u"true";
    map[u"B"] = Null();
    Variant value = 1;
    EXPECT_FALSE(map.Find(u"x", value));
    EXPECT_EQ(value, 1);
    EXPECT_TRUE(map.Find(u"a", value));
    EXPECT_EQ(value, u"true");
    EXPECT_TRUE(map.Find(u"x").IsEmpty());
    EXPECT_EQ(map.FindDef(u"x", 5), 5);
    EXPECT_EQ(map.FindInt(u"b", 5), 12);
    EXPECT_EQ(map.FindInt(u"a", 5), 5);
    EXPECT_EQ(map.FindInt64(u"B", 5), 0);
    EXPECT_EQ(map.FindInt64(u"x", 5), 5);
    EXPECT_EQ(map.FindInt(u"x", 5), 5);
    EXPECT_EQ(map.FindPropertyInt(u"x", 5), 5);
    EXPECT_EQ(map.FindPropertyInt(u"a", 5), 1);
    EXPECT_EQ(map.size(), 3U) << "looking adds nothing";

    CStringList lines;
    map.AddInfoTextTo(lines.getList());
    map.AddInfoTextTo(nullptr);
    EXPECT_EQ(lines.GetDelimitedText(u'|'), u"B = |a = true|b = 12abc");
    EXPECT_EQ(map.getDebugText(), u"[B]='1:';[a]='258:true';[b]='258:12abc';");
}

TEST(VariantMapTest, AppendsUnderTheNextKey)
{
    constexpr Int64 last = std::numeric_limits<Int64>::max();
    CInt64VariantMap map;
    EXPECT_EQ(map.Append(u"a"), 1);
    EXPECT_EQ(map.Append(u"b"), 2);
    map.Delete(2);
    map.Delete(99);
    EXPECT_EQ(map.Append(u"c"), 2);
    map.clear();
    map[-1] = 0;
    EXPECT_EQ(map.Append(u"d"), 1) << "0 is left out";
    map[last] = 0;
    EXPECT_EQ(map.Append(u"e"), std::numeric_limits<Int64>::min());
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    try {
        map.Append(u"f");
        FAIL();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getFile(), "BTL_VARI_CInt64VariantMap");
        EXPECT_EQ(fault.getLine(), 89);
    }
    map.Append(u"g");
    EXPECT_EQ(map.begin()->second, u"e");

    CIntToVarMap ints;
    ints.Add(UTL::CIntVector(u"3,1"), u"x");
    ints.Add(UTL::CIntVector(u"3,5"));
    EXPECT_EQ(ints.size(), 3U);
    EXPECT_EQ(ints.Find(1), u"x");
    EXPECT_TRUE(ints.FindDef(3, 7).IsEmpty());
}

} // namespace
