// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Color.h"

#include "platform/runtime/classes/Classes_StringList.h"

#include <gtest/gtest.h>

namespace
{

using namespace Graphics;
using System::UnicodeString;

TEST(GraphicsColorTest, NamesColours)
{
    for (const auto& [color, name] : {std::pair<int, const char16_t*>(clBlack, u"clBlack"),
                                      {0x808080, u"clGray"},
                                      {0xC0C0C0, u"clSilver"},
                                      {static_cast<int>(0xFF000008), u"clWindowText"},
                                      {static_cast<int>(0xFF000011), u"clGrayText"},
                                      {static_cast<int>(0xFF00000F), u"clBtnFace"},
                                      {clNone, u"clNone"}}) {
        SCOPED_TRACE(System::ToUtf8(name));
        UnicodeString ident;
        EXPECT_TRUE(ColorToIdent(color, ident));
        EXPECT_EQ(ident, name);
        int found = 0;
        EXPECT_TRUE(IdentToColor(UnicodeString(name).UpperCase(), found));
        EXPECT_EQ(found, color);
        EXPECT_EQ(StringToColor(name), color);
    }
}

TEST(GraphicsColorTest, LeavesTheTargetWhereThereIsNoName)
{
    UnicodeString ident = u"kept";
    EXPECT_FALSE(ColorToIdent(0x123456, ident));
    EXPECT_FALSE(ColorToIdent(static_cast<int>(0xFF000019), ident));
    EXPECT_EQ(ident, u"kept");
    int color = 7;
    EXPECT_FALSE(IdentToColor(u"clOwn", color));
    EXPECT_EQ(color, 7);
    EXPECT_TRUE(IdentToColor(u"clLtGray", color));
    EXPECT_EQ(color, clSilver);
}

TEST(GraphicsColorTest, WritesAndReadsNumbers)
{
    EXPECT_EQ(ColorToString(TColor(0x123456)), u"$00123456");
    EXPECT_EQ(ColorToString(clRed), u"clRed");
    EXPECT_EQ(ColorToString(TColor(-1)), u"$FFFFFFFF");
    EXPECT_EQ(StringToColor(u"$00123456"), 0x123456);
    EXPECT_EQ(StringToColor(u"$FF000008"), clWindowText);
    EXPECT_EQ(StringToColor(u"255"), clRed);
    EXPECT_THROW(StringToColor(u"red"), Sysutils::EConvertError);
}

TEST(GraphicsColorTest, AsksTheDesktopForItsColours)
{
    EXPECT_EQ(ColorToRGB(clWindow), 0xFFFFFF);
    EXPECT_EQ(ColorToRGB(clHighlight), 0xFF9933);
    EXPECT_EQ(ColorToRGB(clBlue), 0xFF0000);
    EXPECT_EQ(ColorToRGB(TColor(0x02123456)), 0x123456);
    EXPECT_EQ(ColorToPixel(clBlue), 0xFF0000FFU);
    EXPECT_EQ(ColorToPixel(TColor(0x00C0DCA0)), 0xFFA0DCC0U);
    EXPECT_EQ(PixelToColor(0x80A0DCC0U), 0xC0DCA0);
    EXPECT_EQ(RGB(0xA0, 0xDC, 0xC0), 0xC0DCA0);
}

TEST(GraphicsColorTest, IsAnIntegerOfItsOwnNameInProperties)
{
    const Typinfo::TTypeInfo* const type = Typinfo::TypeInfoOf<TColor>();
    EXPECT_EQ(type->Kind, Typinfo::tkInteger);
    EXPECT_EQ(type->Name, u"TColor");
}

TEST(GraphicsColorTest, ListsTheNames)
{
    Classes::TStringList names;
    GetColorValues([&](const UnicodeString& name) { names.Add(name); });
    EXPECT_GT(names.getCount(), 50);
    for (int i = 0; i < names.getCount(); ++i) {
        int color = 0;
        EXPECT_TRUE(IdentToColor(names.At(i), color)) << System::ToUtf8(names.At(i));
    }
}

} // namespace
