// SPDX-License-Identifier: MIT
#include "platform/host/messages/internal/Host_MessageFrame.h"
#include "support/Fuzz.h"

#include <algorithm>

// The bytes of a sender, in pieces of a size that the first byte tells: a frame takes them, or refuses them
// without memory for more than has come.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzz::Input input(data, size);
    if (size == 0) {
        return 0;
    }
    const std::size_t piece = input.Take<std::uint8_t>() + 1U;
    Host::MessageFrame frame;
    std::size_t done = 0;
    while (!frame.IsWhole() && !input.getText().empty()) {
        const auto room = frame.Room();
        Fuzz::Require(!room.empty() && room.size() <= std::max<std::size_t>(done, 1U << 24U));
        const std::string_view part = input.Take(std::min(piece, room.size()));
        part.copy(room.data(), part.size());
        done += part.size();
        if (!frame.Add(part.size())) {
            return 0;
        }
    }
    if (frame.IsWhole()) {
        const std::size_t bytes = frame.getHead().dataBytes;
        Fuzz::Require(sizeof(Host::TFrameHead) + bytes + frame.GetFolder().size() + frame.GetToken().size() ==
                      done);
        const System::UnicodeString units = frame.TakeUnits();
        Fuzz::Require(units.AsView().size() == (bytes + 1) / 2 && units.c_str()[units.AsView().size()] == 0);
    }
    return 0;
}
