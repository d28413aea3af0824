// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"

#include <memory>

#include <unicode/ucnv.h>

namespace System::Detail
{

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

/// Null for a code page that ICU doesn't know.
Converter OpenConverter(CodePage codePage);

} // namespace System::Detail
