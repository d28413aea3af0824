// SPDX-License-Identifier: MIT
#include "platform/toolkit/PaintRecording.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_Metafile.h"
#include "support/DrawnPixels.h"
#include "support/MetafileFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <string>
#include <tuple>

namespace
{

using namespace Graphics;
using Support::EnhancedFile;
using Support::EnhancedRecord;
using Support::FileBytes;
using Support::Load;
using Support::Longs;
using Support::OldRecord;
using Support::PlaceableFile;
using Support::Words;
using TBytes = std::vector<System::Byte>;
using TRecords = std::vector<TBytes>;

/// What a file draws, or that it is refused.
std::string Drawing(const TBytes& file)
{
    try {
        TMetafile metafile;
        Load(metafile, file);
        return System::ToUtf8(metafile.Recording().AsText());
    } catch (const EInvalidGraphic&) {
        return "refused";
    }
}

struct TCase
{
    const char* name;
    TRecords records;
    const char* drawing;
};

FileBytes With(FileBytes bytes, const FileBytes& more)
{
    return bytes.Append(more.getBytes());
}

/// Bounds, count, points.
FileBytes Points32(std::initializer_list<int> points)
{
    return With(Longs({0, 0, 99, 49, static_cast<int>(points.size() / 2)}), Longs(points));
}
FileBytes Points16(std::initializer_list<int> points)
{
    return With(Longs({0, 0, 99, 49, static_cast<int>(points.size() / 2)}), Words(points));
}

int Float(float value)
{
    return std::bit_cast<int>(value);
}

/// A text of an enhanced metafile at a place, with options and a rectangle.
TBytes WideText(int x, int y, const std::u16string& text, int options = 0)
{
    FileBytes fields = Longs({0, 0, 99, 49, 1, Float(1), Float(1), x, y, static_cast<int>(text.size()), 76,
                              options, 1, 2, 30, 20, 0});
    for (const char16_t unit : text) {
        fields.Put16({unit});
    }
    return EnhancedRecord(84, text.size() % 2 != 0 ? fields.Put16({0}) : fields);
}

TEST(GraphicsMetafileReaderTest, DrawsLinesAndShapesOfTheEnhancedType)
{
    const TCase cases[] = {
        {"lines from place to place",
         {EnhancedRecord(27, Longs({1, 2})), EnhancedRecord(54, Longs({5, 6})),
          EnhancedRecord(54, Longs({7, 0}))},
         "polyline 1,2 5,6 pen #000000\npolyline 5,6 7,0 pen #000000\n"},
        {"rows of points", {EnhancedRecord(4, Points32({1, 2, -3, 4}))}, "polyline 1,2 -3,4 pen #000000\n"},
        {"short points", {EnhancedRecord(87, Points16({1, 2, -3, 4}))}, "polyline 1,2 -3,4 pen #000000\n"},
        {"lines to", {EnhancedRecord(89, Points16({4, 5, 6, 7}))}, "polyline 0,0 4,5 6,7 pen #000000\n"},
        {"polygon",
         {EnhancedRecord(3, Points32({0, 0, 4, 0, 0, 4}))},
         "polygon 0,0 4,0 0,4 pen #000000 brush #FFFFFF\n"},
        {"short polygon",
         {EnhancedRecord(86, Points16({0, 0, 4, 0, 0, 4}))},
         "polygon 0,0 4,0 0,4 pen #000000 brush #FFFFFF\n"},
        {"two polygons with a hole",
         {EnhancedRecord(91,
                         With(Longs({0, 0, 0, 0, 2, 6, 3, 3}), Words({0, 0, 9, 0, 0, 9, 1, 1, 4, 1, 1, 4})))},
         "polygon 0,0 9,0 0,9 0,0 0,0 1,1 4,1 1,4 1,1 0,0 pen clear brush #FFFFFF\n"
         "polygon 0,0 9,0 0,9 pen #000000 brush clear\npolygon 1,1 4,1 1,4 pen #000000 brush clear\n"},
        {"two rows of lines",
         {EnhancedRecord(7, With(Longs({0, 0, 0, 0, 2, 4, 2, 2}), Longs({0, 0, 9, 0, 1, 1, 4, 1})))},
         "polyline 0,0 9,0 pen #000000\npolyline 1,1 4,1 pen #000000\n"},
        {"rectangle, whose edges are within",
         {EnhancedRecord(43, Longs({1, 2, 9, 8}))},
         "rectangle 1,2,10,9 pen #000000 brush #FFFFFF\n"},
        {"round",
         {EnhancedRecord(44, Longs({1, 2, 9, 8, 3, 4}))},
         "rectangle 1,2,10,9 corner 3x4 pen #000000 brush #FFFFFF\n"},
        {"ellipse",
         {EnhancedRecord(42, Longs({1, 2, 9, 8}))},
         "ellipse 1,2,10,9 pen #000000 brush #FFFFFF\n"},
        {"arc",
         {EnhancedRecord(45, Longs({0, 0, 9, 9, 9, 5, 5, 0}))},
         "arc 0,0,10,10 from 9,5 to 5,0 pen #000000\n"},
        {"arc clockwise",
         {EnhancedRecord(57, Longs({2})), EnhancedRecord(45, Longs({0, 0, 9, 9, 9, 5, 5, 0}))},
         "arc 0,0,10,10 from 5,0 to 9,5 pen #000000\n"},
        {"chord and pie",
         {EnhancedRecord(46, Longs({0, 0, 9, 9, 9, 5, 5, 0})),
          EnhancedRecord(47, Longs({0, 0, 9, 9, 9, 5, 5, 0}))},
         "chord 0,0,10,10 from 9,5 to 5,0 pen #000000 brush #FFFFFF\n"
         "pie 0,0,10,10 from 9,5 to 5,0 pen #000000 brush #FFFFFF\n"},
        {"polygons filled by the turns of their lines",
         {EnhancedRecord(19, Longs({2})), EnhancedRecord(3, Points32({0, 0, 4, 0, 0, 4})), EnhancedRecord(59),
          EnhancedRecord(43, Longs({1, 2, 9, 8})), EnhancedRecord(43, Longs({2, 3, 8, 7})),
          EnhancedRecord(60), EnhancedRecord(62), EnhancedRecord(19, Longs({1})),
          EnhancedRecord(3, Points32({0, 0, 4, 0, 0, 4}))},
         "polygon 0,0 4,0 0,4 pen #000000 brush #FFFFFF winding\n"
         "polygon 1,2 10,2 10,9 1,9 1,2 1,2 2,3 9,3 9,8 2,8 2,3 1,2 pen clear brush #FFFFFF winding\n"
         "polygon 0,0 4,0 0,4 pen #000000 brush #FFFFFF\n"},
        {"regions filled and inverted",
         {EnhancedRecord(74, Longs({0, 0, 9, 9, 64, 32, 1, 2, 32, 0, 0, 9, 9, 0, 0, 4, 4, 4, 4, 9, 9})),
          EnhancedRecord(73, Longs({0, 0, 9, 9, 48, 32, 1, 1, 16, 0, 0, 9, 9, 1, 2, 3, 4}))},
         "fill 0,0,4,4 brush #FFFFFF\nfill 4,4,9,9 brush #FFFFFF\nimage 1x1 onto 1,2,3,4 operation 55\n"},
        {"pixel", {EnhancedRecord(15, Longs({3, 4, 0x0000FF}))}, "pixel 3,4 #FF0000\n"},
        {"flood",
         {EnhancedRecord(53, Longs({3, 4, 0xFF0000, 1})), EnhancedRecord(53, Longs({3, 4, 0xFF0000, 0}))},
         "flood 3,4 on #0000FF brush #FFFFFF\nflood 3,4 to #0000FF brush #FFFFFF\n"},
        {"a curve that is straight",
         {EnhancedRecord(85, Points16({0, 0, 4, 0, 8, 0, 12, 0}))},
         "polyline 0,0 3,0 6,0 9,0 12,0 pen #000000\n"},
        {"a path that is filled and drawn",
         {EnhancedRecord(59), EnhancedRecord(27, Longs({1, 1})), EnhancedRecord(54, Longs({9, 1})),
          EnhancedRecord(54, Longs({1, 9})), EnhancedRecord(61), EnhancedRecord(60),
          EnhancedRecord(63, Longs({0, 0, 9, 9}))},
         "polygon 1,1 9,1 1,9 pen #000000 brush #FFFFFF\n"},
        {"a path of a rectangle that is drawn alone",
         {EnhancedRecord(59), EnhancedRecord(43, Longs({1, 2, 9, 8})), EnhancedRecord(60),
          EnhancedRecord(64)},
         "polygon 1,2 10,2 10,9 1,9 pen #000000 brush clear\n"},
        {"a path that goes on behind a closed figure",
         {EnhancedRecord(59), EnhancedRecord(27, Longs({1, 1})), EnhancedRecord(54, Longs({9, 1})),
          EnhancedRecord(54, Longs({9, 9})), EnhancedRecord(61), EnhancedRecord(54, Longs({5, 5})),
          EnhancedRecord(60), EnhancedRecord(64)},
         "polygon 1,1 9,1 9,9 pen #000000 brush clear\npolyline 9,9 5,5 pen #000000\n"},
        {"a path that begins more than once",
         {EnhancedRecord(59), EnhancedRecord(27, Longs({1, 1})), EnhancedRecord(27, Longs({2, 2})),
          EnhancedRecord(54, Longs({9, 1})), EnhancedRecord(60), EnhancedRecord(64)},
         "polyline 2,2 9,1 pen #000000\n"},
        {"too few points for a curve", {EnhancedRecord(85, Points16({0, 0, 4, 0}))}, ""},
        {"a path that is left",
         {EnhancedRecord(59), EnhancedRecord(43, Longs({1, 2, 9, 8})), EnhancedRecord(68),
          EnhancedRecord(62)},
         ""},
        {"unknown records and comments",
         {EnhancedRecord(70, Longs({4, 1})), EnhancedRecord(0x4000, Longs({1})), EnhancedRecord(98),
          EnhancedRecord(0)},
         ""},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Drawing(EnhancedFile(row.records)), row.drawing);
    }
}

TEST(GraphicsMetafileReaderTest, DrawsWithTheObjectsOfTheEnhancedType)
{
    const auto rectangle = EnhancedRecord(43, Longs({0, 0, 9, 9}));
    const auto select = [](unsigned number) { return EnhancedRecord(37, FileBytes().Put32({number})); };
    const TCase cases[] = {
        {"pen",
         {EnhancedRecord(38, Longs({1, 1, 3, 0, 0xFF})), select(1), rectangle},
         "rectangle 0,0,10,10 pen #FF0000 width 3 dash brush #FFFFFF\n"},
        {"pen that isn't selected",
         {EnhancedRecord(38, Longs({1, 1, 3, 0, 0xFF})), rectangle},
         "rectangle 0,0,10,10 pen #000000 brush #FFFFFF\n"},
        {"pen with ends",
         {EnhancedRecord(95, Longs({2, 0, 0, 0, 0, 0x10000, 4, 0, 0xFF00, 0, 0})), select(2), rectangle},
         "rectangle 0,0,10,10 pen #00FF00 width 4 brush #FFFFFF\n"},
        {"brush",
         {EnhancedRecord(39, Longs({1, 2, 0xFF, 3})), select(1), rectangle},
         "rectangle 0,0,10,10 pen #000000 brush #FF0000 bdiagonal\n"},
        {"brush with a pattern",
         {EnhancedRecord(94, With(Longs({1, 0, 32, 40, 72, 8}), Support::TwoPixels())), select(1), rectangle},
         "rectangle 0,0,10,10 pen #000000 brush 2x1\n"},
        {"those of every device",
         {select(0x80000005), select(0x80000006), rectangle, select(0x80000008), rectangle},
         "rectangle 0,0,10,10 pen #FFFFFF brush clear\nrectangle 0,0,10,10 pen clear brush clear\n"},
        {"what was deleted is drawn with until another one is selected",
         {EnhancedRecord(39, Longs({1, 0, 0xFF, 0})), select(1), EnhancedRecord(40, Longs({1})), rectangle,
          select(1), rectangle},
         "rectangle 0,0,10,10 pen #000000 brush #FF0000\nrectangle 0,0,10,10 pen #000000 brush #FF0000\n"},
        {"mode of the pen",
         {EnhancedRecord(20, Longs({7})), rectangle},
         "rectangle 0,0,10,10 pen #000000 xor brush #FFFFFF\n"},
        {"kept and put back",
         {EnhancedRecord(33), select(0x80000004), EnhancedRecord(33), select(0x80000005),
          EnhancedRecord(34, Longs({1})), rectangle, EnhancedRecord(34, Longs({-1})), rectangle},
         "rectangle 0,0,10,10 pen #000000 brush #FFFFFF\nrectangle 0,0,10,10 pen #000000 brush #FFFFFF\n"},
        {"put back by one",
         {EnhancedRecord(33), select(0x80000004), EnhancedRecord(34, Longs({-1})), rectangle},
         "rectangle 0,0,10,10 pen #000000 brush #FFFFFF\n"},
        {"number beyond all", {EnhancedRecord(39, Longs({70'000, 0, 0xFF, 0}))}, "refused"},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Drawing(EnhancedFile(row.records)), row.drawing);
    }
}

TEST(GraphicsMetafileReaderTest, MapsUnitsAndLimitsDrawing)
{
    const auto rectangle = EnhancedRecord(43, Longs({10, 20, 29, 39}));
    const auto mode = [](int number) { return EnhancedRecord(17, Longs({number})); };
    const TCase cases[] = {
        {"window and viewport",
         {mode(8), EnhancedRecord(9, Longs({1000, 500})), EnhancedRecord(11, Longs({100, 50})),
          EnhancedRecord(10, Longs({-100, 0})), EnhancedRecord(12, Longs({0, 5})), rectangle},
         "rectangle 11,7,13,9 pen #000000 brush #FFFFFF\n"},
        {"equal both ways",
         {mode(7), EnhancedRecord(9, Longs({10, 10})), EnhancedRecord(11, Longs({20, 10})), rectangle},
         "rectangle 10,20,30,40 pen #000000 brush #FFFFFF\n"},
        {"scaled by a record",
         {mode(8), EnhancedRecord(11, Longs({2, 2})), EnhancedRecord(31, Longs({3, 1, 1, 2})), rectangle},
         "rectangle 60,20,180,40 pen #000000 width 6 brush #FFFFFF\n"},
        {"tenths of a millimetre, upwards",
         {mode(2), EnhancedRecord(12, Longs({0, 50})), rectangle},
         "rectangle 2,42,6,46 pen #000000 brush #FFFFFF\n"},
        {"a world twice as large",
         {EnhancedRecord(35, Longs({Float(2), 0, 0, Float(2), Float(1), 0})), rectangle},
         "rectangle 21,40,61,80 pen #000000 width 2 brush #FFFFFF\n"},
        {"a world that is turned",
         {EnhancedRecord(36, Longs({0, Float(1), Float(-1), 0, Float(50), 0, 4})), rectangle},
         "polygon 30,10 30,30 10,30 10,10 pen #000000 brush #FFFFFF\n"},
        {"no extent is passed over",
         {mode(8), EnhancedRecord(9, Longs({0, 0})), rectangle},
         "rectangle 10,20,30,40 pen #000000 brush #FFFFFF\n"},
        {"no number",
         {EnhancedRecord(35, Longs({0x7FC00000, 0, 0, Float(1), 0, 0})),
          EnhancedRecord(15, Longs({3, 4, 0xFF}))},
         "pixel -268435456,-268435456 #FF0000\n"},
        {"clip rectangles",
         {EnhancedRecord(33), EnhancedRecord(30, Longs({0, 0, 15, 50})),
          EnhancedRecord(30, Longs({5, 0, 50, 50})), rectangle, EnhancedRecord(34, Longs({-1})), rectangle},
         "push\nclip 5,0,15,50\nrectangle 10,20,30,40 pen #000000 brush #FFFFFF\npop\n"
         "rectangle 10,20,30,40 pen #000000 brush #FFFFFF\n"},
        {"clip region",
         {EnhancedRecord(75, Longs({48, 5, 32, 1, 1, 16, 1, 2, 30, 40, 1, 2, 30, 40})), rectangle,
          EnhancedRecord(75, Longs({0, 5})), rectangle},
         "push\nclip 1,2,30,40\nrectangle 10,20,30,40 pen #000000 brush #FFFFFF\npop\n"
         "rectangle 10,20,30,40 pen #000000 brush #FFFFFF\n"},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Drawing(EnhancedFile(row.records)), row.drawing);
    }
}

/// A record that combines what drawing is limited to with a region of rectangles.
TBytes ClipRegion(int operation, std::initializer_list<int> rects)
{
    const auto count = static_cast<int>(rects.size() / 4);
    return EnhancedRecord(
        75, With(Longs({32 + 16 * count, operation, 32, 1, count, 16 * count, 0, 0, 99, 49}), Longs(rects)));
}

TEST(GraphicsMetafileReaderTest, LimitsDrawingToRegions)
{
    const auto fill = EnhancedRecord(76, Longs({0, 0, 0, 0, 0, 0, 90, 40, 0xF00021}));
    const auto exclude = EnhancedRecord(29, Longs({10, 10, 20, 20}));
    const std::string filled = "fill 0,0,90,40 brush #FFFFFF\n";
    const auto within = [&](std::initializer_list<const char*> rects) {
        std::string text;
        for (const char* const rect : rects) {
            text += std::string("push\nclip ") + rect + "\n" + filled + "pop\n";
        }
        return text;
    };
    FileBytes many = Longs({32 + 16 * 100, 5, 32, 1, 100, 1600, 0, 0, 99, 49});
    for (int i = 0; i < 100; ++i) {
        many.Append(Longs({i, i, i + 1, i + 1}).getBytes());
    }
    const std::tuple<const char*, TRecords, std::string> cases[] = {
        {"two rectangles", {ClipRegion(5, {1, 2, 3, 4, 5, 6, 7, 8})}, within({"1,2,3,4", "5,6,7,8"})},
        {"two that overlap, one the wrong way round",
         {ClipRegion(5, {0, 0, 9, 9, 12, 9, 3, 3})},
         within({"0,0,9,9", "9,3,12,9"})},
        {"what both have",
         {ClipRegion(5, {0, 0, 9, 9}), ClipRegion(1, {5, 5, 20, 20, 30, 30, 40, 40})},
         within({"5,5,9,9"})},
        {"nothing", {ClipRegion(5, {0, 0, 9, 9}), ClipRegion(1, {10, 10, 20, 20})}, ""},
        {"more",
         {ClipRegion(5, {0, 0, 9, 9}), ClipRegion(2, {0, 0, 9, 12})},
         within({"0,0,9,9", "0,9,9,12"})},
        {"more than all", {ClipRegion(2, {0, 0, 9, 12})}, filled},
        {"one of both",
         {ClipRegion(5, {0, 0, 9, 9}), ClipRegion(3, {0, 0, 9, 4, 0, 9, 9, 12})},
         within({"0,4,9,9", "0,9,9,12"})},
        {"without",
         {ClipRegion(5, {0, 0, 30, 30}), ClipRegion(4, {10, 10, 20, 40})},
         within({"0,0,30,10", "0,10,10,30", "20,10,30,30"})},
        {"a hole",
         {ClipRegion(5, {0, 0, 30, 30}), exclude, EnhancedRecord(26, Longs({1, 2}))},
         within({"1,2,31,12", "1,12,11,22", "21,12,31,22", "1,22,31,32"})},
        {"kept and put back",
         {EnhancedRecord(33), ClipRegion(5, {1, 2, 3, 4, 5, 6, 7, 8}), EnhancedRecord(34, Longs({-1}))},
         filled},
        {"an operation that isn't there", {ClipRegion(9, {1, 2, 3, 4})}, filled},
        {"too many rectangles", {EnhancedRecord(75, many)}, within({"0,0,100,100"})},
        {"a path of two rectangles",
         {EnhancedRecord(59), EnhancedRecord(43, Longs({0, 0, 8, 8})),
          EnhancedRecord(43, Longs({20, 0, 28, 8})), EnhancedRecord(60), EnhancedRecord(67, Longs({5}))},
         within({"0,0,9,9", "20,0,29,9"})},
        {"without a path",
         {EnhancedRecord(59), EnhancedRecord(43, Longs({0, 0, 8, 8})), EnhancedRecord(60),
          EnhancedRecord(67, Longs({4}))},
         filled},
    };
    for (const auto& [name, clips, drawing] : cases) {
        SCOPED_TRACE(name);
        TRecords records = clips;
        records.push_back(fill);
        EXPECT_EQ(Drawing(EnhancedFile(records)), drawing);
    }
    EXPECT_EQ(
        Drawing(EnhancedFile({EnhancedRecord(75, Longs({48, 5, 32, 1, 9, 16, 1, 2, 3, 4, 1, 2, 3, 4}))})),
        "refused");
}

TEST(GraphicsMetafileReaderTest, BeginsThePictureAtItsFrame)
{
    auto file = EnhancedFile({EnhancedRecord(75, Longs({48, 5, 32, 1, 1, 16, 15, 7, 30, 40, 15, 7, 30, 40})),
                              EnhancedRecord(43, Longs({10, 20, 29, 39}))});
    // Left, top, right and bottom in hundredths of a millimetre: ten and five pixels further.
    const auto frame = Longs({500, 250, 5500, 2750}).getBytes();
    std::ranges::copy(frame, file.begin() + 24);
    EXPECT_EQ(Drawing(file), "push\nclip 5,2,20,35\nrectangle 0,15,20,35 pen #000000 brush #FFFFFF\npop\n");
}

TEST(GraphicsMetafileReaderTest, DrawsTextsOfTheEnhancedType)
{
    FileBytes font = Longs({1, -20, 0, 900, 900, 700}).Put8({1, 0, 0, 0, 0, 0, 0, 1});
    for (const char16_t unit : std::u16string(u"Arial")) {
        font.Put16({unit});
    }
    const TCase cases[] = {
        {"usual", {WideText(3, 4, u"abc")}, "text 3,4 \"abc\" font Tahoma -12 color #000000 on #FFFFFF\n"},
        {"colours",
         {EnhancedRecord(24, Longs({0xFF})), EnhancedRecord(25, Longs({0xFF00})), WideText(3, 4, u"ab"),
          EnhancedRecord(18, Longs({1})), WideText(3, 4, u"ab")},
         "text 3,4 \"ab\" font Tahoma -12 color #FF0000 on #00FF00\ntext 3,4 \"ab\" font Tahoma -12 color "
         "#FF0000\n"},
        {"font", {EnhancedRecord(82, font), EnhancedRecord(37, Longs({1})), WideText(3, 4, u"")}, ""},
        {"rectangle",
         {EnhancedRecord(18, Longs({1})), WideText(3, 4, u"ab", 2 | 4)},
         "fill 1,2,30,20 brush #FFFFFF\ntext 3,4 \"ab\" font Tahoma -12 color #000000 clip 1,2,30,20\n"},
        {"glyphs", {WideText(3, 4, u"ab", 16)}, ""},
        {"narrow",
         {EnhancedRecord(
             83, Longs({0, 0, 0, 0, 1, 0, 0, 3, 4, 2, 76, 0, 0, 0, 0, 0, 0}).Put8({'a', 0xB5, 0, 0}))},
         "text 3,4 \"a\xC2\xB5\" font Tahoma -12 color #000000 on #FFFFFF\n"},
        {"small",
         {EnhancedRecord(108, Longs({3, 4, 2, 0x300, 1, 0, 0}).Put8({'a', 'b', 0, 0}))},
         "text 3,4 \"ab\" font Tahoma -12 color #000000 on #FFFFFF\n"},
        {"longer than its record",
         {EnhancedRecord(84, Longs({0, 0, 0, 0, 1, 0, 0, 3, 4, 9, 76, 0}))},
         "refused"},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Drawing(EnhancedFile(row.records)), row.drawing);
    }
    // Turned by a quarter, on its base line.
    const std::string turned = Drawing(EnhancedFile(
        {EnhancedRecord(82, font), EnhancedRecord(37, Longs({1})), EnhancedRecord(22, Longs({24})),
         EnhancedRecord(18, Longs({1})), WideText(30, 40, u"ab")}));
    const int ascent =
        Toolkits::CurrentToolkit()
            .FontMetrics({.name = u"Arial", .height = -20, .styles = {Graphics::fsBold, Graphics::fsItalic}})
            .ascent;
    EXPECT_EQ(turned, "text " + std::to_string(30 - ascent) +
                          ",40 \"ab\" font Arial -20 bold italic turned 900 color #000000\n");
}

/// As `WideText`, with the distances of its characters behind it.
TBytes PlacedText(const std::u16string& text, std::initializer_list<int> distances, int options = 0)
{
    const auto length = static_cast<int>(text.size());
    FileBytes fields = Longs({0, 0, 99, 49, 1, Float(1), Float(1), 3, 4, length, 76, options, 1, 2, 30, 20,
                              76 + 4 * ((length + 1) / 2)});
    for (const char16_t unit : text) {
        fields.Put16({unit});
    }
    return EnhancedRecord(84, With(text.size() % 2 != 0 ? fields.Put16({0}) : fields, Longs(distances)));
}

TEST(GraphicsMetafileReaderTest, PlacesCharactersWhereTheFileHasThem)
{
    const Toolkits::TFontData font{.name = u"Tahoma", .height = -12};
    const auto widthOf = [&](const System::UnicodeString& text) {
        return Toolkits::CurrentToolkit().TextExtent(font, text).cx;
    };
    const int a = widthOf(u"a");
    const int height = Toolkits::CurrentToolkit().FontMetrics(font).height;
    const auto text = [](int x, const char* shown, const char* ground = "") {
        return "text " + std::to_string(x) + ",4 \"" + shown + "\" font Tahoma -12 color #000000" + ground +
               "\n";
    };
    const TBytes clear = EnhancedRecord(18, Longs({1}));
    const std::tuple<const char*, TRecords, std::string> cases[] = {
        {"as the font has them", {clear, PlacedText(u"aaa", {a, a, a})}, text(3, "aaa")},
        {"hardly apart", {clear, PlacedText(u"aaa", {a + 1, a - 1, a})}, text(3, "aaa")},
        {"apart", {clear, PlacedText(u"aaa", {a + 5, a, a})}, text(3, "a") + text(3 + a + 5, "aa")},
        {"over each other", {clear, PlacedText(u"aa", {0, a})}, text(3, "a") + text(3, "a")},
        {"backwards", {clear, PlacedText(u"ab", {-9, a})}, text(3, "a") + text(-6, "b")},
        {"with a ground",
         {PlacedText(u"aa", {a + 5, a})},
         "fill 3,4," + std::to_string(3 + 2 * a + 5) + "," + std::to_string(4 + height) + " brush #FFFFFF\n" +
             text(3, "a") + text(3 + a + 5, "a")},
        {"from its end",
         {clear, EnhancedRecord(22, Longs({2})), PlacedText(u"aa", {50, 50})},
         text(-97, "a") + text(-47, "a")},
        {"a character of two halves",
         {clear, PlacedText(u"a\U0001D11E", {60, 50, 0})},
         text(3, "a") + text(63, "\xF0\x9D\x84\x9E")},
        {"letters that join", {clear, PlacedText(u"\u0627\u0628", {50, 50})}, text(3, "\xD8\xA7\xD8\xA8")},
        {"fewer than characters", {clear, PlacedText(u"aa", {50})}, text(3, "aa")},
        {"in both directions", {clear, PlacedText(u"aa", {50, 50, 0, 0}, 0x2000)}, text(3, "aa")},
        {"the next text stands behind it",
         {clear, EnhancedRecord(22, Longs({1})), EnhancedRecord(27, Longs({3, 4})),
          PlacedText(u"aa", {50, 50}), WideText(0, 0, u"b")},
         text(3, "a") + text(53, "a") + text(103, "b")},
    };
    for (const auto& [name, records, drawing] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Drawing(EnhancedFile(records)), drawing);
    }
    // Of the older type, whose units here are tenths of a pixel.
    EXPECT_EQ(Drawing(PlaceableFile(
                  {OldRecord(0x02FB, With(Words({-120, 0, 0, 0, 400}),
                                          FileBytes().Put8({0, 0, 0, 0, 0, 0, 0, 0, 'A', 0}))),
                   OldRecord(0x012D, Words({0})), OldRecord(0x0102, Words({1})),
                   OldRecord(0x0A32, With(With(Words({40, 30, 2, 0}), FileBytes().Put8({'d', 'e'})),
                                          Words({500, 100})))})),
              "text 3,4 \"d\" font A -12 color #000000\ntext 53,4 \"e\" font A -12 color #000000\n");
}

TEST(GraphicsMetafileReaderTest, DrawsImagesOfTheEnhancedType)
{
    const FileBytes pixels = Support::TwoPixels();
    const FileBytes stretch =
        With(Longs({0, 0, 0, 0, 10, 20, 0, 0, 2, 1, 80, 40, 120, 8, 0, 0xCC0020, 20, 10}), pixels);
    const FileBytes area = With(Longs({0, 0,        0, 0, 10, 20, 20,  10, 0xCC0020, 0, 0, Float(1), 0,
                                       0, Float(1), 0, 0, 0,  0,  108, 40, 148,      8, 1, 1}),
                                pixels);
    const TCase cases[] = {
        {"stretched", {EnhancedRecord(81, stretch)}, "image 2x1 onto 10,20,30,30\n"},
        {"a part of it", {EnhancedRecord(77, area)}, "image 2x1 onto 10,20,30,30 from 0,0,1,1\n"},
        {"filled",
         {EnhancedRecord(76, Longs({0, 0, 0, 0, 1, 2, 3, 4, 0xF00021})),
          EnhancedRecord(76, Longs({0, 0, 0, 0, 1, 2, 3, 4, 0x550009}))},
         "fill 1,2,4,6 brush #FFFFFF\nimage 1x1 onto 1,2,4,6 operation 55\n"},
        {"bitmap behind its record",
         {EnhancedRecord(81, Longs({0, 0, 0, 0, 10, 20, 0, 0, 2, 1, 80, 40, 120, 8}))},
         "refused"},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Drawing(EnhancedFile(row.records)), row.drawing);
    }
    TMetafile metafile;
    Load(metafile, EnhancedFile({EnhancedRecord(81, stretch)}));
    TBitmap bitmap(32, 32);
    bitmap.getCanvas()->Draw(0, 0, &metafile);
    EXPECT_EQ(bitmap.getCanvas()->getPixels(11, 21), clRed);
    EXPECT_EQ(bitmap.getCanvas()->getPixels(29, 29), clLime);
    EXPECT_EQ(bitmap.getCanvas()->getPixels(30, 29), clWhite);
}

TEST(GraphicsMetafileReaderTest, DrawsTheOlderType)
{
    const auto select = [](int number) { return OldRecord(0x012D, Words({number})); };
    const auto rectangle = OldRecord(0x041B, Words({100, 200, 10, 20}));
    const TCase cases[] = {
        {"lines",
         {OldRecord(0x0214, Words({20, 10})), OldRecord(0x0213, Words({40, 30}))},
         "polyline 1,2 3,4 pen #000000\n"},
        {"points",
         {OldRecord(0x0325, Words({2, 10, 20, -30, 40})), OldRecord(0x0324, Words({2, 10, 20, 30, 40}))},
         "polyline 1,2 -3,4 pen #000000\npolygon 1,2 3,4 pen #000000 brush #FFFFFF\n"},
        {"polygons",
         {OldRecord(0x0538, Words({1, 3, 0, 0, 40, 0, 0, 40}))},
         "polygon 0,0 4,0 0,4 pen #000000 brush #FFFFFF\n"},
        {"shapes",
         {rectangle, OldRecord(0x061C, Words({30, 40, 100, 200, 10, 20})),
          OldRecord(0x0418, Words({100, 200, 10, 20}))},
         "rectangle 2,1,20,10 pen #000000 brush #FFFFFF\nrectangle 2,1,20,10 corner 4x3 pen #000000 brush "
         "#FFFFFF\n"
         "ellipse 2,1,20,10 pen #000000 brush #FFFFFF\n"},
        {"arcs",
         {OldRecord(0x0817, Words({0, 50, 50, 100, 100, 100, 0, 0})),
          OldRecord(0x081A, Words({0, 50, 50, 100, 100, 100, 0, 0}))},
         "arc 0,0,10,10 from 10,5 to 5,0 pen #000000\npie 0,0,10,10 from 10,5 to 5,0 pen #000000 brush "
         "#FFFFFF\n"},
        {"objects get the lowest number that is free",
         {OldRecord(0x02FA, Words({0, 10, 0, 0xFF, 0})), OldRecord(0x02FC, Words({0, 0, 0xFF, 0})), select(0),
          select(1), rectangle, OldRecord(0x01F0, Words({0})), OldRecord(0x02FA, Words({5, 0, 0, 0, 0})),
          select(0), rectangle},
         "rectangle 2,1,20,10 pen #FF0000 brush #0000FF\nrectangle 2,1,20,10 pen clear brush #0000FF\n"},
        {"pattern",
         {OldRecord(0x0142, With(Words({5, 0}), Support::TwoPixels())), select(0), rectangle},
         "rectangle 2,1,20,10 pen #000000 brush 2x1\n"},
        {"texts",
         {OldRecord(0x0521, With(With(Words({3}), FileBytes().Put8({'a', 'b', 'c', 0})), Words({40, 30}))),
          OldRecord(0x0A32, With(Words({40, 30, 2, 4, 0, 0, 100, 100}), FileBytes().Put8({'d', 'e'})))},
         "text 3,4 \"abc\" font Tahoma -1 color #000000 on #FFFFFF\n"
         "text 3,4 \"de\" font Tahoma -1 color #000000 on #FFFFFF clip 0,0,10,10\n"},
        {"texts of a character set",
         {OldRecord(0x02FB,
                    With(Words({-120, 0, 0, 0, 400}), FileBytes().Put8({0, 0, 0, 204, 0, 0, 0, 0, 'A', 0}))),
          select(0), OldRecord(0x0A32, With(Words({40, 30, 1, 0}), FileBytes().Put8({0xC0, 0})))},
         "text 3,4 \"\xD0\x90\" font A -12 color #000000 on #FFFFFF\n"},
        {"images",
         {OldRecord(0x0F43, With(Words({0x20, 0xCC, 0, 1, 2, 0, 0, 100, 200, 20, 10}), Support::TwoPixels())),
          OldRecord(0x0B41, With(Words({0x20, 0xCC, 1, 1, 0, 0, 100, 200, 20, 10}), Support::TwoPixels()))},
         "image 2x1 onto 1,2,21,12\nimage 2x1 onto 1,2,21,12 from 0,0,1,1\n"},
        {"fillings",
         {OldRecord(0x061D, Words({0x21, 0xF0, 100, 200, 20, 10})),
          OldRecord(0x0940, Words({0x42, 0, 0, 0, 0, 100, 200, 20, 10}))},
         "fill 1,2,21,12 brush #FFFFFF\nimage 1x1 onto 1,2,21,12 operation 00\n"},
        {"window",
         {OldRecord(0x020C, Words({50, 100})), OldRecord(0x020B, Words({1, 1})),
          OldRecord(0x041F, Words({0xFF, 0, 5, 7}))},
         "pixel 6,4 #FF0000\n"},
        {"clip with a hole, and the rule of fillings",
         {OldRecord(0x0416, Words({100, 100, 0, 0})), OldRecord(0x0415, Words({100, 100, 50, 0})),
          OldRecord(0x0106, Words({2})), OldRecord(0x0324, Words({2, 10, 20, 30, 40}))},
         "push\nclip 0,0,10,5\npolygon 1,2 3,4 pen #000000 brush #FFFFFF winding\npop\n"},
        {"clip",
         {OldRecord(0x001E), OldRecord(0x0416, Words({100, 100, 10, 20})), rectangle,
          OldRecord(0x0127, Words({-1})), rectangle},
         "push\nclip 2,1,10,10\nrectangle 2,1,20,10 pen #000000 brush #FFFFFF\npop\n"
         "rectangle 2,1,20,10 pen #000000 brush #FFFFFF\n"},
        {"unknown",
         {OldRecord(0x0626, Words({15, 2, 0})), OldRecord(0x0149, Words({0, 0})), OldRecord(0x00AA)},
         ""},
        {"points beyond the record", {OldRecord(0x0325, Words({300, 10, 20, 30, 40}))}, "refused"},
    };
    for (const TCase& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Drawing(PlaceableFile(row.records)), row.drawing);
    }
}

TEST(GraphicsMetafileReaderTest, TakesTheWindowOfAFileWithoutAFrame)
{
    TMetafile metafile;
    Load(metafile, Support::FramelessFile({OldRecord(0x0103, Words({8})), OldRecord(0x020C, Words({-40, 60})),
                                           OldRecord(0x020B, Words({40, 0})),
                                           OldRecord(0x0418, Words({0, 60, 40, 0}))}));
    EXPECT_EQ(metafile.getWidth(), 60);
    EXPECT_EQ(metafile.getHeight(), 40);
    EXPECT_FALSE(metafile.getEnhanced());
    EXPECT_EQ(metafile.Recording().AsText(), u"ellipse 0,0,60,40 pen #000000 brush #FFFFFF\n");
    EXPECT_THROW(Load(metafile, Support::FramelessFile({})), EInvalidGraphic);
}

TEST(GraphicsMetafileReaderTest, RefusesWhatIsDamagedOrEndless)
{
    const TRecords saves(5000, EnhancedRecord(33));
    const auto cut = [](TBytes file, std::size_t count) {
        file.resize(file.size() - count);
        return file;
    };
    auto noSize = EnhancedFile({EnhancedRecord(43, Longs({1, 2, 9, 8}))});
    noSize[108 + 4] = 0;
    auto oldNoSize = PlaceableFile({OldRecord(0x041B, Words({100, 200, 10, 20}))});
    oldNoSize[40] = 0;
    auto tooLong = PlaceableFile({OldRecord(0x041B, Words({100, 200, 10, 20}))});
    tooLong[40 + 3] = 0xFF;
    // A bitmap of many millions of pixels, in a few bytes of runs.
    FileBytes bomb;
    bomb.Put32({40, 10'000, 10'000}).Put16({1, 8}).Put32({1, 0, 0, 0, 1, 0}).Put32({0}).Put8({0, 1});
    // A curve that takes 256 points, for each 12 bytes.
    FileBytes curves = Longs({0, 0, 99, 49, 3 * 60'000 + 1});
    for (int i = 0; i <= 3 * 60'000; ++i) {
        curves.Put16({i % 2 == 0 ? 0U : 30'000U, 0});
    }
    const std::pair<const char*, TBytes> cases[] = {
        {"curves without end", EnhancedFile({EnhancedRecord(85, curves)})},
        {"saved too deep", EnhancedFile(saves)},
        {"no end", cut(EnhancedFile({EnhancedRecord(43, Longs({1, 2, 9, 8}))}), 20)},
        {"no end of the older type", cut(PlaceableFile({OldRecord(0x041B, Words({100, 200, 10, 20}))}), 6)},
        {"record without size", noSize},
        {"record without size of the older type", oldNoSize},
        {"record longer than the file", tooLong},
        {"count beyond the record", EnhancedFile({EnhancedRecord(4, Longs({0, 0, 0, 0, 0x7FFFFFFF, 1, 2}))})},
        {"rows beyond the record", EnhancedFile({EnhancedRecord(8, Longs({0, 0, 0, 0, -1, 4, 1, 2, 3, 4}))})},
        {"rows of more points than there are",
         EnhancedFile({EnhancedRecord(8, Longs({0, 0, 0, 0, 1, 1, 3, 0, 0}))})},
        {"region beyond the record",
         EnhancedFile({EnhancedRecord(74, Longs({0, 0, 0, 0, 9, 32, 1, 0x10000000}))})},
        {"packed bitmap that can't be as large",
         EnhancedFile({EnhancedRecord(94, With(Longs({1, 0, 32, 44, 0, 2}), bomb))})},
    };
    for (const auto& [name, file] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Drawing(file), "refused");
    }
}

TEST(GraphicsMetafileReaderTest, SurvivesDamageAtEachByte)
{
    const auto stretch = Longs({0, 0, 0, 0, 10, 20, 0, 0, 2, 1, 80, 40, 120, 8, 0, 0xCC0020, 20, 10});
    const TBytes files[] = {
        EnhancedFile({EnhancedRecord(38, Longs({1, 1, 3, 0, 0xFF})), EnhancedRecord(37, Longs({1})),
                      EnhancedRecord(91, With(Longs({0, 0, 0, 0, 2, 6, 3, 3}),
                                              Words({0, 0, 9, 0, 0, 9, 1, 1, 4, 1, 1, 4}))),
                      WideText(3, 4, u"abc", 4), EnhancedRecord(81, With(stretch, Support::TwoPixels())),
                      EnhancedRecord(35, Longs({0, Float(1), Float(-1), 0, 0, 0})),
                      EnhancedRecord(42, Longs({1, 2, 9, 8}))}),
        PlaceableFile(
            {OldRecord(0x02FA, Words({0, 10, 0, 0xFF, 0})), OldRecord(0x012D, Words({0})),
             OldRecord(0x0538, Words({1, 3, 0, 0, 40, 0, 0, 40})),
             OldRecord(0x0A32, With(Words({40, 30, 2, 4, 0, 0, 9, 9}), FileBytes().Put8({'d', 'e'}))),
             OldRecord(0x0F43,
                       With(Words({0x20, 0xCC, 0, 1, 2, 0, 0, 100, 200, 20, 10}), Support::TwoPixels()))})};
    std::size_t refused = 0;
    for (TBytes file : files) {
        for (System::Byte& byte : file) {
            const System::Byte whole = byte;
            for (const unsigned damage : {0xFFU, 0x80U, 1U}) {
                byte = static_cast<System::Byte>(whole ^ damage);
                refused += Drawing(file) == "refused" ? 1U : 0U;
            }
            byte = whole;
        }
    }
    EXPECT_GT(refused, 100U);
}

} // namespace
