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
    pairs.Assign(u"flag", true);
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    EXPECT_THROW(pairs.AddSqlUpdateAssignTo(lines.getList()), UTL::XAssert);
    EXPECT_EQ(pairs.GetSqlUpdateAssign(), u"flag=") << "passed by the user";
}

} // namespace
