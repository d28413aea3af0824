// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/devices/Host_CommTypes.h"
#include "platform/host/devices/internal/Host_KeptSettings.h"
#include "platform/host/devices/internal/Host_LineErrors.h"
#include "platform/host/internal/Host_Wakeup.h"
#include "platform/host/objects/internal/Host_Object.h"

#include <memory>
#include <mutex>
#include <string>

namespace Host
{

/// An open serial port. All calls answer a failure with `false` and the last error. A device that is gone is
/// closed at once, so that its lock and its number are free.
class SerialPort : public AObject
{
public:
    /// Null, with the last error, if the device isn't there or isn't to be had.
    [[nodiscard]] static std::shared_ptr<SerialPort> Open(const std::string& path);

    SerialPort(const std::string& path, Descriptor device);
    /// Sends what is written, unless it is held up, and sets the device as it was before, unless it is
    /// parked.
    ~SerialPort() override;

    bool Read(char* buffer, std::size_t size, std::size_t& done);
    bool Write(const char* buffer, std::size_t size, std::size_t& done);
    bool Purge(unsigned long what);

    bool GetState(DCB& state);
    bool SetState(const DCB& state);
    COMMTIMEOUTS GetTimeouts();
    void SetTimeouts(const COMMTIMEOUTS& timeouts);
    bool GetQueueSizes(std::uint32_t& in, std::uint32_t& out);
    bool SetQueueSizes(std::uint32_t in, std::uint32_t out);
    bool ClearError(unsigned long& errors, COMSTAT& status);

    bool SwitchLine(unsigned long function);
    bool GetLines(unsigned long& status);

    unsigned long GetMask();
    bool SetMask(unsigned long mask);
    bool WaitEvent(unsigned long& events, bool onlyLooks);

    void Park();

private:
    using SharedDevice = std::shared_ptr<const Descriptor>;
    struct Piece;

    bool Begin();
    bool TakeOver(int device, const DCB& state);
    /// Null, with the last error, once the device is gone.
    SharedDevice Device();
    /// `FailErrno`, after the device is given up if `errno` tells that it is gone.
    bool FailDevice(const SharedDevice& device);
    bool Lose(const SharedDevice& device);
    bool RefusesForErrors(int device);

    /// How many bytes a wait for events may take from the device.
    std::size_t InputRoom();
    Piece TakeNow(int device, char* buffer, std::size_t size);
    bool Drain(const SharedDevice& device, unsigned long mask, unsigned long& events);
    bool CollectEvents(const SharedDevice& device, unsigned long mask, unsigned long& events);
    unsigned long LineEvents(int device);

    const std::string mPath;
    std::mutex mMutex; // guards the device, the settings and the errors
    SharedDevice mDevice;
    std::shared_ptr<KeptSettings> mKept;
    LineSettings mFormer;
    LineErrors mErrors;
    bool mIsParked = false;

    std::mutex mReading, mWriting; // one transfer in each direction at a time
    Wakeup mReadAborted, mWriteAborted, mArrived, mMaskChanged;

    std::mutex mQueueMutex; // guards what a wait for events took from the device
    std::string mQueue;

    std::mutex mEventMutex; // guards what follows
    unsigned long mMask = 0;
    unsigned mMaskGeneration = 0;
    bool mIsAwaited = false; // a second wait could miss what wakes the first
    unsigned long mLines = 0;
    LineErrors mEventErrors;
    bool mIsSending = false;
};

} // namespace Host
