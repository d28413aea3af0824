// SPDX-License-Identifier: MIT
#include "text/BTL_STR_StringIdPairList.h"

#include "platform/runtime/System_ClassBuilder.h"

#include <memory>
#include <unordered_map>

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

/// Lets `take` put an object for the id into the list. The list has it also where one of its handlers raised.
template <class Take>
void Give(TStringList& list, Int64 id, Take take)
{
    auto object = std::make_unique<TIdObject>(id);
    try {
        take(object.get());
    } catch (...) {
        if (list.IndexOfObject(object.get()) >= 0) {
            static_cast<void>(object.release());
        }
        throw;
    }
    static_cast<void>(object.release());
}

bool Ignores(const TStringList& list, const UnicodeString& text)
{
    int index = 0;
    return list.getSorted() && list.getDuplicates() == Classes::dupIgnore && list.Find(text, index);
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
    } else if (!Ignores(*list, text)) {
        Give(*list, id, [&](System::TObject* object) { list->AddObject(text, object); });
    }
}

void SetIdAt(TStringList* list, int index, Int64 id)
{
    if (list == nullptr) {
        return;
    }
    auto* const holder = dynamic_cast<TIdObject*>(list->getObjects(index));
    list->setOwnsObjects(true);
    if (holder != nullptr) {
        holder->id = id;
    } else {
        Give(*list, id, [&](System::TObject* object) { list->setObjects(index, object); });
    }
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

/// The objects of the items belong to the other list.
void TStringIdPairList::AppendItems(std::vector<Classes::TStringItem>&& items)
{
    std::unordered_map<const System::TObject*, std::unique_ptr<TIdObject>> objects;
    for (Classes::TStringItem& item : items) {
        const Int64 id = IdOf(item.Object);
        auto object = id == 0 ? nullptr : std::make_unique<TIdObject>(id);
        item.Object = object.get();
        objects[item.Object] = std::move(object);
    }
    const auto releaseTaken = [&] {
        for (int i = 0; i < getCount(); ++i) {
            if (const auto taken = objects.find(getObjects(i)); taken != objects.end()) {
                static_cast<void>(taken->second.release());
            }
        }
    };
    setOwnsObjects(true);
    try {
        TStringList::AppendItems(std::move(items));
    } catch (...) {
        releaseTaken();
        throw;
    }
    releaseTaken();
}

} // namespace BTL
