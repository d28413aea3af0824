// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileName.h"

#include "support/ChildProgram.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace
{

using Host::NameEqual;
using Host::NameHash;

TEST(ProfileNameTest, NamesThatDifferInCaseAreOne)
{
    for (const auto& [a, b] : {std::pair<std::u16string_view, std::u16string_view>(u"Key", u"kEY"),
                               {u"\u00C4\u0416\u03A3", u"\u00E4\u0436\u03C3"},
                               {u"", u""}}) {
        SCOPED_TRACE(System::UnicodeString(a));
        EXPECT_TRUE(NameEqual()(a, b));
        EXPECT_EQ(NameHash()(a), NameHash()(b));
    }
    EXPECT_FALSE(NameEqual()(u"Key", u"Keys"));
    EXPECT_FALSE(NameEqual()(u"Key", u"Kex"));
}

/// A hash that anybody can compute.
std::uint64_t PublicHash(std::u16string_view name)
{
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char16_t c : name) {
        hash = (hash ^ c) * 0x100000001B3;
    }
    return hash ^ hash >> 32;
}

TEST(ProfileNameTest, NamesThatWereMadeToFallTogetherAreSpread)
{
    constexpr std::size_t slots = 512;
    std::vector<System::UnicodeString> names;
    for (int i = 0; names.size() < slots / 2; ++i) {
        System::UnicodeString name(i);
        if (PublicHash(name) % slots == 0) {
            names.push_back(std::move(name));
        }
    }
    std::set<std::size_t> used;
    for (const System::UnicodeString& name : names) {
        used.insert(NameHash()(name) % slots);
    }
    // As many as if they were thrown: 1 - 1/sqrt(e) of the slots.
    EXPECT_NEAR(static_cast<double>(used.size()), 201, 60);
}

TEST(ProfileNameTest, DISABLED_PrintsAHash)
{
    Support::PrintResult(std::to_string(NameHash()(u"Channels")));
}

TEST(ProfileNameTest, EachProcessHasAHashOfItsOwn)
{
    const std::string test = "ProfileNameTest.DISABLED_PrintsAHash";
    EXPECT_NE(Support::RunChildTest(test), Support::RunChildTest(test));
}

} // namespace
