// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Exception.h"

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
