// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Icon.h"

#include "platform/host/Host_Error.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_IconHandle.h"
#include "support/DrawnPixels.h"
#include "support/IconFiles.h"
#include "support/WithoutCodecs.h"

#include <gtest/gtest.h>

namespace
{

using namespace Graphics;
using Support::Drawn;
using Support::FileBytes;
using Support::IconFile;
using Support::IconImage;
using Support::Load;
using Support::Saved;

TEST(GraphicsIconTest, TakesTheImageThatIsNearest)
{
    const auto bytes = IconFile({IconImage(2, 2, 0xFF0000), IconImage(4, 4, 0xFF)});
    TIcon icon;
    EXPECT_TRUE(icon.getEmpty());
    EXPECT_EQ(icon.getWidth(), 32);
    Load(icon, bytes);
    EXPECT_EQ(icon.getCount(), 2);
    EXPECT_EQ(icon.getWidth(), 4);
    icon.SetSize(1, 1);
    EXPECT_EQ(icon.getHeight(), 2);
    EXPECT_EQ(Drawn(icon.PixelsFor(2, 2)), " r\nrr\n");
    EXPECT_EQ(Drawn(icon.PixelsFor(99, 99)), " bbb\nbbbb\nbbbb\nbbbb\n");
    EXPECT_THROW(icon.SetSize(-1, 1), EInvalidGraphicOperation);
    EXPECT_EQ(Saved(icon), bytes);
    TIcon copy;
    copy.Assign(&icon);
    EXPECT_EQ(Saved(copy), bytes);
    EXPECT_TRUE(icon.getTransparent());
}

TEST(GraphicsIconTest, IsDrawnOnTheGround)
{
    TIcon icon;
    Load(icon, IconFile({IconImage(2, 2, 0xFF0000)}));
    TBitmap bitmap(4, 3);
    bitmap.getCanvas()->Draw(1, 1, &icon);
    EXPECT_EQ(Drawn(*bitmap.SharePixels()), "....\n..r.\n.rr.\n");
    TBitmap converted;
    converted.Assign(&icon);
    EXPECT_EQ(Drawn(*converted.SharePixels()), " r\nrr\n");
}

TEST(GraphicsIconTest, ComesFromABitmap)
{
    TBitmap bitmap(2, 2);
    bitmap.getCanvas()->setPixels(1, 0, clRed);
    bitmap.setTransparent(true);
    TIcon icon;
    icon.Assign(&bitmap);
    EXPECT_EQ(icon.getWidth(), 2);
    TIcon loaded;
    Load(loaded, Saved(icon));
    EXPECT_EQ(Drawn(loaded.PixelsFor(2, 2)), " r\n  \n");
    icon.Assign(nullptr);
    EXPECT_TRUE(icon.getEmpty());
    EXPECT_THROW(icon.PixelsFor(2, 2), EInvalidGraphicOperation);
}

TEST(GraphicsIconTest, StaysAsItWasWhenAFileIsDamaged)
{
    auto beyond = IconFile({IconImage(2, 2, 0)});
    beyond[6 + 8] = 255;
    auto noHeader = IconFile({IconImage(2, 2, 0)});
    noHeader[6 + 16] = 7;
    TIcon icon;
    Load(icon, IconFile({IconImage(2, 2, 0xFF0000)}));
    for (const auto& bytes : {std::vector<System::Byte>{0, 0, 1},
                              {0, 0, 1, 0, 0, 0},
                              {0, 0, 1, 0, 2, 0, 0},
                              {0, 0, 7, 0, 1, 0},
                              beyond,
                              noHeader}) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        EXPECT_THROW(Load(icon, bytes), EInvalidGraphic);
        EXPECT_EQ(icon.getCount(), 1);
    }
    // Pixels are looked at when they are asked for.
    auto truncated = IconFile({IconImage(2, 2, 0)});
    truncated[6 + 8] = 44;
    Load(icon, truncated);
    EXPECT_THROW(icon.PixelsFor(2, 2), EInvalidGraphic);
}

TEST(GraphicsIconTest, KeepsAnImageThatNeedsACodec)
{
    const Support::WithoutCodecs none;
    const auto bytes = IconFile({Support::PngFile(2, 2)});
    TIcon icon;
    Load(icon, bytes);
    EXPECT_EQ(icon.getCount(), 1);
    EXPECT_EQ(Saved(icon), bytes);
    EXPECT_THROW(icon.PixelsFor(2, 2), EInvalidGraphic);
}

TEST(GraphicsIconTest, IsMadeOfMaskAndPicture)
{
    TBitmap color(2, 1);
    color.getCanvas()->setPixels(0, 0, clRed);
    TBitmap mask(2, 1);
    mask.getCanvas()->setPixels(0, 0, clBlack);
    const ICONINFO info{.yHotspot = 0, .hbmMask = mask.getHandle(), .hbmColor = color.getHandle()};
    const HICON handle = CreateIconIndirect(&info);
    ASSERT_NE(handle, nullptr);
    TIcon icon;
    icon.setHandle(handle);
    EXPECT_EQ(icon.getHandle(), handle);
    EXPECT_EQ(Drawn(icon.PixelsFor(2, 1)), "r \n");

    TBitmap both(2, 2);
    both.getCanvas()->setPixels(1, 0, clBlack);
    both.getCanvas()->setPixels(1, 1, clBlue);
    const ICONINFO half{.hbmMask = both.getHandle()};
    icon.setHandle(CreateIconIndirect(&half));
    EXPECT_EQ(Drawn(icon.PixelsFor(2, 1)), " b\n");
    const HICON released = icon.ReleaseHandle();
    EXPECT_TRUE(icon.getEmpty());
    const HICON copy = CopyIcon(released);
    EXPECT_TRUE(DestroyIcon(released));
    EXPECT_TRUE(DestroyIcon(copy));
}

TEST(GraphicsIconTest, TellsWhatIsWrongWithHandles)
{
    TBitmap small(1, 1);
    TBitmap large(2, 2);
    const ICONINFO none;
    const ICONINFO unequal{.hbmMask = small.getHandle(), .hbmColor = large.getHandle()};
    for (const ICONINFO* info : {static_cast<const ICONINFO*>(nullptr), &none, &unequal}) {
        ::SetLastError(0);
        EXPECT_EQ(CreateIconIndirect(info), nullptr);
        EXPECT_EQ(::GetLastError(), ERROR_INVALID_PARAMETER);
    }
    EXPECT_FALSE(DestroyIcon(nullptr));
    EXPECT_EQ(CopyIcon(nullptr), nullptr);
    EXPECT_EQ(::GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_FALSE(DrawIconEx(small.getCanvas()->getHandle(), 0, 0, nullptr, 0, 0, 0, nullptr, DI_NORMAL));
    TIcon icon;
    Load(icon, IconFile({Support::PngFile(2, 2)}));
    EXPECT_FALSE(DrawIconEx(nullptr, 0, 0, icon.getHandle(), 0, 0, 0, nullptr, DI_NORMAL));
    EXPECT_FALSE(
        DrawIconEx(small.getCanvas()->getHandle(), 0, 0, icon.getHandle(), 0, 0, 0, nullptr, DI_NORMAL));
    EXPECT_EQ(::GetLastError(), ERROR_INVALID_DATA);
}

TEST(GraphicsIconTest, IsDrawnByItsHandle)
{
    struct TCase
    {
        int width;
        const Toolkits::TBrushData* brush;
        unsigned flags;
        std::string pixels;
    };
    const Toolkits::TBrushData blue{.color = Support::Blue};
    const TCase cases[] = {{0, nullptr, DI_NORMAL, "....\n..r.\n.rr.\n"},
                           {0, &blue, DI_NORMAL, "....\n.br.\n.rr.\n"},
                           {3, &blue, DI_NORMAL, "....\n.brr\n.rrr\n"},
                           {0, nullptr, DI_MASK, "....\n..#.\n.##.\n"},
                           {0, nullptr, DI_IMAGE, "....\n.#r.\n.rr.\n"}};
    TIcon icon;
    Load(icon, IconFile({IconImage(2, 2, 0xFF0000)}));
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.pixels);
        Support::WhitePaper paper(4, 3);
        EXPECT_TRUE(DrawIconEx(&*paper, 1, 1, icon.getHandle(), row.width, 0, 0, row.brush, row.flags));
        EXPECT_EQ(paper.Text(), row.pixels);
    }
}

} // namespace
