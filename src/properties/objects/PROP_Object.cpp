// SPDX-License-Identifier: MIT
#include "properties/objects/PROP_Object.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_Component.h"
#include "properties/values/PROP_Utilities.h"
#include "text/lists/BTL_STR_StringList.h"

#include <utility>

namespace PROP
{

using Classes::TStrings;
using System::TObject;
using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoComponent{"PROP_Object", 1};

} // namespace

CObject::CObject(const UnicodeString& name) : mName(name) {}

CObject::CObject(const UnicodeString& name, CProperties properties)
    : mName(name), mProperties(std::move(properties))
{
}

CObject::CObject(const UnicodeString& name, const UnicodeString& propString) : mName(name)
{
    SetProperties(propString);
}

CObject::CObject(TObject* object, const CFilter* filter)
{
    CObject::SetProperties(object, filter);
}

CObject::~CObject() noexcept(false) = default;

void CObject::SetProperties(TObject* object, const CFilter* filter)
{
    auto* const component = dynamic_cast<Classes::TComponent*>(object);
    if (component == nullptr) {
        UTL::THROW_XAssert(NoComponent);
        return;
    }
    mName = GetComponentName(component);
    mProperties.SetProperties(component, filter);
}

void CObject::SetProperties(const UnicodeString& propString)
{
    BTL::CStringList parts;
    if (propString.Pos(u'"') != 0) {
        parts.setCommaText(propString);
    } else {
        parts.Add(propString);
    }
    // Not before: the text may be that of a property here.
    mProperties.clear();
    // In a constructor the lines are those of its class, and derived classes read them in theirs.
    // NOLINTNEXTLINE(clang-analyzer-optin.cplusplus.VirtualCall)
    AddProperties(parts.getList());
}

void CObject::AddProperty(const UnicodeString& name, const UnicodeString& value)
{
    mProperties.AddProperty(name, value);
}

void CObject::AddProperties(TStrings* strings)
{
    mProperties.AddProperties(strings);
}

void CObject::ApplyProperties(TObject* object) const
{
    mProperties.ApplyProperties(object);
}

UnicodeString CObject::GetPropString() const
{
    UnicodeString text;
    for (const CProperty& property : mProperties) {
        if (&property != &*mProperties.begin()) {
            text += u",";
        }
        text += property.GetPropString();
    }
    return text;
}

void CObject::GetProperties(CProperties& properties) const
{
    properties = mProperties;
}

void CObject::SetProperty(const UnicodeString& name, const UnicodeString& value)
{
    mProperties.SetProperty(name, value);
}

void CObject::DeleteProperty(const UnicodeString& name)
{
    mProperties.DeleteProperty(name);
}

bool CObject::GetValue(const UnicodeString& name, UnicodeString& value) const
{
    const CProperty* const property = mProperties.FindProperty(name);
    if (property == nullptr) {
        return false;
    }
    value = property->getValue();
    return true;
}

void CObject::GetDifferenceOf(const CObject& other, CProperties& out) const
{
    CProperties mine;
    CProperties others;
    GetProperties(mine);
    other.GetProperties(others);
    mine.GetDifferenceOf(others, out);
}

} // namespace PROP
