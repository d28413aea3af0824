// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/runtime/typinfo/internal/System_ShownClass.h"

#include <memory>
#include <optional>

namespace Classes
{

using System::TMetaClass;
using System::TObject;

namespace
{

/// A reference to a component, which is null when that has gone; or to any other object, which must stay.
class CKeptReference final : public System::Detail::AKeptObject
{
public:
    TObject* Get() const override { return mWatch && !mWatch->IsAlive() ? nullptr : mObject; }
    void Set(TObject* value) override
    {
        mWatch.reset();
        mObject = value;
        if (const auto* const component = dynamic_cast<const TComponent*>(value); component != nullptr) {
            mWatch.emplace(component);
        }
    }

private:
    TObject* mObject = nullptr;
    std::optional<TComponentWatch> mWatch;
};

/// A part of a property's class; null if there is none to be had.
class CKeptPart final : public System::Detail::AKeptObject
{
public:
    explicit CKeptPart(std::unique_ptr<TObject> part) : mPart(std::move(part)) {}

    TObject* Get() const override { return mPart.get(); }
    void Set(TObject* value) override
    {
        auto* const part = dynamic_cast<TPersistent*>(mPart.get());
        if (part == nullptr) {
            throw Sysutils::EConvertError(u"A part that isn't there can't be assigned to");
        }
        part->Assign(dynamic_cast<TPersistent*>(value));
    }

private:
    std::unique_ptr<TObject> mPart;
};

std::unique_ptr<System::Detail::AKeptObject> Keep(const TMetaClass* type)
{
    const bool isPart = type != nullptr && type->Inherits(System::ClassOf<TPersistent>()) &&
                        !type->Inherits(System::ClassOf<TComponent>());
    if (isPart) {
        return std::make_unique<CKeptPart>(type->CreateStandIn());
    }
    return std::make_unique<CKeptReference>();
}

[[maybe_unused]] const bool IsKept = [] {
    System::Detail::KeepObject = &Keep;
    return true;
}();

} // namespace

} // namespace Classes
