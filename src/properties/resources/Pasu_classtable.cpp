// SPDX-License-Identifier: MIT
#include "properties/resources/Pasu_classtable.h"

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_Persistent.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_MetaClass.h"

#include <algorithm>
#include <unordered_set>

namespace Pasu_classtable
{

using System::TMetaClass;

std::vector<TMetaClass*> GetFieldClassTable(const TMetaClass* type)
{
    std::vector<TMetaClass*> table;
    if (type == nullptr) {
        return table;
    }
    std::unordered_set<const TMetaClass*> known;
    for (const System::TFieldInfo& field : type->Fields()) {
        TMetaClass* const fieldClass = field.FieldClass();
        if (known.insert(fieldClass).second) {
            table.push_back(fieldClass);
        }
    }
    return table;
}

TMetaClass* GetFieldClass(const TMetaClass* type, const System::UnicodeString& name)
{
    const TMetaClass* const end = System::ClassOf<Classes::TPersistent>();
    for (; type != nullptr && type != end; type = type->getParent()) {
        const std::vector<TMetaClass*> table = GetFieldClassTable(type);
        const auto found = std::ranges::find_if(table, [&name](const TMetaClass* fieldClass) {
            return Sysutils::SameText(fieldClass->getName(), name);
        });
        if (found != table.end()) {
            return *found;
        }
    }
    return Classes::GetClass(name);
}

} // namespace Pasu_classtable
