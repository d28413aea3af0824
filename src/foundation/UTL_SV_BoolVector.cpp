// SPDX-License-Identifier: MIT
#include "foundation/UTL_SV_BoolVector.h"

#include "foundation/UTL_SV_CommaTextInternal.h"
#include "platform/runtime/Sysutils_Number.h"

namespace UTL
{

using System::UnicodeString;

CBoolVector::CBoolVector(const CBoolVector* other)
{
    if (other != nullptr) {
        *this = *other;
    }
}

UnicodeString CBoolVector::getCommaText() const
{
    return Detail::JoinNumbers(*this, [](bool value, System::WideChar* out) {
        *out = value ? u'1' : u'0';
        return std::size_t(1);
    });
}

void CBoolVector::setCommaText(UnicodeString text)
{
    Detail::SplitNumbers(*this, text.AsView(), [](std::u16string_view part) {
        return Sysutils::StrToInt(UnicodeString(part)) != 0;
    });
}

} // namespace UTL
