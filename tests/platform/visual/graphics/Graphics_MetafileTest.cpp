// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Metafile.h"

#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "support/DrawnPixels.h"
#include "support/PictureFiles.h"
#include "support/RecordedCanvas.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using namespace Graphics;
using Support::Load;
using Support::Saved;
using TBytes = std::vector<System::Byte>;

TBytes EnhancedFile()
{
    Support::FileBytes file;
    // Type, size, bounds, frame in hundredths of a millimetre: 50 by 25 of them, signature, then the device.
    file.Put32({1, 108, 0, 0, 9, 9, 0, 0, 5000, 2500, 0x464D4520, 0x10000, 108, 1});
    file.Put16({1, 0}).Put32({0, 0, 0, 1000, 500, 500, 250, 0, 0, 0});
    return file.getBytes();
}

TBytes PlaceableFile()
{
    Support::FileBytes file;
    file.Put32({0x9AC6CDD7}).Put16({0, 0, 0, 1440, 720, 1440}).Put32({0}).Put16({0});
    return file.getBytes();
}

void DrawFrame(TMetafile& metafile)
{
    TMetafileCanvas canvas(&metafile, nullptr);
    canvas.Rectangle(0, 0, 4, 2);
}

TEST(GraphicsMetafileTest, KeepsADrawing)
{
    TMetafile metafile;
    EXPECT_TRUE(metafile.getEmpty());
    EXPECT_TRUE(metafile.getEnhanced());
    metafile.SetSize(4, 2);
    auto canvas = std::make_unique<TMetafileCanvas>(&metafile, nullptr, u"maker", u"frame");
    EXPECT_EQ(canvas->getClipRect(), (Types::TRect{0, 0, 4, 2}));
    canvas->Rectangle(0, 0, 4, 2);
    EXPECT_TRUE(metafile.getEmpty());
    canvas = nullptr;
    EXPECT_FALSE(metafile.getEmpty());
    EXPECT_EQ(metafile.getCreatedBy(), u"maker");
    EXPECT_EQ(metafile.getDescription(), u"frame");
    EXPECT_EQ(metafile.Recording().AsText(), u"rectangle 0,0,4,2 pen #000000 brush #FFFFFF\n");

    Support::RecordedCanvas target;
    target->StretchDraw({10, 20, 50, 80}, &metafile);
    EXPECT_EQ(target.Take(), "push\norigin 0,0\norigin 10,20\n"
                             "rectangle 0,0,40,60 pen #000000 brush #FFFFFF\npop\n");
    metafile.SetSize(8, 4);
    target->Draw(1, 1, &metafile);
    EXPECT_NE(target.Take().find("rectangle 0,0,8,4 "), std::string::npos);

    TMetafile copy;
    copy.Assign(&metafile);
    DrawFrame(metafile);
    copy.Clear();
    EXPECT_TRUE(copy.getEmpty());
    EXPECT_EQ(copy.getWidth(), 0);
    EXPECT_FALSE(metafile.getEmpty());
}

TEST(GraphicsMetafileTest, GetsTheSizeOfWhatIsDrawn)
{
    TMetafile metafile;
    DrawFrame(metafile);
    EXPECT_EQ(metafile.getWidth(), 4);
    EXPECT_EQ(metafile.getHeight(), 2);
    TBitmap bitmap(6, 3);
    bitmap.getCanvas()->Draw(1, 0, &metafile);
    EXPECT_EQ(Support::Drawn(*bitmap.SharePixels()), ".####.\n.####.\n......\n");
}

TEST(GraphicsMetafileTest, ReckonsHundredthsOfAMillimetre)
{
    TMetafile metafile;
    metafile.SetSize(96, 48);
    EXPECT_EQ(metafile.getMMWidth(), 2540);
    EXPECT_EQ(metafile.getMMHeight(), 1270);
    metafile.setMMWidth(5080);
    metafile.setMMHeight(2540);
    EXPECT_EQ(metafile.getWidth(), 192);
    EXPECT_EQ(metafile.getHeight(), 96);
    EXPECT_THROW(metafile.SetSize(-1, 1), EInvalidGraphicOperation);
    EXPECT_EQ(metafile.getWidth(), 192);
}

TEST(GraphicsMetafileTest, KeepsFilesThatHaveNoEnd)
{
    for (const auto& [bytes, isEnhanced, width, height] :
         {std::tuple(EnhancedFile(), true, 100, 50), {PlaceableFile(), false, 96, 48}}) {
        TMetafile metafile;
        Load(metafile, bytes);
        EXPECT_EQ(metafile.getEnhanced(), isEnhanced);
        EXPECT_EQ(metafile.getWidth(), width);
        EXPECT_EQ(metafile.getHeight(), height);
        EXPECT_EQ(Saved(metafile), bytes);
        EXPECT_THROW(metafile.Recording(), EInvalidGraphic);
        Classes::TBytesStream stream;
        metafile.WriteData(&stream);
        stream.setPosition(0);
        TMetafile read;
        read.ReadData(&stream);
        EXPECT_EQ(Saved(read), bytes);
        read.setEnhanced(!isEnhanced);
        EXPECT_THROW(Saved(read), EInvalidGraphic);
        EXPECT_THROW(Load(metafile, Support::PngFile(1, 1)), EInvalidGraphic);
        EXPECT_THROW(Load(metafile, TBytes{1, 2}), EInvalidGraphic);
        EXPECT_EQ(metafile.getWidth(), width);
    }
    TMetafile drawn;
    DrawFrame(drawn);
    TBitmap bitmap;
    EXPECT_THROW(bitmap.Assign(&drawn), Sysutils::EConvertError);
    EXPECT_THROW(TMetafileCanvas(nullptr, nullptr), EInvalidGraphicOperation);
}

} // namespace
