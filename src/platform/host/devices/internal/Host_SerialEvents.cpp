// SPDX-License-Identifier: MIT
#include "platform/host/devices/internal/Host_DeviceKind.h"
#include "platform/host/devices/internal/Host_SerialPort.h"
#include "platform/host/internal/Host_Deadline.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <sys/ioctl.h>

namespace Host
{

namespace
{

constexpr unsigned long InputEvents = EV_RXCHAR | EV_RXFLAG;
/// Nothing of the host wakes a thread for these and for the input at once.
constexpr unsigned long WatchedEvents = EV_TXEMPTY | EV_CTS | EV_DSR | EV_RLSD | EV_BREAK | EV_ERR | EV_RING;
/// In milliseconds.
constexpr std::uint64_t WatchInterval = 20;

/// Holds a flag for a scope.
class Raised
{
public:
    explicit Raised(bool& flag) : mFlag(flag) { mFlag = true; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;
    ~Raised() { mFlag = false; }

private:
    bool& mFlag;
};

unsigned long LinesOf(int device)
{
    int lines = 0;
    return ioctl(device, TIOCMGET, &lines) == 0 ? static_cast<unsigned long>(lines) : 0;
}

} // namespace

unsigned long SerialPort::GetMask()
{
    const std::lock_guard lock(mEventMutex);
    return mMask;
}

bool SerialPort::SetMask(unsigned long mask)
{
    const SharedDevice device = Device();
    if (device == nullptr) {
        return false;
    }
    {
        const std::lock_guard lock(mEventMutex);
        mMask = mask;
        ++mMaskGeneration;
        mLines = LinesOf(device->Get());
        mEventErrors.Take(device->Get());
    }
    mMaskChanged.Wake();
    return true;
}

bool SerialPort::WaitEvent(unsigned long& events, bool onlyLooks)
{
    events = 0;
    const SharedDevice device = Device();
    if (device == nullptr) {
        return false;
    }
    std::unique_lock lock(mEventMutex);
    const unsigned long mask = mMask;
    const unsigned generation = mMaskGeneration;
    if (mask == 0 || mIsAwaited) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    const Raised awaited(mIsAwaited);
    while (mMaskGeneration == generation) {
        if (!CollectEvents(device, mask, events)) {
            return false;
        }
        events &= mask;
        if (events != 0) {
            return true;
        }
        if (onlyLooks) {
            return Fail(ERROR_IO_PENDING);
        }
        lock.unlock();
        bool isFull = false;
        {
            const std::lock_guard queue(mQueueMutex);
            isFull = mQueue.size() >= InputRoom();
        }
        const bool takesInput = (mask & InputEvents) != 0 && !isFull;
        pollfd waits[] = {
            {.fd = device->Get(), .events = static_cast<short>(takesInput ? POLLIN : 0), .revents = 0},
            {.fd = mMaskChanged.Get(), .events = POLLIN, .revents = 0}};
        const bool isWatched = (mask & WatchedEvents) != 0 || isFull;
        (isWatched ? Deadline::In(WatchInterval) : Deadline()).Poll(waits);
        mMaskChanged.Take();
        if (!takesInput && (waits[0].revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) {
            lock.lock();
            return Lose(device);
        }
        lock.lock();
    }
    return true;
}

std::size_t SerialPort::InputRoom()
{
    // The queue of the host, at least.
    constexpr std::uint32_t least = 4096;
    const std::lock_guard lock(mMutex);
    return std::max(least, mKept->inQueue);
}

/// Takes what came off the device, so that the next byte is an event of its own.
bool SerialPort::Drain(const SharedDevice& device, unsigned long mask, unsigned long& events)
{
    DCB state{};
    if (!GetState(state)) {
        return false;
    }
    const std::lock_guard lock(mQueueMutex);
    std::array<char, 1024> piece;
    while (mQueue.size() < InputRoom()) {
        const std::size_t room = std::min(piece.size(), InputRoom() - mQueue.size());
        const ssize_t count = Uninterrupted([&] { return ::read(device->Get(), piece.data(), room); });
        if (count <= 0) {
            const int reason = count == 0 ? EIO : errno;
            errno = reason;
            // What came before the device went is told first.
            return reason == EAGAIN || events != 0 || FailDevice(device);
        }
        const auto end = piece.begin() + count;
        mQueue.append(piece.begin(), end);
        events |= mask & EV_RXCHAR;
        events |= std::find(piece.begin(), end, state.EvtChar) == end ? 0 : mask & EV_RXFLAG;
        mArrived.Wake();
    }
    return true;
}

unsigned long SerialPort::LineEvents(int device)
{
    const unsigned long lines = LinesOf(device);
    const unsigned long changed = lines ^ mLines;
    mLines = lines;
    unsigned long events = 0;
    events |= (changed & TIOCM_CTS) != 0 ? EV_CTS : 0;
    events |= (changed & TIOCM_DSR) != 0 ? EV_DSR : 0;
    events |= (changed & TIOCM_CAR) != 0 ? EV_RLSD : 0;
    events |= (changed & TIOCM_RNG) != 0 ? EV_RING : 0;
    const unsigned long errors = mEventErrors.Take(device);
    events |= (errors & CE_BREAK) != 0 ? EV_BREAK : 0;
    return (errors & ~CE_BREAK) != 0 ? events | EV_ERR : events;
}

bool SerialPort::CollectEvents(const SharedDevice& device, unsigned long mask, unsigned long& events)
{
    events = 0;
    if ((mask & InputEvents) != 0 && !Drain(device, mask, events)) {
        return false;
    }
    if ((mask & WatchedEvents) == 0) {
        return true;
    }
    events |= LineEvents(device->Get());
    int waiting = 0;
    if (mIsSending && ioctl(device->Get(), TIOCOUTQ, &waiting) == 0 && waiting == 0) {
        mIsSending = false;
        events |= EV_TXEMPTY;
    }
    return true;
}

} // namespace Host
