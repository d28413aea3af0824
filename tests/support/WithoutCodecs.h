// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PictureCodecs.h"

#include <memory>
#include <utility>

namespace Support
{

/// As long as it lives, pictures are those alone that the library reads and writes itself.
class WithoutCodecs
{
public:
    WithoutCodecs() : mFormer(Toolkits::ExchangeCodecs(std::make_unique<Refusing>())) {}
    WithoutCodecs(const WithoutCodecs&) = delete;
    WithoutCodecs& operator=(const WithoutCodecs&) = delete;
    ~WithoutCodecs() { Toolkits::ExchangeCodecs(std::move(mFormer)); }

private:
    struct Refusing final : Toolkits::PictureCodecs
    {
        Toolkits::Pixels Decode(Toolkits::EPictureType, std::span<const System::Byte>) override { Refuse(); }
        std::vector<System::Byte> Encode(Toolkits::EPictureType, const Toolkits::Pixels&, int) override
        {
            Refuse();
        }
        [[noreturn]] static void Refuse() { throw Graphics::EInvalidGraphic(u"There are no codecs."); }
    };

    std::unique_ptr<Toolkits::PictureCodecs> mFormer;
};

} // namespace Support
