// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_CVariantImp.h"
#include "foundation/UTL_Links.h"
#include "platform/base/System_String.h"

#include <string_view>

namespace UTL::Detail
{

/// Writes through the link; nothing where the layer of streams is not there.
inline void WriteLinked(BTL::COutStream& stream, std::string_view text)
{
    if (const auto write = Links().Write) {
        write(stream, text);
    }
}

/// The string forms of a type that has one text, which `Derived::Text<S>(data)` gives in either width.
template <class Derived>
class GTextForms : public AVariantImp
{
public:
    using AVariantImp::AVariantImp;

    bool ToSStr(const UVariantData& data, CSimpleString& value) const override
    {
        value = Derived::template Text<System::AnsiString>(data);
        return true;
    }
    bool ToAStr(const UVariantData& data, System::AnsiString& value) const override
    {
        value = Derived::template Text<System::AnsiString>(data);
        return true;
    }
    bool ToWStr(const UVariantData& data, System::UnicodeString& value) const override
    {
        value = Derived::template Text<System::UnicodeString>(data);
        return true;
    }
};

} // namespace UTL::Detail
