// SPDX-License-Identifier: MIT
#include "foundation/UTL_LOG_LogStream.h"

#include "foundation/internal/UTL_LOG_Folder.h"
#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/host/Host_Path.h"

#include <fstream>
#include <optional>

using System::AnsiString;
using System::UnicodeString;

namespace UTL
{

namespace
{

/// The state of the log stream; the stream is made on first use.
struct TLogStream
{
    UnicodeString fileName;
    bool on = true;
    bool startLineDue = true;
    std::optional<std::ofstream> stream;
};

TLogStream& LogStream()
{
    static TLogStream log;
    return log;
}

void WriteStartLine(std::ostream& stream)
{
    stream << '\n'
           << AnsiString(Sysutils::DateTimeToStr(Sysutils::Now())) << ' ' << std::string(52, '-')
           << std::endl;
}

} // namespace

void set_log_file(const UnicodeString& name)
{
    LogStream().fileName = name;
}

void set_logging(bool on)
{
    LogStream().on = on;
}

std::ostream* get_log_stream()
{
    TLogStream& log = LogStream();
    if (!log.on) {
        return nullptr;
    }
    if (!log.stream) {
        if (log.fileName.IsEmpty()) {
            log.fileName = Detail::InProgramFolder(u"TRS_Log.txt");
        }
        log.stream.emplace(Sysutils::HostPath(log.fileName), std::ios::out | std::ios::app);
    }
    if (log.startLineDue) {
        WriteStartLine(*log.stream);
        log.startLineDue = false;
    }
    return &*log.stream;
}

} // namespace UTL
