// SPDX-License-Identifier: MIT
#pragma once

#include <TRS8_BTL/platform/base/System_String.h>

#include <functional>
#include <optional>
#include <vector>

namespace Station
{

/// Something that the machine can be asked for.
struct TSource
{
    System::UnicodeString name;
    /// The unit of the value without a prefix; empty for a plain number.
    System::UnicodeString unit;
    /// The value of now; nothing if the machine doesn't tell it any more.
    std::function<std::optional<double>()> read;
};

/// Gives the source of a quantity that an instrument calls `name`, in `unit` without a prefix.
using TSourceMaker =
    std::function<TSource(const System::UnicodeString& name, const System::UnicodeString& unit)>;

/// All sources of this machine.
std::vector<TSource> HostSources();

} // namespace Station
