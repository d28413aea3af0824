// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace Support
{

/// Runs a test in both widths; `T` makes the text, `C` the character under test.
template <class S>
class BothWidths : public testing::Test
{
protected:
    using Char = typename S::CharType;
    static S T(const std::string& text) { return System::AnsiString(std::string_view(text)); }
    static Char C(char c) { return c == 0 ? Char(0) : T(std::string(1, c))[1]; }
};

using Widths = testing::Types<System::UnicodeString, System::AnsiString>;

} // namespace Support
