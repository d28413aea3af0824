// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Exception.h"

#include <filesystem>
#include <functional>
#include <stdexcept>

#include <gtest/gtest.h>

namespace
{

using Sysutils::EConvertError;
using Sysutils::Exception;

static_assert(std::is_nothrow_copy_constructible_v<Exception>);

TEST(ExceptionTest, ShowsItsMessageInUtf8)
{
    try {
        throw EConvertError(u"'größer 💡' is no number");
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "'größer 💡' is no number");
    }
}

TEST(ExceptionTest, KeepsTheTextWhileItsCopiesChange)
{
    EConvertError first(u"first");
    const char* const text = first.what();
    EConvertError copy = first;
    copy.setMessage(u"copy");
    EXPECT_STREQ(text, "first");
    EXPECT_STREQ(copy.what(), "copy");
    EXPECT_EQ(copy.getMessage(), u"copy");
    first = copy;
    EXPECT_STREQ(first.what(), "copy");
}

TEST(ExceptionTest, GivesTheMessageOfAnyExceptionAsWideText)
{
    const struct
    {
        std::function<void()> raise;
        System::UnicodeString message;
    } cases[] = {
        {[] { throw EConvertError(u"\u00D6l.txt: 5 \U0001F4A1"); }, u"\u00D6l.txt: 5 \U0001F4A1"},
        {[] { throw std::runtime_error("\xC3\x96l.txt"); }, u"\u00D6l.txt"},
        {[] { throw std::runtime_error("\xD6l.txt"); }, u"\uFFFDl.txt"},
        {[] { throw std::runtime_error(""); }, u""},
        {[] { throw EConvertError(System::UnicodeString(u"a\0b", 3)); }, {u"a\0b", 3}},
    };
    for (const auto& [raise, message] : cases) {
        try {
            raise();
            ADD_FAILURE();
        } catch (const std::exception& fault) {
            EXPECT_EQ(Sysutils::MessageOf(fault), message);
        }
    }
    try {
        std::filesystem::rename(std::filesystem::path(u"\u00D6l/missing"), "none");
        ADD_FAILURE();
    } catch (const std::exception& fault) {
        EXPECT_NE(Sysutils::MessageOf(fault).Pos(u"\u00D6l/missing"), 0) << fault.what();
    }
}

TEST(ExceptionTest, NamesAPageOfTheHelp)
{
    EXPECT_EQ(Sysutils::Exception(u"text").getHelpContext(), 0);
    try {
        throw EConvertError(u"text", 12);
    } catch (Sysutils::Exception& fault) {
        EXPECT_EQ(fault.getHelpContext(), 12);
        fault.setHelpContext(13);
        EXPECT_EQ(Sysutils::Exception(fault).getHelpContext(), 13);
    }
}

TEST(ExceptionDeathTest, IsShownIfNobodyCatchesIt)
{
    const auto end = [] {
        try {
            throw EConvertError(u"'x' is no number");
        } catch (...) {
            std::terminate();
        }
    };
    EXPECT_DEATH(end(), "EConvertError.*'x' is no number");
}

} // namespace
