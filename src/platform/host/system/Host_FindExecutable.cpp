// SPDX-License-Identifier: MIT
#include "platform/host/system/Host_FindExecutable.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_Shell.h"
#include "platform/host/Host_UserFiles.h"
#include "platform/host/internal/Host_ShellFile.h"
#include "platform/host/internal/Host_Spawn.h"
#include "platform/host/system/internal/Host_DesktopEntry.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include <unistd.h>

namespace Host
{

using System::NativeInt;
using System::UnicodeString;

namespace
{

constexpr NativeInt Found = 42;

/// The first line of what the desktop's register of types answers.
std::string AskTypes(const char* question, const std::string& subject)
{
    const std::string program = FindProgram("xdg-mime");
    if (program.empty()) {
        return {};
    }
    const auto answer =
        ReadOutput({program, {program, "query", question, subject}, "/", ESession::Own, true});
    return answer ? answer->substr(0, answer->find('\n')) : std::string();
}

/// The folders in which the desktop looks for applications, the user's own first.
std::vector<std::string> ApplicationFolders()
{
    const char* const own = std::getenv("XDG_DATA_HOME");
    const char* const shared = std::getenv("XDG_DATA_DIRS");
    std::string all =
        own != nullptr && *own == '/' ? own : Sysutils::HostPath(HomeFolder()) + "/.local/share";
    all.append(":").append(shared != nullptr && *shared != 0 ? shared : "/usr/local/share:/usr/share");
    std::vector<std::string> folders;
    for (std::size_t begin = 0; begin < all.size();) {
        const std::size_t end = std::min(all.find(':', begin), all.size());
        if (all[begin] == '/') {
            folders.push_back(all.substr(begin, end - begin) + "/applications/");
        }
        begin = end + 1;
    }
    return folders;
}

/// The content of a desktop file; empty if there is none.
std::string ReadEntry(const std::string& id)
{
    const auto paths = PathsOfEntry(id);
    for (const std::string& folder : ApplicationFolders()) {
        for (const std::string& path : paths) {
            if (std::ifstream stream(folder + path); stream) {
                return {std::istreambuf_iterator<char>(stream), {}};
            }
        }
    }
    return {};
}

/// The full path of the program that opens files of the type; empty if none is there.
std::string ProgramForType(const std::string& type)
{
    if (type.empty() || type.starts_with('-')) {
        return {};
    }
    std::string program = ProgramOfEntry(ReadEntry(AskTypes("default", type)));
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
    const std::string found = IsProgram(path) ? path : ProgramForType(AskTypes("filetype", path));
    if (found.empty()) {
        return SE_ERR_NOASSOC;
    }
    program = Sysutils::FromHostPath(found);
    return Found;
}

} // namespace Host
