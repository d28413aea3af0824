// SPDX-License-Identifier: MIT
#include "environment/BTL_SYS_Mail.h"

#include "languages/BTL_I18N_Texts.h"
#include "platform/host/Mapi.h"
#include "platform/toolkit/MessageBox.h"
#include "support/DesktopHelpers.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using Arguments = std::vector<std::string>;

TEST(SysMailTest, BuildsTheAddressOfAMailWithNothingEscaped)
{
    const Support::DesktopHelpers helpers;
    const struct
    {
        const char16_t *address, *subject, *body;
        const char* target;
    } cases[] = {
        {u"a@b", u"", u"", "mailto:a@b"},
        {u"a@b", u"S \u00E4 & ?%", u"", "mailto:a@b?subject=S \u00E4 & ?%"},
        {u"a@b", u"S", u"line\n'$(x)\" line\r\n", "mailto:a@b?subject=S&body=line\n'$(x)\" line\r\n"},
        {u"a@b", u"", u"B", "mailto:a@b&body=B"},
        {u"", u"", u"", "mailto:"}};
    for (const auto& test : cases) {
        BTL::ExecEMailTo(test.address, test.subject, test.body);
        EXPECT_EQ(helpers.Await(), (std::vector<std::string>{"xdg-email", test.target}));
    }
    BTL::ExecEMailTo(u"a@b?subject=x");
    EXPECT_EQ(helpers.Await(), (std::vector<std::string>{"xdg-email", "mailto:a@b?subject=x"}));
}

TEST(SysMailTest, AnAddressWithoutAHelperReportsNothing)
{
    const Support::DesktopHelpers helpers;
    std::filesystem::remove(helpers.Folder() / "xdg-email");
    BTL::ExecEMailTo(u"a@b");
    BTL::ExecEMailTo(u"a@b", u"S", u"B");
    EXPECT_TRUE(helpers.IsSilent());
}

TEST(SysMailTest, SendsToOneRecipientOrTwo)
{
    const Support::DesktopHelpers helpers;
    Support::ScriptedBoxes boxes;
    EXPECT_EQ(BTL::SendEMail("\xC4 S", "T\n'", "F", "f@x", "A", "a@x", "B", "", false), 0);
    EXPECT_EQ(helpers.Await(),
              (Arguments{"xdg-email", "--utf8", "--subject", "\u00C4 S", "--body", "T\n'", "a@x"}));
    EXPECT_EQ(BTL::SendEMail("", "", "", "", "A", "a@x", "", "b@x", true), 0);
    EXPECT_EQ(helpers.Await(), (Arguments{"xdg-email", "--utf8", "a@x", "b@x"}));
    EXPECT_TRUE(boxes.TakeShown().empty());
}

TEST(SysMailTest, ShowsWhyAMailFails)
{
    const Support::DesktopHelpers helpers;
    Support::ScriptedBoxes boxes({IDOK, IDOK});
    const std::string text(200'000, 'x');
    EXPECT_EQ(BTL::SendEMail("S", text.c_str(), "", "", "", "a@x", "", "", true),
              Mapi::MAPI_E_TEXT_TOO_LARGE);
    std::filesystem::remove(helpers.Folder() / "xdg-email");
    EXPECT_EQ(BTL::SendEMail("S", "T", "", "", "", "a@x", "", "", true), Mapi::MAPI_E_FAILURE);
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 2);
    EXPECT_EQ(shown[0].box.text, BTL::Gi18n::GetString(BTL::EIDS::MailTextTooLarge));
    EXPECT_EQ(shown[1].box.text, BTL::Gi18n::GetString(BTL::EIDS::MailFailed));
    EXPECT_EQ(shown[1].box.flags, unsigned{MB_OK | MB_ICONSTOP});
}

} // namespace
