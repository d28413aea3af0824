// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Forms_Accelerator.h"

#include "platform/runtime/sysutils/Sysutils_Text.h"

#include <string>

namespace Forms
{

using System::UnicodeString;

namespace
{

/// The character that the caption marks; 0 for none.
System::WideChar MarkedIn(std::u16string_view caption)
{
    for (std::size_t at = caption.find(u'&'); at < caption.size(); at = caption.find(u'&', at + 2)) {
        const System::WideChar next = at + 1 < caption.size() ? caption[at + 1] : u'\0';
        if (next != u'&') {
            return next;
        }
    }
    return 0;
}

} // namespace

bool IsAccel(System::Word key, const UnicodeString& caption)
{
    const System::WideChar marked = MarkedIn(caption.AsView());
    return marked != 0 && Sysutils::AnsiUpperCase(UnicodeString(marked)) ==
                              Sysutils::AnsiUpperCase(UnicodeString(static_cast<System::WideChar>(key)));
}

UnicodeString WithoutAccel(const UnicodeString& caption)
{
    std::u16string text;
    bool isMarked = false;
    for (const System::WideChar unit : caption.AsView()) {
        isMarked = unit == u'&' && !isMarked;
        if (!isMarked) {
            text += unit;
        }
    }
    return UnicodeString(text);
}

} // namespace Forms
