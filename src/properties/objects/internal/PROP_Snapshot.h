// SPDX-License-Identifier: MIT
#pragma once

#include "properties/objects/PROP_Property.h"
#include "properties/values/PROP_CPropList.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Classes
{
class TCollection;
} // namespace Classes

namespace PROP
{

/// Takes snapshots of objects, see `CProperties`. Which properties the filter takes is worked out once for
/// each class, so that one is best for many objects. Neither the filter nor the classes of the objects may
/// change while it lives.
///
///     CSnapshot snapshot(&filter);
///     for (TComponent* const component : components) {
///         snapshot.AddTo(properties[component], component);
///     }
class CSnapshot
{
public:
    explicit CSnapshot(const CFilter* filter) : mFilter(filter) {}

    /// Adds the properties of the object; null has none.
    void AddTo(CProperties& properties, System::TObject* object);

private:
    bool Enter(const System::TObject* object);
    void Take(System::TObject* object, const System::UnicodeString& path);
    void TakeProperty(System::TObject* object, const Typinfo::TPropInfo* info,
                      const System::UnicodeString& name);
    void TakeItems(Classes::TCollection* collection, const System::UnicodeString& path);
    const CPropList& ListOf(System::TMetaClass* type);

    const CFilter* mFilter;
    CProperties* mOut = nullptr;
    std::vector<const System::TObject*> mPath;
    std::unordered_set<const System::TObject*> mTaken;
    /// How often an object was taken that had been before, under another path.
    int mAgain = 0;
    std::unordered_map<const System::TMetaClass*, CPropList> mLists;
};

} // namespace PROP
