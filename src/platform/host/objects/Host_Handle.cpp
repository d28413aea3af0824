// SPDX-License-Identifier: MIT
#include "platform/host/objects/Host_Handle.h"

#include "platform/host/Host_Error.h"
#include "platform/host/objects/internal/Host_Object.h"

#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

namespace Host
{

namespace
{

/// The open handles of the process. A handle is the number of a slot and that of its use.
class CHandleTable
{
public:
    HANDLE Open(std::shared_ptr<AObject> object)
    {
        const std::lock_guard lock(mMutex);
        if (mFree.empty()) {
            mFree.push_back(static_cast<std::uint32_t>(mSlots.size()));
            mSlots.emplace_back();
        }
        const std::uint32_t index = mFree.back();
        mFree.pop_back();
        mSlots[index].object = std::move(object);
        return HandleOf(index, mSlots[index].use);
    }

    std::shared_ptr<AObject> Find(HANDLE handle)
    {
        const std::lock_guard lock(mMutex);
        const TSlot* const slot = SlotOf(handle);
        return slot == nullptr ? nullptr : slot->object;
    }

    /// The object is given back so that it ends outside the lock.
    std::shared_ptr<AObject> Close(HANDLE handle)
    {
        const std::lock_guard lock(mMutex);
        TSlot* const slot = SlotOf(handle);
        if (slot == nullptr) {
            return nullptr;
        }
        ++slot->use;
        mFree.push_back(static_cast<std::uint32_t>(slot - mSlots.data()));
        return std::exchange(slot->object, nullptr);
    }

private:
    struct TSlot
    {
        std::uint32_t use = 0;
        std::shared_ptr<AObject> object;
    };

    // Handles are multiples of four, so that nobody takes one for a descriptor.

    static HANDLE HandleOf(std::uint32_t index, std::uint32_t use)
    {
        return reinterpret_cast<HANDLE>(std::uintptr_t{use} << 32U | (std::uintptr_t{index} + 1) * 4);
    }

    /// Null if the handle isn't open.
    TSlot* SlotOf(HANDLE handle)
    {
        const auto value = reinterpret_cast<std::uintptr_t>(handle);
        const std::uintptr_t index = (value & 0xFFFFFFFF) / 4 - 1;
        if (value % 4 != 0 || index >= mSlots.size()) {
            return nullptr;
        }
        TSlot& slot = mSlots[index];
        return slot.object != nullptr && slot.use == value >> 32U ? &slot : nullptr;
    }

    std::mutex mMutex;
    std::vector<TSlot> mSlots;
    std::vector<std::uint32_t> mFree;
};

CHandleTable& Handles()
{
    // Never destroyed, so that the destructors of global objects can still close what they hold.
    static auto* const handles = new CHandleTable;
    return *handles;
}

} // namespace

AObject::~AObject() = default;

unsigned long AObject::Wait(unsigned long)
{
    RefuseHandle();
    return WAIT_FAILED;
}

HANDLE OpenHandle(std::shared_ptr<AObject> object)
{
    return Handles().Open(std::move(object));
}

std::shared_ptr<AObject> FindObject(HANDLE handle)
{
    std::shared_ptr<AObject> object = Handles().Find(handle);
    if (object == nullptr) {
        RefuseHandle();
    }
    return object;
}

void RefuseHandle()
{
    SetLastError(ERROR_INVALID_HANDLE);
}

} // namespace Host

bool CloseHandle(HANDLE handle)
{
    if (Host::Handles().Close(handle) == nullptr) {
        Host::RefuseHandle();
        return false;
    }
    return true;
}

unsigned long WaitForSingleObject(HANDLE handle, unsigned long milliseconds)
{
    const auto object = Host::FindObject(handle);
    return object == nullptr ? WAIT_FAILED : object->Wait(milliseconds);
}
