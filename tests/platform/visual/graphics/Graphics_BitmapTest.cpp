// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Bitmap.h"

#include "platform/visual/graphics/Graphics_Canvas.h"
#include "support/DrawnPixels.h"
#include "support/PictureFiles.h"
#include "support/RecordedCanvas.h"
#include "support/TempFolder.h"
#include "support/WithoutCodecs.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using namespace Graphics;
using Support::BitmapFile;
using Support::Drawn;
using Support::FileBytes;
using Support::Load;
using Support::Saved;

std::string Drawn(const TBitmap& bitmap)
{
    return Drawn(*bitmap.SharePixels());
}

/// Red, green, blue, black over white, white, white, white.
void FillColors(TBitmap& bitmap)
{
    bitmap.SetSize(4, 2);
    const TColor colors[] = {clRed, clLime, clBlue, clBlack};
    for (int x = 0; x < 4; ++x) {
        bitmap.getCanvas()->setPixels(x, 0, colors[x]);
    }
}

TEST(GraphicsBitmapTest, IsEmptyAtFirstAndWhiteWhereItGrows)
{
    TBitmap bitmap;
    EXPECT_TRUE(bitmap.getEmpty());
    EXPECT_EQ(bitmap.getHandle(), nullptr);
    bitmap.setWidth(2);
    EXPECT_TRUE(bitmap.getEmpty());
    bitmap.setHeight(2);
    EXPECT_EQ(Drawn(bitmap), "..\n..\n");
    bitmap.getCanvas()->setPixels(0, 0, clBlack);
    bitmap.SetSize(3, 1);
    EXPECT_EQ(Drawn(bitmap), "#..\n");
}

TEST(GraphicsBitmapTest, RefusesSizes)
{
    TBitmap bitmap(2, 1);
    for (const int size : {-1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_THROW(bitmap.setWidth(size), EInvalidGraphicOperation);
        EXPECT_THROW(bitmap.SetSize(size, size), EInvalidGraphicOperation);
    }
    EXPECT_EQ(Drawn(bitmap), "..\n");
}

TEST(GraphicsBitmapTest, SharesPixelsUntilOneChanges)
{
    TBitmap first;
    FillColors(first);
    TBitmap second;
    second.Assign(&first);
    EXPECT_EQ(first.getHandle(), second.getHandle());
    first.getCanvas()->FillRect({0, 0, 2, 2});
    EXPECT_EQ(Drawn(first), "..b#\n....\n");
    EXPECT_EQ(Drawn(second), "rgb#\n....\n");
    static_cast<Toolkits::TPixel*>(second.getScanLine(1))[3] = Support::Black;
    second.getCanvas()->setPixels(0, 0, clWhite);
    EXPECT_EQ(Drawn(second), ".gb#\n...#\n");
    EXPECT_EQ(Drawn(first), "..b#\n....\n");
    EXPECT_THROW(second.getScanLine(2), EInvalidGraphicOperation);
    EXPECT_THROW(second.getScanLine(-1), EInvalidGraphicOperation);
    second.Assign(nullptr);
    EXPECT_TRUE(second.getEmpty());
}

TEST(GraphicsBitmapTest, TellsChanges)
{
    TBitmap bitmap;
    int changes = 0;
    bitmap.setOnChange([&](System::TObject* sender) {
        EXPECT_EQ(sender, &bitmap);
        ++changes;
    });
    bitmap.SetSize(2, 2);
    bitmap.SetSize(2, 2);
    bitmap.getCanvas()->FillRect({0, 0, 1, 1});
    bitmap.setTransparent(true);
    EXPECT_EQ(changes, 3);
    EXPECT_TRUE(bitmap.getModified());
    Saved(bitmap);
    EXPECT_FALSE(bitmap.getModified());
}

TEST(GraphicsBitmapTest, SavesAndLoadsEachFormat)
{
    struct TCase
    {
        TPixelFormat format;
        std::string pixels;
        std::size_t size;
    };
    const TCase cases[] = {{pfDevice, "rgb#\n....\n", 54 + 24},   {pf1bit, "#.##\n....\n", 54 + 8 + 8},
                           {pf4bit, "rgb#\n....\n", 54 + 20 + 8}, {pf8bit, "rgb#\n....\n", 54 + 20 + 8},
                           {pf15bit, "rgb#\n....\n", 54 + 16},    {pf16bit, "rgb#\n....\n", 54 + 12 + 16},
                           {pf24bit, "rgb#\n....\n", 54 + 24},    {pf32bit, "rgb#\n....\n", 54 + 32}};
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.format);
        TBitmap bitmap;
        FillColors(bitmap);
        bitmap.setPixelFormat(row.format);
        EXPECT_EQ(bitmap.getMonochrome(), row.format == pf1bit);
        const auto bytes = Saved(bitmap);
        EXPECT_EQ(bytes.size(), row.size);
        TBitmap loaded;
        Load(loaded, bytes);
        EXPECT_EQ(Drawn(loaded), row.pixels);
        EXPECT_EQ(loaded.getPixelFormat(), row.format == pfDevice ? pf24bit : row.format);
        // Also once it is written anew.
        loaded.getCanvas()->setPixels(0, 0, loaded.getCanvas()->getPixels(0, 0));
        EXPECT_EQ(Saved(loaded), bytes);
    }
}

TEST(GraphicsBitmapTest, MakesFewColoursOfMany)
{
    TBitmap bitmap(20, 20);
    for (int i = 0; i < 400; ++i) {
        bitmap.getCanvas()->setPixels(i % 20, i / 20, TColor(i * 0x10203));
    }
    for (const TPixelFormat format : {pf4bit, pf8bit}) {
        bitmap.setPixelFormat(format);
        TBitmap loaded;
        Load(loaded, Saved(bitmap));
        EXPECT_EQ(loaded.getCanvas()->getPixels(0, 0), clBlack);
        EXPECT_NE(Drawn(loaded), Drawn(bitmap));
    }
}

TEST(GraphicsBitmapTest, ReadsWhatOthersWrite)
{
    struct TCase
    {
        const char* name;
        std::vector<System::Byte> bytes;
        std::string pixels;
    };
    FileBytes old;
    old.Put16({0x4D42}).Put32({0, 0, 32, 12}).Put16({2, 1, 1, 1}).Put8({0, 0, 255, 255, 0, 0, 0x80, 0, 0, 0});
    FileBytes words;
    words.Put32({0x00FF0000, 0x0000FF00});
    FileBytes masks;
    masks.Put32({0xFF, 0xFF00, 0xFF0000}).Put32({0xFF0000FF, 0xFFFF0000});
    FileBytes shortPalette;
    shortPalette.Put32({0xFF0000, 0x00FF00}).Put8({0, 1, 9, 0});
    const TCase cases[] = {
        {"old header", old.getBytes(), "br\n"},
        {"32 bits", BitmapFile(2, 1, 32, 0, words.getBytes()), "  \n"},
        {"top down", BitmapFile(1, static_cast<unsigned>(-2), 24, 0, {0, 0, 255, 0, 255, 0, 0, 0}), "r\nb\n"},
        {"bottom up", BitmapFile(1, 2, 24, 0, {0, 0, 255, 0, 255, 0, 0, 0}), "b\nr\n"},
        {"masks", BitmapFile(2, 1, 32, 12, masks.getBytes(), 3), "rb\n"},
        {"short palette", BitmapFile(3, 1, 8, 8, shortPalette.getBytes(), 0, 2), "rg#\n"},
        {"16 bits", BitmapFile(2, 1, 16, 0, {0x00, 0x7C, 0x1F, 0x00}), "rb\n"},
        {"no pixels", BitmapFile(0, 0, 24, 0, {}), ""}};
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.name);
        TBitmap bitmap;
        Load(bitmap, row.bytes);
        EXPECT_EQ(Drawn(bitmap), row.pixels);
        EXPECT_FALSE(bitmap.getModified());
        // It is saved as it came.
        EXPECT_EQ(Saved(bitmap), row.bytes);
    }
}

TEST(GraphicsBitmapTest, StaysAsItWasWhenAFileIsDamaged)
{
    const std::vector<System::Byte> pixel = {0, 0, 0, 0};
    const std::vector<System::Byte> cases[] = {{1},
                                               {'B', 'M'},
                                               {'P', 'N', 'G', 0, 0},
                                               BitmapFile(2, 1, 24, 0, pixel),
                                               BitmapFile(1, 2, 24, 0, pixel),
                                               BitmapFile(1, 1, 7, 0, pixel),
                                               BitmapFile(1, 1, 0, 0, pixel),
                                               BitmapFile(1, 1, 24, 1'000'000, pixel),
                                               BitmapFile(0x7FFFFFFF, 0x7FFFFFFF, 1, 0, pixel),
                                               BitmapFile(0x80000000, 1, 24, 0, pixel),
                                               BitmapFile(1, 0x80000000, 24, 0, pixel),
                                               BitmapFile(1 << 14, 1 << 13, 24, 0, pixel),
                                               BitmapFile(1, 1, 8, 0, pixel)};
    TBitmap bitmap;
    FillColors(bitmap);
    for (const auto& bytes : cases) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        EXPECT_THROW(Load(bitmap, bytes), EInvalidGraphic);
        EXPECT_EQ(Drawn(bitmap), "rgb#\n....\n");
    }
    EXPECT_THROW(bitmap.LoadFromStream(nullptr), Classes::EStreamError);
    Load(bitmap, {});
    EXPECT_TRUE(bitmap.getEmpty());
}

TEST(GraphicsBitmapTest, KeepsAFileThatNeedsACodec)
{
    const Support::WithoutCodecs none;
    const auto bytes = BitmapFile(4, 2, 24, 0, std::vector<System::Byte>(8), 4);
    TBitmap bitmap;
    Load(bitmap, bytes);
    EXPECT_EQ(bitmap.getWidth(), 4);
    EXPECT_EQ(bitmap.getHeight(), 2);
    EXPECT_EQ(Saved(bitmap), bytes);
    EXPECT_THROW(bitmap.getCanvas()->FillRect({0, 0, 1, 1}), EInvalidGraphic);
    TBitmap copy;
    copy.Assign(&bitmap);
    EXPECT_EQ(Saved(copy), bytes);
}

/// A bitmap of six by three pixels whose rows are runs: white, black, red and blue by their numbers.
std::vector<System::Byte> PackedFile(unsigned bitCount, std::initializer_list<unsigned> runs)
{
    Support::FileBytes rest;
    rest.Put32({0xFFFFFF, 0, 0xFF0000, 0x0000FF});
    rest.Put8(runs);
    return BitmapFile(6, 3, bitCount, 16, rest.getBytes(), bitCount == 8 ? 1 : 2, 4);
}

TEST(GraphicsBitmapTest, ReadsRuns)
{
    struct TCase
    {
        const char* name;
        unsigned bitCount;
        std::initializer_list<unsigned> runs;
        const char* drawn;
    };
    const TCase cases[] = {
        {"runs", 8, {6, 1, 0, 0, 2, 2, 4, 3, 0, 0, 6, 1, 0, 1}, "######\nrrbbbb\n######\n"},
        {"pixels as they are", 8, {0, 3, 1, 2, 3, 0, 3, 1, 0, 1}, "......\n......\n#rb###\n"},
        {"places left out", 8, {0, 2, 2, 1, 3, 2, 0, 1}, "......\n..rrr.\n......\n"},
        {"halves", 4, {5, 0x12, 0, 0, 0, 5, 0x12, 0x31, 0x20, 0, 0, 1}, "......\n#rb#r.\n#r#r#.\n"},
        {"more than a row has", 8, {200, 1, 0, 1}, "......\n......\n######\n"},
        {"rows enough without an end", 8, {6, 1, 0, 0, 6, 1, 0, 0, 6, 2, 0, 0}, "rrrrrr\n######\n######\n"},
        {"number beyond the colours", 8, {6, 99, 0, 1}, "......\n......\n######\n"},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.name);
        TBitmap bitmap;
        Load(bitmap, PackedFile(row.bitCount, row.runs));
        EXPECT_EQ(Drawn(bitmap), row.drawn);
    }
    for (const auto runs : {std::initializer_list<unsigned>{6, 1, 0, 0}, {6, 1, 0}, {0, 2, 1}, {}}) {
        TBitmap bitmap;
        Load(bitmap, PackedFile(8, runs));
        EXPECT_THROW(bitmap.getCanvas()->FillRect({0, 0, 1, 1}), EInvalidGraphic);
    }
}

TEST(GraphicsBitmapTest, TakesItsOwnPartOfAStream)
{
    TBitmap bitmap;
    FillColors(bitmap);
    Classes::TBytesStream stream;
    stream.WriteBuffer("ab", 2);
    bitmap.SaveToStream(&stream);
    bitmap.WriteData(&stream);
    stream.WriteBuffer("z", 1);
    stream.setPosition(2);
    TBitmap loaded;
    loaded.LoadFromStream(&stream);
    EXPECT_EQ(Drawn(loaded), Drawn(bitmap));
    TBitmap read;
    read.ReadData(&stream);
    EXPECT_EQ(Drawn(read), Drawn(bitmap));
    EXPECT_EQ(stream.getPosition(), stream.getSize() - 1);
    stream.setPosition(2 + 78 + 1);
    EXPECT_THROW(read.ReadData(&stream), EInvalidGraphic);
}

TEST(GraphicsBitmapTest, GoesToAFileAndBack)
{
    const Support::TempFolder folder;
    const System::UnicodeString path = System::FromUtf8((folder.Path() / "box.bmp").string());
    TBitmap bitmap;
    FillColors(bitmap);
    bitmap.SaveToFile(path);
    TBitmap loaded;
    loaded.LoadFromFile(path);
    EXPECT_EQ(Drawn(loaded), Drawn(bitmap));
    EXPECT_THROW(loaded.LoadFromFile(path + u"x"), Classes::EFOpenError);
    const auto bytes = Saved(bitmap);
    Classes::RegisterResource(u"GRAPHICSBITMAPTEST", bytes, u"BITMAP");
    loaded.Assign(nullptr);
    loaded.LoadFromResourceName(0, u"GraphicsBitmapTest");
    EXPECT_EQ(Drawn(loaded), Drawn(bitmap));
    EXPECT_THROW(loaded.LoadFromResourceName(0, u"GraphicsBitmapTest2"), Classes::EResNotFound);
}

TEST(GraphicsBitmapTest, LetsOneColourThrough)
{
    TBitmap bitmap;
    FillColors(bitmap);
    EXPECT_EQ(bitmap.getTransparentColor(), clWhite);
    TBitmap target(5, 2);
    target.getCanvas()->getBrush()->setColor(clRed);
    target.getCanvas()->FillRect({0, 0, 5, 2});
    bitmap.setTransparent(true);
    target.getCanvas()->Draw(1, 0, &bitmap);
    EXPECT_EQ(Drawn(target), "rrgb#\nrrrrr\n");
    bitmap.setTransparentColor(clLime);
    EXPECT_EQ(bitmap.getTransparentMode(), tmFixed);
    target.getCanvas()->Draw(0, 0, &bitmap);
    EXPECT_EQ(Drawn(target), "rrb##\n....r\n");
    bitmap.setTransparentMode(tmAuto);
    EXPECT_EQ(bitmap.getTransparentColor(), clWhite);
    TBitmap none;
    EXPECT_EQ(none.getTransparentColor(), clDefault);
}

TEST(GraphicsBitmapTest, IsDrawnInAllWays)
{
    TBitmap bitmap;
    FillColors(bitmap);
    Support::RecordedCanvas canvas;
    canvas->Draw(3, 4, &bitmap);
    canvas->setCopyMode(cmSrcInvert);
    canvas->StretchDraw({0, 0, 40, 20}, &bitmap);
    canvas->Draw(3, 4, &bitmap, 128);
    bitmap.setAlphaFormat(afDefined);
    canvas->Draw(3, 4, &bitmap);
    bitmap.SetSize(0, 0);
    canvas->Draw(3, 4, &bitmap);
    EXPECT_EQ(canvas.Take(), "image 4x2 onto 3,4,7,6\n"
                             "image 4x2 onto 0,0,40,20 operation 66\n"
                             "image 4x2 onto 3,4,7,6 alpha 128\n"
                             "image 4x2 onto 3,4,7,6 alpha 255\n");
}

TEST(GraphicsBitmapTest, MakesMasks)
{
    TBitmap bitmap;
    FillColors(bitmap);
    bitmap.Mask(clBlue);
    EXPECT_EQ(Drawn(bitmap), "##.#\n####\n");
    EXPECT_TRUE(bitmap.getMonochrome());
    TBitmap copy;
    copy.setHandle(bitmap.getHandle());
    EXPECT_EQ(Drawn(copy), Drawn(bitmap));
    copy.Dormant();
    EXPECT_EQ(Drawn(copy), Drawn(bitmap));
}

} // namespace
