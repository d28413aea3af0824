// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

#include <memory>
#include <unordered_map>

namespace System::Detail
{

/// The object that a kept property holds: a part, which is made where it is first asked for, or a reference.
class AKeptObject
{
public:
    AKeptObject() = default;
    AKeptObject(const AKeptObject&) = delete;
    AKeptObject& operator=(const AKeptObject&) = delete;
    virtual ~AKeptObject();

    virtual TObject* Get() const = 0;
    /// Refers to `value`, which may be null; a part takes over its state.
    virtual void Set(TObject* value) = 0;
};

/// Makes what keeps a property of the class `type` of an object. Filled in by the room that knows components;
/// it never gives null.
TRS8_BTL_API extern std::unique_ptr<AKeptObject> (*KeepObject)(const TMetaClass* type);

/// What an object has that appears as another class than it was made of.
struct TShownClass
{
    TMetaClass* type;
    /// The values of those published properties whose accessors can't run on it, by names in small letters.
    /// One that stands for an object is an `AKeptObject`.
    std::unordered_map<UnicodeString, Typinfo::TPropValue> values = {};
    std::unordered_map<UnicodeString, std::unique_ptr<AKeptObject>> objects = {};
};

} // namespace System::Detail
