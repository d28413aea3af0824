// SPDX-License-Identifier: MIT
#include "platform/host/devices/internal/Host_DeviceList.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace
{

namespace fs = std::filesystem;

/// A list of the kernel as it looks on a machine with some adapters.
class DeviceListTest : public testing::Test
{
protected:
    void Write(const fs::path& file, const std::string& line)
    {
        fs::create_directories((mFolder.Path() / file).parent_path());
        std::ofstream(mFolder.Path() / file) << line << '\n';
    }

    void AddAdapter(const std::string& name, const std::string& socket, const std::string& number)
    {
        const fs::path device = fs::path("devices/usb1") / socket;
        Write(device / "idVendor", "1a86");
        Write(device / "idProduct", "7523");
        if (!number.empty()) {
            Write(device / "serial", number);
        }
        const fs::path interface = device / (socket + ":1.0");
        Write(interface / "bInterfaceNumber", "00");
        fs::create_directories(mFolder.Path() / interface / name);
        fs::create_directories(mFolder.Path() / "class" / name);
        fs::create_symlink(mFolder.Path() / interface / name, mFolder.Path() / "class" / name / "device");
    }

    std::vector<std::string> List() const
    {
        std::vector<std::string> lines;
        for (const auto& device : Host::ListDevices((mFolder.Path() / "class").string())) {
            lines.push_back(device.name + ' ' + device.adapter);
        }
        return lines;
    }

    Support::TempFolder mFolder;
};

TEST_F(DeviceListTest, ListsHardwareAndAdapters)
{
    Write("class/ttyS0/type", "4");
    Write("class/ttyS1/type", "0");
    Write("class/ttyS10/type", "4");
    Write("class/ttyS2/type", "4");
    Write("class/tty7/dev", "4:7");
    Write("class/ttySomething/type", "4");
    AddAdapter("ttyUSB0", "1-1", "A7");
    AddAdapter("ttyUSB1", "1-2", "A7");
    AddAdapter("ttyACM0", "1-3.1", "");
    EXPECT_EQ(List(),
              (std::vector<std::string>{"ttyS0 ", "ttyS2 ", "ttyS10 ", "ttyACM0 usb:1a86:7523:@1-3.1:00",
                                        "ttyUSB0 usb:1a86:7523:A7:00", "ttyUSB1 usb:1a86:7523:@1-2:00"}));
}

TEST_F(DeviceListTest, NothingIsNoFault)
{
    EXPECT_TRUE(Host::ListDevices((mFolder.Path() / "none").string()).empty());
}

} // namespace
