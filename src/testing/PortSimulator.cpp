// SPDX-License-Identifier: MIT
#include "testing/PortSimulator.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace Testing
{

namespace
{

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

constexpr int FloodCount = 1000;

/// Bytes that are due at a time, and whether the instrument vanishes behind them.
struct TDue
{
    Clock::time_point time;
    std::string bytes;
    bool vanishes = false;
    /// How many milliseconds more a program has to read what came before; the host drops it with the device.
    int patience = 500;
};

class CDescriptor
{
public:
    explicit CDescriptor(int descriptor) : mDescriptor(descriptor) {}
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;
    ~CDescriptor() { Close(); }

    int Get() const { return mDescriptor; }
    void Close()
    {
        if (mDescriptor >= 0) {
            ::close(std::exchange(mDescriptor, -1));
        }
    }

private:
    int mDescriptor;
};

int OpenMaster()
{
    const int master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) {
        throw std::runtime_error("The host gives no pseudo-terminal.");
    }
    return master;
}

/// A number that was just given back may come again within the same step of the host's clock. What is kept
/// for a device goes by the time at which it was made, so that is moved on.
void BeNewerThanBefore(const std::string& device)
{
    using TTime = std::pair<time_t, long>;
    static std::mutex mutex;
    static auto& made = *new std::map<std::string, TTime>;
    const auto timeOf = [&device] {
        struct stat status
        {
        };
        stat(device.c_str(), &status);
        return TTime(status.st_ctim.tv_sec, status.st_ctim.tv_nsec);
    };
    const std::lock_guard lock(mutex);
    TTime& last = made[device];
    while (timeOf() == last) {
        std::this_thread::sleep_for(Milliseconds(1));
        // A change of the mode, though to the same one, sets the time.
        if (chmod(device.c_str(), S_IRUSR | S_IWUSR) != 0) {
            break;
        }
    }
    last = timeOf();
}

std::string DeviceOf(int master)
{
    char name[128] = {};
    if (ptsname_r(master, name, sizeof name) != 0) {
        throw std::runtime_error("The pseudo-terminal has no name.");
    }
    BeNewerThanBefore(name);
    return name;
}

/// The end that the program opens, held open so that the instrument outlives the program's own opening. It
/// sends nothing back by itself.
int OpenSlave(const std::string& device)
{
    const int slave = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios line{};
    if (slave < 0 || tcgetattr(slave, &line) != 0) {
        throw std::runtime_error("The pseudo-terminal can't be opened.");
    }
    cfmakeraw(&line);
    cfsetspeed(&line, B9600);
    tcsetattr(slave, TCSANOW, &line);
    return slave;
}

std::string Garbled(std::string bytes)
{
    constexpr std::size_t step = 3;
    constexpr unsigned bits = 0x55;
    for (std::size_t i = step - 1; i < bytes.size(); i += step) {
        bytes[i] = static_cast<char>(static_cast<unsigned char>(bytes[i]) ^ bits);
    }
    return bytes;
}

std::string Repeated(const std::string& bytes)
{
    std::string all;
    for (int i = 0; i < FloodCount; ++i) {
        all += bytes;
    }
    return all;
}

/// The bytes that come in place of the reply's own.
std::string Spoilt(const TReply& reply)
{
    switch (reply.fault) {
    case EFault::Cut:
    case EFault::Unplug:
        return reply.bytes.substr(0, reply.bytes.size() / 2);
    case EFault::Garble:
        return Garbled(reply.bytes);
    case EFault::Flood:
        return Repeated(reply.bytes);
    case EFault::None:
        break;
    }
    return reply.bytes;
}

} // namespace

class CPortSimulator::CImpl
{
public:
    CImpl()
        : mMaster(OpenMaster()),
          mDevice(DeviceOf(mMaster.Get())),
          mSlave(OpenSlave(mDevice)),
          mWake(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
          mThread([this] { Play(); })
    {
    }
    CImpl(const CImpl&) = delete;
    CImpl& operator=(const CImpl&) = delete;
    ~CImpl()
    {
        Change([this] { mEnds = true; });
        mThread.join();
    }

    const std::string& getDevice() const { return mDevice; }

    void On(const std::string& request, std::vector<TReply> replies)
    {
        Change([&] { mScript[request] = {replies.begin(), replies.end()}; });
    }

    void Send(const TReply& reply)
    {
        Change([&] { Plan(reply); });
    }

    std::string TakeReceived()
    {
        const std::lock_guard lock(mMutex);
        return std::exchange(mReceived, {});
    }

    bool WaitReceived(std::size_t count, unsigned milliseconds)
    {
        std::unique_lock lock(mMutex);
        return mCame.wait_for(lock, Milliseconds(milliseconds), [&] { return mReceived.size() >= count; });
    }

    void HoldUp(bool isHeld)
    {
        Change([&] { mIsHeld = isHeld; });
    }

    void Unplug()
    {
        std::unique_lock lock(mMutex);
        mIsUnplugged = true;
        Wake();
        mCame.wait(lock, [&] { return mMaster.Get() < 0; });
    }

private:
    template <class Action>
    void Change(Action action)
    {
        const std::lock_guard lock(mMutex);
        action();
        Wake();
    }

    void Wake() const
    {
        const std::uint64_t one = 1;
        [[maybe_unused]] const ssize_t ignored = ::write(mWake.Get(), &one, sizeof one);
    }

    void Plan(const TReply& reply)
    {
        const std::string bytes = Spoilt(reply);
        Clock::time_point time = Clock::now() + Milliseconds(reply.delay);
        if (!mDue.empty()) {
            time = std::max(time, mDue.back().time);
        }
        const std::size_t piece = reply.pace == 0 ? bytes.size() : 1;
        for (std::size_t i = 0; i < bytes.size(); i += piece) {
            mDue.push_back({.time = time, .bytes = bytes.substr(i, piece)});
            time += Milliseconds(reply.pace);
        }
        if (reply.fault == EFault::Unplug) {
            // The host hands bytes on a little later than they are written.
            mDue.push_back({.time = time + Milliseconds(50), .bytes = {}, .vanishes = true});
        }
    }

    /// Answers all requests that the bytes end.
    void Answer(std::string_view bytes)
    {
        for (const char byte : bytes) {
            mAsked += byte;
            const auto asked = std::ranges::find_if(mScript, [this](const auto& entry) {
                return !entry.first.empty() && mAsked.ends_with(entry.first);
            });
            if (asked == mScript.end() || asked->second.empty()) {
                continue;
            }
            mAsked.clear();
            Plan(asked->second.front());
            if (asked->second.size() > 1) {
                asked->second.pop_front();
            }
        }
        constexpr std::size_t enough = 1 << 16;
        if (mAsked.size() > 2 * enough) {
            mAsked.erase(0, mAsked.size() - enough);
        }
    }

    void Receive()
    {
        char buffer[4096];
        const ssize_t count = ::read(mMaster.Get(), buffer, sizeof buffer);
        if (count <= 0) {
            return;
        }
        const std::string_view bytes(buffer, static_cast<std::size_t>(count));
        mReceived += bytes;
        Answer(bytes);
        mCame.notify_all();
    }

    bool HasUnread() const
    {
        int count = 0;
        return ioctl(mSlave.Get(), FIONREAD, &count) == 0 && count > 0;
    }

    /// Sends what is due, as far as the program takes it.
    void SendDue()
    {
        while (!mDue.empty() && mDue.front().time <= Clock::now()) {
            TDue& due = mDue.front();
            if (due.vanishes && HasUnread() && due.patience-- > 0) {
                due.time = Clock::now() + Milliseconds(1);
                return;
            }
            mIsUnplugged = mIsUnplugged || due.vanishes;
            const ssize_t count =
                due.bytes.empty() ? 0 : ::write(mMaster.Get(), due.bytes.data(), due.bytes.size());
            if (count < 0) {
                return;
            }
            due.bytes.erase(0, static_cast<std::size_t>(count));
            if (!due.bytes.empty()) {
                return;
            }
            mDue.pop_front();
        }
    }

    void Vanish()
    {
        mSlave.Close();
        mMaster.Close();
        mDue.clear();
        mCame.notify_all();
    }

    /// How long nothing is to be sent; -1 for ever.
    int TimeToWait() const
    {
        if (mDue.empty()) {
            return -1;
        }
        const auto left = std::chrono::ceil<Milliseconds>(mDue.front().time - Clock::now());
        return static_cast<int>(std::clamp<long>(left.count(), 0, 1000));
    }

    void Play()
    {
        std::unique_lock lock(mMutex);
        while (!mEnds) {
            const bool isPlugged = mMaster.Get() >= 0;
            const bool isLate = isPlugged && !mDue.empty() && mDue.front().time <= Clock::now();
            const auto events = static_cast<short>((mIsHeld ? 0 : POLLIN) | (isLate ? POLLOUT : 0));
            pollfd waits[] = {{.fd = mMaster.Get(), .events = events, .revents = 0},
                              {.fd = mWake.Get(), .events = POLLIN, .revents = 0}};
            // What is due and isn't taken waits for room.
            const int time = isLate ? -1 : TimeToWait();
            lock.unlock();
            ::poll(waits, std::size(waits), time);
            lock.lock();
            std::uint64_t count = 0;
            [[maybe_unused]] const ssize_t ignored = ::read(mWake.Get(), &count, sizeof count);
            if (!isPlugged) {
                continue;
            }
            if ((waits[0].revents & POLLIN) != 0 && !mIsHeld) {
                Receive();
            }
            SendDue();
            if (mIsUnplugged) {
                Vanish();
            }
        }
    }

    CDescriptor mMaster;
    const std::string mDevice;
    CDescriptor mSlave;
    CDescriptor mWake;
    std::mutex mMutex;
    std::condition_variable mCame;
    std::map<std::string, std::deque<TReply>> mScript;
    std::deque<TDue> mDue;
    std::string mReceived;
    std::string mAsked;
    bool mIsHeld = false;
    bool mIsUnplugged = false;
    bool mEnds = false;
    std::thread mThread;
};

CPortSimulator::CPortSimulator() : mImpl(std::make_unique<CImpl>()) {}

CPortSimulator::CPortSimulator(int port)
    : mImpl(std::make_unique<CImpl>()), mVariable("TRS8_BTL_COM" + std::to_string(port))
{
    setenv(mVariable.c_str(), mImpl->getDevice().c_str(), 1);
}

CPortSimulator::~CPortSimulator()
{
    if (!mVariable.empty()) {
        unsetenv(mVariable.c_str());
    }
}

const std::string& CPortSimulator::getDevice() const
{
    return mImpl->getDevice();
}

void CPortSimulator::On(const std::string& request, std::vector<TReply> replies)
{
    mImpl->On(request, std::move(replies));
}

void CPortSimulator::Send(TReply reply)
{
    mImpl->Send(reply);
}

std::string CPortSimulator::TakeReceived()
{
    return mImpl->TakeReceived();
}

bool CPortSimulator::WaitReceived(std::size_t count, unsigned milliseconds)
{
    return mImpl->WaitReceived(count, milliseconds);
}

void CPortSimulator::HoldUp(bool isHeld)
{
    mImpl->HoldUp(isHeld);
}

void CPortSimulator::Unplug()
{
    mImpl->Unplug();
}

} // namespace Testing
