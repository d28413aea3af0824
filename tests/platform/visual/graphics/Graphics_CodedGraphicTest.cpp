// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_CodedGraphic.h"

#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_WICImage.h"
#include "platform/visual/graphics/Jpeg.h"
#include "platform/visual/graphics/Pngimage.h"
#include "support/DrawnPixels.h"
#include "support/PictureFiles.h"
#include "support/TempFolder.h"
#include "support/WithoutCodecs.h"

#include <gtest/gtest.h>

#include <fstream>
#include <memory>

namespace
{

using namespace Graphics;
using Jpeg::TJPEGImage;
using Pngimage::TPngImage;
using Support::FileBytes;
using Support::Load;
using Support::PngFile;
using Support::Saved;
using TBytes = std::vector<System::Byte>;

TBytes JpegFile()
{
    FileBytes file;
    file.Put8({0xFF, 0xD8, 0xFF, 0xE0, 0, 4, 1, 2, 0xFF, 0xFF, 0xC0, 0, 11, 8, 0, 3, 0, 5, 1, 0, 0, 0});
    return file.getBytes();
}

TBytes TiffFile(bool isHighFirst)
{
    FileBytes file;
    if (isHighFirst) {
        file.Put8({'M', 'M', 0, 42, 0, 0, 0, 8, 0, 2, 1, 0, 0, 3, 0, 0, 0, 1, 0, 5, 0, 0});
        file.Put8({1, 1, 0, 4, 0, 0, 0, 1, 0, 0, 0, 3});
    } else {
        file.Put16({0x4949, 42}).Put32({8}).Put16({2, 256, 3}).Put32({1, 5});
        file.Put16({257, 4}).Put32({1, 3});
    }
    return file.getBytes();
}

TBytes GifFile()
{
    FileBytes file;
    file.Put8({'G', 'I', 'F', '8', '9', 'a'}).Put16({5, 3});
    return file.getBytes();
}

TEST(GraphicsCodedGraphicTest, TellsSizesAndKeepsFilesWithoutACodec)
{
    const Support::WithoutCodecs none;
    struct TCase
    {
        std::unique_ptr<TCodedGraphic> graphic;
        TBytes bytes;
    };
    TCase cases[] = {
        {std::make_unique<TPngImage>(), PngFile(5, 3)},  {std::make_unique<TJPEGImage>(), JpegFile()},
        {std::make_unique<TWICImage>(), TiffFile(true)}, {std::make_unique<TWICImage>(), TiffFile(false)},
        {std::make_unique<TWICImage>(), PngFile(5, 3)},  {std::make_unique<TWICImage>(), GifFile()}};
    for (TCase& row : cases) {
        SCOPED_TRACE(System::ToUtf8(row.graphic->ClassName()));
        Load(*row.graphic, row.bytes);
        EXPECT_FALSE(row.graphic->getEmpty());
        EXPECT_EQ(row.graphic->getWidth(), 5);
        EXPECT_EQ(row.graphic->getHeight(), 3);
        EXPECT_EQ(Saved(*row.graphic), row.bytes);
        EXPECT_THROW(row.graphic->Content(), EInvalidGraphic);
        TWICImage copy;
        copy.Assign(row.graphic.get());
        EXPECT_EQ(Saved(copy), row.bytes);
        TBitmap bitmap;
        EXPECT_THROW(bitmap.Assign(row.graphic.get()), EInvalidGraphic);
        row.graphic->setWidth(5);
        row.graphic->Assign(nullptr);
        EXPECT_TRUE(row.graphic->getEmpty());
        EXPECT_TRUE(Saved(*row.graphic).empty());
    }
}

TEST(GraphicsCodedGraphicTest, StaysAsItWasWhenAFileIsDamagedOrOfAnotherType)
{
    TJPEGImage picture;
    Load(picture, JpegFile());
    TBytes noFrame = JpegFile();
    noFrame[10] = 0xDA;
    TBytes noHeight = JpegFile();
    noHeight[15] = 0;
    for (const TBytes& bytes :
         {TBytes{1, 2, 3}, PngFile(5, 3), TBytes{0xFF, 0xD8, 0xFF}, noFrame, noHeight}) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        EXPECT_THROW(Load(picture, bytes), EInvalidGraphic);
        EXPECT_EQ(picture.getWidth(), 5);
    }
    TPngImage png;
    EXPECT_THROW(Load(png, PngFile(0x7FFFFFFF, 0x7FFFFFFF)), EInvalidGraphic);
    EXPECT_THROW(Load(png, PngFile(0, 1)), EInvalidGraphic);
    TWICImage wic;
    TBytes noDirectory = TiffFile(false);
    noDirectory[4] = 200;
    EXPECT_THROW(Load(wic, noDirectory), EInvalidGraphic);
}

TEST(GraphicsCodedGraphicTest, TakesPixelsAndGivesThemBack)
{
    const Support::WithoutCodecs none;
    TBitmap bitmap(2, 1);
    bitmap.getCanvas()->setPixels(0, 0, clRed);
    TPngImage png;
    png.Assign(&bitmap);
    EXPECT_EQ(png.getWidth(), 2);
    TJPEGImage jpeg;
    jpeg.Assign(&png);
    TBitmap back;
    back.Assign(&jpeg);
    EXPECT_EQ(Support::Drawn(*back.SharePixels()), "r.\n");
    TBitmap target(3, 1);
    target.getCanvas()->Draw(1, 0, &png);
    EXPECT_EQ(Support::Drawn(*target.SharePixels()), ".r.\n");
    png.SetSize(3, 2);
    EXPECT_EQ(Support::Drawn(png.Content()), "r. \n   \n");
    EXPECT_THROW(Saved(png), EInvalidGraphic);
    EXPECT_THROW(jpeg.setHeight(9), EInvalidGraphicOperation);
}

TEST(GraphicsCodedGraphicTest, LeavesAFileAloneThatItCantWrite)
{
    const Support::WithoutCodecs none;
    const Support::TempFolder folder;
    const auto path = folder.Path() / "kept.jpg";
    std::ofstream(path) << "kept";
    TBitmap bitmap(2, 1);
    TJPEGImage picture;
    picture.Assign(&bitmap);
    EXPECT_THROW(picture.SaveToFile(System::FromUtf8(path.string())), EInvalidGraphic);
    std::string content;
    std::ifstream(path) >> content;
    EXPECT_EQ(content, "kept");
}

TEST(GraphicsCodedGraphicTest, KnowsTheFormat)
{
    const Support::WithoutCodecs none;
    TWICImage picture;
    EXPECT_EQ(picture.getImageFormat(), wifBmp);
    for (const auto& [bytes, format] : {std::pair(PngFile(5, 3), wifPng),
                                        {JpegFile(), wifJpeg},
                                        {GifFile(), wifGif},
                                        {TiffFile(true), wifTiff}}) {
        Load(picture, bytes);
        EXPECT_EQ(picture.getImageFormat(), format);
    }
    EXPECT_THROW(picture.setImageFormat(wifPng), EInvalidGraphic);
    EXPECT_EQ(picture.getImageFormat(), wifTiff);
    TBitmap bitmap(2, 1);
    picture.Assign(&bitmap);
    picture.setImageFormat(wifOther);
    EXPECT_THROW(Saved(picture), EInvalidGraphic);
    picture.setImageFormat(wifBmp);
    TBitmap loaded;
    Load(loaded, Saved(picture));
    EXPECT_EQ(Support::Drawn(*loaded.SharePixels()), "..\n");
    const Support::TempFolder folder;
    EXPECT_THROW(picture.SaveToFile(System::FromUtf8((folder.Path() / "x.TIF").string())), EInvalidGraphic);
    EXPECT_EQ(picture.getImageFormat(), wifTiff);
}

TEST(GraphicsCodedGraphicTest, HasAQualityOfJpeg)
{
    const Support::WithoutCodecs none;
    TJPEGImage picture;
    EXPECT_EQ(picture.getCompressionQuality(), 90);
    picture.setCompressionQuality(0);
    EXPECT_EQ(picture.getCompressionQuality(), 1);
    TJPEGImage copy;
    copy.Assign(&picture);
    EXPECT_EQ(copy.getCompressionQuality(), 1);
    Load(copy, JpegFile());
    Classes::TBytesStream stream;
    copy.WriteData(&stream);
    EXPECT_EQ(stream.getSize(), static_cast<System::Int64>(4 + JpegFile().size()));
    stream.setPosition(0);
    picture.ReadData(&stream);
    EXPECT_EQ(Saved(picture), JpegFile());
    EXPECT_THROW(copy.Compress(), EInvalidGraphic);
    EXPECT_THROW(copy.DIBNeeded(), EInvalidGraphic);
}

} // namespace
