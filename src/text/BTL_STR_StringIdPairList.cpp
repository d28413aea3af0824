// SPDX-License-Identifier: MIT
#include "text/BTL_STR_StringIdPairList.h"

#include "platform/runtime/System_ClassBuilder.h"

#include <memory>

namespace BTL
{

namespace
{

using Classes::TStringList;
using Classes::TStrings;
using System::Int64;
using System::UnicodeString;

class TIdObject : public System::TObject
{
    TRS8_BTL_CLASS(TIdObject, System::TObject)

public:
    explicit TIdObject(Int64 value) : id(value) {}

    Int64 id;
};

System::TMetaClass* TIdObject::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TIdObject>(u"TIdObject").Build();
    return record;
}

Int64 IdOf(const System::TObject* object)
{
    const auto* const holder = dynamic_cast<const TIdObject*>(object);
    return holder == nullptr ? 0 : holder->id;
}

} // namespace

void AddStringIdPair(TStringList* list, const UnicodeString& text, Int64 id)
{
    if (list == nullptr) {
        return;
    }
    list->setOwnsObjects(true);
    if (id == 0) {
        list->Add(text);
        return;
    }
    auto object = std::make_unique<TIdObject>(id);
    const int index = list->AddObject(text, object.get());
    // A sorted list that has the line already doesn't take the object.
    if (list->getObjects(index) == object.get()) {
        static_cast<void>(object.release());
    }
}

void SetIdAt(TStringList* list, int index, Int64 id)
{
    if (list == nullptr) {
        return;
    }
    list->setOwnsObjects(true);
    if (auto* const holder = dynamic_cast<TIdObject*>(list->getObjects(index)); holder != nullptr) {
        holder->id = id;
        return;
    }
    auto object = std::make_unique<TIdObject>(id);
    list->setObjects(index, object.get());
    static_cast<void>(object.release());
}

Int64 GetIdAt(const TStrings* strings, int index)
{
    return strings == nullptr || index < 0 ? 0 : IdOf(strings->getObjects(index));
}

System::TMetaClass* TStringIdPairList::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TStringIdPairList>(u"TStringIdPairList").Build();
    return record;
}

TStringIdPairList::TStringIdPairList() : TStringList(true) {}

TStringIdPairList::~TStringIdPairList() = default;

void TStringIdPairList::AddStringIdPair(const UnicodeString& text, Int64 id)
{
    BTL::AddStringIdPair(this, text, id);
}

/// The objects belong to the other list.
void TStringIdPairList::AppendItems(std::vector<Classes::TStringItem>&& items)
{
    for (const Classes::TStringItem& item : items) {
        AddStringIdPair(item.String, IdOf(item.Object));
    }
}

} // namespace BTL
