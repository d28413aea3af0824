// SPDX-License-Identifier: MIT
#include "support/Fuzz.h"
#include "text/grammar/BTL_CommandLineParser.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace
{

using BTL::CCommandLineParser;
using Fuzz::Require;
using System::Int64;
using System::UnicodeString;

void RequireToken(const UnicodeString& token)
{
    Require(!token.IsEmpty());
    const bool isQuoted = token[1] == u'"';
    Require(isQuoted || token == u"=" ||
            (token.Pos(u'"') == 0 && token.Pos(u'=') == 0 && token.Pos(u' ') == 0));
}

/// Every token that no `=` precedes can be found, and removed.
void CheckNames(CCommandLineParser& parser)
{
    const int count = std::min(parser.getTokens().getCount(), 20);
    for (int i = 0; i < count && i < parser.getTokens().getCount(); ++i) {
        const UnicodeString name = parser.getTokens()[i];
        const bool isName = i == 0 || parser.getTokens()[i - 1] != UnicodeString(u"=");
        const int index = parser.IndexOf(name);
        Require(!isName || (index >= 0 && index <= i));
        UnicodeString value;
        Int64 number = 0;
        bool flag = false;
        Require(parser.Find(name, value, true) == (index >= 0));
        Require(parser.Find(name, number, 1) == (index >= 0));
        Require(parser.Find(name, flag, true) == (index >= 0));
    }
    while (parser.getTokens().getCount() > 0) {
        const int before = parser.getTokens().getCount();
        parser.Remove(parser.getTokens()[0]);
        Require(parser.getTokens().getCount() < before);
    }
}

void CheckLine(const UnicodeString& text, bool caseSensitive)
{
    CCommandLineParser parser(caseSensitive);
    parser.Parse(text);
    Int64 length = 0;
    for (int i = 0; i < parser.getTokens().getCount(); ++i) {
        RequireToken(parser.getTokens()[i]);
        length += parser.getTokens()[i].Length();
    }
    Require(length <= text.Length());
    if (parser.getTokens().getCount() < 1000) {
        CheckNames(parser);
    }
    for (int position = -1; position < std::min(text.Length(), 100) + 3; ++position) {
        const bool isInside = position >= 1 && position <= text.Length();
        for (const int next : {parser.ParserArg(text, position), parser.ParserStr(text, position)}) {
            Require(next <= text.Length() + 1 && (!isInside || next > position));
        }
    }
}

} // namespace

/// A command line in UTF-8 and in 16-bit units.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = Fuzz::Bytes(data, size);
    CheckLine(System::FromUtf8(bytes), false);
    CheckLine(Fuzz::WideText(bytes), true);
    return 0;
}
