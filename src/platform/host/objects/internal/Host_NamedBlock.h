// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/internal/Host_Descriptor.h"

#include <cstdint>
#include <optional>
#include <string>

namespace Host
{

/// Memory that processes share by a name, as a file in memory. Behind a page for the needs of its kind lie
/// `getSize` bytes.
///
/// Each holder has a lock on the file that the host drops with it, also when it crashes. A file that nobody
/// holds is what a crash left: it is taken for no object, and removed or made anew by who meets it.
class CNamedBlock
{
public:
    enum class EKind : std::uint32_t
    {
        Mutex = 1,
        Mapping = 2,
    };

    enum class EAccess
    {
        /// For the user alone.
        User,
        Everybody,
    };

    /// Among which names that of a block is looked for.
    enum class EScope
    {
        /// Those of all users of the machine.
        Machine,
        /// Those of the user's session.
        Session,
    };

    /// The bytes at the begin of the file that are free for the kind; they are zero at first.
    static constexpr std::int64_t KindOffset = 1024;
    /// Where the shared bytes begin.
    static constexpr std::int64_t DataOffset = 4096;

    /// The byte of the file whose lock is ownership, where the kind has one.
    static constexpr std::int64_t OwnerByte = 1;

    /// How a block begins.
    struct TWanted
    {
        std::uint64_t size;
        EAccess access;
        /// Whether `OwnerByte` is locked before anybody else sees the block.
        bool isOwned = false;
    };

    /// Whether the name stands for none: the empty one of the machine. That of a session is a name.
    static bool IsNameless(const System::UnicodeString& name, EScope scope)
    {
        return scope == EScope::Machine && name.IsEmpty();
    }

    /// Takes the block of this name, or makes it with zero bytes; without a name a block that nobody else can
    /// have. Nothing, and the last error set, on a failure: 6 if the name is in use for
    /// another kind.
    static std::optional<CNamedBlock> Create(const System::UnicodeString& name, EKind kind,
                                             const TWanted& wanted, EScope scope = EScope::Machine);
    /// As `Create` for a block that somebody holds; else the last error is 2.
    static std::optional<CNamedBlock> Open(const System::UnicodeString& name, EKind kind,
                                           EScope scope = EScope::Machine);

    CNamedBlock(CNamedBlock&&) noexcept = default;
    CNamedBlock& operator=(CNamedBlock&&) = delete;
    /// The last holder takes the name away.
    ~CNamedBlock();

    int getDescriptor() const noexcept { return mFile.Get(); }
    std::uint64_t getSize() const noexcept { return mSize; }
    /// Whether somebody held it when this object came.
    bool getExisted() const noexcept { return mExisted; }

private:
    CNamedBlock(Descriptor file, std::string path, std::uint64_t size, bool existed)
        : mFile(std::move(file)), mPath(std::move(path)), mSize(size), mExisted(existed)
    {
    }

    friend class CBlockSearch;

    Descriptor mFile;
    /// Empty if the block has no name.
    std::string mPath;
    std::uint64_t mSize;
    bool mExisted;
};

/// A lock on one byte of the open file, held until the file is closed: `F_RDLCK` beside others, `F_WRLCK`
/// alone; `F_UNLCK` gives it back. False at once if another opening stands against it.
[[nodiscard]] bool TryLockByte(int descriptor, short type, std::int64_t byte) noexcept;

} // namespace Host
