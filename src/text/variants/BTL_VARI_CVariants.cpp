// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_CVariants.h"

#include "foundation/UTL_CVariants.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/internal/System_Memory.h"
#include "platform/runtime/variants/Variants.h"
#include "text/lists/BTL_STR_StringList.h"
#include "text/variants/BTL_VARI_BestValue.h"
#include "text/variants/BTL_VARI_Conversions.h"

#include <algorithm>
#include <optional>

namespace BTL
{

using System::Int64;
using System::UnicodeString;
using System::Variant;

namespace
{

std::optional<int> TryInt(const Variant& value)
{
    try {
        return value.As<int>();
    } catch (const Sysutils::EVariantError&) {
        return std::nullopt;
    }
}

} // namespace

CVariants::CVariants(unsigned count)
{
    System::WithMemory(u"There is no memory for the entries of a list.", [&] { reserve(count); });
}

CVariants& CVariants::operator=(const UTL::CVariants& items)
{
    Assign(items);
    return *this;
}

void CVariants::Assign(const UTL::CVariants& items)
{
    std::vector<Variant> values;
    values.reserve(static_cast<std::size_t>(items.GetCount()));
    for (int i = 0; i < items.GetCount(); ++i) {
        values.push_back(items.getItem(i).ToVariant());
    }
    swap(values);
}

void CVariants::AddVariantsTo(UTL::CVariants& items) const
{
    items.AddItems(getVarArray());
}

void CVariants::GetVariants(UTL::CVariants& items) const
{
    items.SetItems(getVarArray());
}

void CVariants::AssignArray(const Variant& value)
{
    std::vector<Variant> values;
    if (!value.IsArray()) {
        values.push_back(value);
    } else {
        for (Int64 i = value.ArrayLowBound(); i <= value.ArrayHighBound(); ++i) {
            values.push_back(value.GetElement(static_cast<int>(i)));
        }
    }
    swap(values);
}

Variant CVariants::getVarArray() const
{
    return Variants::VarArrayOf(*this);
}

void CVariants::setItem(int index, const Variant& value)
{
    if (index < 0 || static_cast<std::size_t>(index) >= size()) {
        throw Sysutils::ERangeError(u"There is no entry " + UnicodeString(index) + u".");
    }
    (*this)[static_cast<std::size_t>(index)] = value;
}

bool CVariants::operator==(const CVariants& other) const
{
    return std::equal(begin(), end(), other.begin(), other.end(), Variants::VarSameValue);
}

bool CVariants::operator<(const CVariants& other) const
{
    const auto [mine, theirs] =
        std::mismatch(begin(), end(), other.begin(), other.end(), Variants::VarSameValue);
    if (mine == end() || theirs == other.end()) {
        return theirs != other.end();
    }
    return *mine < *theirs;
}

bool CVariants::operator==(const Variant& value) const
{
    return size() == 1 && front() == value;
}

bool CVariants::EqualsInt(int value) const
{
    return size() == 1 && TryInt(front()) == value;
}

bool CVariants::operator<(const Variant& value) const
{
    return empty() || front() < value;
}

bool CVariants::IsBelowInt(int value) const
{
    return empty() || TryInt(front()).value_or(value) < value;
}

UnicodeString CVariants::getCommaText() const
{
    CStringList texts;
    for (const Variant& value : *this) {
        texts.Add(VarToStrDef(value, UnicodeString()));
    }
    return texts.getCommaText();
}

void CVariants::setCommaText(const UnicodeString& text)
{
    const CStringList texts(text);
    clear();
    for (int i = 0; i < texts.getCount(); ++i) {
        push_back(StringToBestVariant(texts[i]));
    }
}

UnicodeString CVariants::_getDebugInfo() const
{
    CStringList texts;
    for (const Variant& value : *this) {
        texts.Add(value.IsArray() ? UnicodeString(u"?") : Variants::VarToStr(value));
    }
    return texts.GetDelimitedText(u';');
}

} // namespace BTL
