// SPDX-License-Identifier: MIT
#include "platform/host/system/Host_Environment.h"

#include "platform/host/Host_Error.h"
#include "platform/host/processes/Host_CreateProcess.h"
#include "support/ScopedVariable.h"
#include "support/SecondProcess.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace
{

using Support::ScopedVariable;
using System::UnicodeString;

TEST(HostEnvironmentTest, ExpandsNamesBetweenSigns)
{
    const ScopedVariable one("TRS8_ONE", "1%TRS8_TWO%");
    const ScopedVariable two("TRS8_TWO", "zwei\xC3\xA4");
    const struct
    {
        const char16_t* text;
        const char16_t* expanded;
    } cases[] = {{u"", u""},
                 {u"plain", u"plain"},
                 {u"a%TRS8_TWO%b", u"azweiäb"},
                 {u"%trs8_two%%TRS8_TWO%", u"zweiäzweiä"},
                 {u"%TRS8_ONE%", u"1%TRS8_TWO%"},
                 {u"50% of %TRS8_TWO%", u"50% of zweiä"},
                 {u"%TRS8_NONE%TRS8_TWO%", u"%TRS8_NONEzweiä"},
                 {u"%TRS8_NONE%", u"%TRS8_NONE%"},
                 {u"%%", u"%%"},
                 {u"%TRS8_TWO", u"%TRS8_TWO"}};
    for (const auto& test : cases) {
        EXPECT_EQ(Host::ExpandVariables(test.text), test.expanded);
    }
}

TEST(HostEnvironmentTest, KeepsToTheBuffer)
{
    const ScopedVariable variable("TRS8_ONE", "12345");
    System::WideChar buffer[6] = u"?";
    EXPECT_EQ(GetEnvironmentVariableW(u"TRS8_ONE", buffer, 5), 6U);
    EXPECT_EQ(ExpandEnvironmentStringsW(u"%TRS8_ONE%", buffer, 5), 6U);
    EXPECT_EQ(buffer[0], u'?');
    EXPECT_EQ(GetEnvironmentVariableW(u"TRS8_ONE", nullptr, 0), 6U);
    EXPECT_EQ(GetEnvironmentVariableW(u"TRS8_ONE", buffer, 6), 5U);
    EXPECT_EQ(UnicodeString(buffer), u"12345");
    buffer[0] = 0;
    EXPECT_EQ(ExpandEnvironmentStringsW(u"%TRS8_ONE%", buffer, 6), 6U);
    EXPECT_EQ(UnicodeString(buffer), u"12345");
}

TEST(HostEnvironmentTest, MayBeCleared)
{
    Support::SecondProcess other([](int tell) {
        clearenv();
        System::WideChar buffer[6];
        PROCESS_INFORMATION info;
        if (GetEnvironmentVariableW(u"PATH", buffer, 6) == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND &&
            CreateProcessW(nullptr, u"\\bin\\true", nullptr, nullptr, false, 0, nullptr, nullptr, nullptr,
                           &info)) {
            Support::SecondProcess::Tell(tell);
        }
    });
    EXPECT_TRUE(other.Await());
}

TEST(HostEnvironmentTest, TellsUnsetFromEmpty)
{
    const ScopedVariable variable("TRS8_ONE", "");
    System::WideChar buffer[6];
    EXPECT_EQ(GetEnvironmentVariableW(u"TRS8_ONE", buffer, 6), 0U);
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    for (const char16_t* const name : {u"TRS8_NONE", u"", u"TRS8_ONE=", u"="}) {
        EXPECT_EQ(GetEnvironmentVariableW(name, buffer, 6), 0U);
        EXPECT_EQ(GetLastError(), ERROR_ENVVAR_NOT_FOUND);
    }
}

TEST(HostEnvironmentTest, AnswersFromTheHostWhatIsUnset)
{
    const ScopedVariable home("HOME", "/home/u v");
    const ScopedVariable profile("USERPROFILE", nullptr);
    const ScopedVariable temp("TEMP", nullptr);
    const ScopedVariable temporary("TMPDIR", "/var/tmp");
    EXPECT_EQ(Host::ExpandVariables(u"%UserProfile% %TEMP%"), u"\\home\\u v \\var\\tmp");
    temporary.Set(nullptr);
    EXPECT_EQ(Host::ExpandVariables(u"%temp%"), u"\\tmp");
    temp.Set("X:\\t");
    profile.Set("\\u");
    EXPECT_EQ(Host::ExpandVariables(u"%UserProfile% %TEMP%"), u"\\u X:\\t");
}

} // namespace
