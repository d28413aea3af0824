// SPDX-License-Identifier: MIT
#include "platform/host/objects/Host_FileMapping.h"

#include "platform/host/objects/internal/Host_MappingPage.h"
#include "platform/host/objects/internal/Host_NamedBlock.h"
#include "platform/host/objects/internal/Host_Object.h"

#include <map>
#include <mutex>
#include <utility>

#include <sys/mman.h>

namespace Host
{

namespace
{

/// A handle on a mapping, with what its views may do.
class CMappingObject : public AObject
{
public:
    CMappingObject(CNamedBlock block, unsigned long access) : mBlock(std::move(block)), mAccess(access) {}

    const CNamedBlock& getBlock() const { return mBlock; }
    bool Allows(unsigned long access) const
    {
        return (access & ~mAccess & (FILE_MAP_WRITE | FILE_MAP_READ)) == 0;
    }

private:
    CNamedBlock mBlock;
    unsigned long mAccess;
};

struct TView
{
    std::size_t size;
    /// The name lives as long as the view.
    std::shared_ptr<CMappingObject> mapping;
};

/// The views of the process.
class CViews
{
public:
    void Add(const void* address, TView view)
    {
        const std::lock_guard lock(mGate);
        mViews[address] = std::move(view);
    }

    /// Without a mapping if there is no such view.
    TView Take(const void* address)
    {
        const std::lock_guard lock(mGate);
        const auto found = mViews.find(address);
        if (found == mViews.end()) {
            return {};
        }
        TView view = std::move(found->second);
        mViews.erase(found);
        return view;
    }

private:
    std::mutex mGate;
    std::map<const void*, TView> mViews;
};

CViews& Views()
{
    // Never destroyed, as the handles.
    static auto* const views = new CViews;
    return *views;
}

HANDLE HandleOn(std::optional<CNamedBlock> block, unsigned long access)
{
    return block ? OpenHandle(std::make_shared<CMappingObject>(std::move(*block), access)) : nullptr;
}

constexpr std::uint64_t FromHalves(unsigned long high, unsigned long low)
{
    return std::uint64_t{high & 0xFFFFFFFF} << 32U | (low & 0xFFFFFFFF);
}

int ProtectionOf(unsigned long access)
{
    return (access & (FILE_MAP_WRITE | FILE_MAP_COPY)) != 0 ? PROT_READ | PROT_WRITE : PROT_READ;
}

/// A copy is what is asked for no writing of the shared bytes.
int KindOfMap(unsigned long access)
{
    return (access & FILE_MAP_COPY) != 0 && (access & FILE_MAP_WRITE) == 0 ? MAP_PRIVATE : MAP_SHARED;
}

static_assert(CMappingPage::Size == CNamedBlock::DataOffset - CNamedBlock::KindOffset);

} // namespace

void CMappingPage::TUnmap::operator()(void* block) const
{
    munmap(block, CNamedBlock::DataOffset);
}

CMappingPage::CMappingPage(HANDLE handle, EAccess access)
{
    const auto mapping = ObjectOf<CMappingObject>(handle);
    if (mapping == nullptr) {
        return;
    }
    const int protection = access == EAccess::Write ? PROT_READ | PROT_WRITE : PROT_READ;
    void* const block = mmap(nullptr, CNamedBlock::DataOffset, protection, MAP_SHARED,
                             mapping->getBlock().getDescriptor(), 0);
    if (block == MAP_FAILED) {
        FailErrno();
        return;
    }
    mBlock.reset(block);
}

void* CMappingPage::getBytes() const noexcept
{
    return mBlock == nullptr ? nullptr : static_cast<char*>(mBlock.get()) + CNamedBlock::KindOffset;
}

} // namespace Host

HANDLE CreateFileMappingW(HANDLE file, const SECURITY_ATTRIBUTES* attributes, unsigned long protection,
                          unsigned long sizeHigh, unsigned long sizeLow, const System::UnicodeString& name)
{
    using Host::CNamedBlock;

    if (file != INVALID_HANDLE_VALUE) {
        Host::RefuseHandle();
        return nullptr;
    }
    const std::uint64_t size = Host::FromHalves(sizeHigh, sizeLow);
    if (size == 0 || (protection != PAGE_READWRITE && protection != PAGE_READONLY)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const auto access =
        Host::IsForEverybody(attributes) ? CNamedBlock::EAccess::Everybody : CNamedBlock::EAccess::User;
    auto block = CNamedBlock::Create(name, CNamedBlock::EKind::Mapping, {size, access});
    const bool existed = block && block->getExisted();
    const unsigned long allowed =
        protection == PAGE_READWRITE ? FILE_MAP_ALL_ACCESS : FILE_MAP_READ | FILE_MAP_COPY;
    const HANDLE handle = Host::HandleOn(std::move(block), allowed);
    if (handle != nullptr) {
        SetLastError(existed ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    }
    return handle;
}

HANDLE OpenFileMappingW(unsigned long access, bool /*inherit*/, const System::UnicodeString& name)
{
    return Host::HandleOn(Host::CNamedBlock::Open(name, Host::CNamedBlock::EKind::Mapping), access);
}

void* MapViewOfFile(HANDLE handle, unsigned long access, unsigned long offsetHigh, unsigned long offsetLow,
                    std::size_t size)
{
    constexpr std::uint64_t granularity = 65536;
    auto mapping = Host::ObjectOf<Host::CMappingObject>(handle);
    if (mapping == nullptr) {
        return nullptr;
    }
    const std::uint64_t offset = Host::FromHalves(offsetHigh, offsetLow);
    if (offset % granularity != 0) {
        SetLastError(ERROR_MAPPED_ALIGNMENT);
        return nullptr;
    }
    const std::uint64_t whole = mapping->getBlock().getSize();
    if (!mapping->Allows(access) || offset >= whole || size > whole - offset) {
        SetLastError(ERROR_ACCESS_DENIED);
        return nullptr;
    }
    const std::size_t length = size == 0 ? whole - offset : size;
    void* const view =
        mmap(nullptr, length, Host::ProtectionOf(access), Host::KindOfMap(access),
             mapping->getBlock().getDescriptor(), Host::CNamedBlock::DataOffset + static_cast<off_t>(offset));
    if (view == MAP_FAILED) {
        Host::FailErrno();
        return nullptr;
    }
    Host::Views().Add(view, {length, std::move(mapping)});
    return view;
}

bool UnmapViewOfFile(const void* address)
{
    const Host::TView view = Host::Views().Take(address);
    if (view.mapping == nullptr) {
        return Host::Fail(ERROR_INVALID_ADDRESS);
    }
    return munmap(const_cast<void*>(address), view.size) == 0 || Host::FailErrno();
}
