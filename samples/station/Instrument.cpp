// SPDX-License-Identifier: MIT
#include "Instrument.h"

#include "Answer.h"

#include <TRS8_BTL/platform/host/Host_TickCount.h>
#include <TRS8_BTL/platform/host/devices/Host_PortMap.h>
#include <TRS8_BTL/testing/PortSimulator.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <csignal>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace Station
{

namespace
{

using System::UnicodeString;
using Testing::EFault;
using Testing::TReply;

volatile std::sig_atomic_t IsAskedToEnd = 0;

void EndSoon(int)
{
    IsAskedToEnd = 1;
}

/// A device that no instrument like this one is. One that was killed left its name behind, which may be
/// taken.
bool IsSomebodyElse(int port, const std::string& device)
{
    const std::vector<Host::PortInfo> ports = Host::ListPorts();
    return !device.starts_with("/dev/pts/") &&
           std::any_of(ports.begin(), ports.end(),
                       [port](const Host::PortInfo& listed) { return listed.number == port; });
}

/// Makes the device a port for all programs of the user, as long as the object lives.
class CAnnouncement
{
public:
    CAnnouncement(int port, std::string device) : mPort(port), mDevice(std::move(device))
    {
        const std::string former = Host::PortDevice(mPort);
        if (IsSomebodyElse(mPort, former)) {
            throw Sysutils::Exception(getName() + u" is " + System::FromUtf8(former) +
                                      u"; take another port by --serial");
        }
        if (!Host::NamePort(mPort, mDevice)) {
            throw Sysutils::Exception(u"The registry file of the user can't be written");
        }
    }
    CAnnouncement(const CAnnouncement&) = delete;
    CAnnouncement& operator=(const CAnnouncement&) = delete;
    ~CAnnouncement() { Host::UnnamePort(mPort, mDevice); }

    UnicodeString getName() const { return u"COM" + UnicodeString(mPort); }

private:
    const int mPort;
    const std::string mDevice;
};

template <class... Format>
std::string NumberText(double value, Format... format)
{
    std::array<char, 32> buffer;
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...).ptr};
}

/// The values of a turn, which swing a little.
std::string ValuesOf(int turn)
{
    constexpr int period = 5;
    const int swing = turn % period;
    return "U=" + NumberText(-3.5e-2 + swing * 1e-3, std::chars_format::scientific, 1) +
           "V;I=" + NumberText(12.5 + swing * 0.25) + "mA";
}

/// What a faulty instrument does, turn by turn.
TReply FaultyReply(int turn)
{
    // Longer than anybody waits for an answer.
    constexpr unsigned late = 300;
    static const std::array faults = {TReply{},
                                      TReply{},
                                      TReply{.bytes = {}, .delay = late},
                                      TReply{},
                                      TReply{.bytes = {}, .fault = EFault::Cut},
                                      TReply{},
                                      TReply{.bytes = {}, .fault = EFault::Garble},
                                      TReply{},
                                      TReply{.bytes = {}, .fault = EFault::Flood},
                                      TReply{},
                                      TReply{},
                                      TReply{.bytes = {}, .fault = EFault::Unplug}};
    return faults[static_cast<std::size_t>(turn) % faults.size()];
}

/// Answers the requests among `received`, from `turn` on; false once the plug is pulled.
bool Answer(Testing::CPortSimulator& instrument, const std::string& received, bool isFaulty, int& turn)
{
    for (const char byte : received) {
        if (byte != *Request) {
            continue;
        }
        TReply reply = isFaulty ? FaultyReply(turn) : TReply{};
        reply.bytes = MakeAnswer(ValuesOf(turn));
        ++turn;
        instrument.Send(reply);
        if (reply.fault == EFault::Unplug) {
            return false;
        }
    }
    return true;
}

} // namespace

void PlayInstrument(int port, bool isFaulty, std::optional<double> seconds, std::ostream& stream)
{
    using Clock = std::chrono::steady_clock;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(signal, EndSoon);
    }
    Testing::CPortSimulator instrument;
    const CAnnouncement announcement(port, instrument.getDevice());
    stream << announcement.getName() << " is " << instrument.getDevice() << std::endl;
    const auto start = Clock::now();
    const auto isOver = [&] {
        return seconds && Clock::now() - start > std::chrono::duration<double>(*seconds);
    };
    constexpr unsigned patience = 50;
    int turn = 0;
    while (IsAskedToEnd == 0 && !isOver()) {
        instrument.WaitReceived(1, patience);
        if (!Answer(instrument, instrument.TakeReceived(), isFaulty, turn)) {
            // What is left of the answer has its time to arrive.
            Sleep(4 * patience);
            instrument.Unplug();
            stream << announcement.getName() << " is unplugged" << std::endl;
            return;
        }
    }
}

} // namespace Station
