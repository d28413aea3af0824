// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_IsoDate.h"
#include "support/Fuzz.h"

#include <cstdint>
#include <optional>

namespace
{

using Fuzz::Require;
using Fuzz::Try;
using System::AnsiString;
using System::TDateTime;
using System::UnicodeString;
using Sysutils::EConvertError;
using Sysutils::TIsoDateTime;

/// What is written is read back, and is written again as it was.
void CheckWritten(const TDateTime& value, std::optional<int> offset)
{
    UnicodeString text;
    if (!Try<EConvertError>([&] { text = Sysutils::DateTimeToIso(value, offset); })) {
        return;
    }
    const TIsoDateTime read = Sysutils::IsoToDateTime(text);
    Require(read.offset == offset);
    Require(Sysutils::DateTimeToIso(read.value, read.offset) == text);
}

void CheckText(const UnicodeString& text)
{
    const TIsoDateTime before{TDateTime(12.5), 7};
    TIsoDateTime value = before;
    const bool isDate = Sysutils::TryIsoToDateTime(text, value);
    TIsoDateTime raised;
    Require(Try<EConvertError>([&] { raised = Sysutils::IsoToDateTime(text); }) == isDate);
    Require(isDate ? raised == value : value == before);
    if (!isDate) {
        return;
    }
    const UnicodeString written = Sysutils::DateTimeToIso(value.value, value.offset);
    Require(Sysutils::IsoToDateTime(written) == value);
    CheckWritten(value.InUniversalTime(), 0);
}

} // namespace

/// A value and an offset in minutes come first; the rest is a text of narrow characters, and one of wide
/// ones.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < sizeof(double) + sizeof(std::int16_t)) {
        return 0;
    }
    Fuzz::Input input(data, size);
    const auto value = input.Take<double>();
    const auto offset = input.Take<std::int16_t>();
    CheckWritten(value, std::nullopt);
    CheckWritten(value, offset);
    CheckText(AnsiString(input.getText()));
    CheckText(Fuzz::WideText(input.getText()));
    return 0;
}
