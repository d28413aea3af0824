// SPDX-License-Identifier: MIT
#include "serial/WIN_Com.h"

#include "platform/host/Host_Error.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "testing/PortSimulator.h"

#include <algorithm>
#include <chrono>
#include <thread>

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
