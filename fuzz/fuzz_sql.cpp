// SPDX-License-Identifier: MIT
#include "support/Fuzz.h"
#include "text/grammar/BTL_SQL_Text.h"

#include <cstdint>

namespace
{

using Fuzz::Require;
using System::AnsiString;
using System::UnicodeString;

} // namespace

/// Steps over the tokens of any statement.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const UnicodeString statement(AnsiString(Fuzz::Bytes(data, size)));

    int index = 1;
    while (true) {
        const int former = index;
        const UnicodeString token = BTL::GetNextSqlToken(statement, index);
        Require(index >= former && statement.SubString(index, token.Length()) == token);
        if (token.IsEmpty()) {
            break;
        }
        index += token.Length();
    }
    // White space at the very end stays.
    Require(index >= statement.Length() && index <= statement.Length() + 1);

    // Whatever a text has, it is one literal.
    const UnicodeString literal = u"'" + BTL::SQLValueDelim(statement) + u"'";
    index = 1;
    Require(BTL::GetNextSqlToken(literal + u" x", index) == literal && index == 1);
    return 0;
}
