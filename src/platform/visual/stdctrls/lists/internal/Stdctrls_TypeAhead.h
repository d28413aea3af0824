// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Stdctrls
{

/// What the user types to come to an item: letters that follow each other soon are one text, and the same
/// letter again and again leads through the items that begin with it.
class CTypeAhead
{
public:
    bool IsEmpty() const { return mTyped.IsEmpty(); }
    /// The item that is typed now; -1 if none begins so. `current` is the chosen one, `find` gives the first
    /// item from a place on, and round to it, that begins with a text.
    template <class Find>
    int Type(System::WideChar character, unsigned delay, int current, Find find)
    {
        Take(character, delay);
        // A text that grows may stay where it is; a single letter leads on.
        const int found = find(mTyped, mTyped.Length() > 1 ? current : current + 1);
        return found < 0 && IsOneLetter() ? find(System::UnicodeString(character), current + 1) : found;
    }

private:
    /// Begins anew if the last character is at least `delay` milliseconds ago.
    void Take(System::WideChar character, unsigned delay);
    bool IsOneLetter() const;

    System::UnicodeString mTyped;
    std::uint32_t mTypedAt = 0;
};

} // namespace Stdctrls
