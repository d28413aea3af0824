// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

/// What helps a program to test itself: instruments that aren't there, a tick counter near its wrap. A
/// library of its own, `TRS8_BTL::testing`.
namespace Testing
{

/// What an instrument does in place of a plain answer.
enum class EFault
{
    None,
    /// The answer ends behind its first half.
    Cut,
    /// Each third byte of the answer has other bits.
    Garble,
    /// The answer comes over and over, a thousand times.
    Flood,
    /// The instrument vanishes behind the first half of the answer.
    Unplug,
};

/// An answer of an instrument.
struct TReply
{
    std::string bytes;
    /// How long the instrument takes before the first byte, in milliseconds.
    unsigned delay = 0;
    /// How long it takes between two bytes, in milliseconds.
    unsigned pace = 0;
    EFault fault = EFault::None;
};

/// A pseudo-terminal that plays an instrument on a serial port, from a script. Its work is done in a thread
/// of its own.
///
///     Testing::CPortSimulator instrument(7);                      // is COM7 of this process
///     instrument.On("U?\n", {{"U=1.5V\n"}, {.bytes = "U=1.6V\n", .delay = 200}});
///     WIN::CCom port(WIN::Int2Com(7), 0);
///     port.WriteString("U?\n");                                   // "U=1.5V", then "U=1.6V" each time
///     instrument.Unplug();
class CPortSimulator
{
public:
    /// An instrument without a port of its own; another process names `getDevice` as one.
    CPortSimulator();
    /// The instrument is port `COM` + `port` of this process, 1 to 256, by the variable `TRS8_BTL_COMn`, as
    /// long as it lives. To be made before other threads look at the environment. `std::runtime_error` if the
    /// host gives no pseudo-terminal.
    explicit CPortSimulator(int port);
    CPortSimulator(const CPortSimulator&) = delete;
    CPortSimulator& operator=(const CPortSimulator&) = delete;
    ~CPortSimulator();

    /// The path of the device that a program opens; it is none any more once the instrument is unplugged.
    const std::string& getDevice() const;

    /// What the instrument answers when `request` has come, wherever in the stream of bytes: the replies one
    /// after the other, and the last of them from then on. Takes the place of earlier replies to it.
    void On(const std::string& request, std::vector<TReply> replies);
    /// Sends without being asked.
    void Send(TReply reply);
    /// All that the instrument was sent since the last call.
    std::string TakeReceived();
    /// Waits until the instrument was sent `count` bytes since the last `TakeReceived`, at most
    /// `milliseconds`; whether it was.
    bool WaitReceived(std::size_t count, unsigned milliseconds);

    /// The instrument takes no bytes any more, as one that holds up the sender, or takes them again.
    void HoldUp(bool isHeld);
    /// The device vanishes, as if its plug were pulled.
    void Unplug();

private:
    class CImpl;
    std::unique_ptr<CImpl> mImpl;
    std::string mVariable;
};

} // namespace Testing
