// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_SharedBlock.h"

#include <typeinfo>
#include <utility>

namespace System
{

class TObject;

/// What a method does, without the object it does it to: the meaning of a published method's name.
class TRS8_BTL_API TMethodCode : public TSharedBlock
{
public:
    ~TMethodCode() override;

    /// The type of a function of the same result and arguments.
    virtual const std::type_info& Signature() const noexcept = 0;
    /// Whether both run the same method.
    virtual bool Equals(const TMethodCode& other) const noexcept = 0;
};

/// The code of a method; null stands for no method.
using TMethodAddress = GSharedBlock<TMethodCode>;

/// A method bound to its object, of any signature: the untyped store of a `TClosure`.
struct TRS8_BTL_API TMethod
{
    TMethodAddress Code;
    /// The object, as `TObject*` if it is one; not owned.
    void* Data = nullptr;

    /// The method `code` of `object`; empty if there is no code.
    static TMethod Of(TMethodAddress code, TObject* object) noexcept
    {
        return code == nullptr ? TMethod() : TMethod{std::move(code), object};
    }

    explicit operator bool() const noexcept { return Code != nullptr; }
    /// Whether both run the same method of the same object.
    friend bool operator==(const TMethod& a, const TMethod& b) noexcept { return Equal(a, b); }

private:
    static bool Equal(const TMethod& a, const TMethod& b) noexcept;
};

} // namespace System
