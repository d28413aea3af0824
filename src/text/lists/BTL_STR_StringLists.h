// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/runtime/classes/Classes_StringList.h"

#include <vector>

namespace BTL
{

/// String lists, which it owns. A place may be empty.
///
///     BTL::CStringLists columns;
///     columns.Add()->Add(u"first line of the first column");
///     columns.SetCount(3, false);
///     const Classes::TStringList* const last = columns.getItem(2);
class TRS8_BTL_API CStringLists
{
public:
    CStringLists();
    CStringLists(const CStringLists&) = delete;
    CStringLists& operator=(const CStringLists&) = delete;
    ~CStringLists();

    int getCount() const noexcept { return static_cast<int>(mLists.size()); }
    std::size_t size() const noexcept { return mLists.size(); }
    [[nodiscard]] bool empty() const noexcept { return mLists.empty(); }
    /// Null for an empty place and for an index out of range.
    Classes::TStringList* getItem(int index) const noexcept;

    /// Appends a new list.
    Classes::TStringList* Add();
    void Clear() noexcept { mLists.clear(); }
    /// Grows to `count` places, and never shrinks. The last place gets a list if it has none, with `lazy`
    /// only that one, otherwise each new one. The result is the last list; null if there is no place at all.
    /// `Sysutils::EOutOfMemory` where the memory ends, with the places made so far.
    Classes::TStringList* SetCount(int count, bool lazy);

private:
    std::vector<System::GOwner<Classes::TStringList>> mLists;
};

} // namespace BTL
