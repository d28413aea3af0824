// SPDX-License-Identifier: MIT
#include "foundation/logs/internal/UTL_LOG_Lines.h"

#include "platform/base/dates/Sysutils_Chrono.h"
#include "platform/base/dates/Sysutils_IsoDate.h"

#include <cmath>

namespace UTL::Detail
{

using System::AnsiString;
using System::TDateTime;
using System::UnicodeString;

std::string LogBytes(const UnicodeString& text, ELogEncoding encoding)
{
    return encoding == ELogEncoding::Utf8 ? System::ToUtf8(text) : std::string(AnsiString(text).AsView());
}

std::string LogTime()
{
    const auto now = std::chrono::system_clock::now();
    const TDateTime local = Sysutils::ToLocalDateTime(now);
    const double ahead = (local - Sysutils::ToDateTime(now)) * 24 * 60;
    std::string text = System::ToUtf8(Sysutils::DateTimeToIso(local, static_cast<int>(std::lround(ahead))));
    // Whole seconds have no fraction there; here all times are of one width.
    constexpr std::size_t fraction = std::string_view("2022-02-28T12:30:00").size();
    return text[fraction] == '.' ? text : text.insert(fraction, ".000");
}

std::string TakeLogLines(std::string& text, ELogTime time)
{
    const std::size_t end = text.rfind('\n') + 1;
    std::string lines = text.substr(0, end);
    text.erase(0, end);
    if (time == ELogTime::None || lines.empty()) {
        return lines;
    }
    const std::string front = LogTime() + ' ';
    std::string result;
    for (std::string_view rest = lines; !rest.empty();) {
        const std::size_t length = rest.find('\n') + 1;
        result += front;
        result += rest.substr(0, length);
        rest.remove_prefix(length);
    }
    return result;
}

} // namespace UTL::Detail
