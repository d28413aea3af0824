// SPDX-License-Identifier: MIT
#include "environment/Btl_sys_mapi.h"

#include "languages/BTL_I18N_Texts.h"
#include "platform/host/Mapi.h"
#include "platform/toolkit/MessageBox.h"
#include "support/DesktopHelpers.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using Arguments = std::vector<std::string>;

TEST(SysMapiTest, SendsToOneRecipientOrTwo)
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

TEST(SysMapiTest, ShowsWhyAMailFails)
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
