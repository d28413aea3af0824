// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace System::Detail
{

/// Appends `text` in quotes, each quote in it doubled.
template <class S>
void AppendQuoted(S& out, typename S::View text, typename S::CharType quote)
{
    out += quote;
    for (auto mark = text.find(quote); mark != S::View::npos; mark = text.find(quote)) {
        out.Append(text.substr(0, mark + 1));
        out += quote;
        text.remove_prefix(mark + 1);
    }
    out.Append(text);
    out += quote;
}

} // namespace System::Detail
