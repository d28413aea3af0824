// SPDX-License-Identifier: MIT
#include "properties/documents/PROP_RsrcDoc.h"

#include "config/internal/BTL_INI_Unwritable.h"
#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "properties/values/PROP_Filter.h"

namespace PROP
{

using System::UnicodeString;

namespace
{

/// In a constructor by the filter of its class.
void TakeSnapshot(CRsrcDoc& document, ERsrcDocSetMode mode)
{
    if (document.getComponent() == nullptr) {
        return;
    }
    if (mode == ERsrcDocSetMode::Current) {
        document.SetCurrent();
    } else if (mode == ERsrcDocSetMode::Original) {
        document.SetOriginalObjects();
    }
}

} // namespace

CRsrcDoc::CRsrcDoc(Classes::TComponent* component, ERsrcDocSetMode mode) : CComponentDoc(component)
{
    TakeSnapshot(*this, mode);
}

CRsrcDoc::CRsrcDoc(Classes::TComponent* component, bool setOriginal)
    : CRsrcDoc(component, setOriginal ? ERsrcDocSetMode::Original : ERsrcDocSetMode::None)
{
}

CRsrcDoc::~CRsrcDoc() = default;

void CRsrcDoc::SetCurrent()
{
    getObjects().clear();
    GetCurrentObjects(getObjects());
}

void CRsrcDoc::SetOriginalObjects()
{
    CFilter filter;
    GetFilter(filter);
    SetOriginalObjects(&filter);
}

void CRsrcDoc::SetOriginalObjects(const CFilter* filter)
{
    if (mOriginalObjects == nullptr) {
        mOriginalObjects = System::GOwner<CObjects>(new CObjects);
    }
    mOriginalObjects->clear();
    mOriginalObjects->AddObjects(getComponent(), filter);
    if (CObject* const own = mOriginalObjects->Find(getComponent()); own != nullptr) {
        own->DeleteProperty(u"Visible");
    }
}

void CRsrcDoc::SetChanges()
{
    getObjects().clear();
    if (mOriginalObjects != nullptr) {
        CObjects current;
        GetCurrentObjects(current);
        mOriginalObjects->GetDifferenceOf(current, getObjects());
    }
}

void CRsrcDoc::GetCurrentObjects(CObjects& objects) const
{
    CFilter filter;
    GetFilter(filter);
    objects.AddObjects(getComponent(), &filter);
}

void CRsrcDoc::DoWrite(const UnicodeString& fileName)
{
    if (!getObjects().empty()) {
        CComponentDoc::DoWrite(fileName);
    } else if (Sysutils::FileExists(fileName) && !Sysutils::DeleteFile(fileName)) {
        BTL::Detail::ThrowUnwritable(fileName);
    }
}

void CRsrcDoc::GetFilter(CFilter& filter) const
{
    filter.Clear();
    filter.getProperties().setCommaText(
        u"Caption,Text,Hint,Hints,Items,Lines,Filter,Left,Top,Width,Height,Visible,TabVisible,ShortCut,"
        u"Properties,ColumnsCaptions,ButtonHeight,ButtonWidth");
    filter.getNotOnForms() << u"Visible";
    filter.getItemProperties().setCommaText(u"Caption,Text");
}

CRsrcDoc_OnlyText::CRsrcDoc_OnlyText(Classes::TComponent* component, ERsrcDocSetMode mode)
    : CRsrcDoc(component, false)
{
    TakeSnapshot(*this, mode);
}

CRsrcDoc_OnlyText::~CRsrcDoc_OnlyText() = default;

void CRsrcDoc_OnlyText::GetFilter(CFilter& filter) const
{
    filter.Clear();
    filter.getProperties().setCommaText(u"Caption,Text,Hint,Hints,Items,Lines,Filter");
}

} // namespace PROP
