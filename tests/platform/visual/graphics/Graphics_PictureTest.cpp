// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Picture.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_Icon.h"
#include "platform/visual/graphics/Graphics_Metafile.h"
#include "platform/visual/graphics/Pngimage.h"
#include "support/PictureFiles.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace
{

using namespace Graphics;
using System::UnicodeString;

/// A class of the test's own, with files of its own.
class TOwnBitmap : public TBitmap
{
    TRS8_BTL_CLASS(TOwnBitmap, TBitmap)
};

System::TMetaClass* TOwnBitmap::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TOwnBitmap>(u"TOwnBitmap").Build();
    return record;
}

TEST(GraphicsPictureTest, HoldsACopy)
{
    TBitmap bitmap(3, 2);
    TPicture picture;
    int changes = 0;
    picture.setOnChange([&](System::TObject* sender) {
        EXPECT_EQ(sender, &picture);
        ++changes;
    });
    EXPECT_EQ(picture.getWidth(), 0);
    picture.setGraphic(&bitmap);
    EXPECT_NE(picture.getGraphic(), &bitmap);
    EXPECT_EQ(picture.getWidth(), 3);
    EXPECT_EQ(picture.getHeight(), 2);
    EXPECT_EQ(picture.getBitmap(), picture.getGraphic());
    EXPECT_EQ(changes, 1);
    picture.getBitmap()->SetSize(5, 5);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(bitmap.getWidth(), 3);

    TPicture copy;
    copy.Assign(&picture);
    EXPECT_EQ(copy.getWidth(), 5);
    bitmap.Assign(&copy);
    EXPECT_EQ(bitmap.getWidth(), 5);
    copy.Assign(nullptr);
    EXPECT_EQ(copy.getGraphic(), nullptr);
    TCanvas canvas;
    EXPECT_THROW(copy.Assign(&canvas), Sysutils::EConvertError);
}

TEST(GraphicsPictureTest, GivesAGraphicOfTheClassThatIsAskedFor)
{
    TPicture picture;
    TBitmap bitmap(3, 2);
    picture.Assign(&bitmap);
    EXPECT_TRUE(picture.getIcon()->getEmpty());
    EXPECT_EQ(picture.getGraphic()->ClassName(), u"TIcon");
    EXPECT_TRUE(picture.getMetafile()->getEmpty());
    EXPECT_TRUE(picture.getBitmap()->getEmpty());
    picture.setBitmap(&bitmap);
    EXPECT_EQ(picture.getBitmap()->getWidth(), 3);
}

TEST(GraphicsPictureTest, LoadsByTheExtension)
{
    const Support::TempFolder folder;
    const auto path = [&](const char* name) { return System::FromUtf8((folder.Path() / name).string()); };
    TPicture picture;
    picture.getBitmap()->SetSize(3, 2);
    picture.SaveToFile(path("a.bmp"));
    const auto png = Support::PngFile(7, 5);
    std::ofstream(folder.Path() / "b.PNG", std::ios::binary)
        .write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
    std::ofstream(folder.Path() / "c.bmp") << "no bitmap";
    std::ofstream(folder.Path() / "d.xyz") << "x";

    picture.LoadFromFile(path("b.PNG"));
    EXPECT_EQ(picture.getGraphic()->ClassName(), u"TPngImage");
    EXPECT_EQ(picture.getWidth(), 7);
    EXPECT_THROW(picture.LoadFromFile(path("c.bmp")), EInvalidGraphic);
    EXPECT_THROW(picture.LoadFromFile(path("d.xyz")), EInvalidGraphic);
    EXPECT_THROW(picture.LoadFromFile(path("e.bmp")), Classes::EFOpenError);
    EXPECT_EQ(picture.getWidth(), 7);
    picture.LoadFromFile(path("a.bmp"));
    EXPECT_EQ(picture.getGraphic()->ClassName(), u"TBitmap");
}

TEST(GraphicsPictureTest, StoresClassAndGraphic)
{
    TPicture picture;
    picture.getBitmap()->SetSize(3, 2);
    Classes::TBytesStream stream;
    picture.WriteData(&stream);
    EXPECT_EQ(stream.AsView().substr(0, 8), "\7TBitmap");
    TPicture empty;
    empty.WriteData(&stream);
    stream.setPosition(0);
    TPicture read;
    read.ReadData(&stream);
    EXPECT_EQ(read.getWidth(), 3);
    EXPECT_EQ(read.getGraphic()->ClassName(), u"TBitmap");
    read.ReadData(&stream);
    EXPECT_EQ(read.getGraphic(), nullptr);

    for (const std::string_view bytes :
         {std::string_view("\7TBitmap\0\0\0\1", 12), {"\7TNobody", 8}, {"\7TBit", 5}, {"\7TCanvas", 8}}) {
        Classes::TBytesStream damaged;
        damaged.WriteBuffer(bytes.data(), static_cast<System::Int64>(bytes.size()));
        damaged.setPosition(0);
        picture.getBitmap()->SetSize(3, 2);
        EXPECT_THROW(picture.ReadData(&damaged), Sysutils::Exception);
        EXPECT_EQ(picture.getWidth(), 3);
    }
}

TEST(GraphicsPictureTest, KnowsRegisteredFormats)
{
    EXPECT_EQ(GraphicExtension(System::ClassOf<TBitmap>()), u"bmp");
    EXPECT_EQ(GraphicFileMask(System::ClassOf<TMetafile>()), u"*.emf;*.wmf");
    EXPECT_EQ(GraphicFilter(System::ClassOf<TIcon>()), u"Icons (*.ico)|*.ico");
    EXPECT_EQ(GraphicFilter(System::ClassOf<TMetafile>()),
              u"All (*.emf;*.wmf)|*.emf;*.wmf|Enhanced Metafiles (*.emf)|*.emf|Metafiles (*.wmf)|*.wmf");

    TPicture::RegisterFileFormat(u"own", u"Own pictures", System::ClassOf<TOwnBitmap>());
    EXPECT_EQ(GraphicFileMask(System::ClassOf<TBitmap>()), u"*.own;*.bmp");
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "a.own").string());
    TBitmap(2, 2).SaveToFile(path);
    TPicture picture;
    picture.LoadFromFile(path);
    EXPECT_EQ(picture.getGraphic()->ClassName(), u"TOwnBitmap");
    TPicture::UnregisterGraphicClass(System::ClassOf<TOwnBitmap>());
    EXPECT_THROW(picture.LoadFromFile(path), EInvalidGraphic);
    for (System::TMetaClass* type : {static_cast<System::TMetaClass*>(nullptr), System::ClassOf<TGraphic>(),
                                     System::ClassOf<TCanvas>()}) {
        EXPECT_THROW(TPicture::RegisterFileFormat(u"x", u"x", type), EInvalidGraphicOperation);
    }
}

} // namespace
