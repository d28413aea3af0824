// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_Spawn.h"

#include "platform/host/Host_BufferedFiles.h"
#include "platform/host/internal/Host_Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Host
{

namespace
{

struct SpawnActions
{
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;

    SpawnActions()
    {
        posix_spawn_file_actions_init(&files);
        posix_spawnattr_init(&attributes);
    }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;
    ~SpawnActions()
    {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }
};

/// Calls `use` with each entry of a search path.
template <class Use>
void ForEachEntry(std::string_view path, Use use)
{
    for (std::size_t begin = 0; begin <= path.size();) {
        const std::size_t end = std::min(path.find(':', begin), path.size());
        use(path.substr(begin, end - begin));
        begin = end + 1;
    }
}

bool IsRegular(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool LiesIn(std::string_view path, std::string_view folder)
{
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

/// The root of the bundle that this process runs in; empty if there is none or the program is a part of it.
std::string_view BundleToLeave(std::string_view program)
{
    const char* const root = std::getenv("APPDIR");
    std::string_view folder = root == nullptr ? std::string_view() : root;
    while (folder.ends_with('/')) {
        folder.remove_suffix(1);
    }
    return folder.starts_with('/') && !LiesIn(program, folder) ? folder : std::string_view();
}

/// Reads to the end; false if that doesn't come in time.
bool ReadToEnd(int file, std::string& text)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    for (;;) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        pollfd ready{file, POLLIN, 0};
        if (left.count() <= 0 ||
            Uninterrupted([&] { return poll(&ready, 1, static_cast<int>(left.count())); }) <= 0) {
            return false;
        }
        char buffer[4096];
        const ssize_t count = Uninterrupted([&] { return read(file, buffer, sizeof buffer); });
        if (count <= 0) {
            return count == 0;
        }
        text.append(buffer, static_cast<std::size_t>(count));
    }
}

bool IsSearchPath(std::string_view name)
{
    constexpr std::string_view names[] = {"PATH",           "LD_LIBRARY_PATH", "XDG_DATA_DIRS",
                                          "QT_PLUGIN_PATH", "GTK_PATH",        "GIO_MODULE_DIR",
                                          "PYTHONPATH",     "PERLLIB",         "GST_PLUGIN_SYSTEM_PATH"};
    return std::ranges::find(names, name) != std::end(names);
}

/// The variable without the entries that lie in the bundle; empty if none is left.
std::string WithoutBundle(std::string_view variable, std::string_view bundle)
{
    const std::size_t equals = variable.find('=');
    if (equals == std::string_view::npos || !IsSearchPath(variable.substr(0, equals))) {
        return std::string(variable);
    }
    std::string left;
    ForEachEntry(variable.substr(equals + 1), [&](std::string_view entry) {
        if (!LiesIn(entry, bundle)) {
            left.append(left.empty() ? "" : ":").append(entry);
        }
    });
    return left.empty() ? std::string() : std::string(variable.substr(0, equals + 1)) + left;
}

std::vector<std::string> EnvironmentOutside(std::string_view bundle)
{
    std::vector<std::string> variables;
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
        if (std::string text = WithoutBundle(*variable, bundle); !text.empty()) {
            variables.push_back(std::move(text));
        }
    }
    return variables;
}

std::vector<char*> PointersTo(const std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    std::ranges::transform(texts, std::back_inserter(pointers),
                           [](const std::string& text) { return const_cast<char*>(text.c_str()); });
    pointers.push_back(nullptr);
    return pointers;
}

void SetAttributes(posix_spawnattr_t& attributes, ESession session)
{
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigaddset(&signals, SIGPIPE);
    sigaddset(&signals, SIGCHLD);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    int flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
    if (session == ESession::Own) {
        flags |= POSIX_SPAWN_SETSID;
    } else if (session == ESession::OwnGroup) {
        flags |= POSIX_SPAWN_SETPGROUP;
    }
    posix_spawnattr_setflags(&attributes, static_cast<short>(flags));
}

} // namespace

std::string FindProgram(const std::string& name)
{
    const char* const path = std::getenv("PATH");
    std::string found;
    int reason = ENOENT;
    ForEachEntry(path == nullptr ? "/usr/local/bin:/usr/bin:/bin" : path, [&](std::string_view entry) {
        // An entry that isn't absolute, the empty one too, means the current folder.
        if (!found.empty() || !entry.starts_with('/')) {
            return;
        }
        const std::string candidate = std::string(entry) + '/' + name;
        if (!IsRegular(candidate)) {
            return;
        }
        if (access(candidate.c_str(), X_OK) == 0) {
            found = candidate;
        } else {
            reason = EACCES;
        }
    });
    errno = reason;
    return found;
}

int Spawn(const TSpawn& spawn, pid_t& process)
{
    // The program may be meant to read what this one wrote.
    FlushAllBuffers();
    SpawnActions actions;
    SetAttributes(actions.attributes, spawn.session);
    if (spawn.session == ESession::Own) {
        posix_spawn_file_actions_addopen(&actions.files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }
    if (spawn.output >= 0) {
        posix_spawn_file_actions_adddup2(&actions.files, spawn.output, STDOUT_FILENO);
    }
    if (!spawn.folder.empty()) {
        posix_spawn_file_actions_addchdir_np(&actions.files, spawn.folder.c_str());
    }
    if (spawn.closesFiles) {
        posix_spawn_file_actions_addclosefrom_np(&actions.files, STDERR_FILENO + 1);
    }
    const std::vector<char*> arguments = PointersTo(spawn.arguments);
    const std::string_view bundle = BundleToLeave(spawn.program);
    if (bundle.empty()) {
        return posix_spawn(&process, spawn.program.c_str(), &actions.files, &actions.attributes,
                           arguments.data(), environ);
    }
    const std::vector<std::string> variables = EnvironmentOutside(bundle);
    return posix_spawn(&process, spawn.program.c_str(), &actions.files, &actions.attributes, arguments.data(),
                       PointersTo(variables).data());
}

std::optional<std::string> ReadOutput(TSpawn spawn)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return std::nullopt;
    }
    const Descriptor source(ends[0]);
    Descriptor target(ends[1]);
    spawn.output = target.Get();
    pid_t process = 0;
    if (Spawn(spawn, process) != 0) {
        return std::nullopt;
    }
    // This process's own end would keep the pipe open.
    target = Descriptor();
    std::string text;
    const bool isWhole = ReadToEnd(source.Get(), text);
    if (!isWhole) {
        kill(process, SIGKILL);
    }
    int status = 0;
    const pid_t ended = Uninterrupted([&] { return waitpid(process, &status, 0); });
    return isWhole && ended == process && WIFEXITED(status) && WEXITSTATUS(status) == 0
               ? std::optional(std::move(text))
               : std::nullopt;
}

} // namespace Host
