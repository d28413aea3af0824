// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_Format.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/sysutils/internal/System_Conversion.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace Sysutils
{

using System::UnicodeString;
using System::WideChar;

namespace
{

/// One conversion of a format.
struct TConversion : System::Detail::TField
{
    char type = 0;
};

class CFormatter : private System::Detail::GFormatter<UnicodeString>
{
public:
    CFormatter(const UnicodeString& format, System::TVarArgs arguments, const TFormatSettings& settings)
        : GFormatter(format.AsView(), arguments), mSettings(settings)
    {
    }

    UnicodeString Format()
    {
        return PrintAll([this] { PrintConversion(); });
    }

private:
    void PrintConversion()
    {
        const TConversion conversion = ReadConversion();
        switch (conversion.type) {
        case 'd':
        case 'u':
        case 'x':
            return PrintInteger(conversion);
        case 's':
            return PrintText(conversion);
        case 'p':
            return PrintPointer(conversion);
        default:
            return PrintFloat(conversion);
        }
    }

    TConversion ReadConversion()
    {
        TConversion conversion;
        conversion.left = Accept('-');
        conversion.width = ReadNumber(0);
        // What looked like a width is an index if a colon follows.
        if (!conversion.left && Accept(':')) {
            if (conversion.width < 0) {
                Misfit(u"the index " + UnicodeString(conversion.width) + u" is negative");
            }
            mNext = static_cast<std::size_t>(conversion.width);
            conversion.left = Accept('-');
            conversion.width = ReadNumber(0);
        }
        FinishField(conversion);
        conversion.type = ReadType();
        return conversion;
    }

    char ReadType() { return System::Detail::AsciiLower(TakeLetter("duefgnmpsxDUEFGNMPSX")); }

    void PrintInteger(const TConversion& conversion)
    {
        const ESign sign = conversion.type == 'd' ? ESign::Apart : ESign::InTheBits;
        PrintDigits(ToMagnitude(Next(), sign), conversion.type == 'x' ? 16 : 10, conversion);
    }

    void PrintPointer(TConversion conversion)
    {
        const void* value = NextAs<const void*>();
        conversion.precision = 2 * sizeof(void*);
        PrintDigits({reinterpret_cast<std::uintptr_t>(value), false}, 16, conversion);
    }

    void PrintDigits(System::Detail::TMagnitude number, int base, const TConversion& conversion)
    {
        std::string text = System::Detail::DigitText(number.value, base, System::Detail::EHexDigits::Upper);
        const auto digitCount = static_cast<int>(text.size());
        text.insert(0, static_cast<std::size_t>(std::max(conversion.precision - digitCount, 0)), '0');
        if (number.negative) {
            text.insert(0, 1, '-');
        }
        PadNumber(std::string_view(text), conversion);
    }

    void PrintFloat(const TConversion& conversion)
    {
        const long double value = NextAs<long double>();
        // As far as a `double` holds the value, the noise behind its 15 digits doesn't show.
        const auto asDouble = static_cast<double>(value);
        const bool fitsDouble = static_cast<long double>(asDouble) == value;
        const UnicodeString text =
            fitsDouble ? FloatTextBySettings(asDouble, conversion) : FloatTextBySettings(value, conversion);
        PadNumber(text.AsView(), conversion);
    }

    template <class Float>
    UnicodeString FloatTextBySettings(Float value, const TConversion& conversion) const
    {
        constexpr int mostDigits = 18;
        constexpr int exponentDigits = 3;
        const int precision = conversion.precision;
        const auto significant = [&](TFloatFormat format) {
            return FloatToStrF(value, format, precision < 0 ? 15 : precision, exponentDigits, mSettings);
        };
        const auto fixed = [&](TFloatFormat format, int otherwise) {
            return FloatToStrF(value, format, mostDigits, precision < 0 ? otherwise : precision, mSettings);
        };
        switch (conversion.type) {
        case 'e':
            return significant(ffExponent);
        case 'g':
            return significant(ffGeneral);
        case 'n':
            return fixed(ffNumber, 2);
        case 'm':
            return fixed(ffCurrency, mSettings.CurrencyDecimals);
        default:
            return fixed(ffFixed, 2);
        }
    }

    void PrintText(const TConversion& conversion)
    {
        const System::TVarRec::TValue& value = Next().getValue();
        if (const auto* whole = std::get_if<UnicodeString>(&value)) {
            PadCut(whole->AsView(), conversion);
        } else if (const auto* character = std::get_if<WideChar>(&value)) {
            PadCut({character, 1}, conversion);
        } else {
            ArgumentMisfit();
        }
    }

    const TFormatSettings& mSettings;
};

} // namespace

UnicodeString Format(const UnicodeString& format, System::TVarArgs arguments)
{
    return Format(format, arguments, FormatSettings);
}

UnicodeString Format(const UnicodeString& format, System::TVarArgs arguments, const TFormatSettings& settings)
{
    return CFormatter(format, arguments, settings).Format();
}

void FmtStr(UnicodeString& result, const UnicodeString& format, System::TVarArgs arguments)
{
    result = Format(format, arguments);
}

} // namespace Sysutils
