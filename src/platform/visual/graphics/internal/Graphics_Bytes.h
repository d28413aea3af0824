// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_SharedBlock.h"
#include "platform/base/System_Types.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace Classes
{
class TStream;
}

namespace Graphics
{

/// A picture as it was loaded, in one place however many hold it.
struct TBytesBlock : System::TSharedBlock
{
    explicit TBytesBlock(std::vector<System::Byte> content) : bytes(std::move(content)) {}

    std::vector<System::Byte> bytes;
};

using TSharedBytes = System::GSharedBlock<TBytesBlock>;

/// What a stream has from its position on. `EInvalidGraphic` for more than a picture can be.
std::vector<System::Byte> ReadRest(Classes::TStream* stream);
void WriteBytes(Classes::TStream* stream, std::span<const System::Byte> bytes);

/// A length in four bytes and as many bytes. `EInvalidGraphic` if there are fewer; memory is taken only for
/// those that there are.
std::vector<System::Byte> ReadSizedBytes(Classes::TStream* stream);
void WriteSizedBytes(Classes::TStream* stream, std::string_view bytes);

/// Numbers in the bytes of a file, which it has or doesn't.
class CByteView
{
public:
    explicit CByteView(std::span<const System::Byte> bytes) : mBytes(bytes) {}

    std::size_t Size() const { return mBytes.size(); }
    bool Has(std::size_t offset, std::size_t count) const
    {
        return offset <= mBytes.size() && count <= mBytes.size() - offset;
    }
    std::span<const System::Byte> Part(std::size_t offset, std::size_t count) const
    {
        return mBytes.subspan(offset, count);
    }

    // The lowest byte first; 0 for what isn't there.

    unsigned At8(std::size_t offset) const { return Has(offset, 1) ? mBytes[offset] : 0U; }
    unsigned At16(std::size_t offset) const { return At8(offset) | At8(offset + 1) << 8U; }
    unsigned At32(std::size_t offset) const { return At16(offset) | At16(offset + 2) << 16U; }
    int Signed16(std::size_t offset) const { return static_cast<std::int16_t>(At16(offset)); }
    int Signed32(std::size_t offset) const { return static_cast<std::int32_t>(At32(offset)); }

    // As these, but the highest byte first.

    unsigned High16(std::size_t offset) const { return At8(offset) << 8U | At8(offset + 1); }
    unsigned High32(std::size_t offset) const { return High16(offset) << 16U | High16(offset + 2); }

private:
    std::span<const System::Byte> mBytes;
};

/// Gathers the bytes of a file, the lowest of a number first.
class CByteWriter
{
public:
    void Put8(unsigned value) { mBytes.push_back(static_cast<System::Byte>(value)); }
    void Put16(unsigned value)
    {
        Put8(value & 0xFFU);
        Put8(value >> 8U & 0xFFU);
    }
    void Put32(unsigned value)
    {
        Put16(value & 0xFFFFU);
        Put16(value >> 16U);
    }
    void Append(std::span<const System::Byte> bytes)
    {
        mBytes.insert(mBytes.end(), bytes.begin(), bytes.end());
    }
    std::size_t Size() const { return mBytes.size(); }
    std::vector<System::Byte> Take() { return std::move(mBytes); }

private:
    std::vector<System::Byte> mBytes;
};

} // namespace Graphics
