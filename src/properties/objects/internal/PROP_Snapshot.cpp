// SPDX-License-Identifier: MIT
#include "properties/objects/internal/PROP_Snapshot.h"

#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "properties/values/PROP_Filter.h"
#include "properties/values/PROP_Typinfo.h"
#include "properties/values/internal/PROP_Path.h"

#include <algorithm>

namespace PROP
{

using Classes::TCollection;
using System::TObject;
using System::UnicodeString;
using Typinfo::TPropInfo;

void CSnapshot::AddTo(CProperties& properties, TObject* object)
{
    mOut = &properties;
    mPath.clear();
    mTaken.clear();
    mAgain = 0;
    Take(object, {});
}

/// Objects that refer to each other have far more paths than there are objects.
bool CSnapshot::Enter(const TObject* object)
{
    constexpr std::size_t deepest = 64;
    constexpr int mostAgain = 256;
    if (object == nullptr || mPath.size() >= deepest || std::ranges::find(mPath, object) != mPath.end()) {
        return false;
    }
    return mPath.empty() || mTaken.insert(object).second || mAgain++ < mostAgain;
}

void CSnapshot::Take(TObject* object, const UnicodeString& path)
{
    if (!Enter(object)) {
        return;
    }
    const CPropList& list = ListOf(object->ClassType());
    mOut->Reserve(list.GetCount());
    mPath.push_back(object);
    for (const TPropInfo* const info : list) {
        if (info->CanRead()) {
            TakeProperty(object, info, path.IsEmpty() ? info->getName() : path + u"." + info->getName());
        }
    }
    mPath.pop_back();
}

void CSnapshot::TakeProperty(TObject* object, const TPropInfo* info, const UnicodeString& name)
{
    if (info->getKind() != Typinfo::tkClass) {
        mOut->AddProperty({name, GetPropValueAsString(object, info, false)});
        return;
    }
    // By what it is, whatever the property is declared as.
    TObject* const held = Typinfo::GetObjectProp(object, info);
    if (const auto* const lines = dynamic_cast<Classes::TStrings*>(held); lines != nullptr) {
        mOut->AddProperty({name, InBrackets(lines->getCommaText())});
    } else if (auto* const collection = dynamic_cast<TCollection*>(held); collection != nullptr) {
        TakeItems(collection, name);
    } else {
        Take(held, name);
    }
}

void CSnapshot::TakeItems(TCollection* collection, const UnicodeString& path)
{
    if (mFilter == nullptr) {
        return;
    }
    for (const UnicodeString& name : mFilter->getItemProperties()) {
        UnicodeString values;
        if (GetItemPropValuesAsString(collection, name, values)) {
            mOut->AddProperty({path + u"." + name, std::move(values)});
        }
    }
}

const CPropList& CSnapshot::ListOf(System::TMetaClass* type)
{
    return mLists.try_emplace(type, type, mFilter).first->second;
}

} // namespace PROP
