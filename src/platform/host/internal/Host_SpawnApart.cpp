// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_SpawnApart.h"

#include "platform/host/internal/Host_Spawn.h"

#include <cerrno>
#include <thread>
#include <utility>

#include <sys/wait.h>

namespace Host
{

namespace
{

std::future<int> Reap(pid_t process)
{
    std::promise<int> exitCode;
    std::future<int> result = exitCode.get_future();
    std::thread([process, exitCode = std::move(exitCode)]() mutable {
        int status = 0;
        pid_t ended = 0;
        do {
            ended = waitpid(process, &status, 0);
        } while (ended == -1 && errno == EINTR);
        exitCode.set_value(ended == process && WIFEXITED(status) ? WEXITSTATUS(status) : 0);
    }).detach();
    return result;
}

} // namespace

int SpawnApart(const std::string& program, std::vector<std::string> arguments, const std::string& folder,
               std::future<int>& exitCode)
{
    arguments.insert(arguments.begin(), program);
    pid_t process = 0;
    const int error = Spawn({program, std::move(arguments), folder, ESession::Own}, process);
    if (error == 0) {
        exitCode = Reap(process);
    }
    return error;
}

int SpawnHelper(const char* name, std::vector<std::string> arguments, const std::string& folder,
                std::future<int>& exitCode)
{
    const std::string program = FindProgram(name);
    return program.empty() ? errno : SpawnApart(program, std::move(arguments), folder, exitCode);
}

} // namespace Host
