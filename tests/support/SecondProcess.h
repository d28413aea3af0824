// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>
#include <stdexcept>
#include <utility>

#include <sys/wait.h>
#include <unistd.h>

namespace Support
{

/// A fork of the test that runs `body`, tells by a byte of its own how far it got, and is killed at the
/// latest with the object.
///
///     SecondProcess other([](int tell) { CMutex mutex(u"a"); SecondProcess::Tell(tell); pause(); });
///     other.Await();                                      // now it has the mutex
class SecondProcess
{
public:
    template <class Body>
    explicit SecondProcess(Body body)
    {
        int ends[2];
        if (pipe(ends) != 0) {
            throw std::runtime_error("No pipe can be made.");
        }
        mProcess = fork();
        if (mProcess == 0) {
            close(ends[0]);
            body(ends[1]);
            _exit(0);
        }
        close(ends[1]);
        mTold = ends[0];
    }
    SecondProcess(const SecondProcess&) = delete;
    SecondProcess& operator=(const SecondProcess&) = delete;
    ~SecondProcess()
    {
        Kill();
        close(mTold);
    }

    /// In the child: lets `Await` go on.
    static void Tell(int tell)
    {
        if (write(tell, "+", 1) != 1) {
            _exit(1);
        }
    }

    /// Whether the child told; false if it ended without.
    bool Await() const
    {
        char byte = 0;
        return read(mTold, &byte, 1) == 1;
    }

    /// Ends the child as a crash does, and gives its status.
    int Kill()
    {
        int status = 0;
        if (mProcess > 0) {
            kill(mProcess, SIGKILL);
            waitpid(std::exchange(mProcess, 0), &status, 0);
        }
        return status;
    }

private:
    pid_t mProcess = 0;
    int mTold = -1;
};

} // namespace Support
