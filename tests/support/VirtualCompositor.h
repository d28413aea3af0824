// SPDX-License-Identifier: MIT
#pragma once

#include "support/TempFolder.h"

#include <QDir>
#include <QLibraryInfo>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Support
{

/// A Wayland compositor without a monitor, in a folder of its own, for the life of the object.
class VirtualCompositor
{
public:
    VirtualCompositor()
    {
        const QDir parts(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
        if (parts.entryList({QStringLiteral("libqwayland*")}).isEmpty()) {
            return;
        }
        std::filesystem::permissions(Folder(), std::filesystem::perms::owner_all);
        mServer = fork();
        if (mServer == 0) {
            Serve();
        }
        // It serves once its socket is there; a machine without it ends the process.
        while (waitpid(mServer, nullptr, WNOHANG) == 0) {
            if (std::filesystem::exists(Folder() / Display())) {
                return;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        mServer = 0;
    }
    VirtualCompositor(const VirtualCompositor&) = delete;
    VirtualCompositor& operator=(const VirtualCompositor&) = delete;
    ~VirtualCompositor()
    {
        if (mServer > 0) {
            kill(mServer, SIGTERM);
            waitpid(mServer, nullptr, 0);
        }
    }

    /// False if this machine has no such compositor, or no part of Qt that shows windows on it.
    bool IsThere() const noexcept { return mServer > 0; }
    /// What the variable XDG_RUNTIME_DIR says.
    std::filesystem::path Folder() const { return mFolder.Path(); }
    /// What the variable WAYLAND_DISPLAY says.
    static const char* Display() { return "wayland-test"; }
    /// The process of the compositor.
    pid_t Process() const noexcept { return mServer; }

private:
    [[noreturn]] void Serve() const
    {
        setenv("XDG_RUNTIME_DIR", Folder().c_str(), 1);
        const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nothing, STDOUT_FILENO);
        dup2(nothing, STDERR_FILENO);
        execlp("weston", "weston", "--backend=headless-backend.so", "--no-config", "--idle-time=0",
               (std::string("--socket=") + Display()).c_str(), nullptr);
        _exit(127);
    }

    TempFolder mFolder;
    pid_t mServer = 0;
};

} // namespace Support
