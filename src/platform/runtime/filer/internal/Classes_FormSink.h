// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"
#include "platform/runtime/filer/Classes_Filer.h"

#include <optional>
#include <string_view>

namespace Classes::Form
{

/// So deep components, collections and lists may stand in each other: enough for every design, and within
/// any thread's stack for those who read them by recursion.
inline constexpr int MaxDepth = 500;

/// The head of a component.
struct TObjectHead
{
    bool isInherited = false;
    bool isInline = false;
    std::optional<System::Int64> childPos = {};
    std::string_view className = {};
    std::string_view name = {};
};

/// What a form resource says, from its begin to its end. Both forms, the binary one and the text, are walked
/// through by telling a sink, and are made by one. All names are identifiers, or paths of them, of at most
/// 255 bytes; all narrow texts are UTF-8.
class ASink
{
public:
    ASink() = default;
    ASink(const ASink&) = delete;
    ASink& operator=(const ASink&) = delete;
    virtual ~ASink() = default;

    virtual void BeginObject(const TObjectHead& head) = 0;
    virtual void EndObject() = 0;
    /// A value of this property follows.
    virtual void BeginProperty(std::string_view path) = 0;

    /// `vaNull`, `vaNil`, `vaFalse` or `vaTrue`.
    virtual void Constant(TValueType type) = 0;
    virtual void Integer(System::Int64 value) = 0;
    /// `vaExtended`, `vaSingle`, `vaDouble`, `vaDate` or `vaCurrency`, with the bytes of the binary form.
    virtual void Float(TValueType type, std::string_view bytes) = 0;
    virtual void Text(std::string_view text) = 0;
    /// A text that has no UTF-8 because of lone surrogates.
    virtual void WideText(std::u16string_view text) = 0;
    virtual void Ident(std::string_view path) = 0;
    virtual void Bytes(std::string_view bytes) = 0;

    virtual void BeginSet() = 0;
    virtual void Element(std::string_view name) = 0;
    virtual void EndSet() = 0;
    virtual void BeginList() = 0;
    virtual void EndList() = 0;
    virtual void BeginCollection() = 0;
    virtual void BeginItem(std::optional<System::Int64> place) = 0;
    virtual void EndItem() = 0;
    virtual void EndCollection() = 0;
};

/// The count of bytes of a float of this type; 0 for what is none.
constexpr std::size_t FloatSize(TValueType type)
{
    switch (type) {
    case vaExtended:
        return 10;
    case vaSingle:
        return 4;
    case vaDouble:
    case vaDate:
    case vaCurrency:
        return 8;
    default:
        return 0;
    }
}

} // namespace Classes::Form
