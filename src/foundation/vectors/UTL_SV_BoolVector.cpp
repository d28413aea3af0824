// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_BoolVector.h"

#include "foundation/vectors/UTL_SV_GSimpleVector.hpp"
#include "foundation/vectors/internal/UTL_SV_CommaText.h"
#include "platform/base/numbers/Sysutils_Number.h"

namespace UTL
{

template class GSimpleVector<bool>;

using System::UnicodeString;
using System::WideChar;

CBoolVector::CBoolVector(const CBoolVector* other)
{
    if (other != nullptr) {
        *this = *other;
    }
}

UnicodeString CBoolVector::getCommaText() const
{
    return Detail::JoinNumbers(*this, [](bool value, char* out) {
        *out = value ? '1' : '0';
        return out + 1;
    });
}

void CBoolVector::setCommaText(UnicodeString text)
{
    const auto scan = [](const WideChar* first, const WideChar* last, bool& value) {
        int number = 0;
        const WideChar* const end = Detail::ScanInteger(first, last, number);
        value = number != 0;
        return end;
    };
    Detail::SplitNumbers(*this, text.AsView(), scan, [](std::u16string_view part) {
        return Sysutils::StrToInt(UnicodeString(part)) != 0;
    });
}

} // namespace UTL
