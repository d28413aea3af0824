// SPDX-License-Identifier: MIT
#include "platform/host/devices/internal/Host_DeviceKind.h"
#include "platform/host/devices/internal/Host_SerialPort.h"
#include "platform/host/internal/Host_Deadline.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace Host
{

namespace
{

/// When a read ends, by its time-outs.
class ReadTimes
{
public:
    ReadTimes(const COMMTIMEOUTS& timeouts, std::size_t size)
        : mInterval(timeouts.ReadIntervalTimeout),
          mEndsWithFirst(mInterval == MAXDWORD && (timeouts.ReadTotalTimeoutMultiplier == MAXDWORD ||
                                                   (timeouts.ReadTotalTimeoutMultiplier == 0 &&
                                                    timeouts.ReadTotalTimeoutConstant == 0)))
    {
        const std::uint64_t multiplier = timeouts.ReadTotalTimeoutMultiplier == MAXDWORD && mEndsWithFirst
                                             ? 0
                                             : timeouts.ReadTotalTimeoutMultiplier;
        const std::uint64_t total = multiplier * size + timeouts.ReadTotalTimeoutConstant;
        if (total != 0 || mEndsWithFirst) {
            mEnd = Deadline::In(total);
        }
    }

    bool EndsWithFirst() const { return mEndsWithFirst; }
    /// Bytes came: the time between them begins anew.
    void Restart()
    {
        if (mInterval != 0 && mInterval != MAXDWORD) {
            mNext = Deadline::In(mInterval);
        }
    }
    Deadline End() const { return mEnd.Earlier(mNext); }

private:
    std::uint32_t mInterval;
    bool mEndsWithFirst;
    Deadline mEnd;
    Deadline mNext;
};

Deadline WriteEnd(const COMMTIMEOUTS& timeouts, std::size_t size)
{
    const std::uint64_t total =
        std::uint64_t{timeouts.WriteTotalTimeoutMultiplier} * size + timeouts.WriteTotalTimeoutConstant;
    return total == 0 ? Deadline() : Deadline::In(total);
}

} // namespace

/// Bytes that were there, and why there weren't more: 0 for nothing to tell, EAGAIN for none yet.
struct SerialPort::Piece
{
    std::size_t count;
    int hostError;
};

SerialPort::Piece SerialPort::TakeNow(int device, char* buffer, std::size_t size)
{
    const std::lock_guard lock(mQueueMutex);
    std::size_t done = std::min(size, mQueue.size());
    if (done != 0) {
        std::memcpy(buffer, mQueue.data(), done);
        mQueue.erase(0, done);
    }
    while (done < size) {
        const ssize_t count = Uninterrupted([&] { return ::read(device, buffer + done, size - done); });
        if (count <= 0) {
            // A line that was hung up reads as an end.
            return {done, count == 0 ? EIO : errno};
        }
        done += static_cast<std::size_t>(count);
    }
    return {done, 0};
}

bool SerialPort::Read(char* buffer, std::size_t size, std::size_t& done)
{
    done = 0;
    const std::lock_guard reading(mReading);
    const SharedDevice device = Device();
    if (device == nullptr) {
        return false;
    }
    if (RefusesForErrors(device->Get())) {
        return Fail(ERROR_OPERATION_ABORTED);
    }
    mReadAborted.Take();
    ReadTimes times(GetTimeouts(), size);
    for (;;) {
        const Piece piece = TakeNow(device->Get(), buffer + done, size - done);
        done += piece.count;
        if (done == size || (done != 0 && times.EndsWithFirst())) {
            return true;
        }
        if (piece.hostError != EAGAIN) {
            errno = piece.hostError;
            return FailDevice(device);
        }
        if (piece.count != 0) {
            times.Restart();
        }
        if (times.End().IsPast()) {
            return true;
        }
        pollfd waits[] = {{.fd = device->Get(), .events = POLLIN, .revents = 0},
                          {.fd = mReadAborted.Get(), .events = POLLIN, .revents = 0},
                          {.fd = mArrived.Get(), .events = POLLIN, .revents = 0}};
        times.End().Poll(waits);
        mArrived.Take();
        if (mReadAborted.Take()) {
            return Fail(ERROR_OPERATION_ABORTED);
        }
    }
}

bool SerialPort::Write(const char* buffer, std::size_t size, std::size_t& done)
{
    done = 0;
    const std::lock_guard writing(mWriting);
    const SharedDevice device = Device();
    if (device == nullptr) {
        return false;
    }
    if (RefusesForErrors(device->Get())) {
        return Fail(ERROR_OPERATION_ABORTED);
    }
    mWriteAborted.Take();
    {
        const std::lock_guard lock(mEventMutex);
        mIsSending = true;
    }
    const Deadline end = WriteEnd(GetTimeouts(), size);
    while (done < size) {
        const ssize_t count =
            Uninterrupted([&] { return ::write(device->Get(), buffer + done, size - done); });
        if (count > 0) {
            done += static_cast<std::size_t>(count);
            continue;
        }
        if (count < 0 && errno != EAGAIN) {
            return FailDevice(device);
        }
        if (end.IsPast()) {
            return true;
        }
        pollfd waits[] = {{.fd = device->Get(), .events = POLLOUT, .revents = 0},
                          {.fd = mWriteAborted.Get(), .events = POLLIN, .revents = 0}};
        end.Poll(waits);
        if (mWriteAborted.Take()) {
            return Fail(ERROR_OPERATION_ABORTED);
        }
    }
    return true;
}

} // namespace Host
