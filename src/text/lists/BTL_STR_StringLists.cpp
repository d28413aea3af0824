// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringLists.h"

#include "platform/base/internal/System_Memory.h"

namespace BTL
{

using Classes::TStringList;

CStringLists::CStringLists() = default;

CStringLists::~CStringLists() = default;

TStringList* CStringLists::getItem(int index) const noexcept
{
    return index >= 0 && index < getCount() ? mLists[static_cast<std::size_t>(index)].get() : nullptr;
}

TStringList* CStringLists::Add()
{
    return mLists.emplace_back(System::MakeOwner<TStringList>()).get();
}

TStringList* CStringLists::SetCount(int count, bool lazy)
{
    System::WithMemory(u"There is no memory for the lists.", [&] {
        while (getCount() < count) {
            mLists.emplace_back(lazy ? nullptr : System::MakeOwner<TStringList>());
        }
    });
    if (mLists.empty()) {
        return nullptr;
    }
    if (mLists.back() == nullptr) {
        mLists.back() = System::MakeOwner<TStringList>();
    }
    return mLists.back().get();
}

} // namespace BTL
