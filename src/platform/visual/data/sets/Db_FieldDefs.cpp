// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_FieldDefs.h"

#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>

namespace Db
{

System::TMetaClass* TFieldDef::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TFieldDef>(u"TFieldDef")
            .Property(u"Name", &TFieldDef::getName, &TFieldDef::setName)
            .Property(u"DataType", &TFieldDef::getDataType, &TFieldDef::setDataType,
                      {.defaultValue = ftUnknown})
            .Property(u"Size", &TFieldDef::getSize, &TFieldDef::setSize, {.defaultValue = 0})
            .Property(u"Required", &TFieldDef::getRequired, &TFieldDef::setRequired, {.defaultValue = 0})
            .Build();
    return record;
}

System::TMetaClass* TFieldDefs::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TFieldDefs>(u"TFieldDefs").Build();
    return record;
}

TFieldDef::~TFieldDef() = default;

void TFieldDef::Assign(Classes::TPersistent* source)
{
    auto* const other = dynamic_cast<TFieldDef*>(source);
    if (other == nullptr) {
        return TCollectionItem::Assign(source);
    }
    mName = other->mName;
    mDataType = other->mDataType;
    mSize = other->mSize;
    mRequired = other->mRequired;
}

TFieldDefs::TFieldDefs(Classes::TPersistent* owner)
    : Classes::TOwnedCollection(owner, System::ClassOf<TFieldDef>())
{
}

TFieldDefs::~TFieldDefs() = default;

TFieldDef* TFieldDefs::getItems(int index) const
{
    return static_cast<TFieldDef*>(GetItem(index));
}

TFieldDef* TFieldDefs::Add(const System::UnicodeString& name, TFieldType type, int size, bool required)
{
    if (name.IsEmpty() || IndexOf(name) >= 0) {
        throw EDatabaseError(u"A field can't be named \"" + name + u"\": the name is empty or taken.");
    }
    auto* const def = static_cast<TFieldDef*>(TCollection::Add());
    def->setName(name);
    def->setDataType(type);
    def->setSize(size);
    def->setRequired(required);
    return def;
}

int TFieldDefs::IndexOf(const System::UnicodeString& name) const
{
    const auto found = std::find_if(begin(), end(), [&](const Classes::TCollectionItem* item) {
        return Sysutils::AnsiSameText(static_cast<const TFieldDef*>(item)->getName(), name);
    });
    return found == end() ? -1 : static_cast<int>(found - begin());
}

} // namespace Db
