// SPDX-License-Identifier: MIT
#include "properties/documents/PROP_Document.h"

#include "environment/BTL_ENV_UserFolders.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/visual/forms/Forms_Form.h"
#include "properties/components/BTL_Components.h"
#include "properties/documents/PROP_IniFile.h"

namespace PROP
{

using Classes::TComponent;
using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoComponent{"PROP_Document", 1};

BTL::CComponents BelowOf(TComponent* component)
{
    return {component, System::ClassOf<Controls::TWinControl>()};
}

} // namespace

ADocument::ADocument(TComponent* component) : mComponent(component), mObjects(new CObjects) {}

ADocument::~ADocument() = default;

UnicodeString ADocument::GetPath()
{
    return BTL::GetUserDataPath() + u"i18n\\";
}

UnicodeString ADocument::GetDocName()
{
    if (mComponent == nullptr) {
        return {};
    }
    const TComponent* const owner = mComponent->getOwner();
    const UnicodeString& name = mComponent->getName();
    return owner == nullptr || owner->getName().IsEmpty() ? name : owner->getName() + u"_" + name + u".txt";
}

bool ADocument::Exists(const UnicodeString& fileName)
{
    return Sysutils::FileExists(fileName.IsEmpty() ? GetFileName() : fileName);
}

UnicodeString ADocument::GetFileName()
{
    return GetPath() + GetDocName();
}

void ADocument::SetAndWrite(const CFilter* filter)
{
    SetAndWrite(GetFileName(), filter);
}

void ADocument::SetAndWrite(const UnicodeString& fileName, const CFilter* filter)
{
    SetProperties(filter);
    DoWrite(fileName);
}

void ADocument::ReadAndApply()
{
    ReadAndApply(GetFileName());
}

void ADocument::ReadAndApply(const UnicodeString& fileName)
{
    if (Exists(fileName)) {
        DoRead(fileName);
        ApplyProperties();
    }
}

CObject* ADocument::InsertNewObject(const UnicodeString& name)
{
    mObjects->AddObject(NewObject(name));
    return mObjects->Find(name);
}

CDocument::~CDocument() = default;

CObject* CDocument::NewObject(const UnicodeString& name) const
{
    return new CObject(name);
}

void CDocument::SetProperties(const CFilter* /*filter*/) {}

void CDocument::ApplyProperties() {}

void CDocument::DoWrite(const UnicodeString& fileName)
{
    CSectionFormatIniFile(this, fileName).Write();
}

void CDocument::DoRead(const UnicodeString& fileName)
{
    CSectionFormatIniFile(this, fileName).Read();
}

CComponentDoc::CComponentDoc(TComponent* component) : CDocument(component)
{
    if (component == nullptr) {
        UTL::THROW_XAssert(NoComponent);
    }
}

CComponentDoc::~CComponentDoc() = default;

void CComponentDoc::SetProperties(const CFilter* filter)
{
    getObjects().clear();
    if (TComponent* const component = getComponent(); component != nullptr) {
        getObjects().AddObject(component, filter);
        getObjects().AddObjects(BelowOf(component), filter);
    }
}

void CComponentDoc::ApplyProperties()
{
    TComponent* const component = getComponent();
    if (component == nullptr) {
        return;
    }
    const Classes::TComponentWatch watch(component);
    // Apart from this: a handler may take the objects anew, or end the document, with its form or without.
    CObjects objects;
    objects.Assign(getObjects());
    if (const CObject* const object = objects.Find(component->getName()); object != nullptr) {
        object->ApplyProperties(component);
    }
    if (watch.IsAlive()) {
        objects.ApplyProperties(BelowOf(component));
    }
}

CFormDoc::CFormDoc(Forms::TForm* form) : CComponentDoc(form), mForm(form) {}

CFormDoc::~CFormDoc() = default;

} // namespace PROP
