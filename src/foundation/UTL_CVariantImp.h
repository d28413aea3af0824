// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_STR_SimpleString.h"
#include "platform/base/System_String.h"
#include "platform/base/dates/System_DateTime.h"

namespace BTL
{
class COutStream;
} // namespace BTL

namespace UTL
{

class CVariant;
class CVariants;

/// What a `CVariant` holds.
enum EVariantDataType : int
{
    vdtNull,
    vdtBool,
    vdtInt,
    vdtInt64,
    vdtDouble,
    vdtDateTime,
    /// 8-bit text in the system's code page.
    vdtAString,
    /// Wide text.
    vdtWString,
    vdtArray
};

/// The text of a `CVariant`: an array of `Length` characters with a zero behind them. The empty text is null.
template <class Char>
struct TVariantText
{
    Char* Text;
    int Length;
};

/// The payload of a `CVariant`, two machine words wide. Only an `AVariantImp` knows which member counts.
union UVariantData {
    bool Bool;
    int Int;
    System::Int64 Int64;
    double Double;
    /// Days, as `System::TDateTime`.
    double Days;
    TVariantText<char> AString;
    TVariantText<System::WideChar> WString;
    CVariants* Array;
    /// Both words; the null payload has zeros.
    System::UInt64 Words[2] = {0, 0};
};

/// The behaviour of one type of `CVariant`. It has no state: there is one object per type, which lives as
/// long as the process (see `CVariant::GetImp`). The payload given must be of its own type. A conversion
/// gives false, and leaves its target alone, if it can't be done.
class TRS8_BTL_API AVariantImp
{
public:
    explicit constexpr AVariantImp(EVariantDataType type) noexcept : mType(type) {}
    AVariantImp(const AVariantImp&) = delete;
    AVariantImp& operator=(const AVariantImp&) = delete;

    /// The type whose behaviour this is.
    EVariantDataType Type() const noexcept { return mType; }

    /// Makes `target`, whose former content counts for nothing, a copy of `source` that owns what it holds.
    virtual void Assign(UVariantData& target, const UVariantData& source) const;
    /// Frees what the payload owns, and leaves zeros then.
    virtual void Clear(UVariantData& data) const;
    /// The count of items of an array, else 0.
    virtual int GetCount(const UVariantData& data) const;
    /// A copy of an item. `Sysutils::EVariantError` if the type is no array; an `index` outside raises an
    /// assertion, and if that returns the result is null or nothing is set.
    virtual CVariant GetItem(const UVariantData& data, int index) const;
    virtual void SetItem(const UVariantData& data, int index, const CVariant& value) const;
    virtual bool ToBool(const UVariantData& data, bool& value) const;
    /// The low 32 bits of a 64-bit integer. A float is cut, one beyond the range gives the nearest limit, and
    /// NaN gives 0.
    virtual bool ToInt(const UVariantData& data, int& value) const;
    virtual bool ToInt64(const UVariantData& data, System::Int64& value) const;
    virtual bool ToDouble(const UVariantData& data, double& value) const;
    /// A text that is no date raises `Sysutils::EConvertError`.
    virtual bool ToDateTime(const UVariantData& data, System::TDateTime& value) const;
    virtual bool ToSStr(const UVariantData& data, CSimpleString& value) const;
    virtual bool ToAStr(const UVariantData& data, System::AnsiString& value) const;
    virtual bool ToWStr(const UVariantData& data, System::UnicodeString& value) const;
    /// Writes a form for people: texts between double quotes, the items of an array between brackets.
    virtual void WriteTo(const UVariantData& data, BTL::COutStream& stream) const;
    virtual ~AVariantImp();

private:
    const EVariantDataType mType;
};

} // namespace UTL
