// SPDX-License-Identifier: MIT
#pragma once

namespace UTL
{

/// The characters of a log.
enum class ELogEncoding
{
    /// Those of the system's code page; others become `?`.
    CodePage,
    /// All, in UTF-8.
    Utf8
};

/// What stands in front of each line of a log.
enum class ELogTime
{
    /// Nothing.
    None,
    /// When the line was written, and a blank: `2022-02-28T12:30:00.250+01:00 `. It is the local time with
    /// its distance from universal time, `Z` for none, so that it can be read beside a clock and yet is one
    /// moment.
    Local
};

/// How the lines of a log look: `{.encoding = ELogEncoding::Utf8, .time = ELogTime::Local}`. With a form
/// other than the usual one threads may log at once: each line is written whole when its end comes, with the
/// time of that, so that the times ascend.
struct TLogForm
{
    ELogEncoding encoding = ELogEncoding::CodePage;
    ELogTime time = ELogTime::None;

    friend constexpr bool operator==(const TLogForm&, const TLogForm&) = default;
};

} // namespace UTL
