// SPDX-License-Identifier: MIT
#include "testing/PortSimulator.h"

#include "platform/host/Host_TickCount.h"
#include "testing/TickCount.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace
{

TEST(PortSimulatorTest, NamesItsDevice)
{
    {
        const Testing::CPortSimulator instrument(250);
        EXPECT_EQ(std::getenv("TRS8_BTL_COM250"), instrument.getDevice());
        EXPECT_EQ(access(instrument.getDevice().c_str(), R_OK | W_OK), 0);
    }
    EXPECT_EQ(std::getenv("TRS8_BTL_COM250"), nullptr);
}

TEST(PortSimulatorTest, AnswersRequestsWhereverTheyStand)
{
    Testing::CPortSimulator instrument;
    instrument.On("A?", {{"1"}, {"2"}});
    instrument.On("B?", {{.bytes = "3456", .fault = Testing::EFault::Unplug}});
    const int device = open(instrument.getDevice().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_EQ(write(device, "xA?A", 4), 4);
    ASSERT_EQ(write(device, "?A?B?", 5), 5);
    std::string text;
    char byte = 0;
    while (read(device, &byte, 1) == 1) {
        text += byte;
    }
    close(device);
    EXPECT_EQ(text, "12234");
    EXPECT_TRUE(instrument.WaitReceived(9, 1000));
    EXPECT_EQ(instrument.TakeReceived(), "xA?A?A?B?");
    EXPECT_FALSE(instrument.WaitReceived(1, 10));
}

TEST(PortSimulatorTest, PutsTheCounterAnywhere)
{
    Testing::SetTickCount(0xFFFFFFFF - 5);
    const std::uint32_t start = GetTickCount();
    Sleep(20);
    EXPECT_LT(GetTickCount(), start);
}

} // namespace
