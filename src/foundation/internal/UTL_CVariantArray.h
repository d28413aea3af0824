// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_CVariants.h"
#include "foundation/internal/UTL_CVariantForms.h"

#include <memory>

namespace UTL::Detail
{

inline constexpr CFaultPlace ReadsNoItem{"UTL_CVariant.cpp", 722};
inline constexpr CFaultPlace WritesNoItem{"UTL_CVariant.cpp", 729};

/// An array of variants, which the payload owns; null is an empty one. One item alone converts as that item.
class CArrayImp : public AVariantImp
{
public:
    using AVariantImp::AVariantImp;

    void Assign(UVariantData& target, const UVariantData& source) const override
    {
        auto copy = source.Array == nullptr ? std::make_unique<CVariants>()
                                            : std::make_unique<CVariants>(*source.Array);
        target = UVariantData();
        target.Array = copy.release();
    }
    void Clear(UVariantData& data) const override
    {
        delete data.Array;
        data = UVariantData();
    }
    int GetCount(const UVariantData& data) const override
    {
        return data.Array == nullptr ? 0 : data.Array->GetCount();
    }
    CVariant GetItem(const UVariantData& data, int index) const override
    {
        return IsInside(data, index, ReadsNoItem) ? data.Array->getItem(index) : CVariant();
    }
    void SetItem(const UVariantData& data, int index, const CVariant& value) const override
    {
        if (IsInside(data, index, WritesNoItem)) {
            data.Array->setItem(index, value);
        }
    }
    bool ToBool(const UVariantData& data, bool& value) const override
    {
        return OfItem(data, &AVariantImp::ToBool, value);
    }
    bool ToInt(const UVariantData& data, int& value) const override
    {
        return OfItem(data, &AVariantImp::ToInt, value);
    }
    bool ToInt64(const UVariantData& data, System::Int64& value) const override
    {
        return OfItem(data, &AVariantImp::ToInt64, value);
    }
    bool ToDouble(const UVariantData& data, double& value) const override
    {
        return OfItem(data, &AVariantImp::ToDouble, value);
    }
    bool ToSStr(const UVariantData& data, CSimpleString& value) const override
    {
        return OfItem(data, &AVariantImp::ToSStr, value);
    }
    bool ToAStr(const UVariantData& data, System::AnsiString& value) const override
    {
        return OfItem(data, &AVariantImp::ToAStr, value);
    }
    bool ToWStr(const UVariantData& data, System::UnicodeString& value) const override
    {
        return OfItem(data, &AVariantImp::ToWStr, value);
    }
    void WriteTo(const UVariantData& data, BTL::COutStream& stream) const override
    {
        WriteLinked(stream, "[");
        const CVariants none;
        (data.Array == nullptr ? none : *data.Array).WriteTo(stream);
        WriteLinked(stream, "]");
    }

private:
    bool IsInside(const UVariantData& data, int index, const CFaultPlace& place) const
    {
        const bool isInside = index >= 0 && index < GetCount(data);
        if (!isInside) {
            THROW_XAssert(place);
        }
        return isInside;
    }

    template <class T>
    bool OfItem(const UVariantData& data, bool (AVariantImp::*convert)(const UVariantData&, T&) const,
                T& value) const
    {
        if (GetCount(data) != 1) {
            return false;
        }
        const CVariant& item = data.Array->At(0);
        return (item.getImp().*convert)(item.getData(), value);
    }
};

} // namespace UTL::Detail
