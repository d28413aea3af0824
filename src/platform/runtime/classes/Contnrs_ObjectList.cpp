// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Contnrs_ObjectList.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>

namespace Contnrs
{

System::TMetaClass* TObjectList::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TObjectList>(u"TObjectList").Build();
    return record;
}

TObjectList::~TObjectList()
{
    Clear();
}

int TObjectList::FindInstanceOf(const System::TMetaClass* type, bool isExact, int start) const
{
    for (int i = std::max(start, 0); i < getCount(); ++i) {
        const System::TObject* const object = getItems(i);
        if (object != nullptr &&
            (isExact ? object->ClassType() == type : object->ClassType()->Inherits(type))) {
            return i;
        }
    }
    return -1;
}

void TObjectList::Notify(void* item, Classes::TListNotification action)
{
    if (mOwnsObjects && action == Classes::lnDeleted) {
        delete ToObject(item);
    }
    TList::Notify(item, action);
}

} // namespace Contnrs
