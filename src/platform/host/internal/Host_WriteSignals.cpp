// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_WriteSignals.h"

#include <cerrno>
#include <ctime>

namespace Host
{

namespace
{

sigset_t SignalsOfWrites()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    sigaddset(&signals, SIGXFSZ);
    return signals;
}

} // namespace

WriteSignals::WriteSignals() noexcept
{
    const sigset_t signals = SignalsOfWrites();
    pthread_sigmask(SIG_BLOCK, &signals, &mFormerMask);
    sigemptyset(&mPending);
    // What isn't blocked doesn't wait.
    if (sigismember(&mFormerMask, SIGPIPE) == 1 || sigismember(&mFormerMask, SIGXFSZ) == 1) {
        sigpending(&mPending);
    }
}

WriteSignals::~WriteSignals()
{
    const int error = errno;
    if (error == EPIPE || error == EFBIG) {
        const int signal = error == EPIPE ? SIGPIPE : SIGXFSZ;
        if (sigismember(&mPending, signal) == 0) {
            sigset_t taken;
            sigemptyset(&taken);
            sigaddset(&taken, signal);
            const timespec now{};
            sigtimedwait(&taken, nullptr, &now);
        }
    }
    pthread_sigmask(SIG_SETMASK, &mFormerMask, nullptr);
    errno = error;
}

} // namespace Host
