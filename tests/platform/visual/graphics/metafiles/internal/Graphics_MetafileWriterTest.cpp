// SPDX-License-Identifier: MIT
#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_Metafile.h"
#include "support/DrawnPixels.h"
#include "support/PictureFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

namespace
{

using namespace Graphics;
using Support::Load;
using Support::Saved;
using Toolkits::EArc;
using Toolkits::PaintDevice;
using Toolkits::Pixels;
using Types::TPoint;

constexpr Toolkits::TPenData Pen{.color = Support::Blue, .width = 2};
const Toolkits::TBrushData Brush{.color = Support::Green};

Pixels Image()
{
    Pixels pixels(2, 2, Support::Red);
    pixels.At(1, 1) = Support::Blue;
    return pixels;
}

struct TCase
{
    const char* name;
    std::function<void(PaintDevice&)> draw;
};

const TCase Cases[] = {
    {"polyline",
     [](PaintDevice& device) {
         const TPoint points[] = {{1, 2}, {30, 4}, {5, 36}};
         device.Polyline(points, Pen);
         device.Polyline(points, {.style = psDashDot, .mode = pmXor});
     }},
    {"polygon",
     [](PaintDevice& device) {
         const TPoint points[] = {{1, 2}, {30, 4}, {5, 36}};
         device.Polygon(points, {.color = Support::Red}, {.color = Support::Blue, .style = bsDiagCross});
         const TPoint star[] = {{20, 2}, {30, 36}, {2, 14}, {38, 14}, {10, 36}};
         device.Polygon(star, {}, {.color = Support::Blue, .rule = Toolkits::EFillRule::Winding});
         device.Polygon(star, {}, {.color = Support::Green});
     }},
    {"rectangles",
     [](PaintDevice& device) {
         device.Rectangle({1, 2, 20, 12}, {}, {}, Brush);
         device.Rectangle({1, 20, 20, 34}, {6, 8}, Pen, {.style = bsClear});
         device.FillRect({22, 2, 30, 12}, Brush);
         device.FocusRect({22, 20, 30, 34});
         device.FocusRect({22, 14, 30, 15});
         device.FocusRect({32, 14, 33, 30});
         device.FocusRect({34, 14, 34, 30});
     }},
    {"ellipse and arcs",
     [](PaintDevice& device) {
         device.Ellipse({1, 2, 30, 22}, {.style = psClear}, Brush);
         device.Arc(EArc::Open, {1, 2, 30, 22}, {30, 12}, {15, 2}, Pen, Brush);
         device.Arc(EArc::Chord, {1, 22, 30, 39}, {30, 30}, {15, 22}, {}, Brush);
         device.Arc(EArc::Pie, {5, 5, 25, 25}, {5, 5}, {25, 25}, {}, {});
     }},
    {"pixels and floods",
     [](PaintDevice& device) {
         device.SetPixel({3, 4}, Support::Red);
         device.Rectangle({5, 5, 15, 15}, {}, {}, {});
         device.FloodFill({8, 8}, Support::Black, Toolkits::EFlood::Border, Brush);
         device.FloodFill({0, 0}, Support::White, Toolkits::EFlood::Surface, {.color = Support::Blue});
     }},
    {"texts",
     [](PaintDevice& device) {
         const Types::TRect clip{0, 0, 20, 20};
         device.Text({2, 3}, u"Druck \u00B5",
                     {.name = u"Arial", .styles = TFontStyles() << fsBold << fsUnderline},
                     {.color = Support::Red});
         device.Text({2, 14}, u"\u0394p", {.name = u"Tahoma", .height = -9, .charset = 0},
                     {.background = Support::Green, .isOpaque = true, .clip = &clip});
         device.Text({20, 30}, u"up", {.name = u"Tahoma", .orientation = 900}, {});
     }},
    {"images",
     [](PaintDevice& device) {
         device.Image(Image(), {0, 0, 2, 2}, {5, 5, 25, 15}, {});
         device.Image(Image(), {1, 0, 2, 2}, {30, 5, 26, 15}, {});
         device.Image(Image(), {0, 0, 2, 2}, {5, 20, 25, 30}, {.operation = 0x66});
         device.Image(Image(), {0, 0, 2, 2}, {5, 30, 25, 39}, {.operation = 0x5A, .brush = Support::Green});
     }},
    {"images that let through",
     [](PaintDevice& device) {
         Pixels image = Image();
         image.At(0, 0) = 0;
         device.FillRect({0, 0, 40, 40}, Brush);
         device.Image(image, image.Bounds(), {5, 5, 25, 15}, {.hasAlpha = true});
         device.Image(Image(), {0, 0, 2, 2}, {5, 20, 25, 30}, {.hasAlpha = true});
     }},
    {"patterns",
     [](PaintDevice& device) {
         device.FillRect({1, 1, 9, 9}, {.pattern = Toolkits::TSharedPixels(new Pixels(Image()))});
     }},
    {"clip rectangles and origins",
     [](PaintDevice& device) {
         device.Rectangle({0, 0, 40, 40}, {}, Pen, {});
         device.PushState();
         device.MoveOrigin(5, 5);
         device.IntersectClip({0, 0, 20, 20});
         device.Ellipse({-5, -5, 30, 30}, {.color = Support::Red}, Brush);
         device.PushState();
         device.IntersectClip({10, 10, 30, 30});
         device.FillRect({0, 0, 30, 30}, {.color = Support::Red});
         device.PopState();
         device.FillRect({2, 2, 4, 4}, {.color = Support::Black});
         device.PopState();
         device.FillRect({30, 30, 39, 39}, Brush);
     }},
};

/// The metafile of the drawing, on 40 by 40 pixels.
void Draw(TMetafile& metafile, const TCase& row)
{
    metafile.SetSize(40, 40);
    TMetafileCanvas canvas(&metafile, nullptr);
    row.draw(*canvas.getHandle());
}

std::string Shown(TMetafile& metafile)
{
    TBitmap bitmap(40, 40);
    bitmap.getCanvas()->Draw(0, 0, &metafile);
    return Support::Drawn(*bitmap.SharePixels());
}

TEST(GraphicsMetafileWriterTest, WritesWhatDrawsTheSame)
{
    for (const TCase& row : Cases) {
        for (const bool isEnhanced : {true, false}) {
            SCOPED_TRACE(std::string(row.name) + (isEnhanced ? ", enhanced" : ", older"));
            TMetafile drawn;
            Draw(drawn, row);
            drawn.setEnhanced(isEnhanced);
            TMetafile read;
            Load(read, Saved(drawn));
            EXPECT_EQ(read.getEnhanced(), isEnhanced);
            EXPECT_EQ(read.getWidth(), 40);
            EXPECT_EQ(read.getHeight(), 40);
            EXPECT_EQ(Shown(read), Shown(drawn)) << System::ToUtf8(read.Recording().AsText());
            EXPECT_NE(Shown(read).find_first_not_of(".\n"), std::string::npos);
            // From one type into the other.
            read.setEnhanced(!isEnhanced);
            TMetafile other;
            Load(other, Saved(read));
            EXPECT_EQ(Shown(other), Shown(drawn));
        }
    }
}

TEST(GraphicsMetafileWriterTest, KeepsTextsAndFonts)
{
    for (const bool isEnhanced : {true, false}) {
        TMetafile drawn;
        Draw(drawn, {"", [](PaintDevice& device) {
                         device.Text({2, 3}, u"\u041C\u0438\u0440",
                                     {.name = u"Arial", .height = -20, .pitch = fpFixed},
                                     {.isRightToLeft = true});
                     }});
        drawn.setEnhanced(isEnhanced);
        TMetafile read;
        Load(read, Saved(drawn));
        EXPECT_EQ(read.Recording().AsText(), drawn.Recording().AsText());
    }
}

TEST(GraphicsMetafileWriterTest, KeepsNames)
{
    for (const auto& [createdBy, description] :
         {std::pair(u"maker", u"\u0394p of a run"), {u"", u"odd"}, {u"", u""}}) {
        TMetafile drawn;
        Draw(drawn, Cases[0]);
        drawn.setCreatedBy(createdBy);
        drawn.setDescription(description);
        TMetafile read;
        Load(read, Saved(drawn));
        EXPECT_EQ(read.getCreatedBy(), createdBy);
        EXPECT_EQ(read.getDescription(), description);
        EXPECT_EQ(Shown(read), Shown(drawn));
        read.setDescription(u"another");
        TMetafile again;
        Load(again, Saved(read));
        EXPECT_EQ(again.getDescription(), u"another");
        EXPECT_EQ(Shown(again), Shown(drawn));
        drawn.setEnhanced(false);
        Load(read, Saved(drawn));
        EXPECT_EQ(read.getDescription(), u"");
    }
}

TEST(GraphicsMetafileWriterTest, StoresADrawingAsItIsShown)
{
    for (const bool isEnhanced : {true, false}) {
        TMetafile drawn;
        Draw(drawn, {"", [](PaintDevice& device) { device.Rectangle({0, 0, 40, 20}, {}, {}, {}); }});
        drawn.SetSize(100, 200);
        drawn.setEnhanced(isEnhanced);
        TMetafile read;
        Load(read, Saved(drawn));
        EXPECT_EQ(read.getWidth(), 100);
        EXPECT_EQ(read.getHeight(), 200);
        EXPECT_EQ(read.Recording().AsText(), u"rectangle 0,0,100,100 pen #000000 brush #FFFFFF\n");
    }
}

TEST(GraphicsMetafileWriterTest, RefusesTheOlderTypeWhereItIsTooSmall)
{
    TMetafile drawn;
    Draw(drawn, Cases[0]);
    drawn.SetSize(40'000, 10);
    drawn.setEnhanced(false);
    EXPECT_THROW(Saved(drawn), EInvalidGraphic);
    drawn.setEnhanced(true);
    TMetafile read;
    Load(read, Saved(drawn));
    EXPECT_EQ(read.getWidth(), 40'000);
}

TEST(GraphicsMetafileWriterTest, WritesHeadsThatOthersRead)
{
    TMetafile drawn;
    Draw(drawn, Cases[2]);
    const auto enhanced = Saved(drawn);
    const auto number = [](const std::vector<System::Byte>& file, std::size_t place, std::size_t size) {
        unsigned value = 0;
        for (std::size_t i = size; i > 0; --i) {
            value = value << 8U | file[place + i - 1];
        }
        return value;
    };
    EXPECT_EQ(number(enhanced, 48, 4), enhanced.size());
    // So many records as the head tells, the last of which tells its size.
    unsigned count = 0;
    for (std::size_t place = 0; place < enhanced.size(); place += number(enhanced, place + 4, 4)) {
        EXPECT_EQ(place % 4, 0U);
        ++count;
    }
    EXPECT_EQ(number(enhanced, 52, 4), count);
    EXPECT_EQ(number(enhanced, enhanced.size() - 4, 4), 20U);
    drawn.setEnhanced(false);
    const auto old = Saved(drawn);
    unsigned check = 0;
    for (std::size_t place = 0; place < 20; place += 2) {
        check ^= number(old, place, 2);
    }
    EXPECT_EQ(number(old, 20, 2), check);
    EXPECT_EQ(number(old, 22 + 6, 4) * 2 + 22, old.size());
    unsigned longest = 0;
    for (std::size_t place = 22 + 18; place < old.size(); place += 2 * number(old, place, 4)) {
        longest = std::max(longest, number(old, place, 4));
    }
    EXPECT_EQ(number(old, 22 + 12, 4), longest);
}

} // namespace
