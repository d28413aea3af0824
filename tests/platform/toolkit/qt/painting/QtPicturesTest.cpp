// SPDX-License-Identifier: MIT
#include "platform/toolkit/PictureCodecs.h"

#include "platform/toolkit/Toolkit.h"
#include "platform/visual/graphics/Graphics.h"
#include "support/ChildProgram.h"
#include "support/DrawnPixels.h"
#include "support/IconFiles.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <string>

namespace
{

using Toolkits::DecodePicture;
using Toolkits::EncodePicture;
using Toolkits::EPictureType;
using Toolkits::Pixels;

/// 12 by 8 pixels, one of them red.
Pixels Sample()
{
    Pixels pixels(12, 8, Support::White);
    for (int y = 0; y < 4; ++y) {
        for (int x = 6; x < 12; ++x) {
            pixels.At(x, y) = Support::Blue;
        }
    }
    pixels.At(0, 7) = Support::Red;
    return pixels;
}

struct TType
{
    EPictureType type;
    const char* name;
    bool isExact;
    bool hasAlpha;
};

constexpr TType AllTypes[] = {{EPictureType::Bitmap, "bitmap", true, false},
                              {EPictureType::Icon, "icon", true, true},
                              {EPictureType::Png, "PNG", true, true},
                              {EPictureType::Jpeg, "JPEG", false, false},
                              {EPictureType::Tiff, "TIFF", true, true}};

/// The file of the sample; none if this Qt has no part for the type, which it says then.
std::vector<System::Byte> FileOf(EPictureType type, const Pixels& pixels)
{
    try {
        return EncodePicture(type, pixels, 100);
    } catch (const Graphics::EInvalidGraphic& fault) {
        EXPECT_STREQ(fault.what(),
                     "There is no codec for pictures of the type TIFF: this Qt has no part for it");
        return {};
    }
}

TEST(QtPicturesTest, ComeBackAsTheyWereWritten)
{
    const Pixels sample = Sample();
    Pixels clear = sample;
    clear.At(3, 3) = 0;
    clear.At(4, 3) = 0x80FF0000U;
    for (const TType& row : AllTypes) {
        SCOPED_TRACE(row.name);
        const auto file = FileOf(row.type, sample);
        if (file.empty()) {
            continue;
        }
        const Pixels read = DecodePicture(row.type, file);
        EXPECT_EQ(read.Bounds(), sample.Bounds());
        if (row.isExact) {
            EXPECT_EQ(Support::Drawn(read), Support::Drawn(sample));
        } else {
            EXPECT_EQ(read.At(2, 1), Support::White);
        }
        if (row.hasAlpha) {
            EXPECT_EQ(DecodePicture(row.type, FileOf(row.type, clear)), clear);
        }
    }
    const auto coarse = EncodePicture(EPictureType::Jpeg, sample, 1);
    EXPECT_LT(coarse.size(), FileOf(EPictureType::Jpeg, sample).size());
    for (const EPictureType type :
         {EPictureType::EnhancedMetafile, EPictureType::Metafile, EPictureType::Gif}) {
        EXPECT_THROW(EncodePicture(type, sample, 90), Graphics::EInvalidGraphic);
    }
}

/// A picture of 2 by 1 pixels, red and green, one code each.
constexpr System::Byte Gif[] = {'G', 'I',  'F', '8', '9', 'a', 2, 0,    1,    0, 0x80, 0,
                                0,   0xFF, 0,   0,   0,   255, 0, 0x2C, 0,    0, 0,    0,
                                2,   0,    1,   0,   0,   2,   2, 0x44, 0x0A, 0, 0x3B};

TEST(QtPicturesTest, ReadsAGif)
{
    EXPECT_EQ(Support::Drawn(DecodePicture(EPictureType::Gif, Gif)), "rg\n");
}

void DecodeOrRefuse(EPictureType type, std::span<const System::Byte> bytes)
{
    try {
        const Pixels pixels = DecodePicture(type, bytes);
        EXPECT_TRUE(Pixels::IsSize(pixels.getWidth(), pixels.getHeight()));
    } catch (const Graphics::EInvalidGraphic& fault) {
        EXPECT_FALSE(fault.getMessage().IsEmpty());
    }
}

TEST(QtPicturesTest, SurviveDamageAtEachByte)
{
    // The libraries below Qt tell each fault on their own.
    testing::internal::CaptureStderr();
    for (const TType& row : AllTypes) {
        SCOPED_TRACE(row.name);
        auto file = FileOf(row.type, Sample());
        for (std::size_t i = 0; i < file.size(); ++i) {
            DecodeOrRefuse(row.type, std::span(file).first(i));
            for (const unsigned damage : {0xFFU, 0x80U, 1U}) {
                file[i] = static_cast<System::Byte>(file[i] ^ damage);
                DecodeOrRefuse(row.type, file);
                file[i] = static_cast<System::Byte>(file[i] ^ damage);
            }
        }
    }
    testing::internal::GetCapturedStderr();
}

TEST(QtPicturesTest, AreRefusedByTheSizeInTheirHead)
{
    testing::internal::CaptureStderr();
    auto png = FileOf(EPictureType::Png, Sample());
    // The width stands behind the signature and the head of the first chunk.
    png[16] = 0x7F;
    EXPECT_THROW(DecodePicture(EPictureType::Png, png), Graphics::EInvalidGraphic);
    auto bitmap = FileOf(EPictureType::Bitmap, Sample());
    bitmap[18 + 3] = 0x7F;
    EXPECT_THROW(DecodePicture(EPictureType::Bitmap, bitmap), Graphics::EInvalidGraphic);
    EXPECT_THROW(DecodePicture(EPictureType::Jpeg, png), Graphics::EInvalidGraphic);
    testing::internal::GetCapturedStderr();
}

/// An icon of 4 by 4 pixels of 1 to 32 bits, with the rows of its picture. The mask takes the first pixel
/// out.
std::vector<System::Byte> IconOf(unsigned bitCount, const std::vector<System::Byte>& rows)
{
    Support::FileBytes image;
    image.Put32({40, 4, 8}).Put16({1, bitCount}).Put32({0, 0, 0, 0, 0, 0});
    if (bitCount <= 8) {
        for (unsigned i = 0; i < 1U << bitCount; ++i) {
            image.Put32({i == 0 ? 0U : 0xFF0000U + i});
        }
    }
    image.Append(rows).Put32({0, 0, 0, 0x80});
    return Support::IconFile({image.getBytes()});
}

TEST(QtPicturesTest, ReadsIconsAsTheLibraryDoes)
{
    // Qt passes over the mask of one with 24 bits.
    for (const unsigned bitCount : {1U, 4U, 8U, 32U}) {
        SCOPED_TRACE(bitCount);
        const std::size_t rowSize = (4 * bitCount + 31) / 32 * 4;
        std::vector<System::Byte> rows(4 * rowSize);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            // Alpha is all or nothing, since Qt multiplies colours by it.
            const bool isAlpha = bitCount == 32 && i % 4 == 3;
            rows[i] = static_cast<System::Byte>(!isAlpha ? 37 * i + 21 : i % 8 == 3 ? 255 : 0);
        }
        const auto file = IconOf(bitCount, rows);
        Graphics::TIcon icon;
        Support::Load(icon, file);
        const Pixels own = icon.PixelsFor(4, 4);
        const Pixels read = DecodePicture(EPictureType::Icon, file);
        ASSERT_EQ(read.Bounds(), own.Bounds());
        for (std::size_t i = 0; i < own.All().size(); ++i) {
            // A pixel that isn't seen has no colour.
            const Toolkits::TPixel pixel = read.All()[i];
            EXPECT_EQ(own.All()[i], pixel >> 24U == 0 ? own.All()[i] & 0xFFFFFFU : pixel) << i;
        }
    }
}

TEST(QtPicturesTest, ReadsAndWritesTheIconsOfTheLibrary)
{
    Pixels sample = Sample();
    sample.At(3, 3) = 0;
    Graphics::TIcon packed;
    Support::Load(packed, Support::IconFile({EncodePicture(EPictureType::Png, sample, 0)}));
    EXPECT_EQ(packed.PixelsFor(12, 8), sample);
    Graphics::TBitmap bitmap;
    bitmap.Assign(&packed);
    Graphics::TIcon written;
    written.Assign(&bitmap);
    EXPECT_EQ(DecodePicture(EPictureType::Icon, Support::Saved(written)), sample);
}

TEST(QtPicturesTest, AreThoseOfThePictureClasses)
{
    Graphics::TBitmap bitmap;
    bitmap.TakePixels(Sample());
    const Support::TempFolder folder;
    for (const char* const name : {"a.png", "a.bmp", "a.tif", "a.ico"}) {
        SCOPED_TRACE(name);
        const System::UnicodeString path = System::FromUtf8((folder.Path() / name).string());
        if (FileOf(EPictureType::Tiff, Sample()).empty() && std::string(name) == "a.tif") {
            continue;
        }
        if (std::string(name) == "a.ico") {
            Graphics::TIcon icon;
            icon.Assign(&bitmap);
            icon.SaveToFile(path);
        } else {
            Graphics::TWICImage image;
            image.Assign(&bitmap);
            image.SaveToFile(path);
        }
        Graphics::TPicture picture;
        picture.LoadFromFile(path);
        Graphics::TBitmap read;
        read.Assign(picture.getGraphic());
        EXPECT_EQ(Support::Drawn(*read.SharePixels()), Support::Drawn(Sample()));
    }
}

TEST(QtPicturesTest, DISABLED_NeedNoApplication)
{
    const Pixels sample = Sample();
    std::string told;
    for (const EPictureType type : {EPictureType::Png, EPictureType::Jpeg, EPictureType::Bitmap}) {
        const Pixels read = DecodePicture(type, EncodePicture(type, sample, 100));
        told += read.Bounds() == sample.Bounds() && read.At(2, 1) == Support::White ? "read " : "other ";
    }
    EXPECT_EQ(Support::Drawn(DecodePicture(EPictureType::Gif, Gif)), "rg\n");
    const bool isHeadless = Toolkits::CurrentToolkit().GetInputPlayer() == nullptr;
    told += isHeadless && QCoreApplication::instance() == nullptr ? "headless" : "with an application";
    Support::PrintResult(told);
}

TEST(QtPicturesTest, ServeTheHeadlessToolkitWithoutADisplay)
{
    const Support::ScopedVariable toolkit("TRS8_BTL_TOOLKIT", "headless");
    const Support::ScopedVariable platform("QT_QPA_PLATFORM", nullptr);
    const Support::ScopedVariable display("DISPLAY", nullptr);
    EXPECT_EQ(Support::RunChildTest("QtPicturesTest.DISABLED_NeedNoApplication"), "read read read headless");
}

} // namespace
