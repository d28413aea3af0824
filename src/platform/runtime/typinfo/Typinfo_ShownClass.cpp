// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/runtime/typinfo/internal/System_ShownClass.h"

namespace System::Detail
{

AKeptObject::~AKeptObject() = default;

namespace
{

/// For programs in which there are no components: any object is a reference.
class CPlainReference final : public AKeptObject
{
public:
    TObject* Get() const override { return mObject; }
    void Set(TObject* value) override { mObject = value; }

private:
    TObject* mObject = nullptr;
};

std::unique_ptr<AKeptObject> KeepPlain(const TMetaClass*)
{
    return std::make_unique<CPlainReference>();
}

} // namespace

std::unique_ptr<AKeptObject> (*KeepObject)(const TMetaClass* type) = &KeepPlain;

} // namespace System::Detail

namespace Typinfo
{

using System::Int64;
using System::TMetaClass;
using System::TObject;
using System::Detail::AKeptObject;
using System::Detail::TShownClass;

namespace
{

AKeptObject& KeptObject(TShownClass& shown, const TPropInfo& info)
{
    std::unique_ptr<AKeptObject>& kept = shown.objects[info.getName().LowerCase()];
    if (kept == nullptr) {
        kept = System::Detail::KeepObject(info.getPropType()->ClassType);
    }
    return *kept;
}

} // namespace

/// Whose accessors run on `object`: this property's, where they are those of a class that the object was made
/// of, or those of one that such a class describes under the same name. Null if the value is kept.
const TPropInfo* TPropInfo::AccessorsFor(const TObject& object) const
{
    if (mClass == nullptr || object.IsMadeOf(mClass)) {
        return this;
    }
    const TMetaClass* const made = object.OwnClass();
    if (!mClass->Inherits(made)) {
        Detail::ThrowBadObject();
    }
    if (mShown.runsOn != nullptr && mShown.runsOn(object)) {
        return this;
    }
    const TPropInfo* const inherited = made->FindProperty(mName);
    const bool isEqual = inherited != nullptr && inherited->getKind() == getKind() &&
                         inherited->CanRead() == CanRead() && inherited->CanWrite() == CanWrite();
    return isEqual ? inherited : nullptr;
}

bool TPropInfo::IsShownStored(const TObject& object) const
{
    const TPropInfo* const info = AccessorsFor(object);
    // What says so is for objects of the class that describes the property.
    const bool isAsked = info != nullptr && info->mOptions.stored &&
                         (info->mClass == nullptr || object.IsMadeOf(info->mClass));
    return !isAsked || info->mOptions.stored(&object);
}

/// What the property holds before anything is written.
TPropValue TPropInfo::DefaultValue() const
{
    switch (getKind()) {
    case tkFloat:
        return System::Extended{0};
    case tkString:
    case tkLString:
    case tkWString:
    case tkUString:
        return System::UnicodeString();
    case tkVariant:
        return System::Variant();
    case tkMethod:
        return System::TMethod();
    case tkClass:
        return static_cast<TObject*>(nullptr);
    default:
        break;
    }
    const TTypeInfo* const type = getPropType();
    const bool holdsZero = type == nullptr || (type->MinValue <= 0 && type->MaxValue >= 0);
    return mOptions.defaultValue.value_or(holdsZero ? Int64{0} : type->MinValue);
}

TPropValue TPropInfo::ReadShown(const TObject& object) const
{
    if (const TPropInfo* const info = AccessorsFor(object); info != nullptr) {
        return info->mRead(&object);
    }
    if (getKind() == tkClass) {
        return KeptObject(*object.mShown, *this).Get();
    }
    const auto found = object.mShown->values.find(mName.LowerCase());
    return found == object.mShown->values.end() ? DefaultValue() : found->second;
}

void TPropInfo::WriteShown(TObject& object, const TPropValue& value) const
{
    if (const TPropInfo* const info = AccessorsFor(object); info != nullptr) {
        return info->mWrite(&object, value);
    }
    if (value.index() != DefaultValue().index()) {
        throw std::bad_variant_access();
    }
    if (getKind() != tkClass) {
        // As a real object would hold it, with which this one is compared.
        object.mShown->values.insert_or_assign(mName.LowerCase(),
                                               mShown.rounded == nullptr ? value : mShown.rounded(value));
        return;
    }
    TObject* const other = std::get<TObject*>(value);
    if (other != nullptr && !other->InheritsFrom(getPropType()->ClassType)) {
        Detail::ThrowBadValue();
    }
    KeptObject(*object.mShown, *this).Set(other);
}

} // namespace Typinfo
