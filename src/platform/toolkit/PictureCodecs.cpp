// SPDX-License-Identifier: MIT
#include "platform/toolkit/PictureCodecs.h"

#include "platform/toolkit/internal/PictureNames.h"
#include "platform/toolkit/internal/ToolkitPlugin.h"

#include <mutex>
#include <string>
#include <utility>

namespace Toolkits
{

namespace
{

struct TCurrentCodecs
{
    std::mutex mutex;
    std::unique_ptr<PictureCodecs> codecs;
};

/// Never destroyed: what it holds came from a plug-in whose own globals may be gone by then.
TCurrentCodecs& Current()
{
    static TCurrentCodecs& current = *new TCurrentCodecs;
    return current;
}

PictureCodecs& CodecsFor(EPictureType type)
{
    TCurrentCodecs& current = Current();
    const std::lock_guard lock(current.mutex);
    if (current.codecs == nullptr) {
        std::string reason;
        current.codecs = LoadCodecs("qt", reason);
        if (current.codecs == nullptr) {
            ThrowNoCodec(type, System::FromUtf8(reason));
        }
    }
    return *current.codecs;
}

} // namespace

PictureCodecs::~PictureCodecs() = default;

Pixels DecodePicture(EPictureType type, std::span<const System::Byte> bytes)
{
    return CodecsFor(type).Decode(type, bytes);
}

std::vector<System::Byte> EncodePicture(EPictureType type, const Pixels& pixels, int quality)
{
    return CodecsFor(type).Encode(type, pixels, quality);
}

std::unique_ptr<PictureCodecs> ExchangeCodecs(std::unique_ptr<PictureCodecs> codecs)
{
    TCurrentCodecs& current = Current();
    const std::lock_guard lock(current.mutex);
    return std::exchange(current.codecs, std::move(codecs));
}

} // namespace Toolkits
