// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_NameValuePairs.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/variants/Variants.h"
#include "platform/toolkit/MessageBox.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"
#include "text/lists/BTL_STR_StringList.h"

#include <gtest/gtest.h>

namespace
{

using namespace BTL;
using Variants::Null;

TEST(NameValuePairsTest, WritesSqlAssignments)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u',';
    CNameValuePairs pairs;
    EXPECT_EQ(pairs.GetSqlUpdateAssign(), u"");
    pairs.Assign(u"old", 0);
    pairs.Assign(u"a", 1);
    pairs.Add(u"b", u"x, 'y'");
    pairs.Add(u"a", 1.5);
    pairs.Add(u"n", Null());
    EXPECT_EQ(pairs.GetSqlUpdateAssign(), u"a=1,b='x, ''y''',a=1.5,n=NULL");
    EXPECT_EQ(pairs._getDebugInfo(), u"a=1,\"b=x, 'y'\",\"a=1,5\",n=");
    pairs.Assign(pairs[1].name, pairs[1].value);
    EXPECT_EQ(pairs.GetSqlUpdateAssign(), u"b='x, ''y'''");

    CStringList lines;
    lines.Add(u"former");
    pairs.AddSqlUpdateAssignTo(lines.getList());
    pairs.AddSqlUpdateAssignTo(nullptr);
    EXPECT_EQ(lines.GetDelimitedText(u'|'), u"former|b='x, ''y'''");
    pairs.Assign(u"flag", System::Variant(true));
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    EXPECT_THROW(pairs.AddSqlUpdateAssignTo(lines.getList()), UTL::XAssert);
    EXPECT_EQ(pairs.GetSqlUpdateAssign(), u"flag=") << "passed by the user";
}

TEST(NameValuePairsTest, TakeSmallValuesInAFormOfSql)
{
    CNameValuePairs pairs;
    pairs.Add(u"a", true);
    pairs.Add(u"b", 4000000000U);
    pairs.Add(u"c", 'x');
    pairs.Add(u"d", u'\u00E4');
    pairs.Add(u"e", static_cast<signed char>(-3));
    pairs.Add(u"f", static_cast<unsigned char>(200));
    pairs.Add(u"g", static_cast<unsigned short>(65535));
    pairs.Add(u"h", static_cast<short>(-7));
    pairs.Add(u"i", 18446744073709551615ULL);
    pairs.Add(u"j", 1.5F);
    EXPECT_EQ(pairs.GetSqlUpdateAssign(),
              u"a=1,b=4000000000,c='x',d='\u00E4',e=-3,f=200,g=65535,h=-7,i=18446744073709551615,j=1.5");
    pairs.Assign(u"a", false);
    EXPECT_EQ(pairs.GetSqlUpdateAssign(), u"a=0");
    pairs = {{u"a", true}, {u"b", u"it's"}, {u"c", 2.5}, {u"c", 'x'}};
    EXPECT_EQ(pairs.GetSqlUpdateAssign(), u"a=1,b='it''s',c=2.5,c='x'");
}

} // namespace
