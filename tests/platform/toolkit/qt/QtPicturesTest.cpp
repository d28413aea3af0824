// SPDX-License-Identifier: MIT
#include "platform/toolkit/PictureCodecs.h"

#include "platform/toolkit/Toolkit.h"
#include "support/ChildProgram.h"
#include "support/DrawnPixels.h"
#include "support/ScopedVariable.h"

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
                     "There is no codec for pictures of the type TIFF: this Qt has no part for them");
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
}

TEST(QtPicturesTest, AreRefusedByTheSizeInTheirHead)
{
    auto png = FileOf(EPictureType::Png, Sample());
    // The width stands behind the signature and the head of the first chunk.
    png[16] = 0x7F;
    EXPECT_THROW(DecodePicture(EPictureType::Png, png), Graphics::EInvalidGraphic);
    auto bitmap = FileOf(EPictureType::Bitmap, Sample());
    bitmap[18 + 3] = 0x7F;
    EXPECT_THROW(DecodePicture(EPictureType::Bitmap, bitmap), Graphics::EInvalidGraphic);
    EXPECT_THROW(DecodePicture(EPictureType::Jpeg, png), Graphics::EInvalidGraphic);
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
