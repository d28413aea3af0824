// SPDX-License-Identifier: MIT
#include "foundation/vectors/UTL_SV_BoolVector.h"
#include "foundation/vectors/UTL_SV_DoubleVector.h"
#include "foundation/vectors/UTL_SV_Int64Vector.h"
#include "foundation/vectors/UTL_SV_IntVector.h"
#include "platform/base/System_CodePage.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "support/Fuzz.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace
{

using Fuzz::Require;
using System::UnicodeString;

/// Whether all of the text could be read.
template <class Vector>
bool SetCommaText(Vector& vector, const UnicodeString& text)
{
    return Fuzz::Try<Sysutils::EConvertError>([&] { vector.setCommaText(text); });
}

/// What a text holds writes and reads back to the same elements.
template <class Vector>
void RequireRoundTrip(const Vector& read)
{
    Vector again;
    again.setCommaText(read.getCommaText());
    Require(again == read);
}

/// Floats are written with 15 digits: the text stays, the element only if it was read with no more.
void RequireRoundTrip(const UTL::CDoubleVector& read)
{
    const UnicodeString text = read.getCommaText();
    UTL::CDoubleVector again;
    if (!SetCommaText(again, text)) {
        // The largest floats round to a text beyond the range.
        Require(again.size() < read.size() && std::abs(read[again.size()]) > 1.7e308);
        return;
    }
    Require(again.size() == read.size() && again.getCommaText() == text);
}

template <class Vector>
void ReadText(const UnicodeString& text)
{
    Vector vector;
    const bool isWhole = SetCommaText(vector, text);
    RequireRoundTrip(vector);
    const int commas = static_cast<int>(std::count(text.AsView().begin(), text.AsView().end(), u','));
    Require(static_cast<int>(vector.size()) <= commas + 1);
    // Behind blanks the long way is taken, which reads the same.
    Vector spaced;
    const bool isSpacedWhole =
        SetCommaText(spaced, Sysutils::StringReplace(text, u",", u" , ",
                                                     Sysutils::TReplaceFlags() << Sysutils::rfReplaceAll));
    Require(isSpacedWhole == isWhole && spaced == vector);
}

} // namespace

/// Reads any text as the comma text of each kind of vector.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = Fuzz::Bytes(data, size);
    for (const UnicodeString& text : {UnicodeString(System::AnsiString(bytes)), System::FromUtf8(bytes)}) {
        ReadText<UTL::CBoolVector>(text);
        ReadText<UTL::CIntVector>(text);
        ReadText<UTL::CInt64Vector>(text);
        ReadText<UTL::CDoubleVector>(text);
    }
    return 0;
}
