// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Version.h"

#include "text/numbers/BTL_NUM_Integers.h"

#include <algorithm>
#include <string_view>

namespace BTL
{

using System::UnicodeString;

bool VersionStrToVersionNos(const UnicodeString& text, unsigned& a, unsigned& b, unsigned& c, unsigned& d)
{
    a = b = c = d = 0;
    const UnicodeString trimmed = text.Trim();
    std::u16string_view rest = trimmed.AsView();
    for (unsigned* number : {&a, &b, &c, &d}) {
        const std::u16string_view piece = rest.substr(0, rest.find(u'.'));
        if (piece.empty()) {
            return true;
        }
        if (!StrToUInt(UnicodeString(piece), *number)) {
            return false;
        }
        rest.remove_prefix(std::min(piece.size() + 1, rest.size()));
    }
    return rest.empty();
}

bool VersionStrToVersionNos(const UnicodeString& text, unsigned& a, unsigned& b, unsigned& c)
{
    unsigned dropped = 0;
    return VersionStrToVersionNos(text, a, b, c, dropped);
}

} // namespace BTL
