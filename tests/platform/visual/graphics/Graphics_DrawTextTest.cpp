// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_DrawText.h"

#include "support/RecordedCanvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <regex>

namespace
{

using namespace Graphics;
using Support::RecordedCanvas;
using System::UnicodeString;
using Types::TRect;

/// Places and texts alone of what was drawn, one call a line; a filling is the line below a character.
std::string Texts(RecordedCanvas& canvas)
{
    const std::string fonts = std::regex_replace(canvas.Take(), std::regex(" font [^\n]*"), "");
    return std::regex_replace(fonts, std::regex(" brush [^\n]*|text "), "");
}

TEST(GraphicsDrawTextTest, LaysLinesOut)
{
    struct TCase
    {
        const char16_t* text;
        unsigned flags;
        std::string calls;
        int height;
    };
    // A digit is 6 wide, a blank 4, a line 13 high.
    const TCase cases[] = {
        {u"00", DT_LEFT, "10,20 \"00\"\n", 13},
        {u"00", DT_RIGHT, "58,20 \"00\"\n", 13},
        {u"00", DT_CENTER, "34,20 \"00\"\n", 13},
        {u"00", DT_SINGLELINE | DT_VCENTER, "10,33 \"00\"\n", 26},
        {u"00", DT_SINGLELINE | DT_BOTTOM, "10,47 \"00\"\n", 40},
        {u"00", DT_VCENTER, "10,20 \"00\"\n", 13},
        {u"0\r\n00\n\r0", 0, "10,20 \"0\"\n10,33 \"00\"\n10,46 \"\"\n10,59 \"0\"\n", 52},
        {u"0\n0", DT_SINGLELINE, "10,20 \"0 0\"\n", 13},
        {u"0000 0000 000000 0", DT_WORDBREAK, "10,20 \"0000 0000\"\n10,33 \"000000 0\"\n", 26},
        {u"0000000000000 0", DT_WORDBREAK, "10,20 \"0000000000000\"\n10,33 \"0\"\n", 26},
        {u"0000000000000 0", DT_WORDBREAK | DT_EDITCONTROL, "10,20 \"0000000000\"\n10,33 \"000 0\"\n", 26},
        {u"0000000000000", DT_END_ELLIPSIS, "10,20 \"00000000...\"\n", 13},
        {u"0000000000000\n0000000000000", DT_END_ELLIPSIS, "10,20 \"0000000000000\"\n10,33 \"00000000...\"\n",
         26},
        {u"0000000000000\n0000000000000", DT_WORD_ELLIPSIS, "10,20 \"00000000...\"\n10,33 \"00000000...\"\n",
         26},
        {u"C:\\000000000000\\00", DT_PATH_ELLIPSIS, "10,20 \"C:\\\\000...\\\\00\"\n", 13},
        {u"&File && &0", DT_LEFT, "10,20 \"File & 0\"\nfill 43,32,49,33\n", 13},
        {u"&00", DT_HIDEPREFIX, "10,20 \"00\"\n", 13},
        {u"&00", DT_PREFIXONLY, "fill 10,32,16,33\n", 13},
        {u"&00", DT_NOPREFIX, "10,20 \"&00\"\n", 13},
        {u"00&", DT_LEFT, "10,20 \"00\"\n", 13},
        {u"0\t0", DT_EXPANDTABS, "10,20 \"0\"\n58,20 \"0\"\n", 13},
        {u"0\t0", DT_TABSTOP | 2 << 8, "10,20 \"0\"\n22,20 \"0\"\n", 13},
        {u"0\t0", 0, "10,20 \"0\\x090\"\n", 13},
        {u"0\n0\n0\n0\n0", DT_EDITCONTROL, "10,20 \"0\"\n10,33 \"0\"\n10,46 \"0\"\n", 65},
        {u"", 0, "", 0}};
    RecordedCanvas canvas;
    for (const TCase& row : cases) {
        SCOPED_TRACE(System::ToUtf8(row.text) + " " + std::to_string(row.flags));
        TRect rect{10, 20, 70, 60};
        EXPECT_EQ(DrawText(canvas.get(), row.text, rect, row.flags), row.height);
        EXPECT_EQ(Texts(canvas), row.calls);
        EXPECT_EQ(rect, (TRect{10, 20, 70, 60}));
    }
}

TEST(GraphicsDrawTextTest, CutsAndFillsAsTheCanvasSays)
{
    RecordedCanvas canvas;
    TRect rect{0, 0, 50, 20};
    DrawText(canvas.get(), u"0", rect, 0);
    EXPECT_EQ(canvas.Take(), "text 0,0 \"0\" font Tahoma -11 color #000000 on #FFFFFF clip 0,0,50,20\n");
    canvas->getBrush()->setStyle(bsClear);
    DrawText(canvas.get(), u"0", rect, DT_NOCLIP | DT_RTLREADING);
    EXPECT_EQ(canvas.Take(), "text 0,0 \"0\" font Tahoma -11 color #000000 rtl\n");
}

TEST(GraphicsDrawTextTest, MeasuresWithoutDrawing)
{
    struct TCase
    {
        const char16_t* text;
        unsigned flags;
        TRect rect;
    };
    const TCase cases[] = {{u"000", DT_SINGLELINE, {10, 20, 28, 33}},
                           {u"000\n0000", 0, {10, 20, 34, 46}},
                           {u"0000 0000 000000 0", DT_WORDBREAK, {10, 20, 62, 46}},
                           {u"0000000000000 0", DT_WORDBREAK, {10, 20, 88, 46}},
                           {u"&0", 0, {10, 20, 16, 33}},
                           {u"", 0, {10, 20, 10, 20}}};
    TCanvas canvas;
    for (const TCase& row : cases) {
        SCOPED_TRACE(System::ToUtf8(row.text));
        TRect rect{10, 20, 70, 60};
        EXPECT_EQ(DrawText(&canvas, row.text, rect, row.flags | DT_CALCRECT), row.rect.Height());
        EXPECT_EQ(rect, row.rect);
    }
}

TEST(GraphicsDrawTextTest, ChangesTheTextOnWish)
{
    RecordedCanvas canvas;
    TRect rect{0, 0, 30, 20};
    UnicodeString text = u"000000000";
    canvas->TextRect(rect, text, {tfEndEllipsis, tfSingleLine});
    EXPECT_EQ(text, u"000000000");
    canvas->TextRect(rect, text, {tfEndEllipsis, tfSingleLine, tfModifyString});
    EXPECT_EQ(text, u"000...");
    UnicodeString fitting = u"00";
    DrawText(canvas.get(), fitting, rect, DT_END_ELLIPSIS | DT_MODIFYSTRING);
    EXPECT_EQ(fitting, u"00");
}

TEST(GraphicsDrawTextTest, KnowsTheFlagsOfFormats)
{
    EXPECT_EQ(TextFlagsOf({}), 0U);
    EXPECT_EQ(TextFlagsOf({tfLeft, tfNoPrefix, tfExpandTabs}), 0x840U);
    EXPECT_EQ(TextFlagsOf({tfSingleLine, tfVerticalCenter, tfNoPrefix}), 2084U);
    EXPECT_EQ(TextFlagsOf({tfCalcRect, tfWordBreak, tfRight}), DT_CALCRECT | DT_WORDBREAK | DT_RIGHT);
}

TEST(GraphicsDrawTextTest, BearsLongTextsAndOddRectangles)
{
    constexpr int most = std::numeric_limits<int>::max();
    RecordedCanvas canvas;
    const UnicodeString longText = System::UnicodeString::StringOfChar(u'0', 20'000);
    const UnicodeString lines = System::UnicodeString::StringOfChar(u'\n', 2'000);
    const UnicodeString words = System::UnicodeString::StringOfChar(u' ', 20'000) + u"0\U0001F600";
    for (const UnicodeString& text : {longText, lines, words}) {
        for (const TRect& rect :
             {TRect{0, 0, 60, 40}, {-most - 1, -most - 1, most, most}, {most, most, -most, -most}}) {
            for (const unsigned flags :
                 {DT_WORDBREAK | DT_EDITCONTROL, DT_END_ELLIPSIS | DT_SINGLELINE | DT_VCENTER,
                  DT_EXPANDTABS | DT_RIGHT, DT_CALCRECT | DT_WORDBREAK}) {
                TRect area = rect;
                DrawText(canvas.get(), text, area, flags);
                // What lies below the rectangle isn't drawn at all.
                const std::string calls = canvas.Take();
                if (rect.Bottom == 40) {
                    EXPECT_LE(std::ranges::count(calls, '\n'), 4);
                }
            }
        }
    }
}

} // namespace
