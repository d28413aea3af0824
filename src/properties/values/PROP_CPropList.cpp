// SPDX-License-Identifier: MIT
#include "properties/values/PROP_CPropList.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "properties/values/PROP_Filter.h"

#include <algorithm>

namespace PROP
{

using System::TMetaClass;
using System::TObject;
using Typinfo::TPropInfo;

namespace
{

constexpr UTL::CFaultPlace NoClass{"PROP_CPropList", 1};
constexpr UTL::CFaultPlace NoObject{"PROP_CPropList", 2};

TMetaClass* ClassOfObject(const TObject* object)
{
    if (object == nullptr) {
        UTL::THROW_XAssert(NoObject);
    }
    return object == nullptr ? nullptr : object->ClassType();
}

} // namespace

CPropList::CPropList(TMetaClass* type) : CPropList(type, nullptr) {}

CPropList::CPropList(TObject* object) : CPropList(ClassOfObject(object)) {}

CPropList::CPropList(TMetaClass* type, const CTypeKinds& kinds)
{
    initPropList(type, kinds, false);
}

CPropList::CPropList(TObject* object, const CTypeKinds& kinds) : CPropList(ClassOfObject(object), kinds) {}

CPropList::CPropList(TMetaClass* type, const CFilter* filter)
{
    if (filter == nullptr || filter->IsObjectValid(type)) {
        initPropList(type, filter);
    }
}

CPropList::CPropList(TObject* object, const CFilter* filter) : CPropList(ClassOfObject(object), filter) {}

CPropList::~CPropList() = default;

template <class Takes>
void CPropList::Fill(TMetaClass* type, bool sorted, Takes takes)
{
    mCount = 0;
    mList.reset();
    if (type == nullptr) {
        UTL::THROW_XAssert(NoClass);
        return;
    }
    const std::vector<TPropInfo*> sortedList =
        sorted ? Typinfo::GetPropList(type, true) : std::vector<TPropInfo*>();
    const std::vector<TPropInfo*>& all = sorted ? sortedList : type->Properties();
    const auto count = static_cast<std::size_t>(std::ranges::count_if(all, takes));
    if (count > 0) {
        mList = std::make_unique<TPropInfo*[]>(count);
        std::ranges::copy_if(all, mList.get(), takes);
        mCount = static_cast<int>(count);
    }
}

void CPropList::initPropList(TMetaClass* type, const CTypeKinds& kinds, bool sorted)
{
    Fill(type, sorted, [&kinds](const TPropInfo* info) { return kinds.Contains(info->getKind()); });
}

void CPropList::initPropList(TMetaClass* type, const CFilter* filter)
{
    Fill(type, false, [filter, type](TPropInfo* info) {
        return filter == nullptr || filter->IsPropertyValid(type, info);
    });
}

} // namespace PROP
