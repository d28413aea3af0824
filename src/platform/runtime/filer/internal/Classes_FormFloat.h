// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"
#include "platform/runtime/filer/Classes_Filer.h"

#include <optional>
#include <string>
#include <string_view>

// Floats of form resources as text and back, exactly: a double has a point or an exponent, a single the
// suffix `s`, an amount `c`, a date `d`, and an extended float `x`. What no decimal number gives again, as
// the infinite, is told by its bits in hexadecimal behind a `%`.

namespace Classes::Form
{

/// Appends the text of the float with these bytes.
void AppendFloat(std::string& out, TValueType type, std::string_view bytes);

/// A float of the binary form.
struct TFloatValue
{
    TValueType type = vaDouble;
    std::string bytes;
};

/// The float of a text without blanks; nothing for what is none, or is beyond the range of its type.
[[nodiscard]] std::optional<TFloatValue> ParseFloat(std::string_view text);

/// The bytes of a number: those of a double, or of an extended float if it has more digits than that.
[[nodiscard]] TFloatValue FloatValueOf(System::Extended value);
/// The number; nothing for bytes of an extended float that are none of a processor's.
[[nodiscard]] std::optional<System::Extended> FloatOf(TValueType type, std::string_view bytes);

} // namespace Classes::Form
