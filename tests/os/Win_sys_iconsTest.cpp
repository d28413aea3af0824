// SPDX-License-Identifier: MIT
#include "os/Win_sys_icons.h"

#include "os/WIN_LastError.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_FileIcon.h"
#include "platform/visual/graphics/Graphics_Icon.h"
#include "support/IconFiles.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>

namespace
{

using Graphics::TColor;
using Support::IconFile;
using Support::IconImage;
using System::UnicodeString;

constexpr unsigned Red = 0xFF0000;
constexpr unsigned Green = 0x00FF00;

class IconsTest : public testing::Test
{
protected:
    UnicodeString Write(const char* name, const std::vector<System::Byte>& bytes) const
    {
        const auto path = mFolder.Path() / name;
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return Sysutils::FromHostPath(path.native());
    }

    Support::TempFolder mFolder;
};

/// The sizes of the images that a handle has, which goes with it.
std::pair<int, int> SizeOf(HICON handle, int side)
{
    Graphics::TIcon icon;
    icon.setHandle(handle);
    icon.SetSize(side, side);
    return {icon.getWidth(), icon.getHeight()};
}

TEST_F(IconsTest, AFileHasAnIconOfSeveralSizes)
{
    const UnicodeString file = Write("two.ico", IconFile({IconImage(16, 16, Red), IconImage(32, 32, Green)}));
    EXPECT_EQ(SizeOf(WIN::ExtractIconW(file, 0), 16), std::pair(16, 16));
    EXPECT_EQ(SizeOf(WIN::ExtractIconA(System::AnsiString(file), 0), 32), std::pair(32, 32));
    EXPECT_EQ(SizeOf(WIN::ExtractSmallIcon(file), 32), std::pair(16, 16)) << "it has that one alone";
    EXPECT_EQ(SizeOf(WIN::ExtractSmallIcon(System::AnsiString(file).c_str()), 32), std::pair(16, 16));

    HICON large = nullptr;
    HICON small = nullptr;
    EXPECT_EQ(WIN::ExtractIconExW(file, 0, &large, &small, 5), 1u);
    EXPECT_EQ(SizeOf(large, 16), std::pair(32, 32));
    EXPECT_EQ(SizeOf(small, 16), std::pair(16, 16));
    EXPECT_EQ(WIN::ExtractIconExW(file, -1, &large, &small, 5), 1u);
    EXPECT_EQ(WIN::ExtractIconExW(file, 1, &large, &small, 5), 0u);
    EXPECT_EQ(WIN::ExtractIconExW(file, 0, &large, &small, 0), 0u);

    unsigned short index = 3;
    EXPECT_EQ(SizeOf(WIN::ExtractAssociatedIconW(file, index), 32), std::pair(32, 32));
    EXPECT_EQ(index, 0);
}

TEST_F(IconsTest, APictureOfTheDesktopIsAnIcon)
{
    Support::FileBytes png;
    png.Put32({0x474E5089, 0x0A1A0A0D, 0x0D000000, 0x52444849})
        .Put8({0, 0, 0, 48, 0, 0, 0, 48, 8, 6, 0, 0, 0});
    const UnicodeString file = Write("app.png", png.getBytes());
    EXPECT_EQ(SizeOf(WIN::ExtractIconW(file, 0), 48), std::pair(48, 48));
}

TEST_F(IconsTest, OtherFilesHaveNone)
{
    HICON icon = nullptr;
    for (const auto& [file, error] :
         {std::pair(Write("text.txt", {'t', 'e', 'x', 't'}), ERROR_NOT_FOUND),
          {Write("empty.ico", {}), ERROR_NOT_FOUND},
          {Write("broken.ico", {0, 0, 1, 0, 1, 0, 16, 16, 0}), ERROR_INVALID_DATA},
          {UnicodeString(u"\\nowhere\\x.ico"), ERROR_FILE_NOT_FOUND},
          {UnicodeString(), ERROR_FILE_NOT_FOUND}}) {
        SCOPED_TRACE(System::ToUtf8(file));
        ::SetLastError(0);
        EXPECT_EQ(WIN::ExtractIconW(file, 0), nullptr);
        EXPECT_EQ(::GetLastError(), error);
        EXPECT_EQ(WIN::ExtractSmallIcon(file), nullptr);
        EXPECT_EQ(WIN::ExtractIconExW(file, 0, &icon, nullptr, 1), 0u);
        EXPECT_EQ(icon, nullptr);
    }
    const UnicodeString file = Write("one.ico", IconFile({IconImage(16, 16, Red)}));
    EXPECT_EQ(WIN::ExtractIconW(file, 1), nullptr);
    EXPECT_EQ(::GetLastError(), ERROR_NOT_FOUND);
}

/// A large file is not read for it, and nobody waits for a pipe.
TEST_F(IconsTest, WhatIsNoIconIsSeenByItsBegin)
{
    const auto large = mFolder.Path() / "large.bin";
    std::ofstream(large) << "none";
    std::filesystem::resize_file(large, std::uintmax_t{1} << 36);
    const auto pipe = mFolder.Path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& file : {large.native(), pipe.native(), std::string("/dev/zero")}) {
        SCOPED_TRACE(file);
        ::SetLastError(0);
        EXPECT_EQ(WIN::ExtractSmallIcon(Sysutils::FromHostPath(file)), nullptr);
        EXPECT_EQ(::GetLastError(), ERROR_NOT_FOUND);
    }
}

TEST_F(IconsTest, ASmallIconIsDrawnOnAGround)
{
    const HICON icon = WIN::ExtractSmallIcon(Write("one.ico", IconFile({IconImage(16, 16, Red)})));
    ASSERT_NE(icon, nullptr);
    Graphics::TBitmap bitmap;
    bitmap.SetSize(20, 20);
    WIN::DrawSmalIcon(&bitmap, icon, Graphics::clBlue);
    EXPECT_EQ(bitmap.getCanvas()->getPixels(0, 0), Graphics::clBlue) << "the mask lets the ground through";
    EXPECT_EQ(bitmap.getCanvas()->getPixels(15, 15), TColor(0x0000FF));
    EXPECT_EQ(bitmap.getCanvas()->getPixels(16, 16), Graphics::clWhite);
    EXPECT_EQ(bitmap.getCanvas()->getBrush()->getColor(), Graphics::clBlue);
    ::DestroyIcon(icon);

    EXPECT_THROW(WIN::DrawSmalIcon(&bitmap, nullptr, Graphics::clBlue), WIN::XLastError);
    EXPECT_THROW(WIN::DrawSmalIcon(nullptr, nullptr, Graphics::clBlue), WIN::XLastError);
}

} // namespace
