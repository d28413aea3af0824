// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Controls_ImageList.h"

#include "platform/runtime/filer/FilerSupport.h"
#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using Controls::TChangeLink;
using Controls::TImageList;
using Graphics::TBitmap;

/// Two pictures side by side, red and blue.
TBitmap& Strip()
{
    static TBitmap& bitmap = *new TBitmap(8, 3);
    bitmap.getCanvas()->getBrush()->setColor(Graphics::clRed);
    bitmap.getCanvas()->FillRect({0, 0, 4, 3});
    bitmap.getCanvas()->getBrush()->setColor(Graphics::clBlue);
    bitmap.getCanvas()->FillRect({4, 0, 8, 3});
    return bitmap;
}

Graphics::TColor DrawnAt(const TImageList& images, int index, int x, int y)
{
    TBitmap target(8, 8);
    images.Draw(target.getCanvas(), 0, 0, index);
    return target.getCanvas()->getPixels(x, y);
}

TEST(ImageListTest, CutsPicturesOfItsSize)
{
    TImageList images;
    images.setWidth(4);
    images.setHeight(4);
    EXPECT_EQ(images.Add(&Strip()), 0);
    EXPECT_EQ(images.AddMasked(&Strip(), Graphics::clBlue), 2);
    EXPECT_EQ(images.getCount(), 4);
    EXPECT_EQ(DrawnAt(images, 0, 3, 2), Graphics::clRed);
    EXPECT_EQ(DrawnAt(images, 1, 3, 2), Graphics::clBlue);
    EXPECT_EQ(DrawnAt(images, 2, 0, 0), Graphics::clRed);
    EXPECT_EQ(DrawnAt(images, 3, 0, 0), Graphics::clWhite);
    // What the bitmap is too low for lets through.
    EXPECT_EQ(DrawnAt(images, 0, 0, 3), Graphics::clWhite);
    images.Delete(0);
    EXPECT_EQ(DrawnAt(images, 0, 0, 0), Graphics::clBlue);
    for (const int index : {-1, 3}) {
        images.Delete(index);
        EXPECT_EQ(DrawnAt(images, index, 0, 0), Graphics::clWhite);
    }
    images.Draw(nullptr, 0, 0, 0);
    EXPECT_EQ(images.Add(nullptr), -1);
    images.setWidth(9);
    EXPECT_EQ(images.getCount(), 0);
    EXPECT_EQ(images.Add(&Strip()), -1);
    images.setWidth(0);
    images.setHeight(1 << 30);
    EXPECT_EQ(images.getWidth(), 1);
    EXPECT_EQ(images.getHeight(), TImageList::MaximumExtent);
}

TEST(ImageListTest, TellsThoseWhoShowIt)
{
    auto images = std::make_unique<TImageList>();
    TChangeLink first;
    int count = 0;
    first.OnChange = [&count](System::TObject*) { ++count; };
    first.setSender(images.get());
    {
        TChangeLink second;
        second.setSender(images.get());
    }
    images->Add(&Strip());
    images->setWidth(4);
    images->setWidth(4);
    EXPECT_EQ(count, 1);
    images->Add(&Strip());
    images->Clear();
    images->Clear();
    EXPECT_EQ(count, 3);
    images.reset();
    EXPECT_EQ(count, 4);
    EXPECT_EQ(first.getSender(), nullptr);
}

TEST(ImageListTest, ADesignKeepsIt)
{
    TImageList images;
    images.setWidth(4);
    images.setHeight(3);
    images.AddMasked(&Strip(), Graphics::clBlue);
    Classes::TMemoryStream stream;
    stream.WriteComponent(&images);
    stream.setPosition(0);
    TImageList copy;
    stream.ReadComponent(&copy);
    EXPECT_EQ(copy.getCount(), 2);
    EXPECT_EQ(DrawnAt(copy, 0, 0, 0), Graphics::clRed);
    EXPECT_EQ(DrawnAt(copy, 1, 0, 0), Graphics::clWhite);
    stream.Clear();
    stream.WriteDescendent(&images, &copy);
    EXPECT_EQ(stream.AsView().find("Pictures"), std::string_view::npos);
    const auto broken = FilerTest::StreamOf(FilerTest::Compiled(
        "object A: TImageList\n  Width = 1\n  Height = 1\n  Pictures = {FF000001FF}\nend"));
    broken->ReadComponent(&copy);
    EXPECT_EQ(copy.getCount(), 1);
}

} // namespace
