// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Maps.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "text/lists/BTL_STR_StringsUpdate.h"
#include "text/variants/BTL_VARI_Conversions.h"
#include "text/variants/BTL_VARI_Stored.h"

namespace BTL
{

using System::Int64;
using System::UnicodeString;
using System::Variant;

namespace
{

constexpr UTL::CFaultPlace KeyTaken{"BTL_VARI_CInt64VariantMap", 89};

} // namespace

int CStrVariantMap::FindInt(const UnicodeString& key, int defaultValue) const
{
    return ToIntDef(FindDef(key, defaultValue), defaultValue);
}

Int64 CStrVariantMap::FindInt64(const UnicodeString& key, Int64 defaultValue) const
{
    return ToInt64Def(FindDef(key, defaultValue), defaultValue);
}

int CStrVariantMap::FindPropertyInt(const UnicodeString& key, int defaultValue) const
{
    return ToPropertyIntDef(FindDef(key, defaultValue), defaultValue);
}

void CStrVariantMap::AddInfoTextTo(Classes::TStrings* strings) const
{
    if (strings == nullptr) {
        return;
    }
    const CStringsUpdate update(strings);
    for (const auto& [key, value] : *this) {
        strings->Add(key + u" = " + VarToStrDef(value, UnicodeString()));
    }
}

UnicodeString CStrVariantMap::getDebugText() const
{
    UnicodeString text;
    for (const auto& [key, value] : *this) {
        text += u"[" + key + u"]='" + VarToVStr(value) + u"';";
    }
    return text;
}

Int64 CInt64VariantMap::Append(const Variant& value)
{
    Int64 key = 1;
    if (!empty()) {
        __builtin_add_overflow(rbegin()->first, Int64{1}, &key);
    }
    if (key == 0) {
        key = 1;
    }
    if (!try_emplace(key, value).second) {
        UTL::THROW_XAssert(KeyTaken);
    }
    return key;
}

void CIntToVarMap::Add(const UTL::CIntVector& keys, const Variant& value)
{
    for (const int key : keys) {
        insert_or_assign(key, value);
    }
}

} // namespace BTL
