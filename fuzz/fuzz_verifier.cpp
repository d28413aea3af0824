// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/Sysutils_Locale.h"
#include "support/Fuzz.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/verifiers/BTL_DateTextVerifier.h"

#include <cstdint>

namespace
{

using Fuzz::Require;
using System::UnicodeString;

void UseSettings(unsigned choice)
{
    Sysutils::FormatSettings = Sysutils::TFormatSettings();
    constexpr char16_t separators[] = {u',', u'.', u'\u066B'};
    Sysutils::DecimalSeparator = separators[choice % 3];
    constexpr const char16_t* orders[] = {u"dd/MM/yyyy", u"M/d/yyyy", u"yyyy/MM/dd"};
    Sysutils::ShortDateFormat = orders[choice / 3 % 3];
    Sysutils::DateSeparator = choice / 9 % 2 == 0 ? u'.' : u'-';
}

/// Leaves a field twice; the second time changes nothing.
void LeaveTwice(BTL::ATextVerifier& verifier, const UnicodeString& text)
{
    UnicodeString once = text;
    const bool isChanged = verifier.ExitText(once);
    Require(isChanged == (once != text));
    UnicodeString twice = once;
    Require(!verifier.ExitText(twice) && twice == once);
}

void CheckNumbers(const UnicodeString& text, double min, double max)
{
    BTL::CNumberTextVerifier number(min, max);
    BTL::CFloatTextVerifier decimal(min, max);
    BTL::CUnitTextVerifier unit(u"kg");
    static_cast<void>(number(text));
    static_cast<void>(unit(text));
    UnicodeString left = text;
    number.ExitText(left);
    left = text;
    unit.ExitText(left);
    // A lone sign becomes 0, which the limits then take.
    if (BTL::IsDouble(text)) {
        Require(decimal(text));
        LeaveTwice(decimal, text);
        BTL::CFloatTextVerifier free(0, 0);
        LeaveTwice(free, text);
        UnicodeString kept = text;
        free.ExitText(kept);
        Require(BTL::ToDouble(kept) == BTL::ToDouble(text));
    }
}

void CheckDates(const UnicodeString& text)
{
    BTL::CTimeTextVerifier time;
    static_cast<void>(time(text));
    BTL::CDateTextVerifier date;
    if (date(text)) {
        UnicodeString left = text;
        date.ExitText(left);
        Require(date(left));
    }
}

} // namespace

/// The first byte chooses the settings, two more are the limits; the rest is a text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 3) {
        return 0;
    }
    UseSettings(data[0]);
    const UnicodeString text(System::AnsiString(Fuzz::Bytes(data + 3, size - 3)));
    const int first = data[1] - 100;
    const int second = data[2] - 100;
    CheckNumbers(text, std::min(first, second) / 3.0, std::max(first, second) / 3.0);
    CheckDates(text);
    return 0;
}
