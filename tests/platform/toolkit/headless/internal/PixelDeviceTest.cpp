// SPDX-License-Identifier: MIT
#include "support/DrawnPixels.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace
{

using namespace Graphics;
using Support::Black;
using Support::Blue;
using Support::Green;
using Support::Red;
using Support::White;
using Support::WhitePaper;
using Toolkits::EArc;
using Toolkits::EFlood;
using Toolkits::PaintDevice;
using Toolkits::Pixels;
using Types::TPoint;
using Types::TRect;

struct TCase
{
    const char* name;
    void (*draw)(PaintDevice&);
    std::string picture;
};

Toolkits::TBrushData Brush(Toolkits::TPixel color, TBrushStyle style = bsSolid)
{
    return {.color = color, .style = style, .pattern = {}};
}

void Line(PaintDevice& device, const TPoint& from, const TPoint& to, const Toolkits::TPenData& pen = {})
{
    device.Polyline(std::array{from, to}, pen);
}

TEST(PixelDeviceTest, DrawsLinesAndShapes)
{
    const TCase cases[] = {
        {"line",
         [](PaintDevice& device) {
             Line(device, {0, 0}, {5, 0});
         },
         "#####...\n........\n........\n........\n........\n"},
        {"steep",
         [](PaintDevice& device) {
             Line(device, {2, 4}, {0, 0});
         },
         "........\n#.......\n.#......\n.#......\n..#.....\n"},
        {"slope",
         [](PaintDevice& device) {
             Line(device, {0, 0}, {8, 4});
         },
         "#.......\n.##.....\n...##...\n.....##.\n.......#\n"},
        {"dots",
         [](PaintDevice& device) {
             Line(device, {0, 1}, {8, 1}, {.style = psDot});
         },
         "........\n###...##\n........\n........\n........\n"},
        {"wide",
         [](PaintDevice& device) {
             Line(device, {2, 2}, {6, 2}, {.width = 3});
         },
         "........\n.#######\n.#######\n.#######\n........\n"},
        {"crossing",
         [](PaintDevice& device) {
             device.Polyline(std::array{TPoint{1, 2}, TPoint{7, 2}, TPoint{1, 2}},
                             {.width = 2, .mode = pmNot});
         },
         "........\n########\n########\n........\n........\n"},
        {"rectangle",
         [](PaintDevice& device) {
             device.Rectangle({1, 0, 6, 4}, {}, {}, Brush(Red));
         },
         ".#####..\n.#rrr#..\n.#rrr#..\n.#####..\n........\n"},
        {"turned edges",
         [](PaintDevice& device) {
             device.Rectangle({6, 4, 1, 0}, {}, {}, Brush(Red));
         },
         ".#####..\n.#rrr#..\n.#rrr#..\n.#####..\n........\n"},
        {"frame",
         [](PaintDevice& device) {
             device.Rectangle({2, 1, 6, 4}, {}, {.width = 2, .style = psInsideFrame}, Brush(Red));
         },
         "........\n..####..\n..####..\n..####..\n........\n"},
        {"wide frame",
         [](PaintDevice& device) {
             device.Rectangle({2, 1, 8, 5}, {}, {.width = 2}, Brush(Red));
         },
         ".#######\n.#######\n.##rrr##\n.#######\n.#######\n"},
        {"round",
         [](PaintDevice& device) {
             device.Rectangle({0, 0, 8, 5}, {4, 4}, {}, Brush(Red));
         },
         ".######.\n#rrrrrr#\n#rrrrrr#\n#rrrrrr#\n.######.\n"},
        {"ellipse",
         [](PaintDevice& device) {
             device.Ellipse({0, 0, 8, 5}, {.style = psClear}, Brush(Red));
         },
         "..rrrr..\nrrrrrrrr\nrrrrrrrr\nrrrrrrrr\n..rrrr..\n"},
        {"ring",
         [](PaintDevice& device) {
             device.Ellipse({0, 0, 8, 5}, {}, Brush(Red, bsClear));
         },
         "..####..\n##....##\n#......#\n##....##\n..####..\n"},
        {"fill",
         [](PaintDevice& device) {
             device.FillRect({1, 1, 3, 3}, Brush(Blue));
         },
         "........\n.bb.....\n.bb.....\n........\n........\n"},
        {"hatch",
         [](PaintDevice& device) {
             device.FillRect({0, 0, 8, 5}, Brush(Blue, bsCross));
         },
         "bbbbbbbb\nb.......\nb.......\nb.......\nb.......\n"},
        {"diagonal",
         [](PaintDevice& device) {
             device.FillRect({0, 0, 8, 3}, Brush(Blue, bsDiagCross));
         },
         "b.......\n.b.....b\n..b...b.\n........\n........\n"},
        {"triangle",
         [](PaintDevice& device) {
             device.Polygon(std::array{TPoint{0, 0}, TPoint{4, 0}, TPoint{0, 4}}, {.style = psClear},
                            Brush(Red));
         },
         "rrr.....\nrr......\nr.......\n........\n........\n"},
        {"even and odd",
         [](PaintDevice& device) {
             device.Polygon(std::array{TPoint{0, 0}, TPoint{8, 0}, TPoint{8, 5}, TPoint{0, 5}, TPoint{0, 0},
                                       TPoint{2, 1}, TPoint{6, 1}, TPoint{6, 4}, TPoint{2, 4}, TPoint{2, 1}},
                            {.style = psClear}, Brush(Red));
         },
         "rrrrrrrr\nrr....rr\nrr....rr\nrr....rr\nrrrrrrrr\n"},
        {"by the turns of the line",
         [](PaintDevice& device) {
             Toolkits::TBrushData brush = Brush(Red);
             brush.rule = Toolkits::EFillRule::Winding;
             // Around twice, then around and back.
             device.Polygon(std::array{TPoint{0, 0}, TPoint{4, 0}, TPoint{4, 5}, TPoint{0, 5}, TPoint{0, 0},
                                       TPoint{1, 1}, TPoint{3, 1}, TPoint{3, 4}, TPoint{1, 4}, TPoint{1, 1}},
                            {.style = psClear}, brush);
             device.Polygon(std::array{TPoint{4, 0}, TPoint{8, 0}, TPoint{8, 5}, TPoint{4, 5}, TPoint{4, 0},
                                       TPoint{5, 1}, TPoint{5, 4}, TPoint{7, 4}, TPoint{7, 1}, TPoint{5, 1}},
                            {.style = psClear}, brush);
         },
         "rrrrrrrr\nrrrrr..r\nrrrrr..r\nrrrrr..r\nrrrrrrrr\n"},
        {"focus",
         [](PaintDevice& device) {
             device.FocusRect({0, 0, 5, 3});
         },
         ".#.#....\n#...#...\n.#.#....\n........\n........\n"},
        {"flood",
         [](PaintDevice& device) {
             device.Rectangle({1, 0, 6, 4}, {}, {}, Brush(White));
             device.FloodFill({2, 2}, White, EFlood::Surface, Brush(Green));
             device.FloodFill({7, 0}, Black, EFlood::Border, Brush(Blue));
         },
         "b#####bb\nb#ggg#bb\nb#ggg#bb\nb#####bb\nbbbbbbbb\n"},
        {"text",
         [](PaintDevice& device) {
             device.Text({0, 0}, u"a i", {.height = -4},
                         {.color = Red, .background = Blue, .isOpaque = true});
         },
         "bbbb....\nrbbr....\nrbbr....\nrbbr....\nbbbb....\n"},
        {"clipped text",
         [](PaintDevice& device) {
             const TRect clip{0, 0, 8, 2};
             device.Text({1, 0}, u"ab", {.height = -4, .styles = {fsStrikeOut}},
                         {.color = Red, .clip = &clip});
         },
         "........\n.r.r....\n........\n........\n........\n"}};
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.name);
        WhitePaper paper(8, 5);
        row.draw(*paper);
        EXPECT_EQ(paper.Text(), row.picture);
    }
}

TEST(PixelDeviceTest, MixesInEachMode)
{
    constexpr Toolkits::TPixel pen = 0xFF0F0F0F;
    constexpr Toolkits::TPixel there = 0xFF333333;
    for (const auto& [mode, mixed] : {std::pair(pmBlack, 0x00U),
                                      {pmWhite, 0xFFU},
                                      {pmNop, 0x33U},
                                      {pmNot, 0xCCU},
                                      {pmCopy, 0x0FU},
                                      {pmNotCopy, 0xF0U},
                                      {pmMergePenNot, 0xCFU},
                                      {pmMaskPenNot, 0x0CU},
                                      {pmMergeNotPen, 0xF3U},
                                      {pmMaskNotPen, 0x30U},
                                      {pmMerge, 0x3FU},
                                      {pmNotMerge, 0xC0U},
                                      {pmMask, 0x03U},
                                      {pmNotMask, 0xFCU},
                                      {pmXor, 0x3CU},
                                      {pmNotXor, 0xC3U}}) {
        SCOPED_TRACE(mode);
        Pixels pixels(2, 1, there);
        const auto device = Toolkits::CurrentToolkit().NewPixelDevice(pixels);
        Line(*device, {0, 0}, {1, 0}, {.color = pen, .mode = mode});
        EXPECT_EQ(pixels.At(0, 0) & 0xFFU, mixed);
        EXPECT_EQ(pixels.At(0, 0) >> 24U, 0xFFU);
        EXPECT_EQ(pixels.At(1, 0), there);
    }
}

TEST(PixelDeviceTest, DrawsImages)
{
    Pixels image(2, 2, Red);
    image.At(1, 0) = Green;
    image.At(0, 1) = Blue;
    image.At(1, 1) = 0;
    struct TImageCase
    {
        TRect source;
        TRect target;
        Toolkits::TImageOptions options;
        std::string picture;
    };
    const TImageCase cases[] = {
        {{0, 0, 2, 2}, {1, 0, 3, 2}, {}, ".rg.\n.b#.\n....\n"},
        {{0, 0, 2, 2}, {1, 0, 3, 2}, {.hasAlpha = true}, ".rg.\n.b..\n....\n"},
        {{0, 0, 2, 2}, {0, 0, 4, 3}, {.hasAlpha = true}, "rrgg\nbb..\nbb..\n"},
        {{0, 0, 2, 2}, {3, 2, 1, 0}, {}, ".#b.\n.gr.\n....\n"},
        {{1, 0, 2, 1}, {0, 0, 2, 2}, {}, "gg..\ngg..\n....\n"},
        {{-1, -1, 1, 1}, {0, 0, 2, 2}, {}, "....\n.r..\n....\n"},
        {{0, 0, 1, 1}, {0, 0, 1, 1}, {.operation = 0x66}, "?...\n....\n....\n"},
        {{0, 0, 2, 2}, {0, 0, 2, 1}, {.operation = 0xF0, .brush = Blue}, "bb..\n....\n....\n"},
        {{0, 0, 0, 2}, {0, 0, 2, 2}, {}, "....\n....\n....\n"}};
    for (const TImageCase& row : cases) {
        SCOPED_TRACE(row.picture);
        WhitePaper paper(4, 3);
        paper->Image(image, row.source, row.target, row.options);
        EXPECT_EQ(paper.Text(), row.picture);
    }
}

TEST(PixelDeviceTest, BlendsByAlphaAndOpacity)
{
    WhitePaper paper(2, 1);
    paper->Image(Pixels(1, 1, 0x80FF0000U), {0, 0, 1, 1}, {0, 0, 1, 1}, {.hasAlpha = true});
    paper->Image(Pixels(1, 1, Black), {0, 0, 1, 1}, {1, 0, 2, 1}, {.hasAlpha = true, .opacity = 51});
    EXPECT_EQ(paper.getPixels().At(0, 0), 0xFFFF7F7FU);
    EXPECT_EQ(paper.getPixels().At(1, 0), 0xFFCCCCCCU);
}

TEST(PixelDeviceTest, ReadsPixelsFromTheOrigin)
{
    WhitePaper paper(3, 2);
    paper->MoveOrigin(1, 1);
    paper->SetPixel({0, 0}, Red);
    paper->SetPixel({9, 9}, Red);
    Toolkits::TPixel pixel = 0;
    EXPECT_TRUE(paper->GetPixel({0, 0}, pixel));
    EXPECT_EQ(pixel, Red);
    EXPECT_FALSE(paper->GetPixel({2, 0}, pixel));
    Pixels pixels;
    EXPECT_TRUE(paper->ReadPixels({-1, 0, 3, 2}, pixels));
    EXPECT_EQ(Support::Drawn(pixels), ".r. \n    \n");
}

TEST(PixelDeviceTest, DrawsNothingOutsideTheClip)
{
    WhitePaper paper(6, 3);
    paper->PushState();
    paper->MoveOrigin(1, 0);
    paper->IntersectClip({0, 1, 3, 2});
    paper->FillRect({-9, -9, 99, 99}, Brush(Red));
    Line(*paper, {-5, 1}, {99, 1});
    paper->Text({-50, -1}, u"aaaaaaaaaaaaaaaaaaaaaaaa", {}, {.color = Blue});
    paper->PopState();
    EXPECT_EQ(paper->ClipRect(), (TRect{0, 0, 6, 3}));
    EXPECT_EQ(paper.Text().substr(0, 7), "......\n");
    EXPECT_EQ(paper.Text().substr(14), "......\n");
    EXPECT_EQ(paper.Text()[7], '.');
    EXPECT_NE(paper.Text()[8], '.');
    EXPECT_EQ(paper.Text()[11], '.');
}

TEST(PixelDeviceTest, DrawsArcs)
{
    // Counterclockwise from the right to the top: a quarter.
    WhitePaper paper(9, 9);
    paper->Arc(EArc::Pie, {0, 0, 9, 9}, {9, 4}, {4, 0}, {.style = psClear}, Brush(Red));
    Toolkits::TPixel pixel = 0;
    EXPECT_TRUE(paper->GetPixel({5, 2}, pixel));
    EXPECT_EQ(pixel, Red);
    for (const TPoint& outside : {TPoint{3, 2}, TPoint{3, 6}, TPoint{6, 6}, TPoint{8, 0}}) {
        EXPECT_TRUE(paper->GetPixel(outside, pixel));
        EXPECT_EQ(pixel, White) << outside.X << ',' << outside.Y;
    }
    // The same point twice means all of it.
    WhitePaper whole(9, 9);
    whole->Arc(EArc::Chord, {0, 0, 9, 9}, {9, 4}, {9, 4}, {}, Brush(Red));
    EXPECT_TRUE(whole->GetPixel({2, 4}, pixel));
    EXPECT_EQ(pixel, Red);
    WhitePaper line(9, 9);
    line->Arc(EArc::Open, {0, 0, 9, 9}, {9, 4}, {4, 0}, {}, {});
    EXPECT_TRUE(line->GetPixel({8, 4}, pixel));
    EXPECT_EQ(pixel, Black);
    EXPECT_TRUE(line->GetPixel({4, 4}, pixel));
    EXPECT_EQ(pixel, White);
}

TEST(PixelDeviceTest, BearsAnyPlaceAndSize)
{
    constexpr int most = std::numeric_limits<int>::max();
    const TRect everything{-most - 1, -most - 1, most, most};
    const Toolkits::TPenData pens[] = {{}, {.width = most}, {.style = psDashDot}};
    for (const Toolkits::TPenData& pen : pens) {
        WhitePaper paper(16, 16);
        paper->PushState();
        paper->MoveOrigin(most, most);
        paper->MoveOrigin(most, most);
        paper->Ellipse(everything, pen, Brush(Red));
        paper->PopState();
        paper->Rectangle(everything, {most, most}, pen, Brush(Red));
        paper->Ellipse(everything, pen, Brush(Red));
        paper->Arc(EArc::Pie, everything, {most, most}, {-most, most}, pen, Brush(Red));
        paper->Polygon(std::array{TPoint{-most, -most}, TPoint{most, 5}, TPoint{-3, most}}, pen, Brush(Red));
        Line(*paper, {-most, most}, {most, -most}, pen);
        paper->Image(Pixels(1, 1), {-most, -most, most, most}, everything, {});
        paper->Text({-most, -most}, u"text", {.height = most, .orientation = most}, {.isOpaque = true});
        paper->FocusRect(everything);
        paper->FloodFill({most, most}, White, EFlood::Surface, {});
        Line(*paper, {0, 0}, {2, 0}, {.color = Green});
        EXPECT_EQ(paper.Text().substr(0, 2), "gg");
    }
}

} // namespace
