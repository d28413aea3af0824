// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

#include <memory>

namespace PROP
{

class CFilter;

/// Kinds of properties.
using CTypeKinds = System::Set<Typinfo::TTypeKind, Typinfo::tkUnknown, static_cast<Typinfo::TTypeKind>(21)>;

/// The records of a class's published properties, all or some, in the order of the class's description. The
/// records belong to the class. A null class or object is an internal fault; if the user lets that pass, the
/// list is empty.
///
///     const PROP::CPropList events(form, PROP::CTypeKinds{Typinfo::tkMethod});
///     for (const Typinfo::TPropInfo* const event : events) { ... }
class TRS8_BTL_API CPropList
{
public:
    /// All properties.
    explicit CPropList(System::TMetaClass* type);
    explicit CPropList(System::TObject* object);
    /// Those of the given kinds.
    CPropList(System::TMetaClass* type, const CTypeKinds& kinds);
    CPropList(System::TObject* object, const CTypeKinds& kinds);
    /// Those that `filter` takes, none if it refuses the class; all if it is null.
    CPropList(System::TMetaClass* type, const CFilter* filter);
    CPropList(System::TObject* object, const CFilter* filter);
    CPropList(const CPropList&) = delete;
    CPropList& operator=(const CPropList&) = delete;
    ~CPropList();

    /// How many there are.
    int GetCount() const noexcept { return mCount; }
    /// The record at the 0-based index, which must be below the count: it isn't looked at.
    Typinfo::TPropInfo* getItem(int index) const { return mList[static_cast<std::size_t>(index)]; }
    Typinfo::TPropInfo* operator[](int index) const { return getItem(index); }
    /// The records as an array; null while there is none.
    Typinfo::TPropInfo* const* getList() const noexcept { return mList.get(); }

    // The records as a range.

    Typinfo::TPropInfo* const* begin() const noexcept { return mList.get(); }
    Typinfo::TPropInfo* const* end() const noexcept { return mList.get() + mCount; }

protected:
    /// Fills the list with the properties of the given kinds, by name if `sorted`.
    void initPropList(System::TMetaClass* type, const CTypeKinds& kinds, bool sorted);
    /// Fills the list with the properties that `filter` takes; with all if it is null.
    void initPropList(System::TMetaClass* type, const CFilter* filter);

private:
    template <class Takes>
    void Fill(System::TMetaClass* type, bool sorted, Takes takes);

    int mCount = 0;
    std::unique_ptr<Typinfo::TPropInfo*[]> mList;
};

} // namespace PROP
