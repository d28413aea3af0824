// SPDX-License-Identifier: MIT
#include "platform/host/objects/internal/Host_ObjectName.h"

#include "platform/base/internal/System_Ascii.h"

#include <array>
#include <bit>
#include <cstdint>
#include <string_view>

namespace Host
{

namespace
{

constexpr std::string_view HexDigits = "0123456789abcdef";

/// SHA-256 of a text, in the words of its publication.
class CDigest
{
public:
    explicit CDigest(std::string text)
    {
        const std::uint64_t bits = std::uint64_t{text.size()} * 8;
        text += '\x80';
        text.append((BlockSize + 56 - text.size() % BlockSize) % BlockSize, '\0');
        for (int shift = 56; shift >= 0; shift -= 8) {
            text += static_cast<char>(bits >> shift & 0xFF);
        }
        for (std::size_t begin = 0; begin < text.size(); begin += BlockSize) {
            Add(std::string_view(text).substr(begin, BlockSize));
        }
    }

    std::string AsHex() const
    {
        std::string hex;
        for (const std::uint32_t word : mState) {
            for (int shift = 28; shift >= 0; shift -= 4) {
                hex += HexDigits[word >> shift & 0xF];
            }
        }
        return hex;
    }

private:
    static constexpr std::size_t BlockSize = 64;
    static constexpr std::size_t Rounds = 64;

    // clang-format off
    static constexpr std::array<std::uint32_t, Rounds> Constants = {
        0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
        0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
        0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
        0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
        0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
        0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
        0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
        0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};
    // clang-format on

    static std::array<std::uint32_t, Rounds> ScheduleOf(std::string_view block)
    {
        std::array<std::uint32_t, Rounds> words{};
        for (std::size_t i = 0; i < BlockSize; ++i) {
            words[i / 4] = words[i / 4] << 8U | static_cast<unsigned char>(block[i]);
        }
        for (std::size_t i = 16; i < Rounds; ++i) {
            const std::uint32_t a = words[i - 15];
            const std::uint32_t b = words[i - 2];
            words[i] = words[i - 16] + words[i - 7] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ a >> 3U) +
                       (std::rotr(b, 17) ^ std::rotr(b, 19) ^ b >> 10U);
        }
        return words;
    }

    void Add(std::string_view block)
    {
        const auto words = ScheduleOf(block);
        auto [a, b, c, d, e, f, g, h] = mState;
        for (std::size_t i = 0; i < Rounds; ++i) {
            const std::uint32_t first = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                                        ((e & f) ^ (~e & g)) + Constants[i] + words[i];
            const std::uint32_t second =
                (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
            h = g;
            g = f;
            f = e;
            e = d + first;
            d = c;
            c = b;
            b = a;
            a = first + second;
        }
        const std::array<std::uint32_t, 8> sums = {a, b, c, d, e, f, g, h};
        for (std::size_t i = 0; i < sums.size(); ++i) {
            mState[i] += sums[i];
        }
    }

    std::array<std::uint32_t, 8> mState = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                           0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
};

constexpr bool IsPlain(char16_t unit)
{
    return System::Detail::IsAsciiLetter(unit) || System::Detail::IsAsciiDigit(unit) || unit == u'_' ||
           unit == u'-';
}

/// Each other unit as `%` and its four digits, lone surrogates among them: UTF-8 has none for those.
std::string Encoded(std::u16string_view name)
{
    std::string encoded;
    for (const char16_t unit : name) {
        if (IsPlain(unit)) {
            encoded += static_cast<char>(unit);
            continue;
        }
        encoded += '%';
        for (int shift = 12; shift >= 0; shift -= 4) {
            encoded += HexDigits[static_cast<unsigned>(unit) >> shift & 0xF];
        }
    }
    return encoded;
}

} // namespace

std::string ObjectFileName(const System::UnicodeString& name, std::size_t maxLength)
{
    constexpr std::string_view plain = "n.";
    std::string encoded = Encoded(name.AsView());
    return plain.size() + encoded.size() <= maxLength ? plain.data() + encoded
                                                      : "h." + CDigest(std::move(encoded)).AsHex();
}

} // namespace Host
