// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/dates/System_DateTime.h"

#include <string_view>

namespace BTL
{
class COutStream;
} // namespace BTL

namespace UTL
{

/// How numbers are read from text of one width. Each gives false if `text` is none, and then leaves `value`
/// alone.
template <class Char>
struct TNumberLinks
{
    using View = std::basic_string_view<Char>;

    /// As `BTL::ToInt`.
    bool (*ToInt)(View text, int& value) = nullptr;
    /// As `BTL::StrToInt64`.
    bool (*ToInt64)(View text, System::Int64& value) = nullptr;
    /// As `BTL::ToDouble`: a float with `.` or `,`.
    bool (*ToDouble)(View text, double& value) = nullptr;
};

/// What the foundation asks of the layers above it. A higher layer fills in its functions while the program
/// starts, before threads do; until then a pointer is null, and its caller manages without.
struct TLinks
{
    TNumberLinks<char> Narrow;
    TNumberLinks<System::WideChar> Wide;
    /// As `BTL::ToDouble` where `separator` is the active one.
    bool (*ToDouble)(std::u16string_view text, System::WideChar separator, double& value) = nullptr;
    /// As `BTL::StrToDateTime`.
    System::TDateTime (*StrToDateTime)(const System::UnicodeString& text) = nullptr;
    /// Writes the bytes of `text` as they are.
    void (*Write)(BTL::COutStream& stream, std::string_view text) = nullptr;
    /// The folder of the running program, where log files go; with a separator behind it.
    System::UnicodeString (*BinPath)() = nullptr;
};

/// The one table of the process; it is ready before any static initialisation.
TRS8_BTL_API TLinks& Links() noexcept;

} // namespace UTL
