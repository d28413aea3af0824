// SPDX-License-Identifier: MIT
#include "foundation/UTL_LOG_Log.h"

#include "foundation/internal/UTL_LOG_Folder.h"
#include "platform/host/Host_Path.h"

#include <fstream>

using System::AnsiString;
using System::UnicodeString;

namespace BTL
{

namespace
{

/// The folder is asked for on first use, when it is sure that the units that tell it have started.
UnicodeString& LogFile()
{
    static UnicodeString name = UTL::Detail::InProgramFolder(u"Log.txt");
    return name;
}

} // namespace

void SetLogFile(const UnicodeString& name)
{
    LogFile() = name;
}

void Log(const UnicodeString& text)
{
    if (LogFile().IsEmpty()) {
        return;
    }
    std::ofstream stream(Sysutils::HostPath(LogFile()), std::ios::out | std::ios::app);
    stream << AnsiString(text) << std::endl;
}

} // namespace BTL
