// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_GSimpleVectorClass.h"

#include "platform/base/Sysutils_Exception.h"

#include <limits>
#include <new>

namespace UTL::Detail
{

void* AllocateItems(std::size_t count, std::size_t size, std::size_t alignment)
{
    const bool fits = count <= std::numeric_limits<std::ptrdiff_t>::max() / size;
    void* const items =
        fits ? ::operator new (count* size, std::align_val_t{alignment}, std::nothrow) : nullptr;
    if (items == nullptr) {
        throw Sysutils::EOutOfMemory(u"There is no memory for the elements of a vector.");
    }
    return items;
}

void FreeItems(void* items, std::size_t alignment) noexcept
{
    ::operator delete (items, std::align_val_t{alignment});
}

} // namespace UTL::Detail
