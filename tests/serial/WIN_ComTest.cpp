// SPDX-License-Identifier: MIT
#include "serial/WIN_Com.h"

#include "platform/host/Host_Error.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "testing/PortSimulator.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <termios.h>
#include <unistd.h>

namespace
{

using System::AnsiString;
using Testing::CPortSimulator;
using Testing::EFault;
using WIN::CCom;
using WIN::CCommTimeouts;
using WIN::EBaud;

constexpr int Number = 77;
const WIN::ECom Port = WIN::Int2Com(Number);

/// A port with an instrument behind it.
class ComTest : public testing::Test
{
protected:
    /// Reads `count` bytes within two seconds.
    static std::string ReadAll(CCom& port, unsigned long count)
    {
        const CCommTimeouts timeouts(0, 0, 2000, 0, 2000);
        EXPECT_TRUE(port.IsParked() || port.SetTimeouts(&timeouts));
        std::string text(count, '\0');
        EXPECT_TRUE(port.Read(text.data(), count)) << port.getLastError();
        text.resize(count);
        return text;
    }

    CPortSimulator mInstrument{Number};
};

TEST_F(ComTest, AsksAndIsAnswered)
{
    mInstrument.On("U?\n", {{"U=1.5V\n"}, {"U=1.6V\n"}});
    CCom port(Port, 0);
    ASSERT_TRUE(port.valid()) << port.getLastError();
    EXPECT_STREQ(port.GetComName(), "COM77");
    EXPECT_TRUE(port.WriteString("U?\n"));
    EXPECT_EQ(ReadAll(port, 7), "U=1.5V\n");
    EXPECT_TRUE(port.WriteString("U?\n"));
    EXPECT_EQ(ReadAll(port, 7), "U=1.6V\n");
    EXPECT_EQ(mInstrument.TakeReceived(), "U?\nU?\n");
    EXPECT_TRUE(port.Exists());
}

TEST_F(ComTest, MovesEveryByteAsItIs)
{
    std::string bytes(256, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(i);
    }
    CCom port(Port, 0);
    ASSERT_TRUE(port.valid());
    mInstrument.Send({bytes});
    EXPECT_EQ(ReadAll(port, 256), bytes);
    EXPECT_TRUE(port.Send(bytes.data(), 256));
    ASSERT_TRUE(mInstrument.WaitReceived(256, 5000));
    EXPECT_EQ(mInstrument.TakeReceived(), bytes);
}

TEST_F(ComTest, TellsATimeOutByAShortTransfer)
{
    CCom port(Port, 0);
    const CCommTimeouts timeouts(0, 0, 50, 0, 0);
    ASSERT_TRUE(port.SetTimeouts(&timeouts));
    mInstrument.Send({"abc"});
    while (port.BytesInInQueue() < 3) {
        std::this_thread::yield();
    }
    char buffer[10];
    unsigned long count = sizeof buffer;
    EXPECT_TRUE(port.Read(buffer, count));
    EXPECT_EQ(count, 3U);
    EXPECT_TRUE(port.IsShortTransfer());
    EXPECT_EQ(port.getLastError(), 0U);
    AnsiString text;
    EXPECT_TRUE(port.ReadString(text, 4));
    EXPECT_EQ(text.Length(), 4);
    // A text of bytes, whatever they are.
    const std::string bytes("\x80\0\xC3\xBC", 4);
    EXPECT_TRUE(port.WriteString(AnsiString(std::string_view(bytes))));
    ASSERT_TRUE(mInstrument.WaitReceived(4, 5000));
    EXPECT_EQ(mInstrument.TakeReceived(), bytes);
    mInstrument.Send({bytes});
    EXPECT_TRUE(port.ReadString(text, 4));
    EXPECT_EQ(text.AsView(), bytes);
}

TEST_F(ComTest, OpensAParkedPortForEachTransfer)
{
    CCom port(Port, EBaud::Baud19200, 0);
    ASSERT_TRUE(port.valid());
    ASSERT_TRUE(port.SetDCB(WIN::EDCB::DtrDisable));
    EXPECT_TRUE(port.Close(true));
    EXPECT_FALSE(port.Close(true));
    EXPECT_TRUE(port.valid());
    EXPECT_EQ(port.getHandle(), INVALID_HANDLE_VALUE);
    const CCommTimeouts timeouts(0, 0, 123, 0, 456);
    EXPECT_FALSE(port.SetTimeouts(&timeouts));
    {
        // Somebody else's turn.
        CCom other(Port, 0);
        EXPECT_TRUE(other.valid());
    }
    EXPECT_TRUE(port.WriteString("a"));
    EXPECT_EQ(port.getHandle(), INVALID_HANDLE_VALUE);
    EXPECT_TRUE(port.IsParked());
    ASSERT_TRUE(mInstrument.WaitReceived(1, 5000));

    ASSERT_TRUE(port.Open());
    COMMTIMEOUTS now{};
    EXPECT_TRUE(port.GetTimeouts(&now));
    EXPECT_EQ(now.ReadTotalTimeoutConstant, 123U);
    WIN::CComValues values;
    EXPECT_TRUE(port.GetValues(values));
    EXPECT_EQ(values.baud, EBaud::Baud19200);
    DCB state{};
    EXPECT_TRUE(port.GetDCB(state));
    EXPECT_EQ(state.fDtrControl, DTR_CONTROL_DISABLE);
}

TEST_F(ComTest, KeepsSettingsOfAClosedPort)
{
    CCom port(Port, EBaud::Baud2400, 0);
    ASSERT_TRUE(port.valid());
    EXPECT_TRUE(port.Close(false));
    EXPECT_FALSE(port.Close(false));
    EXPECT_FALSE(port.valid());
    const WIN::CComValues wanted{EBaud::Baud38400, 2, 1, 2};
    EXPECT_FALSE(port.SetValues(wanted));
    WIN::CComValues values;
    EXPECT_FALSE(port.GetValues(values));
    EXPECT_EQ(values, wanted);
    unsigned long count = 3;
    EXPECT_FALSE(port.Write("abc", count));
    EXPECT_EQ(count, 0U);
    ASSERT_TRUE(port.Open());
    EXPECT_TRUE(port.GetValues(values));
    EXPECT_EQ(values, wanted);
}

TEST_F(ComTest, TellsTheReasonOfEachFailure)
{
    CCom port(Port, 0);
    ASSERT_TRUE(port.valid());
    port.Close(false);
    EXPECT_EQ(port.getLastError(), 0U);
    EXPECT_FALSE(port.Send("a", 1));
    EXPECT_EQ(port.getLastError(), ERROR_INVALID_HANDLE);
    // The reason why it couldn't be opened stays.
    CCom missing(WIN::Int2Com(256), 0);
    AnsiString text;
    EXPECT_FALSE(missing.ReadString(text, 3));
    EXPECT_EQ(text.Length(), 3);
    unsigned long waiting = 0;
    EXPECT_FALSE(missing.BytesInQueues(waiting, waiting));
    EXPECT_EQ(missing.getLastError(), ERROR_FILE_NOT_FOUND);
    ASSERT_TRUE(port.Open());
    EXPECT_FALSE(port.ReadString(text, ~0UL));
    EXPECT_EQ(port.getLastError(), ERROR_NOT_ENOUGH_MEMORY);
    // A refused setting is a failure that leaves the port open; the settings tell when it is forgotten.
    EXPECT_TRUE(port.ClearCommError());
    EXPECT_EQ(port.getLastError(), ERROR_NOT_ENOUGH_MEMORY);
    DCB state{};
    ASSERT_TRUE(port.GetDCB(state));
    state.fAbortOnError = 1;
    state.DCBlength = 0;
    ASSERT_TRUE(port.SetDCB(state));
    EXPECT_TRUE(port.ClearCommError());
    EXPECT_EQ(port.getLastError(), 0U);
    ASSERT_TRUE(port.GetDCB(state));
    EXPECT_EQ(state.DCBlength, 28U);
    EXPECT_TRUE(port.ClearInQueue());
}

TEST_F(ComTest, AnOpenerHoldsAParkedPortAlone)
{
    CCom port(Port, 0);
    ASSERT_TRUE(port.valid());
    {
        const WIN::CComOpener none(nullptr);
        const WIN::CComOpener opener(&port);
    }
    EXPECT_NE(port.getHandle(), INVALID_HANDLE_VALUE);
    port.Close(true);
    {
        const WIN::CComOpener opener(&port);
        EXPECT_NE(port.getHandle(), INVALID_HANDLE_VALUE);
        EXPECT_FALSE(port.IsParked());
        EXPECT_TRUE(port.Send("ab", 2));
        EXPECT_NE(port.getHandle(), INVALID_HANDLE_VALUE);
    }
    EXPECT_EQ(port.getHandle(), INVALID_HANDLE_VALUE);
    EXPECT_TRUE(port.IsParked());
    {
        // Somebody else has it just then: the transfer fails, and the port is parked as before.
        const CCom other(Port, 0);
        EXPECT_FALSE(port.Send("c", 1));
        EXPECT_EQ(port.getLastError(), ERROR_ACCESS_DENIED);
        EXPECT_TRUE(port.IsParked());
    }
    EXPECT_TRUE(port.Send("d", 1));
    port.Close(false);
    {
        const WIN::CComOpener opener(&port);
        EXPECT_FALSE(port.valid());
    }
    ASSERT_TRUE(mInstrument.WaitReceived(3, 5000));
    EXPECT_EQ(mInstrument.TakeReceived(), "abd");
}

TEST_F(ComTest, SettingsReachTheDriver)
{
    CCom port(Port, {EBaud::Baud57600, 2, 1, 2}, 0);
    DCB state{};
    ASSERT_TRUE(port.GetDCB(state));
    EXPECT_EQ(state.BaudRate, 57600U);
    EXPECT_EQ(state.ByteSize, 7);
    EXPECT_EQ(state.StopBits, TWOSTOPBITS);
    for (const auto& [index, parity] : {std::pair(0U, 0), {1U, 2}, {2U, 1}, {3U, 3}}) {
        state.fParity = 1;
        state.EvtChar = 'x';
        ASSERT_TRUE(port.SetDCB(state));
        EXPECT_TRUE(port.SetValues({EBaud::Baud9600, 3, index, 0}));
        DCB now{};
        ASSERT_TRUE(port.GetDCB(now));
        EXPECT_EQ(now.Parity, parity);
        EXPECT_EQ(now.fParity, 0U);
        EXPECT_EQ(now.EvtChar, 'x');
    }
    using WIN::EDCB;
    for (const auto& [change, rts, dtr] : {std::tuple(EDCB::RtsDisable, 0U, 1U),
                                           {EDCB::RtsHandshake, 2U, 1U},
                                           {EDCB::DtrDisable, 2U, 0U},
                                           {EDCB::Nothing, 2U, 0U},
                                           {EDCB::DtrHandshake, 2U, 2U},
                                           {EDCB::RtsEnable, 1U, 2U},
                                           {EDCB::DtrEnable, 1U, 1U}}) {
        ASSERT_TRUE(port.SetDCB(change));
        ASSERT_TRUE(port.GetDCB(state));
        EXPECT_EQ(state.fRtsControl, rts) << static_cast<int>(change);
        EXPECT_EQ(state.fDtrControl, dtr) << static_cast<int>(change);
    }
    // What has no place in the tables is the first of them.
    state.BaudRate = 31'250;
    state.Parity = SPACEPARITY;
    ASSERT_TRUE(port.SetDCB(state));
    WIN::CComValues values;
    EXPECT_TRUE(port.GetValues(values));
    EXPECT_EQ(values, (WIN::CComValues{EBaud::Baud110, 3, 0, 0}));
}

TEST_F(ComTest, LeavesNoDescriptorBehind)
{
    const auto countOpen = [] {
        return std::ranges::distance(std::filesystem::directory_iterator("/proc/self/fd"));
    };
    const auto before = countOpen();
    for (int i = 0; i < 20; ++i) {
        CPortSimulator instrument(Number + 3);
        CCom port(WIN::Int2Com(Number + 3), 0);
        EXPECT_TRUE(port.Create());
        EXPECT_TRUE(port.Init(WIN::Int2Com(Number + 3), EBaud::Baud9600, 0));
        EXPECT_TRUE(port.Open());
        port.Close(true);
        port.Send("a", 1);
        const CCom missing(WIN::Int2Com(256), 0);
        EXPECT_TRUE(port.Open());
        const CCom second(WIN::Int2Com(Number + 3), 0);
        instrument.Unplug();
        EXPECT_FALSE(port.Send("a", 1));
    }
    EXPECT_EQ(countOpen(), before);
}

TEST_F(ComTest, AParkedPortIsSharedByThreads)
{
    constexpr int turns = 50;
    const auto work = [] {
        CCom port(Port, 0);
        port.Close(true);
        for (int sent = 0; sent < turns;) {
            sent += port.Send("x", 1) ? 1 : 0;
        }
    };
    {
        const std::jthread first(work);
        const std::jthread second(work);
    }
    EXPECT_TRUE(mInstrument.WaitReceived(2 * turns, 5000));
    EXPECT_EQ(mInstrument.TakeReceived(), std::string(2 * turns, 'x'));
}

TEST_F(ComTest, PutsTheDeviceBack)
{
    const int device = open(mInstrument.getDevice().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios before{};
    ASSERT_EQ(tcgetattr(device, &before), 0);
    for (const bool parked : {false, true}) {
        {
            CCom port(Port, EBaud::Baud38400, 0);
            ASSERT_TRUE(port.valid());
            port.Close(parked);
            termios meanwhile{};
            ASSERT_EQ(tcgetattr(device, &meanwhile), 0);
            EXPECT_EQ(cfgetospeed(&meanwhile), parked ? B38400 : cfgetospeed(&before));
            EXPECT_FALSE(parked && (meanwhile.c_cflag & HUPCL) != 0);
        }
        termios after{};
        ASSERT_EQ(tcgetattr(device, &after), 0);
        EXPECT_EQ(after.c_cflag, before.c_cflag) << parked;
        EXPECT_EQ(after.c_iflag, before.c_iflag);
        EXPECT_EQ(after.c_lflag, before.c_lflag);
    }
    close(device);
}

TEST_F(ComTest, IsOpenOnce)
{
    const CCom port(Port, 0);
    const CCom second(Port, 0);
    EXPECT_TRUE(port.valid());
    EXPECT_FALSE(second.valid());
    EXPECT_EQ(second.getLastError(), ERROR_ACCESS_DENIED);
    const CCom missing(WIN::Int2Com(256), 0);
    EXPECT_FALSE(missing.valid());
    EXPECT_EQ(missing.getLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(missing.Exists());
}

TEST_F(ComTest, RefusesWhatTheHostCannotDo)
{
    CCom port(Port, 0);
    ASSERT_TRUE(port.valid());
    EXPECT_FALSE(port.SetValues({EBaud::Baud9600, 3, 0, 1}));
    EXPECT_EQ(port.getLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_TRUE(port.SetValues({EBaud::Baud9600, 0, 3, 1}));
    EXPECT_FALSE(port.SetDCB(WIN::EDCB::RtsToggle));
    EXPECT_EQ(port.getLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_TRUE(port.SetDCB(WIN::EDCB::Nothing));
    EXPECT_FALSE(port.SetTimeouts(nullptr));
    EXPECT_FALSE(port.GetTimeouts(nullptr));
    // A pseudo-terminal has no lines.
    EXPECT_FALSE(port.IsCTSOn());
    EXPECT_FALSE(port.SetDTR(false));
    EXPECT_EQ(port.getLastError(), ERROR_INVALID_FUNCTION);
}

TEST_F(ComTest, TellsAPlugThatIsPulled)
{
    for (const bool writes : {false, true}) {
        CPortSimulator instrument(Number + 1);
        CCom port(WIN::Int2Com(Number + 1), 0);
        ASSERT_TRUE(port.valid());
        instrument.HoldUp(true);
        std::jthread puller([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(30));
            instrument.Unplug();
        });
        std::string bytes(1 << 20, 'x');
        unsigned long count = bytes.size();
        // Without time-outs: nothing else ends it.
        EXPECT_FALSE(writes ? port.Write(bytes.data(), count) : port.Read(bytes.data(), count));
        EXPECT_EQ(port.getLastError(), ERROR_DEVICE_REMOVED);
        EXPECT_FALSE(port.Send("a", 1));
        EXPECT_EQ(port.getLastError(), ERROR_DEVICE_REMOVED);
        EXPECT_FALSE(port.Exists());
    }
}

TEST_F(ComTest, GoesOnWithAnInstrumentThatMisbehaves)
{
    mInstrument.On("?", {{.bytes = "12345678", .fault = EFault::Cut},
                         {.bytes = "12345678", .fault = EFault::Garble},
                         {.bytes = "123", .fault = EFault::Flood},
                         {.bytes = "12", .delay = 20, .pace = 20}});
    CCom port(Port, 0);
    const CCommTimeouts timeouts(0, 0, 40, 0, 1000);
    ASSERT_TRUE(port.SetTimeouts(&timeouts));
    char buffer[9] = {};
    unsigned long count = 8;
    EXPECT_TRUE(port.WriteString("?") && port.Read(buffer, count));
    EXPECT_EQ(std::string(buffer, count), "1234");
    count = 8;
    EXPECT_TRUE(port.WriteString("?") && port.Read(buffer, count));
    EXPECT_EQ(std::string(buffer, count), "12f45c78");
    EXPECT_TRUE(port.WriteString("?"));
    EXPECT_EQ(ReadAll(port, 2999).substr(2990), "312312312");
    EXPECT_TRUE(port.ClearInQueue());
    EXPECT_EQ(port.BytesInInQueue(), 0U);
    EXPECT_TRUE(port.WriteString("?"));
    EXPECT_EQ(ReadAll(port, 2).substr(0, 1), "1");
}

TEST_F(ComTest, WaitsForEvents)
{
    CCom port(Port, 0);
    ASSERT_TRUE(port.valid());
    unsigned long mask = 99;
    EXPECT_FALSE(port.WaitEvent(mask));
    EXPECT_EQ(mask, 0U);
    EXPECT_EQ(port.getLastError(), ERROR_INVALID_PARAMETER);
    ASSERT_TRUE(port.SetEvent(EV_RXCHAR));
    mInstrument.Send({.bytes = "ab", .delay = 20});
    EXPECT_TRUE(port.WaitEvent(mask));
    EXPECT_EQ(mask, EV_RXCHAR);
    EXPECT_EQ(ReadAll(port, 2), "ab");
    std::jthread ender([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        EXPECT_TRUE(port.ResetEvent());
    });
    mask = 99;
    EXPECT_TRUE(port.WaitEvent(mask));
    EXPECT_EQ(mask, 0U);
}

TEST_F(ComTest, OverlappedWaitsOnlyLook)
{
    CCom port(Port, FILE_FLAG_OVERLAPPED);
    ASSERT_TRUE(port.SetEvent(EV_RXCHAR));
    unsigned long mask = 0;
    EXPECT_FALSE(port.WaitEvent(mask));
    EXPECT_EQ(port.getLastError(), ERROR_IO_PENDING);
    mInstrument.Send({"a"});
    while (port.BytesInInQueue() == 0) {
        std::this_thread::yield();
    }
    EXPECT_TRUE(port.WaitEvent(mask));
    EXPECT_EQ(mask, EV_RXCHAR);
}

TEST_F(ComTest, ListsWhatIsThere)
{
    WIN::CComNoList list;
    CCom::RefreshExistingPorts(list);
    EXPECT_NE(list.IndexOf(Port), -1);
    {
        const CPortSimulator another(Number + 2);
        CCom::GetExistingPorts(list);
        EXPECT_EQ(list.IndexOf(WIN::Int2Com(Number + 2)), -1);
        CCom::RefreshExistingPorts(list);
        EXPECT_NE(list.IndexOf(WIN::Int2Com(Number + 2)), -1);
    }
    Classes::TStringList names;
    WIN::AddComNamesTo(&names);
    ASSERT_EQ(names.getCount(), 256);
    EXPECT_EQ(names.getStrings(0), u"COM1");
    EXPECT_EQ(names.getStrings(255), u"COM256");
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(names.getObjects(255)), 255U);
}

} // namespace
