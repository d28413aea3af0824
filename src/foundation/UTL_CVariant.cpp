// SPDX-License-Identifier: MIT
#include "foundation/UTL_CVariant.h"

#include "foundation/UTL_CVariants.h"
#include "foundation/UTL_Links.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/variants/Variants.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string_view>

namespace UTL
{

using System::AnsiString;
using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::Variant;
using System::WideChar;

namespace
{

CVariant Read(const Variant& value)
{
    if (value.IsArray()) {
        CVariant items;
        items.SetItems(value);
        return items;
    }
    switch (Variants::VarType(value)) {
    case System::varEmpty:
    case System::varNull:
        return nullptr;
    case System::varSmallint:
    case System::varInteger:
    case System::varSingle:
        return value.As<int>();
    case System::varDouble:
    case System::varCurrency:
        return value.As<double>();
    case System::varDate:
        return value.As<TDateTime>();
    case System::varOleStr:
    case System::varString:
    case System::varUString:
        return value.As<UnicodeString>();
    case System::varBoolean:
        return value.As<bool>();
    case System::varDecimal:
        // Its bits as they are, also where they are no number of the signed range.
        return static_cast<Int64>(value.As<System::UInt64>());
    case System::varInt64:
        return value.As<Int64>();
    default:
        throw Sysutils::EVariantError(u"Unsupported Variant Type.");
    }
}

template <class Char>
bool IsDoubleText(const TVariantText<Char>& data, const TNumberLinks<Char>& links)
{
    const auto text = System::Detail::SafeView<Char>(data.Text, data.Length);
    double ignored = 0;
    return links.ToDouble != nullptr ? links.ToDouble(text, ignored)
                                     : Sysutils::TextToFloat(UnicodeString(data.Text, data.Length), ignored);
}

unsigned CountOf(int count)
{
    return static_cast<unsigned>(std::max(count, 0));
}

} // namespace

CVariant::CVariant(const CVariant& other)
{
    other.mImp->Assign(mData, other.mData);
    mImp = other.mImp;
}

CVariant::CVariant(const char* value)
{
    SetText(value, System::Detail::SafeView(value).size());
}

CVariant::CVariant(const WideChar* value)
{
    SetText(value, System::Detail::SafeView(value).size());
}

CVariant::CVariant(const CSimpleString& value) : CVariant(value.c_str()) {}

CVariant::CVariant(const AnsiString& value)
{
    SetText(value.c_str(), value.AsView().size());
}

CVariant::CVariant(const UnicodeString& value)
{
    SetText(value.c_str(), value.AsView().size());
}

CVariant::CVariant(const Variant& value) : CVariant(Read(value)) {}

CVariant::CVariant(CVariants&& items)
{
    mData.Array = new CVariants(std::move(items));
    mImp = GetImp(vdtArray);
}

void CVariant::ChangeType(EVariantDataType target)
{
    if (target == Type()) {
        return;
    }
    switch (target) {
    case vdtNull:
        Clear();
        return;
    case vdtBool:
        *this = ToBool();
        return;
    case vdtInt:
        *this = ToInt();
        return;
    case vdtInt64:
        *this = ToInt64();
        return;
    case vdtDouble:
        *this = ToDouble();
        return;
    case vdtDateTime:
        *this = ToDateTime();
        return;
    case vdtAString:
        *this = ToAString();
        return;
    case vdtWString:
        *this = ToWString();
        return;
    case vdtArray: {
        CVariant items{CVariants(1)};
        *items.mData.Array << std::move(*this);
        *this = std::move(items);
        return;
    }
    default:
        throw Sysutils::EVariantError(u"Variant conversion error");
    }
}

bool CVariant::IsDouble() const
{
    switch (Type()) {
    case vdtAString:
        return IsDoubleText(mData.AString, Links().Narrow);
    case vdtWString:
        return IsDoubleText(mData.WString, Links().Wide);
    case vdtArray:
        return false;
    default:
        return true;
    }
}

void CVariant::CreateArray()
{
    if (Type() != vdtArray) {
        *this = CVariant(CVariants());
    }
}

void CVariant::AddItem(const CVariant& item)
{
    CVariant copy(item);
    if (Type() == vdtArray) {
        *mData.Array << std::move(copy);
        return;
    }
    CVariants items(1);
    items << std::move(copy);
    *this = CVariant(std::move(items));
}

void CVariant::SetItems(const int* items, int count)
{
    *this = CVariant(CVariants(items, CountOf(count)));
}

void CVariant::SetItems(const double* items, int count)
{
    *this = CVariant(CVariants(items, CountOf(count)));
}

void CVariant::SetItems(const Variant& items)
{
    CVariants list;
    list.SetItems(items);
    *this = CVariant(std::move(list));
}

template <class T>
T CVariant::Get(bool (AVariantImp::*convert)(const UVariantData&, T&) const, const char* error) const
{
    T value = T();
    if (!(mImp->*convert)(mData, value)) {
        throw Sysutils::EVariantError(error);
    }
    return value;
}

template <class T>
T CVariant::GetDef(bool (AVariantImp::*convert)(const UVariantData&, T&) const, const T& defaultValue) const
{
    T value = T();
    return (mImp->*convert)(mData, value) ? value : defaultValue;
}

bool CVariant::ToBool() const
{
    return Get(&AVariantImp::ToBool, "Bool conversion error");
}

int CVariant::ToInt() const
{
    return Get(&AVariantImp::ToInt, "Int conversion error");
}

Int64 CVariant::ToInt64() const
{
    return Get(&AVariantImp::ToInt64, "Int64 conversion error");
}

double CVariant::ToDouble() const
{
    return Get(&AVariantImp::ToDouble, "Double conversion error");
}

TDateTime CVariant::ToDateTime() const
{
    return Get(&AVariantImp::ToDateTime, "TDateTime conversion error");
}

AnsiString CVariant::ToAString() const
{
    return Get(&AVariantImp::ToAStr, "AStringT conversion error");
}

UnicodeString CVariant::ToWString() const
{
    return Get(&AVariantImp::ToWStr, "WStringT conversion error");
}

UnicodeString CVariant::ToString() const
{
    return Get(&AVariantImp::ToWStr, "String conversion error");
}

Variant CVariant::ToVariant() const
{
    switch (Type()) {
    case vdtNull:
        return Variants::Null();
    case vdtBool:
        return mData.Bool;
    case vdtInt:
        return mData.Int;
    case vdtInt64:
        return mData.Int64;
    case vdtDouble:
        return mData.Double;
    case vdtDateTime:
        return Variants::VarFromDateTime(mData.Days);
    case vdtAString:
        return ToAString();
    case vdtWString: {
        Variant result;
        Varhlpr::VariantFromUnicodeString(result, ToWString());
        return result;
    }
    case vdtArray:
        return mData.Array->ToVariant();
    }
    throw Sysutils::EVariantError(u"Variant conversion error");
}

bool CVariant::ToBoolDef(bool defaultValue) const
{
    return GetDef(&AVariantImp::ToBool, defaultValue);
}

int CVariant::ToIntDef(int defaultValue) const
{
    return GetDef(&AVariantImp::ToInt, defaultValue);
}

Int64 CVariant::ToInt64Def(Int64 defaultValue) const
{
    return GetDef(&AVariantImp::ToInt64, defaultValue);
}

double CVariant::ToDoubleDef(double defaultValue) const
{
    return GetDef(&AVariantImp::ToDouble, defaultValue);
}

TDateTime CVariant::ToDateTimeDef(const TDateTime& defaultValue) const
{
    return GetDef(&AVariantImp::ToDateTime, defaultValue);
}

AnsiString CVariant::ToStringDefA(const AnsiString& defaultValue) const
{
    return GetDef(&AVariantImp::ToAStr, defaultValue);
}

UnicodeString CVariant::ToStringDef(const UnicodeString& defaultValue) const
{
    return GetDef(&AVariantImp::ToWStr, defaultValue);
}

void CVariant::AssignString(const char* text, int length)
{
    CVariant value;
    value.SetText(text, CountOf(length));
    Swap(value);
}

void CVariant::AssignString(const WideChar* text, int length)
{
    CVariant value;
    value.SetText(text, CountOf(length));
    Swap(value);
}

void CVariant::SetText(const char* text, std::size_t length)
{
    if (text != nullptr) {
        UVariantData source;
        // Only read from.
        source.AString = {const_cast<char*>(text), static_cast<int>(length)};
        GetImp(vdtAString)->Assign(mData, source);
        mImp = GetImp(vdtAString);
    }
}

void CVariant::SetText(const WideChar* text, std::size_t length)
{
    if (text != nullptr) {
        UVariantData source;
        // Only read from.
        source.WString = {const_cast<WideChar*>(text), static_cast<int>(length)};
        GetImp(vdtWString)->Assign(mData, source);
        mImp = GetImp(vdtWString);
    }
}

} // namespace UTL
