// SPDX-License-Identifier: MIT
#include "platform/host/system/Host_FindExecutable.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_Shell.h"
#include "platform/host/internal/Host_ShellFile.h"
#include "platform/host/internal/Host_Spawn.h"
#include "platform/host/system/internal/Host_DesktopEntry.h"
#include "platform/host/system/internal/Host_DesktopTypes.h"

#include <unistd.h>

namespace Host
{

using System::NativeInt;
using System::UnicodeString;

namespace
{

constexpr NativeInt Found = 42;

/// The full path of the program that opens files of the type; empty if none is there.
std::string ProgramForType(const std::string& type)
{
    std::string program = ProgramOfEntry(ReadEntryOf(type));
    if (program.find('/') == std::string::npos) {
        return program.empty() ? program : FindProgram(program);
    }
    return program.starts_with('/') && access(program.c_str(), X_OK) == 0 ? program : std::string();
}

} // namespace

NativeInt FindExecutable(const UnicodeString& file, const UnicodeString& folder, UnicodeString& program)
{
    if (file.IsEmpty()) {
        return ERROR_FILE_NOT_FOUND;
    }
    const std::string path =
        AbsolutePath(file, folder.IsEmpty() ? std::string() : Sysutils::HostPath(folder));
    if (path.empty() || !QueryFile(Sysutils::FromHostPath(path))) {
        return static_cast<NativeInt>(GetLastError());
    }
    const std::string found = IsProgram(path) ? path : ProgramForType(TypeOf(path));
    if (found.empty()) {
        return SE_ERR_NOASSOC;
    }
    program = Sysutils::FromHostPath(found);
    return Found;
}

} // namespace Host
