// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>
#include <stdexcept>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace Support
{

/// An X server without a monitor, on a display that nobody else has, for the life of the object.
class VirtualScreen
{
public:
    VirtualScreen()
    {
        int ends[2];
        if (pipe(ends) != 0) {
            throw std::runtime_error("No pipe can be made.");
        }
        mServer = fork();
        if (mServer == 0) {
            close(ends[0]);
            const std::string descriptor = std::to_string(ends[1]);
            execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", "800x600x24",
                   "-nolisten", "tcp", nullptr);
            _exit(127);
        }
        close(ends[1]);
        // It tells the number that it took, and a line end, once it serves.
        char digit = 0;
        while (read(ends[0], &digit, 1) == 1 && digit != '\n') {
            mNumber += digit;
        }
        close(ends[0]);
        if (mNumber.empty()) {
            waitpid(mServer, nullptr, 0);
            mServer = 0;
        }
    }
    VirtualScreen(const VirtualScreen&) = delete;
    VirtualScreen& operator=(const VirtualScreen&) = delete;
    ~VirtualScreen()
    {
        if (mServer > 0) {
            kill(mServer, SIGTERM);
            waitpid(mServer, nullptr, 0);
        }
    }

    /// False if this machine has no such server.
    bool IsThere() const noexcept { return mServer > 0; }
    /// What the variable DISPLAY says.
    std::string Display() const { return ":" + mNumber; }

    /// The process of the server.
    pid_t Process() const noexcept { return mServer; }

private:
    pid_t mServer = 0;
    std::string mNumber;
};

} // namespace Support
