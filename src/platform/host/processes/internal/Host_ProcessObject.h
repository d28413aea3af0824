// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/objects/internal/Host_Object.h"

#include <memory>
#include <mutex>
#include <optional>

#include <sys/types.h>

namespace Host
{

/// A process as the host's handle on it tells, so that a number that another process gets later does no harm.
/// All handles on a process share one.
class CProcessObject : public AObject
{
public:
    /// A child that was just started; it is awaited here and nowhere else. Null on a failure.
    static std::shared_ptr<CProcessObject> OfChild(pid_t id);
    /// The process of this number; null, with the last error 87, if there is none.
    static std::shared_ptr<CProcessObject> Open(pid_t id);

    CProcessObject(pid_t id, Descriptor process, bool isChild)
        : mId(id), mProcess(std::move(process)), mIsChild(isChild)
    {
    }
    /// A child that runs on is awaited in the background.
    ~CProcessObject() override;

    unsigned long Wait(unsigned long milliseconds) override;

    pid_t getId() const noexcept { return mId; }
    bool IsRunning() const noexcept;

    /// False, with the last error 5, if the host doesn't tell: the process is no child.
    bool GetExitCode(unsigned long& code);
    bool Terminate(unsigned code);

private:
    /// Takes the exit code of a child that ended.
    void Reap();

    const pid_t mId;
    Descriptor mProcess;
    std::mutex mGate;
    bool mIsChild;
    std::optional<unsigned long> mExitCode;
    /// What was asked for when the process was killed from here.
    std::optional<unsigned> mAskedCode;
};

/// The process behind a handle, or this one for that of `GetCurrentProcess`.
std::shared_ptr<CProcessObject> ProcessOf(HANDLE handle);

} // namespace Host
