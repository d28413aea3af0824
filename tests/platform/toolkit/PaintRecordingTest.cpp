// SPDX-License-Identifier: MIT
#include "platform/toolkit/PaintRecording.h"

#include "support/DrawnPixels.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <utility>

namespace
{

using Support::Black;
using Support::Red;
using Toolkits::EArc;
using Toolkits::EFlood;
using Toolkits::PaintRecording;
using Toolkits::Pixels;
using Types::TPoint;
using Types::TRect;

const Toolkits::TPenData OwnPen{.color = Red, .width = 3, .style = Graphics::psDot, .mode = Graphics::pmXor};
const Toolkits::TBrushData OwnBrush{.color = Black, .style = Graphics::bsCross, .pattern = {}};

/// One call of each kind.
void DrawAll(Toolkits::PaintDevice& device)
{
    const std::array points = {TPoint{1, 2}, TPoint{-3, 4}, TPoint{5, 6}};
    const TRect clip{0, 0, 50, 10};
    device.PushState();
    device.MoveOrigin(10, -20);
    device.IntersectClip({0, 0, 100, 100});
    device.SetPixel({4, 5}, Red);
    device.Polyline(points, {});
    device.Polygon(points, OwnPen, OwnBrush);
    device.FillRect({1, 2, 3, 4}, {});
    device.Rectangle({1, 2, 3, 4}, {}, {}, {});
    device.Rectangle({1, 2, 3, 4}, {2, 1}, {.style = Graphics::psClear}, {.style = Graphics::bsClear});
    device.Ellipse({1, 2, 3, 4}, {}, {.pattern = Toolkits::TSharedPixels(new Pixels(8, 6))});
    device.Arc(EArc::Open, {0, 0, 9, 9}, {9, 4}, {4, 0}, {}, {});
    device.Arc(EArc::Chord, {0, 0, 9, 9}, {9, 4}, {4, 0}, {}, {});
    device.Arc(EArc::Pie, {0, 0, 9, 9}, {9, 4}, {4, 0}, {}, {});
    device.Text({7, 8}, u"a \"b\"\n\\", {.name = u"Tahoma"}, {});
    device.Text({7, 8}, u"x",
                {.name = u"Symbol",
                 .height = -16,
                 .styles = {Graphics::fsBold, Graphics::fsUnderline},
                 .orientation = 900},
                {.color = Red, .isOpaque = true, .isRightToLeft = true, .clip = &clip});
    device.Image(Pixels(2, 3), {0, 0, 2, 3}, {0, 0, 20, 30}, {});
    device.Image(Pixels(2, 3), {1, 1, 2, 3}, {0, 0, 20, 30}, {.operation = 0x66});
    device.Image(Pixels(2, 3), {0, 0, 2, 3}, {0, 0, 20, 30}, {.hasAlpha = true, .opacity = 128});
    device.FocusRect({1, 2, 3, 4});
    device.FloodFill({1, 2}, Red, EFlood::Surface, {});
    device.FloodFill({1, 2}, Red, EFlood::Border, {});
    device.PopState();
}

constexpr const char* AllLines =
    "push\n"
    "origin 10,-20\n"
    "clip 0,0,100,100\n"
    "pixel 4,5 #FF0000\n"
    "polyline 1,2 -3,4 5,6 pen #000000\n"
    "polygon 1,2 -3,4 5,6 pen #FF0000 width 3 dot xor brush #000000 cross\n"
    "fill 1,2,3,4 brush #FFFFFF\n"
    "rectangle 1,2,3,4 pen #000000 brush #FFFFFF\n"
    "rectangle 1,2,3,4 corner 2x1 pen clear brush clear\n"
    "ellipse 1,2,3,4 pen #000000 brush 8x6\n"
    "arc 0,0,9,9 from 9,4 to 4,0 pen #000000\n"
    "chord 0,0,9,9 from 9,4 to 4,0 pen #000000 brush #FFFFFF\n"
    "pie 0,0,9,9 from 9,4 to 4,0 pen #000000 brush #FFFFFF\n"
    "text 7,8 \"a \\\"b\\\"\\x0A\\\\\" font Tahoma -11 color #000000\n"
    "text 7,8 \"x\" font Symbol -16 bold underline turned 900 color #FF0000 on #FFFFFF rtl "
    "clip 0,0,50,10\n"
    "image 2x3 onto 0,0,20,30\n"
    "image 2x3 onto 0,0,20,30 from 1,1,2,3 operation 66\n"
    "image 2x3 onto 0,0,20,30 alpha 128\n"
    "focus 1,2,3,4\n"
    "flood 1,2 on #FF0000 brush #FFFFFF\n"
    "flood 1,2 to #FF0000 brush #FFFFFF\n"
    "pop\n";

TEST(PaintRecordingTest, TellsEachCallAsALine)
{
    PaintRecording recording;
    DrawAll(recording);
    EXPECT_EQ(recording.AsText(), AllLines);
    EXPECT_EQ(recording.Count(), 22U);
    recording.Clear();
    EXPECT_EQ(recording.AsText(), u"");
}

TEST(PaintRecordingTest, PlaysWhatItKept)
{
    PaintRecording recording;
    DrawAll(recording);
    PaintRecording copy;
    recording.Play(copy, {0, 0, 10, 10}, {0, 0, 10, 10});
    EXPECT_EQ(copy.AsText(), System::UnicodeString(u"push\norigin 0,0\norigin 0,0\n") + AllLines + u"pop\n");
}

TEST(PaintRecordingTest, StretchesWhatItPlays)
{
    const TRect clip{0, 0, 10, 10};
    PaintRecording recording;
    recording.Rectangle({10, 10, 20, 30}, {4, 4}, {.width = 3}, {});
    recording.Text({10, 10}, u"x", {.name = u"Tahoma", .height = -10}, {.clip = &clip});
    recording.MoveOrigin(-5, 5);
    PaintRecording played;
    recording.Play(played, {10, 10, 110, 110}, {100, 200, 300, 500});
    EXPECT_EQ(played.AsText(), u"push\n"
                               u"origin -20,-30\n"
                               u"origin 100,200\n"
                               u"rectangle 20,30,40,90 corner 8x12 pen #000000 width 6 brush #FFFFFF\n"
                               u"text 20,30 \"x\" font Tahoma -30 color #000000 clip 0,0,20,30\n"
                               u"origin -10,15\n"
                               u"pop\n");
    PaintRecording nothing;
    recording.Play(nothing, {5, 5, 5, 9}, {0, 0, 9, 9});
    EXPECT_EQ(nothing.Count(), 0U);
}

TEST(PaintRecordingTest, KeepsTextsInProportionHoweverSmall)
{
    PaintRecording recording;
    for (const int height : {-10, 10, 0}) {
        recording.Text({0, 0}, u"x", {.name = u"A", .height = height}, {});
    }
    PaintRecording small;
    recording.Play(small, {0, 0, 100, 100}, {0, 0, 4, 4});
    EXPECT_EQ(small.AsText(), u"push\norigin 0,0\norigin 0,0\n"
                              u"text 0,0 \"x\" font A -1 color #000000\n"
                              u"text 0,0 \"x\" font A 1 color #000000\n"
                              u"text 0,0 \"x\" font A 0 color #000000\npop\n");
}

TEST(PaintRecordingTest, MirrorsWhatItPlays)
{
    PaintRecording recording;
    recording.Arc(EArc::Pie, {2, 2, 18, 18}, {18, 10}, {10, 2}, {}, {});
    recording.Text({0, 0}, u"x", {.name = u"A", .height = -10}, {});
    // What ran counterclockwise from its first place does so from its last one in a mirror.
    for (const auto& [onto, arc] : {std::pair(TRect{20, 0, 0, 20}, u"pie -2,2,-18,18 from -10,2 to -18,10"),
                                    {TRect{0, 20, 20, 0}, u"pie 2,-2,18,-18 from 10,-2 to 18,-10"},
                                    {TRect{20, 20, 0, 0}, u"pie -2,-2,-18,-18 from -18,-10 to -10,-2"}}) {
        PaintRecording mirrored;
        recording.Play(mirrored, {0, 0, 20, 20}, onto);
        const System::UnicodeString text = mirrored.AsText();
        EXPECT_GT(text.Pos(arc), 0) << System::ToUtf8(text);
        EXPECT_GT(text.Pos(u"font A -10 "), 0) << System::ToUtf8(text);
    }
}

TEST(PaintRecordingTest, LeavesTheDeviceAsItWasHoweverItEnds)
{
    PaintRecording recording;
    recording.PopState();
    recording.PopState();
    recording.MoveOrigin(7, 7);
    recording.PushState();
    recording.IntersectClip({0, 0, 1, 1});
    Support::WhitePaper paper(20, 10);
    paper->MoveOrigin(3, 2);
    recording.Play(*paper, {0, 0, 5, 5}, {0, 0, 5, 5});
    EXPECT_EQ(paper->ClipRect(), (TRect{-3, -2, 17, 8}));
}

TEST(PaintRecordingTest, KnowsOriginAndClip)
{
    PaintRecording recording({0, 0, 100, 50});
    EXPECT_EQ(recording.ClipRect(), (TRect{0, 0, 100, 50}));
    recording.PushState();
    recording.MoveOrigin(10, 20);
    recording.IntersectClip({0, 0, 30, 90});
    EXPECT_EQ(recording.ClipRect(), (TRect{0, 0, 30, 30}));
    recording.IntersectClip({40, 0, 50, 90});
    EXPECT_EQ(recording.ClipRect().Width(), 0);
    recording.PopState();
    EXPECT_EQ(recording.ClipRect(), (TRect{0, 0, 100, 50}));
    Toolkits::TPixel pixel = 0;
    Pixels pixels;
    EXPECT_FALSE(recording.GetPixel({1, 1}, pixel));
    EXPECT_FALSE(recording.ReadPixels({0, 0, 9, 9}, pixels));
}

TEST(PaintRecordingTest, MeasuresWhatIsDrawn)
{
    struct TCase
    {
        void (*draw)(PaintRecording&);
        Types::TSize size;
    };
    const TCase cases[] = {{[](PaintRecording&) {}, {0, 0}},
                           {[](PaintRecording& device) {
                                device.FillRect({5, 5, 30, 20}, {});
                            },
                            {30, 20}},
                           {[](PaintRecording& device) {
                                device.Ellipse({30, 20, 5, 5}, {}, {});
                            },
                            {30, 20}},
                           {[](PaintRecording& device) {
                                device.MoveOrigin(100, 50);
                                device.SetPixel({1, 2}, Red);
                            },
                            {102, 53}},
                           {[](PaintRecording& device) {
                                device.Text({2, 3}, u"00", {}, {});
                            },
                            {14, 16}},
                           {[](PaintRecording& device) {
                                device.FillRect({-9, -9, -1, -1}, {});
                            },
                            {0, 0}}};
    for (const TCase& row : cases) {
        PaintRecording recording;
        row.draw(recording);
        SCOPED_TRACE(System::ToUtf8(recording.AsText()));
        EXPECT_EQ(recording.Extent(), row.size);
    }
}

TEST(PaintRecordingTest, BearsPlacesFarAway)
{
    constexpr int most = std::numeric_limits<int>::max();
    PaintRecording recording;
    recording.MoveOrigin(most, -most);
    recording.MoveOrigin(most, -most);
    recording.FillRect({-most - 1, -most - 1, most, most}, {});
    recording.Text({most, most}, u"x", {.height = -most}, {});
    Support::WhitePaper paper(4, 4);
    recording.Play(*paper, {0, 0, 1, 1}, {0, 0, most, most});
    recording.Play(*paper, {0, 0, most, most}, {0, 0, 1, 1});
    EXPECT_GT(recording.Extent().cx, 0);
}

} // namespace
