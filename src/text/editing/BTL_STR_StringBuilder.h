// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/runtime/sysutils/Sysutils_StringBuilder.h"

namespace BTL
{

/// Owns a `Sysutils::TStringBuilder`.
///
///     BTL::CStringBuilder text;
///     text->Append(u"n=").Append(5);
///     const UnicodeString result = text->ToString();
class CStringBuilder
{
public:
    CStringBuilder() : mBuilder(System::MakeOwner<Sysutils::TStringBuilder>()) {}
    /// With room for `capacity` characters.
    explicit CStringBuilder(int capacity) : mBuilder(System::MakeOwner<Sysutils::TStringBuilder>(capacity)) {}

    /// The builder itself, which this object owns.
    Sysutils::TStringBuilder* get() const noexcept { return mBuilder.get(); }
    Sysutils::TStringBuilder* operator->() const noexcept { return mBuilder.get(); }
    Sysutils::TStringBuilder& operator*() const noexcept { return *mBuilder; }

private:
    System::GOwner<Sysutils::TStringBuilder> mBuilder;
};

} // namespace BTL
