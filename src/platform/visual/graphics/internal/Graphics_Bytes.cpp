// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_Bytes.h"

#include "platform/base/internal/System_Memory.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/toolkit/PaintTypes.h"

#include <algorithm>
#include <limits>

namespace Graphics
{

namespace
{

constexpr std::size_t Portion = 1U << 16U;
constexpr std::size_t LargestFile = 1U << 30U;

/// Up to `count` bytes, with memory for those alone that there are.
std::vector<System::Byte> ReadUpTo(Classes::TStream* stream, std::size_t count)
{
    std::vector<System::Byte> bytes;
    System::WithMemory(u"There is no memory for the picture", [&] {
        std::size_t portion = Portion;
        while (bytes.size() < count) {
            const std::size_t size = bytes.size();
            bytes.resize(size + std::min(portion, count - size));
            const System::Int64 taken =
                stream->Read(bytes.data() + size, static_cast<System::Int64>(bytes.size() - size));
            bytes.resize(size + static_cast<std::size_t>(std::max<System::Int64>(0, taken)));
            if (taken <= 0) {
                break;
            }
            portion *= 2;
        }
    });
    return bytes;
}

void CheckStream(const Classes::TStream* stream)
{
    if (stream == nullptr) {
        throw Classes::EStreamError(u"There is no stream for the picture");
    }
}

} // namespace

std::vector<System::Byte> ReadRest(Classes::TStream* stream)
{
    CheckStream(stream);
    std::vector<System::Byte> bytes = ReadUpTo(stream, LargestFile + 1);
    if (bytes.size() > LargestFile) {
        throw EInvalidGraphic(u"The picture is larger than a picture can be");
    }
    return bytes;
}

void WriteBytes(Classes::TStream* stream, std::span<const System::Byte> bytes)
{
    CheckStream(stream);
    stream->WriteBuffer(bytes.data(), static_cast<System::Int64>(bytes.size()));
}

std::vector<System::Byte> ReadSizedBytes(Classes::TStream* stream)
{
    CheckStream(stream);
    System::Byte head[4] = {};
    stream->ReadBuffer(head, sizeof head);
    const std::size_t count = CByteView(head).At32(0);
    if (count > LargestFile) {
        throw EInvalidGraphic(u"The picture is larger than a picture can be");
    }
    std::vector<System::Byte> bytes = ReadUpTo(stream, count);
    if (bytes.size() < count) {
        throw EInvalidGraphic(u"The picture ends before its length");
    }
    return bytes;
}

void WriteSizedBytes(Classes::TStream* stream, std::string_view bytes)
{
    CheckStream(stream);
    CByteWriter head;
    head.Put32(static_cast<unsigned>(bytes.size()));
    WriteBytes(stream, head.Take());
    stream->WriteBuffer(bytes.data(), static_cast<System::Int64>(bytes.size()));
}

} // namespace Graphics
