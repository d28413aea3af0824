// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"

#include <concepts>

namespace BTL
{

/// A text made of a typed value, and read as one. Conversions raise `Sysutils::EConvertError`.
///
///     const BTL::CStrVariant text = 1.5;
///     const double value = text;
///     const System::TDateTime day = BTL::CStrVariant(u"1.2.2022");
class TRS8_BTL_API CStrVariant : public System::UnicodeString
{
public:
    CStrVariant() = default;
    CStrVariant(const System::UnicodeString& text) : UnicodeString(text) {}
    /// A null pointer gives the empty text.
    CStrVariant(const System::WideChar* text) : UnicodeString(text) {}
    CStrVariant(const char* text) : UnicodeString(text) {}
    /// As `VarToStrDef`, empty where there is no text.
    CStrVariant(const System::Variant& value);
    CStrVariant(System::Currency value);
    CStrVariant(System::TDateTime value);
    CStrVariant(System::Int64 value);
    /// As a variant: a float must not turn into an integer.
    template <std::floating_point T>
    CStrVariant(T value) : CStrVariant(System::Variant(value))
    {
    }

    operator System::Int64() const;
    // `.` and `,` both do.
    operator float() const;
    operator double() const;
    operator System::Currency() const;
    operator System::TDateTime() const;
};

/// As `CStrVariant`, but 8-bit text.
class TRS8_BTL_API CAStrVariant : public System::AnsiString
{
public:
    CAStrVariant() = default;
    CAStrVariant(const System::AnsiString& text) : System::AnsiString(text) {}
    CAStrVariant(const System::WideChar* text) : System::AnsiString(text) {}
    CAStrVariant(const char* text) : System::AnsiString(text) {}
    CAStrVariant(const System::Variant& value);
    CAStrVariant(System::Currency value);
    CAStrVariant(System::TDateTime value);
    CAStrVariant(System::Int64 value);
    template <std::floating_point T>
    CAStrVariant(T value) : CAStrVariant(System::Variant(value))
    {
    }

    /// As `BTL::StrToInt64Def`: 0 if the text doesn't begin with an integer.
    operator System::Int64() const;
    operator float() const;
    operator double() const;
    operator System::Currency() const;
    operator System::TDateTime() const;
};

} // namespace BTL
