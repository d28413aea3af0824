// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_IntVector.h"

#include "foundation/vectors/UTL_SV_GSimpleVector.hpp"
#include "foundation/vectors/internal/UTL_SV_CommaText.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/sysutils/Math.h"

#include <algorithm>
#include <cstdint>

namespace UTL
{

template class GSimpleVector<int>;

namespace
{

using System::UnicodeString;

constexpr CFaultPlace NoStringsToRead{"UTL_SV_IntVector.cpp", 90};
constexpr CFaultPlace NoStringsToFill{"UTL_SV_IntVector.cpp", 105};

} // namespace

CIntVector::CIntVector(const CIntVector* other)
{
    if (other != nullptr) {
        *this = *other;
    }
}

CIntVector::CIntVector(const UnicodeString& commaText)
{
    setCommaText(commaText);
}

UnicodeString CIntVector::getCommaText() const
{
    return Detail::JoinNumbers(*this, Detail::WriteInteger);
}

void CIntVector::setCommaText(UnicodeString text)
{
    Detail::SplitNumbers(*this, text.AsView(), Detail::ScanInteger<int>,
                         [](std::u16string_view part) { return Sysutils::StrToInt(UnicodeString(part)); });
}

int CIntVector::GetMaxValue() const
{
    return Math::MaxIntValue({begin(), end()});
}

int CIntVector::GetMinValue() const
{
    return Math::MinIntValue({begin(), end()});
}

int CIntVector::GetSum() const
{
    return Math::SumInt({begin(), end()});
}

int CIntVector::AtOrDef(int index, int defaultValue) const
{
    return static_cast<unsigned>(index) < size() ? begin()[index] : defaultValue;
}

void CIntVector::SetObjects(Classes::TStrings* strings)
{
    if (strings == nullptr) {
        THROW_XAssert(NoStringsToRead);
        return;
    }
    resize(0);
    const int count = strings->getCount();
    reserve(static_cast<unsigned>(count));
    for (int i = 0; i < count; ++i) {
        push_back(static_cast<int>(reinterpret_cast<std::intptr_t>(strings->getObjects(i))));
    }
}

void CIntVector::MoveObjectsTo(Classes::TStrings* strings) const
{
    if (strings == nullptr) {
        THROW_XAssert(NoStringsToFill);
        return;
    }
    const int count = std::min(strings->getCount(), static_cast<int>(size()));
    for (int i = 0; i < count; ++i) {
        strings->setObjects(i, reinterpret_cast<System::TObject*>(static_cast<std::intptr_t>(begin()[i])));
    }
}

} // namespace UTL
