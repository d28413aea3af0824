// SPDX-License-Identifier: MIT
#include "languages/boxes/Btl_messagebox.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{

using System::UnicodeString;

TEST(MessageBoxTest, ShowsCaptionWithAndWithoutAnApplication)
{
    Support::ScriptedBoxes boxes({IDYES, IDNO, IDOK, IDOK});
    EXPECT_EQ(BTL::MessageBoxW(u"text", u"caption", MB_YESNO), IDYES);
    Forms::TApplication* const application = std::exchange(Forms::Application, nullptr);
    EXPECT_EQ(BTL::MessageBoxW(u"text", u"caption", MB_YESNO), IDNO);
    EXPECT_EQ(BTL::MessageBoxW(u"text", MB_OK), IDOK);
    Forms::Application = application;
    EXPECT_EQ(BTL::MessageBox1(u"text", MB_OK), IDOK);

    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 4U);
    EXPECT_EQ(shown[0].box.caption, u"caption");
    EXPECT_EQ(shown[1].box.caption, u"caption");
    EXPECT_EQ(shown[2].box.caption, u"Error");
    EXPECT_EQ(shown[3].box.caption, Forms::Application->getTitle());
}

TEST(MessageBoxTest, FillsFormatsAfterTheirEscapes)
{
    Support::ScriptedBoxes boxes({IDOK, IDOK});
    BTL::MessageBox1_VA(u"a\\nb %d %s", MB_OK, 7, UnicodeString(u"x\\ny"));
    BTL::MessageBox2_VA(u"%s", u"caption", MB_OK, UnicodeString::StringOfChar(u'x', 10'000));
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].box.text, u"a\nb 7 x\\ny");
    EXPECT_EQ(shown[1].box.text.Length(), 4095);
    EXPECT_EQ(shown[1].box.caption, u"caption");
    EXPECT_THROW(BTL::MessageBox1_VA(u"%d", MB_OK, UnicodeString(u"text")), Sysutils::EConvertError);
    EXPECT_THROW(BTL::MessageBox1_VA(u"%s", MB_OK), Sysutils::EConvertError);
}

} // namespace
