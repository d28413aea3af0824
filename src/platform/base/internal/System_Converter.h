// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"

#include <memory>
#include <optional>
#include <string>

#include <unicode/ucnv.h>

namespace System::Detail
{

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

/// Whether the code page is 1252, which needs no converter; 0 and raw bytes count as it.
constexpr bool IsWestern(CodePage codePage)
{
    return codePage == DefaultSystemCodePage || codePage == CP_RAW || codePage == 0;
}

/// Null for a code page that ICU doesn't know.
Converter OpenConverter(CodePage codePage);

/// The code page with a converter of that name, an official one or another; nothing if there is none.
std::optional<CodePage> FindCodePage(const std::string& name);

} // namespace System::Detail
