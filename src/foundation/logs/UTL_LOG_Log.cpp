// SPDX-License-Identifier: MIT
#include "foundation/logs/UTL_LOG_Log.h"

#include "foundation/logs/internal/UTL_LOG_Folder.h"
#include "foundation/logs/internal/UTL_LOG_Lines.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/host/Host_Path.h"

#include <fstream>
#include <mutex>

using System::UnicodeString;

namespace BTL
{

namespace
{

struct TLineLog
{
    /// The folder is asked for on first use, when it is sure that the units that tell it have started.
    UnicodeString fileName = UTL::Detail::InProgramFolder(u"Log.txt");
    UTL::TLogForm form;
    std::mutex gate;
};

/// Never destroyed: the global objects of a program may log while they end.
TLineLog& LineLog()
{
    static TLineLog& log = *new TLineLog;
    return log;
}

} // namespace

void SetLogFile(const UnicodeString& name)
{
    LineLog().fileName = name;
}

void SetLogForm(const UTL::TLogForm& form)
{
    LineLog().form = form;
}

void Log(const UnicodeString& text)
{
    static_cast<void>(TryLog(text));
}

void Log(const std::exception& fault)
{
    static_cast<void>(TryLog(fault));
}

bool TryLog(const std::exception& fault)
{
    return TryLog(Sysutils::MessageOf(fault));
}

bool TryLog(const UnicodeString& text)
{
    TLineLog& log = LineLog();
    if (log.fileName.IsEmpty()) {
        return true;
    }
    std::string bytes = UTL::Detail::LogBytes(text, log.form.encoding) + '\n';
    const std::lock_guard lock(log.gate);
    std::ofstream stream(Sysutils::HostPath(log.fileName), std::ios::out | std::ios::app);
    stream << UTL::Detail::TakeLogLines(bytes, log.form.time) << std::flush;
    return stream.good();
}

} // namespace BTL
