// SPDX-License-Identifier: MIT
#include "foundation/UTL_CVariantImp.h"

#include "foundation/UTL_CVariant.h"
#include "foundation/internal/UTL_CVariantArray.h"
#include "foundation/internal/UTL_CVariantForms.h"
#include "foundation/internal/UTL_CVariantNumbers.h"
#include "foundation/internal/UTL_CVariantText.h"
#include "platform/base/Sysutils_Exception.h"

#include <array>
#include <cstddef>

namespace UTL
{

using BTL::COutStream;
using System::AnsiString;
using System::Int64;
using System::TDateTime;
using System::UnicodeString;

namespace
{

using namespace Detail;

class CNullImp : public AVariantImp
{
public:
    using AVariantImp::AVariantImp;

    bool ToBool(const UVariantData&, bool& value) const override { return Reset(value); }
    bool ToInt(const UVariantData&, int& value) const override { return Reset(value); }
    bool ToInt64(const UVariantData&, Int64& value) const override { return Reset(value); }
    bool ToDouble(const UVariantData&, double& value) const override { return Reset(value); }
    bool ToDateTime(const UVariantData&, TDateTime& value) const override { return Reset(value); }
    bool ToSStr(const UVariantData&, CSimpleString& value) const override
    {
        value = "";
        return true;
    }
    bool ToAStr(const UVariantData&, AnsiString& value) const override { return Reset(value); }
    bool ToWStr(const UVariantData&, UnicodeString& value) const override { return Reset(value); }
    void WriteTo(const UVariantData&, COutStream& stream) const override { WriteLinked(stream, "NULL"); }

private:
    template <class T>
    static bool Reset(T& value)
    {
        value = T();
        return true;
    }
};

/// One of each, in the order of the types.
union UImps {
    constexpr UImps() noexcept : All() {}
    ~UImps() // NOLINT(modernize-use-equals-default): the default one would be deleted.
    {
        // They are never destroyed: a static object may hold variants longer than this unit lives.
    }

    struct
    {
        CNullImp Null{vdtNull};
        CBoolImp Bool{vdtBool};
        GIntegerImp<&UVariantData::Int> Int{vdtInt};
        GIntegerImp<&UVariantData::Int64> Int64{vdtInt64};
        CDoubleImp Double{vdtDouble};
        CDateTimeImp DateTime{vdtDateTime};
        GStringImp<AnsiString, &UVariantData::AString> AString{vdtAString};
        GStringImp<UnicodeString, &UVariantData::WString> WString{vdtWString};
        CArrayImp Array{vdtArray};
    } All;
};

constinit const UImps imps;

constinit const std::array<const AVariantImp*, 9> impOfType = {
    &imps.All.Null,     &imps.All.Bool,    &imps.All.Int,     &imps.All.Int64, &imps.All.Double,
    &imps.All.DateTime, &imps.All.AString, &imps.All.WString, &imps.All.Array};

} // namespace

void AVariantImp::Assign(UVariantData& target, const UVariantData& source) const
{
    target = source;
}

void AVariantImp::Clear(UVariantData&) const {}

int AVariantImp::GetCount(const UVariantData&) const
{
    return 0;
}

CVariant AVariantImp::GetItem(const UVariantData&, int) const
{
    throw Sysutils::EVariantError(u"Invalid AVariantImp::GetItem call");
}

void AVariantImp::SetItem(const UVariantData&, int, const CVariant&) const
{
    throw Sysutils::EVariantError(u"Invalid AVariantImp::SetItem call");
}

bool AVariantImp::ToBool(const UVariantData&, bool&) const
{
    return false;
}

bool AVariantImp::ToInt(const UVariantData&, int&) const
{
    return false;
}

bool AVariantImp::ToInt64(const UVariantData&, Int64&) const
{
    return false;
}

bool AVariantImp::ToDouble(const UVariantData&, double&) const
{
    return false;
}

bool AVariantImp::ToDateTime(const UVariantData&, TDateTime&) const
{
    return false;
}

bool AVariantImp::ToSStr(const UVariantData&, CSimpleString&) const
{
    return false;
}

bool AVariantImp::ToAStr(const UVariantData&, AnsiString&) const
{
    return false;
}

bool AVariantImp::ToWStr(const UVariantData&, UnicodeString&) const
{
    return false;
}

void AVariantImp::WriteTo(const UVariantData&, COutStream&) const {}

AVariantImp::~AVariantImp() = default;

const AVariantImp* CVariant::GetImp(EVariantDataType type) noexcept
{
    const auto index = static_cast<std::size_t>(type);
    return impOfType[index < impOfType.size() ? index : 0];
}

} // namespace UTL
