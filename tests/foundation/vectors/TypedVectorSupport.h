// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

namespace Support
{

template <class T>
struct TReadCase
{
    const char16_t* text;
    std::vector<T> content;
    /// Null for a text that isn't read to its end.
    const char16_t* written;
};

/// Each text gives its content in place of what the vector held, and is written back in the plain form.
template <class Vector, class T>
void ExpectReads(std::initializer_list<TReadCase<T>> cases)
{
    for (const auto& c : cases) {
        Vector v;
        v.push_back(T(1));
        if (c.written == nullptr) {
            EXPECT_THROW(v.setCommaText(c.text), Sysutils::EConvertError) << System::UnicodeString(c.text);
        } else {
            EXPECT_NO_THROW(v.setCommaText(c.text)) << System::UnicodeString(c.text);
            EXPECT_EQ(v.getCommaText(), c.written) << System::UnicodeString(c.text);
        }
        EXPECT_THAT(v, testing::ElementsAreArray(c.content)) << System::UnicodeString(c.text);
    }
}

} // namespace Support
