// SPDX-License-Identifier: MIT
#include "os/WIN_Duration.h"

namespace WIN
{

System::UnicodeString GetDuration(unsigned long milliseconds)
{
    constexpr unsigned long second = 1000;
    constexpr unsigned long minute = 60 * second;
    constexpr unsigned long hour = 60 * minute;
    System::UnicodeString text = System::UnicodeString(milliseconds / hour) + u":" +
                                 System::UnicodeString(milliseconds % hour / minute) + u":" +
                                 System::UnicodeString(milliseconds % minute / second);
    if (milliseconds < second) {
        text += u"." + System::UnicodeString(milliseconds);
    }
    return text;
}

} // namespace WIN
