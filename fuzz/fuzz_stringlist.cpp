// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes.h"
#include "support/Fuzz.h"

#include <algorithm>
#include <cstdint>

namespace
{

using Classes::TStringList;
using Fuzz::Require;
using System::UnicodeString;

/// What a list writes must read back as the same list, through any of its forms.
void RequireSame(TStringList& list, void (TStringList::*set)(const UnicodeString&),
                 UnicodeString (TStringList::*get)() const)
{
    TStringList copy;
    copy.Assign(&list);
    (copy.*set)((copy.*get)());
    Require(copy.Equals(&list));
}

void CheckForms(TStringList& list)
{
    RequireSame(list, &TStringList::setCommaText, &TStringList::getCommaText);
    // Without quotes, or with one that parts items too, a list can't come back; reading it must still end.
    const System::WideChar quote = list.getQuoteChar();
    if (quote > u' ' && quote != list.getDelimiter()) {
        RequireSame(list, &TStringList::setDelimitedText, &TStringList::getDelimitedText);
    }
    list.getDelimitedText();
}

} // namespace

/// The first three bytes choose the delimiter, the quote and the strictness; the rest is text in 16-bit units
/// and in UTF-8.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 3) {
        return 0;
    }
    Fuzz::Input input(data, size);
    TStringList list;
    list.setDelimiter(input.Take<std::uint8_t>());
    list.setQuoteChar(input.Take<std::uint8_t>());
    list.setStrictDelimiter((input.Take<std::uint8_t>() & 1) != 0);

    for (const UnicodeString& text : {Fuzz::WideText(input.getText()), System::FromUtf8(input.getText())}) {
        list.setCommaText(text);
        CheckForms(list);
        list.setDelimitedText(text);
        CheckForms(list);
        list.setText(text);
        CheckForms(list);
        RequireSame(list, &TStringList::setText, &TStringList::getText);

        TStringList sorted;
        sorted.setSorted(true);
        sorted.AddStrings(&list);
        for (int i = 0; i < list.getCount(); ++i) {
            Require(sorted.IndexOf(list[i]) >= 0);
            Require(list.IndexOf(sorted[std::min(i, sorted.getCount() - 1)]) >= 0);
        }
    }
    TStringList loaded;
    Classes::TBytesStream stream(input.getRest());
    loaded.LoadFromStream(&stream);
    RequireSame(loaded, &TStringList::setText, &TStringList::getText);
    return 0;
}
