// SPDX-License-Identifier: MIT
#pragma once

#include <TRS8_BTL/platform/base/Sysutils_Exception.h>

#include <map>
#include <string>
#include <string_view>

namespace Station
{

// What station and instrument say to each other: "?" asks for all values, and the answer is a line of them
// with a sum over its bytes, "U=-3.5E-2V;I=12.5mA*57".

inline constexpr auto Request = "?\n";

/// An answer, or the lack of one, that can't be used.
class XBadAnswer : public Sysutils::Exception
{
public:
    using Exception::Exception;
};

/// What an instrument tells of a quantity, in `unit`, which has no prefix and is empty for a plain number.
struct TReading
{
    double value = 0;
    System::UnicodeString unit;
};

/// The line of an answer with its sum and its end.
std::string MakeAnswer(const std::string& values);

/// The readings of a line, without its end, by their names. One without a sum is taken as it is; `XBadAnswer`
/// for a sum or a value that is wrong.
std::map<System::UnicodeString, TReading> ReadAnswer(std::string_view line);

/// The bytes of an answer as a text that can be shown.
System::UnicodeString ShowBytes(std::string_view bytes);

} // namespace Station
