// SPDX-License-Identifier: MIT
#pragma once

#include <TRS8_BTL/platform/runtime/Sysutils_Exception.h>

#include <filesystem>
#include <optional>
#include <span>

namespace Station
{

/// A command line that makes no sense.
class XBadOption : public Sysutils::Exception
{
public:
    using Exception::Exception;
};

/// What the user asks for.
struct TOptions
{
    double seconds = 5;
    std::filesystem::path channels = "channels.txt";
    std::filesystem::path log;
    /// The decimal separator of all numbers shown; without it that of the user's locale.
    std::optional<char> decimal;
    bool help = false;
};

/// `XBadOption` for an unknown word, a missing or a bad value.
TOptions ReadOptions(std::span<char* const> words);

extern const char* const HelpText;

} // namespace Station
