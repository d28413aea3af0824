// SPDX-License-Identifier: MIT
#include "platform/toolkit/PictureCodecs.h"

#include "platform/visual/graphics/Graphics.h"
#include "support/ChildProgram.h"
#include "support/PictureFiles.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <system_error>

namespace
{

using Toolkits::EPictureType;
using Toolkits::Pixels;

/// Knows one picture, for every type.
struct OwnCodecs final : Toolkits::PictureCodecs
{
    Pixels Decode(EPictureType, std::span<const System::Byte> bytes) override
    {
        return {static_cast<int>(bytes.size()), 1};
    }
    std::vector<System::Byte> Encode(EPictureType, const Pixels& pixels, int quality) override
    {
        return {static_cast<System::Byte>(pixels.getWidth()), static_cast<System::Byte>(quality)};
    }
};

TEST(PictureCodecsTest, AreThoseThatTheProgramGave)
{
    auto former = Toolkits::ExchangeCodecs(std::make_unique<OwnCodecs>());
    const System::Byte bytes[] = {1, 2, 3};
    EXPECT_EQ(Toolkits::DecodePicture(EPictureType::Tiff, bytes).getWidth(), 3);
    EXPECT_EQ(Toolkits::EncodePicture(EPictureType::Gif, Pixels(5, 1), 70),
              (std::vector<System::Byte>{5, 70}));
    const auto own = Toolkits::ExchangeCodecs(std::move(former));
    EXPECT_NE(dynamic_cast<OwnCodecs*>(own.get()), nullptr);
}

/// The library itself.
std::filesystem::path LibraryFile()
{
    Dl_info info = {};
    dladdr(reinterpret_cast<void*>(&Toolkits::DecodePicture), &info);
    return std::filesystem::canonical(info.dli_fname);
}

TEST(PictureCodecsTest, DISABLED_LookBesideTheLibrary)
{
    try {
        Toolkits::DecodePicture(EPictureType::Png, {});
    } catch (const Graphics::EInvalidGraphic& fault) {
        Support::PrintResult(fault.what());
    }
}

TEST(PictureCodecsTest, SayWhichPlugInIsMissing)
{
    const Support::TempFolder folder;
    const std::filesystem::path library = LibraryFile();
    const std::filesystem::path lonely = folder.Path() / "libTRS8_BTL.so.0.2";
    std::error_code failure;
    std::filesystem::create_hard_link(library, lonely, failure);
    if (failure) {
        std::filesystem::copy_file(library, lonely);
    }
    const Support::ScopedVariable place("LD_LIBRARY_PATH", folder.Path().string());
    EXPECT_EQ(Support::RunChildTest("PictureCodecsTest.DISABLED_LookBesideTheLibrary"),
              "There is no codec for pictures of the type PNG: there is no plug-in libTRS8_BTL_qt.so");
}

TEST(PictureCodecsTest, DISABLED_ReadWhatNeedsNone)
{
    Graphics::TMetafile drawing;
    {
        Graphics::TMetafileCanvas canvas(&drawing, nullptr);
        canvas.Rectangle(0, 0, 4, 2);
    }
    Graphics::TBitmap bitmap(4, 2);
    Graphics::TIcon icon;
    icon.Assign(&bitmap);
    for (Graphics::TGraphic* const graphic :
         {static_cast<Graphics::TGraphic*>(&drawing), static_cast<Graphics::TGraphic*>(&bitmap),
          static_cast<Graphics::TGraphic*>(&icon)}) {
        Support::Load(*graphic, Support::Saved(*graphic));
        bitmap.getCanvas()->Draw(0, 0, graphic);
    }
    std::ifstream maps("/proc/self/maps");
    const std::string loaded((std::istreambuf_iterator<char>(maps)), {});
    Support::PrintResult(loaded.find("libTRS8_BTL.") == std::string::npos ? "nothing"
                         : loaded.find("libQt") == std::string::npos      ? "no Qt"
                                                                          : "Qt");
}

TEST(PictureCodecsTest, AreNotLoadedForWhatNeedsNone)
{
    const Support::ScopedVariable toolkit("TRS8_BTL_TOOLKIT", "headless");
    EXPECT_EQ(Support::RunChildTest("PictureCodecsTest.DISABLED_ReadWhatNeedsNone"), "no Qt");
}

} // namespace
