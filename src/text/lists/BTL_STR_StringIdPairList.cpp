// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringIdPairList.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "text/lists/BTL_STR_StringsUpdate.h"

#include <memory>
#include <unordered_set>
#include <utility>

namespace BTL
{

namespace
{

using Classes::TStringList;
using Classes::TStrings;
using System::Int64;
using System::TObject;
using System::UnicodeString;

class TIdObject : public TObject
{
    TRS8_BTL_CLASS(TIdObject, TObject)

public:
    explicit TIdObject(Int64 value) : id(value) {}

    Int64 id;
};

System::TMetaClass* TIdObject::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TIdObject>(u"TIdObject").Build();
    return record;
}

Int64 IdOf(const TObject* object)
{
    const auto* const holder = dynamic_cast<const TIdObject*>(object);
    return holder == nullptr ? 0 : holder->id;
}

/// Ids for lines that a list is about to take. It destroys those that are not on a line in the end.
class CNewIds
{
public:
    explicit CNewIds(const TStringList& list) : mList(list), mFirst(list.getSorted() ? 0 : list.getCount()) {}
    CNewIds(const CNewIds&) = delete;
    CNewIds& operator=(const CNewIds&) = delete;
    ~CNewIds()
    {
        for (int i = mFirst; i < mList.getCount(); ++i) {
            mIds.erase(mList.getObjects(i));
        }
        for (const TObject* const object : mIds) {
            delete object;
        }
    }

    TObject* Make(Int64 id)
    {
        auto object = std::make_unique<TIdObject>(id);
        mIds.insert(object.get());
        return object.release();
    }

private:
    const TStringList& mList;
    /// Lines in front of it were there before.
    int mFirst;
    std::unordered_set<const TObject*> mIds;
};

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
    // Handlers, which may raise or delete the line, run when the owner of the object is settled.
    const CStringsUpdate update(list);
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
    auto* const holder = dynamic_cast<TIdObject*>(list->getObjects(index));
    list->setOwnsObjects(true);
    if (holder != nullptr) {
        holder->id = id;
        return;
    }
    const CStringsUpdate update(list);
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
    setOwnsObjects(true);
    const CStringsUpdate update(this);
    CNewIds ids(*this);
    for (Classes::TStringItem& item : items) {
        const Int64 id = IdOf(item.Object);
        item.Object = id == 0 ? nullptr : ids.Make(id);
    }
    TStringList::AppendItems(std::move(items));
}

} // namespace BTL
