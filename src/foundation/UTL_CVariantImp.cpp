// SPDX-License-Identifier: MIT
#include "foundation/UTL_CVariantImp.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_CVariants.h"
#include "foundation/UTL_Links.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_DateReading.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/base/numbers/Sysutils_Number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>
#include <limits>
#include <memory>
#include <string_view>

namespace UTL
{

using BTL::COutStream;
using System::AnsiString;
using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::WideChar;

namespace
{

constexpr CFaultPlace ReadsNoItem{"UTL_CVariant.cpp", 722};
constexpr CFaultPlace WritesNoItem{"UTL_CVariant.cpp", 729};

void Write(COutStream& stream, std::string_view text)
{
    if (const auto write = Links().Write) {
        write(stream, text);
    }
}

template <class Int>
Int Cut(double value)
{
    // The highest limit itself may be no float, but the power of two behind it is.
    constexpr double end = -static_cast<double>(std::numeric_limits<Int>::min());
    if (value >= end) {
        return std::numeric_limits<Int>::max();
    }
    if (value <= -end) {
        return std::numeric_limits<Int>::min();
    }
    return value == value ? static_cast<Int>(value) : 0;
}

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
    void WriteTo(const UVariantData&, COutStream& stream) const override { Write(stream, "NULL"); }

private:
    template <class T>
    static bool Reset(T& value)
    {
        value = T();
        return true;
    }
};

/// The string forms of a type that has one text, which `Derived::Text<S>(data)` gives in either width.
template <class Derived>
class GTextForms : public AVariantImp
{
public:
    using AVariantImp::AVariantImp;

    bool ToSStr(const UVariantData& data, CSimpleString& value) const override
    {
        value = Derived::template Text<AnsiString>(data);
        return true;
    }
    bool ToAStr(const UVariantData& data, AnsiString& value) const override
    {
        value = Derived::template Text<AnsiString>(data);
        return true;
    }
    bool ToWStr(const UVariantData& data, UnicodeString& value) const override
    {
        value = Derived::template Text<UnicodeString>(data);
        return true;
    }
};

/// All that is a number in `Member` of the payload.
template <class Derived, auto Member>
class GNumberImp : public GTextForms<Derived>
{
public:
    using GTextForms<Derived>::GTextForms;

    bool ToBool(const UVariantData& data, bool& value) const override
    {
        value = data.*Member != 0;
        return true;
    }
    bool ToInt(const UVariantData& data, int& value) const override { return ToWhole(data, value); }
    bool ToInt64(const UVariantData& data, Int64& value) const override { return ToWhole(data, value); }
    bool ToDouble(const UVariantData& data, double& value) const override
    {
        value = static_cast<double>(data.*Member);
        return true;
    }
    bool ToDateTime(const UVariantData& data, TDateTime& value) const override
    {
        value = static_cast<double>(data.*Member);
        return true;
    }
    void WriteTo(const UVariantData& data, COutStream& stream) const override
    {
        Write(stream, Derived::template Text<AnsiString>(data).AsView());
    }

private:
    template <class Int>
    static bool ToWhole(const UVariantData& data, Int& value)
    {
        if constexpr (std::floating_point<std::remove_cvref_t<decltype(data.*Member)>>) {
            value = Cut<Int>(data.*Member);
        } else {
            value = static_cast<Int>(data.*Member);
        }
        return true;
    }
};

/// An integer or a bool.
template <auto Member>
class GIntegerImp : public GNumberImp<GIntegerImp<Member>, Member>
{
public:
    using GNumberImp<GIntegerImp, Member>::GNumberImp;

    template <class S>
    static S Text(const UVariantData& data)
    {
        std::array<char, 24> text;
        const Int64 value = data.*Member;
        const char* const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
        return S(text.data(), static_cast<int>(end - text.data()));
    }
};

class CBoolImp : public GIntegerImp<&UVariantData::Bool>
{
public:
    using GIntegerImp::GIntegerImp;

    bool ToDateTime(const UVariantData&, TDateTime&) const override { return false; }
};

class CDoubleImp : public GNumberImp<CDoubleImp, &UVariantData::Double>
{
public:
    using GNumberImp::GNumberImp;

    template <class S>
    static S Text(const UVariantData& data)
    {
        return Sysutils::FloatToStr(data.Double);
    }
    void WriteTo(const UVariantData& data, COutStream& stream) const override
    {
        std::array<char, Sysutils::FloatBufferSize> text;
        Write(stream, {text.data(), Sysutils::FloatToBuffer(data.Double, '.', text.data())});
    }
};

class CDateTimeImp : public GNumberImp<CDateTimeImp, &UVariantData::Days>
{
public:
    using GNumberImp::GNumberImp;

    template <class S>
    static S Text(const UVariantData& data)
    {
        return Sysutils::DateTimeToStr(data.Days);
    }
};

// How text is read by the layer above, and by the run-time library where that is not there.

bool ReadAlone(const UnicodeString& text, int& value)
{
    return Sysutils::TryStrToInt(text, value);
}

bool ReadAlone(const UnicodeString& text, Int64& value)
{
    return Sysutils::TryStrToInt64(text, value);
}

bool ReadAlone(const UnicodeString& text, double& value)
{
    return Sysutils::TextToFloat(text, value);
}

const TNumberLinks<char>& NumberLinks(std::string_view)
{
    return Links().Narrow;
}

const TNumberLinks<WideChar>& NumberLinks(std::u16string_view)
{
    return Links().Wide;
}

template <class S, auto Member>
class GStringImp : public GTextForms<GStringImp<S, Member>>
{
    using Char = typename S::CharType;
    using View = typename S::View;
    using NumberLinks = TNumberLinks<Char>;

public:
    using GTextForms<GStringImp>::GTextForms;

    void Assign(UVariantData& target, const UVariantData& source) const override
    {
        const View text = ViewOf(source);
        TVariantText<Char> copy{nullptr, static_cast<int>(text.size())};
        if (!text.empty()) {
            copy.Text = new Char[text.size() + 1];
            *std::copy(text.begin(), text.end(), copy.Text) = Char();
        }
        target = UVariantData();
        target.*Member = copy;
    }
    void Clear(UVariantData& data) const override
    {
        delete[](data.*Member).Text;
        data = UVariantData();
    }
    bool ToBool(const UVariantData& data, bool& value) const override
    {
        const View text = ViewOf(data);
        if (text.size() != 1 || (text[0] != '0' && text[0] != '1')) {
            return false;
        }
        value = text[0] == '1';
        return true;
    }
    bool ToInt(const UVariantData& data, int& value) const override
    {
        return Read(data, &NumberLinks::ToInt, value);
    }
    bool ToInt64(const UVariantData& data, Int64& value) const override
    {
        return Read(data, &NumberLinks::ToInt64, value);
    }
    bool ToDouble(const UVariantData& data, double& value) const override
    {
        return Read(data, &NumberLinks::ToDouble, value);
    }
    bool ToDateTime(const UVariantData& data, TDateTime& value) const override
    {
        const auto text = Text<UnicodeString>(data);
        const auto read = Links().StrToDateTime;
        value = read != nullptr ? read(text) : Sysutils::StrToDateTime(text);
        return true;
    }
    void WriteTo(const UVariantData& data, COutStream& stream) const override
    {
        Write(stream, "\"");
        Write(stream, Text<AnsiString>(data).AsView());
        Write(stream, "\"");
    }

    template <class Target>
    static Target Text(const UVariantData& data)
    {
        return Target(S(ViewOf(data)));
    }

private:
    static View ViewOf(const UVariantData& data)
    {
        return System::Detail::SafeView<Char>((data.*Member).Text, (data.*Member).Length);
    }

    template <class T>
    static bool Read(const UVariantData& data, bool (*NumberLinks::*link)(View, T&), T& value)
    {
        const auto read = UTL::NumberLinks(View()).*link;
        return read != nullptr ? read(ViewOf(data), value) : ReadAlone(Text<UnicodeString>(data), value);
    }
};

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
    bool ToInt64(const UVariantData& data, Int64& value) const override
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
    bool ToAStr(const UVariantData& data, AnsiString& value) const override
    {
        return OfItem(data, &AVariantImp::ToAStr, value);
    }
    bool ToWStr(const UVariantData& data, UnicodeString& value) const override
    {
        return OfItem(data, &AVariantImp::ToWStr, value);
    }
    void WriteTo(const UVariantData& data, COutStream& stream) const override
    {
        Write(stream, "[");
        const CVariants none;
        (data.Array == nullptr ? none : *data.Array).WriteTo(stream);
        Write(stream, "]");
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
