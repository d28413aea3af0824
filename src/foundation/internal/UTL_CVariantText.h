// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/internal/UTL_CVariantForms.h"
#include "platform/base/dates/Sysutils_DateReading.h"
#include "platform/base/numbers/Sysutils_Number.h"

#include <algorithm>
#include <string_view>

namespace UTL::Detail
{

// How text is read by the layer above, and by the run-time library where that is not there.

inline bool ReadAlone(const System::UnicodeString& text, int& value)
{
    return Sysutils::TryStrToInt(text, value);
}

inline bool ReadAlone(const System::UnicodeString& text, System::Int64& value)
{
    return Sysutils::TryStrToInt64(text, value);
}

inline bool ReadAlone(const System::UnicodeString& text, double& value)
{
    return Sysutils::TextToFloat(text, value);
}

[[nodiscard]] inline const TNumberLinks<char>& LinksFor(std::string_view)
{
    return Links().Narrow;
}

[[nodiscard]] inline const TNumberLinks<System::WideChar>& LinksFor(std::u16string_view)
{
    return Links().Wide;
}

/// A text in `Member` of the payload, which owns its array.
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
    bool ToInt64(const UVariantData& data, System::Int64& value) const override
    {
        return Read(data, &NumberLinks::ToInt64, value);
    }
    bool ToDouble(const UVariantData& data, double& value) const override
    {
        return Read(data, &NumberLinks::ToDouble, value);
    }
    bool ToDateTime(const UVariantData& data, System::TDateTime& value) const override
    {
        const auto text = Text<System::UnicodeString>(data);
        const auto read = Links().StrToDateTime;
        value = read != nullptr ? read(text) : Sysutils::StrToDateTime(text);
        return true;
    }
    void WriteTo(const UVariantData& data, BTL::COutStream& stream) const override
    {
        WriteLinked(stream, "\"");
        WriteLinked(stream, Text<System::AnsiString>(data).AsView());
        WriteLinked(stream, "\"");
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
        const auto read = LinksFor(View()).*link;
        return read != nullptr ? read(ViewOf(data), value)
                               : ReadAlone(Text<System::UnicodeString>(data), value);
    }
};

} // namespace UTL::Detail
