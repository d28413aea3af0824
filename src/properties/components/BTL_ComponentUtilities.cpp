// SPDX-License-Identifier: MIT
#include "properties/components/BTL_ComponentUtilities.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_Component.h"

namespace BTL
{

using Classes::TComponent;
using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoComponent{"BTL_ComponentUtilities", 1};

} // namespace

UnicodeString GetNamePath(TComponent* component)
{
    if (component == nullptr) {
        UTL::THROW_XAssert(NoComponent);
        return {};
    }
    // What stands in front of an owner without a name isn't asked for.
    UnicodeString path = component->getName();
    const TComponent* owner = component->getOwner();
    bool isNamed = !path.IsEmpty();
    while (isNamed && owner != nullptr && owner->getOwner() != nullptr) {
        path = owner->getName() + u'.' + path;
        isNamed = !owner->getName().IsEmpty();
        owner = owner->getOwner();
    }
    return path;
}

} // namespace BTL
