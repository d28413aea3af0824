// SPDX-License-Identifier: MIT
#include "environment/Btl_sys_internet.h"

#include "support/DesktopHelpers.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

TEST(SysInternetTest, BuildsTheAddressOfAMailWithNothingEscaped)
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

TEST(SysInternetTest, ReportsNothing)
{
    const Support::DesktopHelpers helpers;
    std::filesystem::remove(helpers.Folder() / "xdg-email");
    BTL::ExecEMailTo(u"a@b");
    BTL::ExecEMailTo(u"a@b", u"S", u"B");
    EXPECT_TRUE(helpers.IsSilent());
}

} // namespace
