// SPDX-License-Identifier: MIT
#include "platform/host/devices/Host_Comm.h"

#include "platform/host/Host_Error.h"
#include "platform/host/devices/Host_PortMap.h"
#include "testing/PortSimulator.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include <time.h>

namespace
{

using Testing::CPortSimulator;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// An open port with an instrument behind it.
class CommTest : public testing::Test
{
protected:
    CommTest() : mPort(Open("\\\\.\\COM91")) {}
    ~CommTest() override { CloseHandle(mPort); }

    static HANDLE Open(const char* name)
    {
        return CreateFileA(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    }

    void SetTimeouts(std::uint32_t interval, std::uint32_t multiplier, std::uint32_t constant)
    {
        const COMMTIMEOUTS timeouts{interval, multiplier, constant, 0, 0};
        EXPECT_TRUE(SetCommTimeouts(mPort, &timeouts));
    }

    std::string Read(unsigned long size)
    {
        std::string text(size, '\0');
        unsigned long done = 0;
        EXPECT_TRUE(ReadFile(mPort, text.data(), size, &done, nullptr));
        text.resize(done);
        return text;
    }

    void WaitFor(std::uint32_t count)
    {
        COMSTAT status{};
        while (ClearCommError(mPort, nullptr, &status) && status.cbInQue < count) {
            std::this_thread::yield();
        }
    }

    CPortSimulator mInstrument{91};
    HANDLE mPort;
};

TEST_F(CommTest, FirstTimeOutsWaitForAllBytes)
{
    COMMTIMEOUTS timeouts{1, 1, 1, 1, 1};
    ASSERT_TRUE(GetCommTimeouts(mPort, &timeouts));
    EXPECT_EQ(timeouts.ReadIntervalTimeout + timeouts.ReadTotalTimeoutMultiplier +
                  timeouts.ReadTotalTimeoutConstant + timeouts.WriteTotalTimeoutMultiplier +
                  timeouts.WriteTotalTimeoutConstant,
              0U);
    mInstrument.Send({.bytes = "abcd", .delay = 10, .pace = 20});
    EXPECT_EQ(Read(4), "abcd");
}

TEST_F(CommTest, TotalTimeOutsCountBytes)
{
    for (const auto& [multiplier, constant, size] :
         {std::tuple(0U, 60U, 1UL), {6U, 0U, 10UL}, {3U, 30U, 10UL}}) {
        SetTimeouts(0, multiplier, constant);
        const auto start = Clock::now();
        EXPECT_EQ(Read(size), "");
        EXPECT_GE(Clock::now() - start, milliseconds(60));
    }
}

TEST_F(CommTest, TheIntervalCountsFromAByteOn)
{
    SetTimeouts(40, 0, 0);
    mInstrument.Send({.bytes = "ab", .delay = 100});
    const auto start = Clock::now();
    EXPECT_EQ(Read(10), "ab");
    EXPECT_GE(Clock::now() - start, milliseconds(135));
}

TEST_F(CommTest, ReadsWhatIsThere)
{
    SetTimeouts(MAXDWORD, 0, 0);
    EXPECT_EQ(Read(10), "");
    mInstrument.Send({"abc"});
    WaitFor(3);
    EXPECT_EQ(Read(10), "abc");
    // A first byte is waited for, and no longer than told.
    SetTimeouts(MAXDWORD, MAXDWORD, 50);
    const auto start = Clock::now();
    EXPECT_EQ(Read(10), "");
    EXPECT_GE(Clock::now() - start, milliseconds(50));
    SetTimeouts(MAXDWORD, MAXDWORD, 60'000);
    mInstrument.Send({.bytes = "d", .delay = 20});
    EXPECT_EQ(Read(10), "d");
}

TEST_F(CommTest, WritesTimeOut)
{
    mInstrument.HoldUp(true);
    const COMMTIMEOUTS timeouts{0, 0, 0, 0, 50};
    ASSERT_TRUE(SetCommTimeouts(mPort, &timeouts));
    const std::string bytes(1 << 20, 'x');
    unsigned long done = 0;
    EXPECT_TRUE(WriteFile(mPort, bytes.data(), bytes.size(), &done, nullptr));
    EXPECT_LT(done, bytes.size());
    mInstrument.HoldUp(false);
    EXPECT_TRUE(mInstrument.WaitReceived(done, 5000));
    EXPECT_EQ(mInstrument.TakeReceived().size(), done);
}

TEST_F(CommTest, WaitsWithoutWork)
{
    SetTimeouts(0, 0, 200);
    const auto used = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    };
    const auto before = used();
    Read(1);
    EXPECT_LT(used() - before, milliseconds(20));
}

TEST_F(CommTest, AbortsAWait)
{
    std::jthread other([this] {
        std::this_thread::sleep_for(milliseconds(30));
        EXPECT_TRUE(PurgeComm(mPort, PURGE_RXABORT | PURGE_RXCLEAR));
    });
    char byte = 0;
    unsigned long done = 9;
    EXPECT_FALSE(ReadFile(mPort, &byte, 1, &done, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_OPERATION_ABORTED);
    EXPECT_EQ(done, 0U);
}

TEST_F(CommTest, TellsTheEventOfACharacter)
{
    DCB state{};
    ASSERT_TRUE(GetCommState(mPort, &state));
    state.EvtChar = '\n';
    ASSERT_TRUE(SetCommState(mPort, &state));
    ASSERT_TRUE(SetCommMask(mPort, EV_RXFLAG));
    mInstrument.Send({.bytes = "ab\n", .pace = 20});
    unsigned long events = 0;
    EXPECT_TRUE(WaitCommEvent(mPort, &events, nullptr));
    EXPECT_EQ(events, EV_RXFLAG);
    EXPECT_EQ(Read(3), "ab\n");
    ASSERT_TRUE(SetCommMask(mPort, EV_TXEMPTY));
    unsigned long done = 0;
    ASSERT_TRUE(WriteFile(mPort, "a", 1, &done, nullptr));
    EXPECT_TRUE(WaitCommEvent(mPort, &events, nullptr));
    EXPECT_EQ(events, EV_TXEMPTY);
}

TEST_F(CommTest, OneThreadWaitsForEvents)
{
    ASSERT_TRUE(SetCommMask(mPort, EV_RXFLAG));
    std::jthread waiter([this] {
        unsigned long events = 9;
        EXPECT_TRUE(WaitCommEvent(mPort, &events, nullptr));
        EXPECT_EQ(events, 0U);
    });
    unsigned long events = 9;
    OVERLAPPED look{};
    // Until the other one waits it is only told that there is nothing yet.
    while (!WaitCommEvent(mPort, &events, &look) && GetLastError() == ERROR_IO_PENDING) {
        std::this_thread::yield();
    }
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_TRUE(SetCommMask(mPort, 0));
}

TEST_F(CommTest, APulledPlugEndsAWaitForEvents)
{
    for (const unsigned long mask : {EV_RXCHAR, EV_CTS}) {
        CPortSimulator instrument(92);
        const HANDLE port = Open("COM92");
        ASSERT_TRUE(SetCommMask(port, mask));
        std::jthread puller([&] {
            std::this_thread::sleep_for(milliseconds(30));
            instrument.Unplug();
        });
        unsigned long events = 0;
        EXPECT_FALSE(WaitCommEvent(port, &events, nullptr)) << mask;
        EXPECT_EQ(GetLastError(), ERROR_DEVICE_REMOVED);
        EXPECT_TRUE(CloseHandle(port));
    }
}

TEST_F(CommTest, SetsAnySpeed)
{
    DCB state{};
    ASSERT_TRUE(GetCommState(mPort, &state));
    EXPECT_EQ(state.DCBlength, 28U);
    state.BaudRate = 31'250;
    state.Parity = MARKPARITY;
    EXPECT_TRUE(SetCommState(mPort, &state));
    EXPECT_TRUE(GetCommState(mPort, &state));
    EXPECT_EQ(state.BaudRate, 31'250U);
    for (const auto& [size, parity, stop] :
         {std::tuple(4, 0, 0), {9, 0, 0}, {8, 5, 0}, {8, 0, 1}, {5, 0, 2}}) {
        DCB bad = state;
        bad.ByteSize = static_cast<std::uint8_t>(size);
        bad.Parity = static_cast<std::uint8_t>(parity);
        bad.StopBits = static_cast<std::uint8_t>(stop);
        EXPECT_FALSE(SetCommState(mPort, &bad)) << size << parity << stop;
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
}

TEST_F(CommTest, RefusesWhatMakesNoSense)
{
    for (const char* const name :
         {"\\\\.\\COM0", "\\\\.\\COM257", "COM", "COM01", "COM7x", "/dev/null", ""}) {
        EXPECT_EQ(Open(name), INVALID_HANDLE_VALUE) << name;
        EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    }
    EXPECT_EQ(Open("com91"), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_NE(Host::GetPortRefusal(91).Pos(u"process"), 0);
    EXPECT_NE(Host::GetPortRefusal(255), u"");
    EXPECT_FALSE(GetCommState(mPort, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    DCB state{};
    EXPECT_FALSE(GetCommState(INVALID_HANDLE_VALUE, &state));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    COMMPROP properties{};
    EXPECT_TRUE(GetCommProperties(mPort, &properties));
    EXPECT_EQ(properties.dwServiceMask, 1U);
}

TEST_F(CommTest, TellsDefaults)
{
    COMMCONFIG config{};
    unsigned long size = 51;
    EXPECT_FALSE(GetDefaultCommConfigA("COM91", &config, &size));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(size, 52U);
    EXPECT_TRUE(GetDefaultCommConfigA("COM91", &config, &size));
    EXPECT_EQ(config.dcb.BaudRate, 9600U);
    EXPECT_FALSE(GetDefaultCommConfigA("COM255", &config, &size));
}

} // namespace
