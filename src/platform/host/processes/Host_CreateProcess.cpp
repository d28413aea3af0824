// SPDX-License-Identifier: MIT
#include "platform/host/processes/Host_CreateProcess.h"

#include "platform/base/System_String.h"
#include "platform/host/Host_Folder.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_Shell.h"
#include "platform/host/internal/Host_PathCall.h"
#include "platform/host/internal/Host_Spawn.h"
#include "platform/host/processes/Host_ProcessPriority.h"
#include "platform/host/processes/internal/Host_ProcessObject.h"

#include <sys/wait.h>

namespace
{

using System::UnicodeString;

struct TCommand
{
    std::u16string_view program;
    std::u16string_view rest;
};

/// The program's name reaches to the next quote, or to the first blank.
TCommand CutCommand(std::u16string_view command)
{
    const bool isQuoted = command.starts_with(u'"');
    if (isQuoted) {
        command.remove_prefix(1);
    }
    const std::size_t end =
        std::min(isQuoted ? command.find(u'"') : command.find_first_of(u" \t"), command.size());
    return {command.substr(0, end), command.substr(std::min(end + 1, command.size()))};
}

/// The path to the program, absolute; empty with the last error set on a failure.
std::string ProgramFor(const UnicodeString& name)
{
    if (name.IsEmpty()) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return {};
    }
    if (name.AsView().find_first_of(u"\\/:") == std::u16string_view::npos) {
        std::string found = Host::FindProgram(Sysutils::HostPath(name));
        if (found.empty()) {
            Host::FailErrno();
        }
        return found;
    }
    std::string path = Sysutils::HostPath(name);
    if (path.empty() || path.starts_with('/')) {
        return path;
    }
    const std::string current = Sysutils::HostPath(Host::CurrentDirectory());
    return current.empty() ? std::string() : current + '/' + path;
}

bool FailSpawn(int error, const std::string& program)
{
    errno = error;
    return Host::FailPath(program);
}

/// The handles on a program that was just started.
bool TakeChild(pid_t id, PROCESS_INFORMATION* info)
{
    const auto process = Host::CProcessObject::OfChild(id);
    if (process == nullptr) {
        // Out of descriptors: nobody could ever await it.
        kill(id, SIGKILL);
        Host::Uninterrupted([&] { return waitpid(id, nullptr, 0); });
        return false;
    }
    if (info != nullptr) {
        const auto number = static_cast<unsigned long>(id);
        *info = {Host::OpenHandle(process), Host::OpenHandle(process), number, number};
    }
    return true;
}

} // namespace

bool CreateProcessW(const System::WideChar* application, const System::WideChar* command,
                    const SECURITY_ATTRIBUTES* /*process*/, const SECURITY_ATTRIBUTES* /*thread*/,
                    bool inherit, unsigned long flags, const void* environment,
                    const System::WideChar* folder, const STARTUPINFOW* /*start*/, PROCESS_INFORMATION* info)
{
    if (environment != nullptr) {
        return Host::Fail(ERROR_NOT_SUPPORTED);
    }
    const UnicodeString line(command);
    const auto [name, rest] = CutCommand(line.AsView());
    const UnicodeString wanted = application == nullptr ? UnicodeString(name) : UnicodeString(application);
    Host::TSpawn spawn;
    spawn.program = ProgramFor(wanted);
    if (spawn.program.empty()) {
        return false;
    }
    if (folder != nullptr) {
        spawn.folder = Sysutils::HostPath(folder);
        if (!Host::IsFolder(spawn.folder)) {
            return Host::Fail(ERROR_DIRECTORY);
        }
    }
    spawn.arguments.push_back(name.empty() ? spawn.program : System::ToUtf8(name));
    for (const UnicodeString& argument : Host::SplitArguments(UnicodeString(rest))) {
        spawn.arguments.push_back(System::ToUtf8(argument));
    }
    spawn.session = (flags & CREATE_NEW_PROCESS_GROUP) != 0 ? Host::ESession::OwnGroup : Host::ESession::Same;
    spawn.closesFiles = !inherit;
    pid_t id = 0;
    if (const int error = Host::Spawn(spawn, id); error != 0) {
        return FailSpawn(error, spawn.program);
    }
    Host::SetPriorityOfNew(id, flags);
    return TakeChild(id, info);
}
