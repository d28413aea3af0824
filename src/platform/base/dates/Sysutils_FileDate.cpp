// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_FileDate.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/base/dates/internal/Sysutils_DateFields.h"
#include "platform/base/dates/internal/Sysutils_DateParts.h"

#include <optional>

namespace Sysutils
{

using System::TDateTime;
using System::Word;

namespace
{

constexpr int FirstFileYear = 1980;
constexpr int LastFileYear = FirstFileYear + 127;
constexpr unsigned FirstFileDate = 1U << 21 | 1U << 16;
constexpr unsigned LastFileDate = 127U << 25 | 12U << 21 | 31U << 16 | 23U << 11 | 59U << 5 | 29U;

} // namespace

namespace Detail
{
std::optional<TDateTime> UnpackFileDate(int fileDate)
{
    const auto bits = [fileDate](int shift, unsigned count) {
        return static_cast<Word>(static_cast<unsigned>(fileDate) >> shift & ((1U << count) - 1));
    };
    TDateTime date;
    TDateTime time;
    if (!TryEncodeDate(static_cast<Word>(FirstFileYear + bits(25, 7)), bits(21, 4), bits(16, 5), date) ||
        !TryEncodeTime(bits(11, 5), bits(5, 6), static_cast<Word>(bits(0, 5) * 2), 0, time)) {
        return std::nullopt;
    }
    return JoinDayAndTime(date, time);
}

} // namespace Detail

int DateTimeToFileDate(const TDateTime& value)
{
    const Detail::TDateFields fields = Detail::FieldsOf(value);
    if (fields.year > LastFileYear || (fields.year == 0 && value > 0)) {
        return static_cast<int>(LastFileDate);
    }
    if (fields.year < FirstFileYear) {
        return static_cast<int>(FirstFileDate);
    }
    const auto bits = [](int part, int shift) { return static_cast<unsigned>(part) << shift; };
    return static_cast<int>(bits(fields.year - FirstFileYear, 25) | bits(fields.month, 21) |
                            bits(fields.day, 16) | bits(fields.hour, 11) | bits(fields.minute, 5) |
                            bits(fields.second / 2, 0));
}

TDateTime FileDateToDateTime(int fileDate)
{
    if (const auto value = Detail::UnpackFileDate(fileDate)) {
        return *value;
    }
    throw EConvertError(u"'" + System::UnicodeString(fileDate) + u"' is no date of a file");
}

} // namespace Sysutils
