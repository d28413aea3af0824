// SPDX-License-Identifier: MIT
#include "Answer.h"

#include <TRS8_BTL/text/editing/BTL_STR_Cut.h>
#include <TRS8_BTL/text/editing/BTL_STR_Search.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_FindValue.h>
#include <TRS8_BTL/text/numbers/BTL_NUM_Floats.h>

#include <algorithm>
#include <numeric>

namespace Station
{

namespace
{

using System::UnicodeString;

constexpr char SumMark = '*';

/// All bytes by exclusive or, as two hexadecimal digits.
std::string SumOf(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    const unsigned sum = std::accumulate(bytes.begin(), bytes.end(), 0U, [](unsigned all, char byte) {
        return all ^ static_cast<unsigned char>(byte);
    });
    return {digits[sum >> 4U], digits[sum & 15U]};
}

TReading ReadValue(const UnicodeString& text)
{
    TReading reading;
    if (!BTL::ToValueWithUnit(text.AsView(), reading.value, reading.unit) &&
        !BTL::ToDouble(text, reading.value)) {
        throw XBadAnswer(u"'" + text + u"' is no value");
    }
    return reading;
}

} // namespace

std::string MakeAnswer(const std::string& values)
{
    return values + SumMark + SumOf(values) + '\n';
}

std::map<UnicodeString, TReading> ReadAnswer(std::string_view line)
{
    const std::string_view values = line.substr(0, line.find(SumMark));
    if (values.size() != line.size() && line.substr(values.size() + 1) != SumOf(values)) {
        throw XBadAnswer(u"the answer '" + ShowBytes(line) + u"' is garbled");
    }
    std::map<UnicodeString, TReading> readings;
    UnicodeString text = ShowBytes(values);
    while (!text.IsEmpty()) {
        UnicodeString value = BTL::ConsumeLeftSubString(text, u';', true);
        if (BTL::Pos(value, u'=') == 0) {
            throw XBadAnswer(u"the answer '" + ShowBytes(line) + u"' makes no sense");
        }
        const UnicodeString name = BTL::ConsumeLeftSubString(value, u'=', false).Trim();
        readings[name] = ReadValue(value.Trim());
    }
    return readings;
}

UnicodeString ShowBytes(std::string_view bytes)
{
    std::string shown(bytes);
    std::replace_if(
        shown.begin(), shown.end(), [](char byte) { return byte < ' ' || byte > '~'; }, '.');
    return UnicodeString(shown.c_str());
}

} // namespace Station
