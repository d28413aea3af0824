// SPDX-License-Identifier: MIT
#include "serial/WIN_ComValues.h"

#include <algorithm>
#include <array>

namespace WIN
{

namespace
{

constexpr std::array<int, 16> Speeds = {110,   300,   600,   1200,  2400,  4800,   9600,   14400,
                                        19200, 28800, 38400, 56000, 57600, 115200, 128000, 256000};

/// The time of a character of ten bits, in milliseconds.
std::uint32_t CharacterTime(EBaud baud)
{
    constexpr int tenBits = 10'000;
    return static_cast<std::uint32_t>(std::max(tenBits / Baud2Int(baud), 1));
}

} // namespace

int Baud2Int(EBaud baud)
{
    const auto index = static_cast<std::size_t>(baud);
    constexpr int other = 9600;
    return index < Speeds.size() ? Speeds[index] : other;
}

EBaud Int2Baud(int baud)
{
    const auto found = std::ranges::find(Speeds, baud);
    return found == Speeds.end() ? EBaud::Baud9600 : static_cast<EBaud>(found - Speeds.begin());
}

CCommTimeouts::CCommTimeouts(EBaud baud, int readTimeout, int writeTimeout)
    : CCommTimeouts(static_cast<std::uint32_t>(readTimeout), CharacterTime(baud),
                    static_cast<std::uint32_t>(readTimeout), CharacterTime(baud),
                    static_cast<std::uint32_t>(writeTimeout))
{
}

} // namespace WIN
