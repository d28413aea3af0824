// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "support/DrawnPixels.h"

#include <gtest/gtest.h>

namespace
{

using Toolkits::HeadlessToolkit;
using Toolkits::TFontData;

TEST(HeadlessPaintingTest, MeasuresFontsByATable)
{
    struct TCase
    {
        TFontData font;
        int height;
        int ascent;
        int digit;
        int wide;
    };
    const TFontData bold{.name = u"Tahoma", .styles = {Graphics::fsBold}};
    const TCase cases[] = {
        {{.name = u"Tahoma", .height = -11}, 13, 11, 6, 9},
        {{.name = u"Tahoma", .height = 13}, 13, 11, 6, 9},
        {{.name = u"Tahoma", .height = -16}, 19, 16, 9, 14},
        {{.name = u"Tahoma", .height = -22}, 26, 22, 12, 19},
        {{.name = u"Courier New", .height = -11}, 13, 11, 7, 7},
        {{.name = u"Any", .height = -11, .pitch = Graphics::fpFixed}, 13, 11, 7, 7},
        {{.name = u"Courier New", .height = -11, .pitch = Graphics::fpVariable}, 13, 11, 6, 9},
        {{.name = u"Tahoma", .height = -1}, 1, 1, 1, 1},
        {bold, 13, 11, 7, 10}};
    const HeadlessToolkit toolkit;
    for (const TCase& row : cases) {
        SCOPED_TRACE(System::ToUtf8(row.font.name) + " " + std::to_string(row.font.height));
        const Toolkits::TTextMetrics metrics = toolkit.FontMetrics(row.font);
        EXPECT_EQ(metrics.height, row.height);
        EXPECT_EQ(metrics.ascent, row.ascent);
        EXPECT_EQ(metrics.ascent + metrics.descent, metrics.height);
        EXPECT_EQ(metrics.overhang, 0);
        EXPECT_EQ(toolkit.TextExtent(row.font, u"0"), (Types::TSize{row.digit, row.height}));
        EXPECT_EQ(toolkit.TextExtent(row.font, u"0W").cx, row.digit + row.wide);
    }
}

TEST(HeadlessPaintingTest, MeasuresCharactersByTheirKind)
{
    const HeadlessToolkit toolkit;
    const TFontData font{.name = u"Tahoma", .height = -20};
    for (const auto& [text, width] : {std::pair<const char16_t*, int>(u"", 0),
                                      {u"i", 5},
                                      {u" ", 7},
                                      {u"a", 11},
                                      {u"A", 12},
                                      {u"e\u0301", 11},
                                      {u"\u4E2D", 20},
                                      {u"\U0001F600", 20},
                                      {u"\t\r\n", 0},
                                      {u"aaaaaaaaaa", 110}}) {
        SCOPED_TRACE(System::ToUtf8(text));
        EXPECT_EQ(toolkit.TextExtent(font, text).cx, width);
    }
    EXPECT_EQ(toolkit.TextExtent(TFontData{.height = -2'000'000'000}, u"\u4E2D").cx, 10'000);
}

TEST(HeadlessPaintingTest, HasTheColoursOfADesktop)
{
    const HeadlessToolkit toolkit;
    for (const auto& [index, color] : {std::pair(5, Support::White),
                                       {8, Support::Black},
                                       {15, 0xFFF0F0F0U},
                                       {17, 0xFF6D6D6DU},
                                       {31, Support::Black},
                                       {-1, Support::Black}}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(toolkit.SystemColor(index), color);
    }
}

} // namespace
