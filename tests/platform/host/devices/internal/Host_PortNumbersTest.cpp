// SPDX-License-Identifier: MIT
#include "platform/host/devices/internal/Host_PortNumbers.h"

#include <gtest/gtest.h>

namespace
{

using Host::AdapterNumbers;
using Host::ListedDevice;
using Host::NumberPorts;
using Ports = std::map<int, std::string>;

TEST(PortNumbersTest, NumbersDevices)
{
    AdapterNumbers remembered;
    const std::vector<ListedDevice> devices = {
        {"ttyS0", ""}, {"ttyS31", ""}, {"ttyUSB0", "a"}, {"ttyACM0", "b"}};
    EXPECT_EQ(NumberPorts({{40, "/dev/pts/3"}}, devices, remembered), (Ports{{1, "/dev/ttyS0"},
                                                                             {32, "/dev/ttyS31"},
                                                                             {33, "/dev/ttyUSB0"},
                                                                             {34, "/dev/ttyACM0"},
                                                                             {40, "/dev/pts/3"}}));
    EXPECT_EQ(remembered, (AdapterNumbers{{"a", 33}, {"b", 34}}));
}

TEST(PortNumbersTest, AdaptersKeepTheirNumbers)
{
    AdapterNumbers remembered;
    EXPECT_EQ(NumberPorts({}, {{"ttyUSB0", "a"}}, remembered), (Ports{{5, "/dev/ttyUSB0"}}));
    // Another one while the first is away, and the first on another socket.
    EXPECT_EQ(NumberPorts({}, {{"ttyUSB0", "b"}}, remembered), (Ports{{6, "/dev/ttyUSB0"}}));
    EXPECT_EQ(NumberPorts({}, {{"ttyUSB0", "b"}, {"ttyUSB1", "a"}}, remembered),
              (Ports{{5, "/dev/ttyUSB1"}, {6, "/dev/ttyUSB0"}}));
}

TEST(PortNumbersTest, WhatIsNamedOrBuiltInGoesFirst)
{
    AdapterNumbers remembered{{"a", 7}, {"b", 2}};
    EXPECT_EQ(NumberPorts({{7, "/dev/x"}}, {{"ttyS1", ""}, {"ttyUSB0", "a"}, {"ttyUSB1", "b"}}, remembered),
              (Ports{{2, "/dev/ttyS1"}, {5, "/dev/ttyUSB0"}, {6, "/dev/ttyUSB1"}, {7, "/dev/x"}}));
    Ports full;
    for (int i = 1; i <= Host::MaxPort; ++i) {
        full[i] = "/dev/x";
    }
    EXPECT_EQ(NumberPorts(full, {{"ttyUSB0", "c"}, {"ttyS9999", ""}}, remembered), full);
}

} // namespace
