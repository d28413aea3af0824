// SPDX-License-Identifier: MIT
#include "platform/host/objects/Host_Mutex.h"

#include "platform/host/internal/Host_Deadline.h"
#include "platform/host/objects/internal/Host_Futex.h"
#include "platform/host/objects/internal/Host_NamedBlock.h"
#include "platform/host/objects/internal/Host_Object.h"

#include <atomic>
#include <cerrno>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>

// Who owns a mutex has a lock on a byte of its file, which the host drops with the process. What the memory
// says beside it only wakes those who wait and tells a mutex that was left; whatever another process writes
// there, nobody gets what is owned, and nobody waits for what is free.

namespace Host
{

namespace
{

struct TMutexWords
{
    /// Counts the times that the mutex was given back.
    std::uint32_t releases;
    /// 1 from taking the mutex to giving it back.
    std::uint32_t isOwned;
};

class CMutexObject;

/// The mutexes that a thread owns, to be given up when it ends.
class COwnedMutexes
{
public:
    COwnedMutexes() = default;
    COwnedMutexes(const COwnedMutexes&) = delete;
    COwnedMutexes& operator=(const COwnedMutexes&) = delete;
    ~COwnedMutexes();

    void Add(std::weak_ptr<CMutexObject> mutex) { mOwned.push_back(std::move(mutex)); }
    void Remove(const CMutexObject* mutex)
    {
        std::erase_if(mOwned, [mutex](const auto& entry) {
            const auto owned = entry.lock();
            return owned == nullptr || owned.get() == mutex;
        });
    }

private:
    std::vector<std::weak_ptr<CMutexObject>> mOwned;
};

/// Its address also stands for the thread.
thread_local COwnedMutexes Owned;
/// Set when the list is gone; in the main thread global objects may come behind it.
thread_local bool IsListGone = false;

/// Unmaps the head of a mutex.
struct TUnmapHead
{
    void operator()(void* head) const { munmap(head, CNamedBlock::DataOffset); }
};

using THeadMap = std::unique_ptr<void, TUnmapHead>;

THeadMap MapHead(const CNamedBlock& block)
{
    void* const head =
        mmap(nullptr, CNamedBlock::DataOffset, PROT_READ | PROT_WRITE, MAP_SHARED, block.getDescriptor(), 0);
    if (head == MAP_FAILED) {
        FailErrno();
        return nullptr;
    }
    return THeadMap(head);
}

/// A mutex in this process; all handles on one name share it, since threads own it, not handles.
class CMutexObject : public AObject, public std::enable_shared_from_this<CMutexObject>
{
public:
    CMutexObject(CNamedBlock block, THeadMap head)
        : mBlock(std::move(block)),
          mHead(std::move(head)),
          mWords(reinterpret_cast<TMutexWords*>(static_cast<char*>(mHead.get()) + CNamedBlock::KindOffset))
    {
    }

    ~CMutexObject() override
    {
        if (mOwner != nullptr) {
            GiveUp();
        }
    }

    bool getExisted() const { return mBlock.getExisted(); }

    unsigned long Wait(unsigned long milliseconds) override
    {
        // The death of an owner wakes nobody.
        constexpr int slice = 20;
        const Deadline deadline = Deadline::OfWait(milliseconds);
        for (;;) {
            const std::uint32_t releases = std::atomic_ref(mWords->releases).load();
            if (const unsigned long result = Try(); result != WAIT_TIMEOUT) {
                return result;
            }
            if (deadline.IsPast()) {
                return WAIT_TIMEOUT;
            }
            FutexWait(&mWords->releases, releases, deadline.Remaining(slice), EFutex::Shared);
        }
    }

    bool Release()
    {
        const std::lock_guard lock(mGate);
        if (mOwner != &Owned) {
            return Fail(ERROR_NOT_OWNER);
        }
        if (--mDepth == 0) {
            std::atomic_ref(mWords->isOwned).store(0);
            GiveUp();
            if (!IsListGone) {
                Owned.Remove(this);
            }
        }
        return true;
    }

    /// The calling thread ends.
    void Abandon()
    {
        const std::lock_guard lock(mGate);
        if (mOwner == &Owned) {
            GiveUp();
        }
    }

private:
    unsigned long Try()
    {
        const std::lock_guard lock(mGate);
        if (mOwner == &Owned) {
            ++mDepth;
            return WAIT_OBJECT_0;
        }
        if (mOwner != nullptr) {
            return WAIT_TIMEOUT;
        }
        if (!TryLockByte(mBlock.getDescriptor(), F_WRLCK, CNamedBlock::OwnerByte)) {
            if (errno == EAGAIN || errno == EACCES) {
                return WAIT_TIMEOUT;
            }
            FailErrno();
            return WAIT_FAILED;
        }
        if (!IsListGone) {
            Owned.Add(weak_from_this());
        }
        mOwner = &Owned;
        mDepth = 1;
        return std::atomic_ref(mWords->isOwned).exchange(1) == 0 ? WAIT_OBJECT_0 : WAIT_ABANDONED;
    }

    void GiveUp() noexcept
    {
        mOwner = nullptr;
        mDepth = 0;
        static_cast<void>(TryLockByte(mBlock.getDescriptor(), F_UNLCK, CNamedBlock::OwnerByte));
        std::atomic_ref(mWords->releases).fetch_add(1);
        FutexWake(&mWords->releases, EFutex::Shared);
    }

    CNamedBlock mBlock;
    THeadMap mHead;
    TMutexWords* mWords;
    std::mutex mGate;
    const COwnedMutexes* mOwner = nullptr;
    unsigned long mDepth = 0;
};

COwnedMutexes::~COwnedMutexes()
{
    IsListGone = true;
    for (const auto& entry : mOwned) {
        if (const auto mutex = entry.lock()) {
            mutex->Abandon();
        }
    }
}

/// The named mutexes that the process has open.
class CMutexTable
{
public:
    using TName = std::pair<CNamedBlock::EScope, System::UnicodeString>;

    std::shared_ptr<CMutexObject> Find(const TName& name)
    {
        const auto found = mMutexes.find(name);
        return found == mMutexes.end() ? nullptr : found->second.lock();
    }

    void Add(const TName& name, const std::shared_ptr<CMutexObject>& mutex)
    {
        std::erase_if(mMutexes, [](const auto& entry) { return entry.second.expired(); });
        mMutexes[name] = mutex;
    }

    /// Held from looking for a mutex to adding it.
    std::mutex gate;

private:
    std::map<TName, std::weak_ptr<CMutexObject>> mMutexes;
};

CMutexTable& Mutexes()
{
    // Never destroyed, as the handles.
    static auto* const mutexes = new CMutexTable;
    return *mutexes;
}

std::shared_ptr<CMutexObject> ObjectOver(std::optional<CNamedBlock> block)
{
    if (!block) {
        return nullptr;
    }
    THeadMap head = MapHead(*block);
    return head == nullptr ? nullptr : std::make_shared<CMutexObject>(std::move(*block), std::move(head));
}

HANDLE Create(const CMutexTable::TName& name, CNamedBlock::EAccess access, bool initialOwner)
{
    const auto& [scope, text] = name;
    CMutexTable& mutexes = Mutexes();
    const std::lock_guard lock(mutexes.gate);
    const bool isNameless = CNamedBlock::IsNameless(text, scope);
    std::shared_ptr<CMutexObject> mutex = isNameless ? nullptr : mutexes.Find(name);
    if (mutex != nullptr) {
        SetLastError(ERROR_ALREADY_EXISTS);
        return OpenHandle(std::move(mutex));
    }
    mutex =
        ObjectOver(CNamedBlock::Create(text, CNamedBlock::EKind::Mutex, {0, access, initialOwner}, scope));
    if (mutex == nullptr) {
        return nullptr;
    }
    if (!isNameless) {
        mutexes.Add(name, mutex);
    }
    const bool existed = mutex->getExisted();
    if (initialOwner && !existed) {
        mutex->Wait(0);
    }
    SetLastError(existed ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return OpenHandle(std::move(mutex));
}

HANDLE Open(const CMutexTable::TName& name)
{
    CMutexTable& mutexes = Mutexes();
    const std::lock_guard lock(mutexes.gate);
    std::shared_ptr<CMutexObject> mutex = mutexes.Find(name);
    if (mutex == nullptr) {
        mutex = ObjectOver(CNamedBlock::Open(name.second, CNamedBlock::EKind::Mutex, name.first));
        if (mutex == nullptr) {
            return nullptr;
        }
        mutexes.Add(name, mutex);
    }
    return OpenHandle(std::move(mutex));
}

} // namespace

HANDLE CreateSessionMutex(const System::UnicodeString& name)
{
    return Create({CNamedBlock::EScope::Session, name}, CNamedBlock::EAccess::User, false);
}

HANDLE OpenSessionMutex(const System::UnicodeString& name)
{
    return Open({CNamedBlock::EScope::Session, name});
}

} // namespace Host

HANDLE CreateMutexW(const SECURITY_ATTRIBUTES* attributes, bool initialOwner,
                    const System::UnicodeString& name)
{
    using Host::CNamedBlock;

    const auto access =
        Host::IsForEverybody(attributes) ? CNamedBlock::EAccess::Everybody : CNamedBlock::EAccess::User;
    return Host::Create({CNamedBlock::EScope::Machine, name}, access, initialOwner);
}

HANDLE OpenMutexW(unsigned long /*access*/, bool /*inherit*/, const System::UnicodeString& name)
{
    return Host::Open({Host::CNamedBlock::EScope::Machine, name});
}

bool ReleaseMutex(HANDLE handle)
{
    const auto mutex = Host::ObjectOf<Host::CMutexObject>(handle);
    return mutex != nullptr && mutex->Release();
}
