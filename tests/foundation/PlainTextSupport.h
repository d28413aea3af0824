// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace Support
{

/// Runs a test on zero-terminated text in both widths.
template <class S>
class PlainText : public testing::Test
{
protected:
    static constexpr bool IsWide = std::is_same_v<typename S::CharType, System::WideChar>;
    static constexpr const typename S::CharType* Null = nullptr;

    /// `text` in the width under test.
    static S T(const char* text) { return S(text); }
};

using PlainTextWidths = testing::Types<System::UnicodeString, System::AnsiString>;

} // namespace Support
