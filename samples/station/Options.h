// SPDX-License-Identifier: MIT
#pragma once

#include <TRS8_BTL/platform/base/Sysutils_Exception.h>
#include <TRS8_BTL/platform/base/dates/System_DateTime.h>

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
    /// Empty for the file beside the program.
    System::UnicodeString log;
    System::UnicodeString samples;
    /// The decimal separator of all numbers shown; without it that of the user's locale.
    std::optional<System::WideChar> decimal;
    /// Whether the samples are printed, in place of their statistics.
    bool sql = false;
    /// Samples kept since then count too.
    std::optional<System::TDateTime> from;
    bool help = false;
};

/// `XBadOption` for an unknown word, a missing or a bad value.
TOptions ReadOptions(std::span<char* const> words);

extern const char* const HelpText;

} // namespace Station
