// SPDX-License-Identifier: MIT
#include "platform/host/devices/internal/Host_SerialPort.h"

#include "platform/host/devices/internal/Host_DeviceKind.h"
#include "platform/host/internal/Host_Deadline.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>

namespace Host
{

namespace
{

/// The number for a device that can't be opened.
unsigned long OpenError(int hostError)
{
    switch (hostError) {
    case EBUSY:
    case EACCES:
    case EPERM:
        return ERROR_ACCESS_DENIED;
    case EIO:
    case ENODEV:
    case ENXIO:
    case ENOENT:
    case ENOTDIR:
    case ENOTTY:
        return ERROR_FILE_NOT_FOUND;
    default:
        return ErrorFromErrno(hostError);
    }
}

int CountOf(int device, unsigned long request)
{
    int count = 0;
    return ioctl(device, request, &count) == 0 ? std::max(count, 0) : 0;
}

/// Waits until all is sent, as long as that can take. What is held up is dropped: the host itself would wait
/// half a minute for it when the device is closed.
void FinishSending(int device, std::uint32_t speed)
{
    constexpr std::uint64_t bits = 15'000;
    constexpr std::uint64_t patience = 200;
    const int waiting = CountOf(device, TIOCOUTQ);
    const auto time = static_cast<std::uint64_t>(waiting) * bits / std::max(speed, 1U);
    const Deadline deadline = Deadline::In(time + patience);
    while (CountOf(device, TIOCOUTQ) > 0) {
        if (deadline.IsPast()) {
            tcflush(device, TCOFLUSH);
            return;
        }
        pollfd none[] = {{.fd = -1, .events = 0, .revents = 0}};
        constexpr std::uint64_t step = 2;
        Deadline::In(step).Poll(none);
    }
}

void SwitchLines(int device, int lines, bool isOn)
{
    // A device without lines has nothing to switch.
    ioctl(device, isOn ? TIOCMBIS : TIOCMBIC, &lines);
}

void SwitchLines(int device, const DCB& state)
{
    SwitchLines(device, TIOCM_DTR, state.fDtrControl != DTR_CONTROL_DISABLE);
    if (state.fRtsControl != RTS_CONTROL_HANDSHAKE) {
        SwitchLines(device, TIOCM_RTS, state.fRtsControl != RTS_CONTROL_DISABLE);
    }
}

} // namespace

std::shared_ptr<SerialPort> SerialPort::Open(const std::string& path)
{
    // Without blocking: a line that isn't there would keep the call waiting.
    Descriptor device(
        Uninterrupted([&] { return open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC); }));
    if (!device.IsOpen()) {
        Fail(OpenError(errno));
        return nullptr;
    }
    // The lock holds off those who may open what is exclusive, and all who open by this library.
    if (flock(device.Get(), LOCK_EX | LOCK_NB) != 0) {
        Fail(ERROR_ACCESS_DENIED);
        return nullptr;
    }
    auto port = std::make_shared<SerialPort>(path, std::move(device));
    return port->Begin() ? port : nullptr;
}

SerialPort::SerialPort(const std::string& path, Descriptor device)
    : mPath(path), mDevice(std::make_shared<Descriptor>(std::move(device)))
{
}

bool SerialPort::Begin()
{
    const int device = mDevice->Get();
    // From here on the destructor sets the device back.
    if (LineSettings former; former.Read(device)) {
        mFormer = former;
    } else {
        const unsigned long reason = OpenError(errno);
        mDevice = nullptr;
        return Fail(reason);
    }
    ioctl(device, TIOCEXCL);
    mKept = KeptSettingsOf(mPath);
    {
        // Also for what the last holder left, which the host's lock alone keeps apart.
        const std::lock_guard lock(mKept->mutex);
        if (mKept->former) {
            mFormer = *std::exchange(mKept->former, std::nullopt);
        }
    }
    const DCB state = mKept->state.value_or(mFormer.State());
    // First of all: opening raised them.
    if (state.fDtrControl == DTR_CONTROL_DISABLE || state.fRtsControl == RTS_CONTROL_DISABLE) {
        SwitchLines(device, state);
    }
    mErrors.Take(device);
    if (!mReadAborted.IsOpen() || !mWriteAborted.IsOpen() || !mArrived.IsOpen() || !mMaskChanged.IsOpen()) {
        return Fail(ERROR_TOO_MANY_OPEN_FILES);
    }
    return TakeOver(device, state);
}

SerialPort::~SerialPort()
{
    if (mDevice == nullptr) {
        return;
    }
    const int device = mDevice->Get();
    FinishSending(device, mKept != nullptr && mKept->state ? mKept->state->BaudRate : 1);
    if (!mIsParked || mKept == nullptr) {
        [[maybe_unused]] const bool isGone = !mFormer.Write(device);
    }
    if (mKept != nullptr) {
        const std::lock_guard lock(mKept->mutex);
        mKept->former = mIsParked ? std::optional(mFormer) : std::nullopt;
    }
    ioctl(device, TIOCNXCL);
}

void SerialPort::Park()
{
    const std::lock_guard lock(mMutex);
    mIsParked = true;
}

SerialPort::SharedDevice SerialPort::Device()
{
    const std::lock_guard lock(mMutex);
    if (mDevice == nullptr) {
        Fail(ERROR_DEVICE_REMOVED);
    }
    return mDevice;
}

bool SerialPort::Lose(const SharedDevice& device)
{
    flock(device->Get(), LOCK_UN);
    ioctl(device->Get(), TIOCNXCL);
    {
        const std::lock_guard lock(mMutex);
        mDevice = nullptr;
    }
    return Fail(ERROR_DEVICE_REMOVED);
}

bool SerialPort::FailDevice(const SharedDevice& device)
{
    return TellsLoss(errno) ? Lose(device) : FailErrno();
}

/// Sets the device to `state`, or leaves it as it is.
bool SerialPort::TakeOver(int device, const DCB& state)
{
    LineSettings before;
    if (!before.Read(device)) {
        return FailErrno();
    }
    LineSettings line = before;
    line.Take(state);
    if (!line.Write(device) || !line.Read(device)) {
        return FailErrno();
    }
    if (!line.HasTaken(state, IsPseudoTerminal(device))) {
        [[maybe_unused]] const bool isGone = !before.Write(device);
        return Fail(ERROR_INVALID_PARAMETER);
    }
    mKept->state = state;
    return true;
}

bool SerialPort::GetState(DCB& state)
{
    if (Device() == nullptr) {
        return false;
    }
    const std::lock_guard lock(mMutex);
    state = *mKept->state;
    return true;
}

bool SerialPort::SetState(const DCB& state)
{
    const SharedDevice device = Device();
    if (device == nullptr) {
        return false;
    }
    if (!IsPossible(state)) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    DCB kept = state;
    kept.DCBlength = sizeof kept;
    bool isTaken = false;
    bool isOtherLines = false;
    {
        const std::lock_guard lock(mMutex);
        isOtherLines =
            mKept->state->fDtrControl != kept.fDtrControl || mKept->state->fRtsControl != kept.fRtsControl;
        isTaken = TakeOver(device->Get(), kept);
    }
    if (!isTaken) {
        return TellsLoss(errno) && GetLastError() != ERROR_INVALID_PARAMETER ? Lose(device) : false;
    }
    if (isOtherLines) {
        SwitchLines(device->Get(), kept);
    }
    return true;
}

COMMTIMEOUTS SerialPort::GetTimeouts()
{
    const std::lock_guard lock(mMutex);
    return mKept->timeouts;
}

void SerialPort::SetTimeouts(const COMMTIMEOUTS& timeouts)
{
    const std::lock_guard lock(mMutex);
    mKept->timeouts = timeouts;
}

bool SerialPort::GetQueueSizes(std::uint32_t& in, std::uint32_t& out)
{
    if (Device() == nullptr) {
        return false;
    }
    const std::lock_guard lock(mMutex);
    in = mKept->inQueue;
    out = mKept->outQueue;
    return true;
}

bool SerialPort::SetQueueSizes(std::uint32_t in, std::uint32_t out)
{
    if (Device() == nullptr) {
        return false;
    }
    const std::lock_guard lock(mMutex);
    mKept->inQueue = in;
    mKept->outQueue = out;
    return true;
}

bool SerialPort::ClearError(unsigned long& errors, COMSTAT& status)
{
    const SharedDevice device = Device();
    if (device == nullptr) {
        return false;
    }
    int waiting = 0;
    if (ioctl(device->Get(), FIONREAD, &waiting) != 0) {
        return FailDevice(device);
    }
    status = {};
    {
        const std::lock_guard lock(mQueueMutex);
        status.cbInQue = static_cast<std::uint32_t>(mQueue.size()) + static_cast<std::uint32_t>(waiting);
    }
    status.cbOutQue = static_cast<std::uint32_t>(CountOf(device->Get(), TIOCOUTQ));
    int lines = 0;
    const bool hasLines = ioctl(device->Get(), TIOCMGET, &lines) == 0;
    const std::lock_guard lock(mMutex);
    const bool isHeld = hasLines && (lines & TIOCM_CTS) == 0 && mKept->state->fOutxCtsFlow != 0;
    status.fCtsHold = isHeld ? 1 : 0;
    errors = mErrors.Take(device->Get());
    return true;
}

bool SerialPort::RefusesForErrors(int device)
{
    const std::lock_guard lock(mMutex);
    return mKept->state->fAbortOnError != 0 && mErrors.Since(device) != 0;
}

bool SerialPort::Purge(unsigned long what)
{
    const SharedDevice device = Device();
    if (device == nullptr) {
        return false;
    }
    if ((what & PURGE_RXABORT) != 0) {
        mReadAborted.Wake();
    }
    if ((what & PURGE_TXABORT) != 0) {
        mWriteAborted.Wake();
    }
    if ((what & PURGE_TXCLEAR) != 0 && tcflush(device->Get(), TCOFLUSH) != 0) {
        return FailDevice(device);
    }
    if ((what & PURGE_RXCLEAR) == 0) {
        return true;
    }
    const std::lock_guard lock(mQueueMutex);
    mQueue.clear();
    return tcflush(device->Get(), TCIFLUSH) == 0 || FailDevice(device);
}

bool SerialPort::SwitchLine(unsigned long function)
{
    const SharedDevice device = Device();
    if (device == nullptr) {
        return false;
    }
    const auto line = [&](int lines, bool isOn) {
        return ioctl(device->Get(), isOn ? TIOCMBIS : TIOCMBIC, &lines) == 0;
    };
    bool isDone = false;
    switch (function) {
    case SETXOFF:
        isDone = tcflow(device->Get(), TCOOFF) == 0;
        break;
    case SETXON:
        isDone = tcflow(device->Get(), TCOON) == 0;
        break;
    case SETRTS:
    case CLRRTS:
        isDone = line(TIOCM_RTS, function == SETRTS);
        break;
    case SETDTR:
    case CLRDTR:
        isDone = line(TIOCM_DTR, function == SETDTR);
        break;
    case SETBREAK:
    case CLRBREAK:
        isDone = ioctl(device->Get(), function == SETBREAK ? TIOCSBRK : TIOCCBRK) == 0;
        break;
    default:
        return Fail(ERROR_INVALID_PARAMETER);
    }
    if (!isDone) {
        // The host has two words for a device without lines.
        return errno == EINVAL ? Fail(ERROR_INVALID_FUNCTION) : FailDevice(device);
    }
    const std::lock_guard lock(mMutex);
    DCB& state = *mKept->state;
    // A line that is asked off stays so when the device is opened again.
    if (function == SETDTR || function == CLRDTR) {
        state.fDtrControl = (function == SETDTR ? DTR_CONTROL_ENABLE : DTR_CONTROL_DISABLE) & 3U;
    } else if ((function == SETRTS || function == CLRRTS) && state.fRtsControl != RTS_CONTROL_HANDSHAKE) {
        state.fRtsControl = (function == SETRTS ? RTS_CONTROL_ENABLE : RTS_CONTROL_DISABLE) & 3U;
    }
    return true;
}

bool SerialPort::GetLines(unsigned long& status)
{
    const SharedDevice device = Device();
    if (device == nullptr) {
        return false;
    }
    int lines = 0;
    if (ioctl(device->Get(), TIOCMGET, &lines) != 0) {
        return errno == EINVAL ? Fail(ERROR_INVALID_FUNCTION) : FailDevice(device);
    }
    status = 0;
    status |= (lines & TIOCM_CTS) != 0 ? MS_CTS_ON : 0;
    status |= (lines & TIOCM_DSR) != 0 ? MS_DSR_ON : 0;
    status |= (lines & TIOCM_RNG) != 0 ? MS_RING_ON : 0;
    status |= (lines & TIOCM_CAR) != 0 ? MS_RLSD_ON : 0;
    return true;
}

} // namespace Host
