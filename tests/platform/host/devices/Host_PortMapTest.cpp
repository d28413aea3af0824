// SPDX-License-Identifier: MIT
#include "platform/host/devices/Host_PortMap.h"

#include "platform/host/Host_Error.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"
#include "testing/PortSimulator.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace
{

using Host::NamePort;
using Host::PortDevice;
using Host::UnnamePort;

/// A registry of the user that a test writes.
class PortMapTest : public testing::Test
{
protected:
    PortMapTest() { std::filesystem::create_directory(mFolder.Path() / "TRS8_BTL"); }

    std::filesystem::path File() const { return mFolder.Path() / "TRS8_BTL" / "registry"; }

    Support::TempFolder mFolder;

private:
    Support::ScopedVariable mUser{"XDG_CONFIG_HOME", mFolder.Path().c_str()};
};

TEST_F(PortMapTest, TheRegistryNamesADevice)
{
    std::ofstream(File()) << "[Ports]\nCOM121=/dev/null\ncom122=/dev/x y\nCOM300=/dev/z\nCOM123=int:1\n";
    EXPECT_EQ(PortDevice(121), "/dev/null");
    EXPECT_EQ(PortDevice(122), "/dev/x y");
    EXPECT_EQ(PortDevice(123), "/dev/ttyS122");
    EXPECT_EQ(PortDevice(300), "");
    const Support::ScopedVariable other("TRS8_BTL_COM121", "/dev/zero");
    EXPECT_EQ(PortDevice(121), "/dev/zero");
}

TEST_F(PortMapTest, APortIsNamedAndUnnamed)
{
    std::ofstream(File()) << "[Ports]\n; mine\nCOM121=/dev/a\n";
    EXPECT_TRUE(NamePort(122, "/dev/first"));
    EXPECT_EQ(PortDevice(122), "/dev/first");
    EXPECT_TRUE(NamePort(122, "/dev/second"));
    // What somebody else named meanwhile stays.
    UnnamePort(122, "/dev/first");
    EXPECT_EQ(PortDevice(122), "/dev/second");
    EXPECT_TRUE(UnnamePort(122, "/dev/second"));
    EXPECT_EQ(PortDevice(122), "/dev/ttyS121");
    EXPECT_EQ(PortDevice(121), "/dev/a");
    std::ifstream stream(File());
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_NE(text.find("; mine"), std::string::npos) << text;
    for (const int none : {0, -1, 257}) {
        EXPECT_FALSE(NamePort(none, "/dev/a"));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
    EXPECT_FALSE(NamePort(1, ""));
}

TEST_F(PortMapTest, ANameIsNotHandedOnToAnotherPseudoTerminal)
{
    const Testing::CPortSimulator instrument;
    const std::string& device = instrument.getDevice();
    EXPECT_TRUE(NamePort(124, device));
    EXPECT_EQ(PortDevice(124), device);
    std::ofstream(File()) << "[Ports]\nCOM124=" << device << "\nCOM124 made=1.2\nCOM125=" << device << '\n';
    EXPECT_EQ(PortDevice(124), "/dev/ttyS123");
    EXPECT_EQ(PortDevice(125), device);
    EXPECT_TRUE(UnnamePort(124, device));
    std::ifstream stream(File());
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(text.find("124"), std::string::npos) << text;
}

} // namespace
