// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_Object.h"

namespace Classes
{

class CDefiner;
class TFiler;
class TReader;
class TWriter;

/// What happens to a part of a component or collection.
enum TOperation
{
    opInsert,
    opRemove
};

/// Base of all objects whose state can be copied and whose properties can be stored.
///
///     void TGauge::Assign(TPersistent* source)
///     {
///         auto* const other = dynamic_cast<TGauge*>(source);
///         if (other == nullptr) { return TPersistent::Assign(source); }   // asks the source, or raises
///         mValue = other->mValue;
///     }
class TRS8_BTL_API TPersistent : public System::TObject
{
    TRS8_BTL_CLASS(TPersistent, System::TObject)

public:
    ~TPersistent() override;

    /// Takes over the state of `source`. A class that doesn't know the source's class asks the source by
    /// `AssignTo`; `Sysutils::EConvertError` if neither can, or for null.
    virtual void Assign(TPersistent* source);
    /// The path of names from the outermost owner down to this object.
    virtual System::UnicodeString GetNamePath() const;

    /// Copies the state of this object to `target`, which doesn't know this class.
    virtual void AssignTo(TPersistent* target) const;
    virtual TPersistent* GetOwner() const;

protected:
    /// Tells `filer` of what belongs to the object's design beyond its published properties: by
    /// `TFiler::DefineProperty` for each such value, whether it is being read or written. A derived class
    /// calls its parent's.
    virtual void DefineProperties(TFiler& filer);
    /// Raises `Sysutils::EConvertError`: `source`, which may be null, can't be assigned to this.
    [[noreturn]] void AssignError(const TPersistent* source) const;

private:
    friend class CDefiner;
    friend class TReader;
    friend class TWriter;
};

} // namespace Classes
