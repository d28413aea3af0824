// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_Font.h"

#include "platform/visual/graphics/Graphics_Pen.h"

#include <gtest/gtest.h>

namespace
{

using namespace Graphics;

TEST(GraphicsFontTest, IsTahomaOfSizeEightAtFirst)
{
    TFont font;
    EXPECT_EQ(font.getName(), u"Tahoma");
    EXPECT_EQ(font.getHeight(), -11);
    EXPECT_EQ(font.getSize(), 8);
    EXPECT_EQ(font.getColor(), clWindowText);
    EXPECT_TRUE(font.getStyle().Empty());
    EXPECT_EQ(font.getCharset(), 1);
    EXPECT_EQ(font.getPitch(), fpDefault);
    EXPECT_EQ(font.getPixelsPerInch(), 96);
    EXPECT_EQ(font.ClassName(), u"TFont");
    // It holds nothing of its own.
    EXPECT_EQ(font.getBlock(), TFont().getBlock());
    font.setHeight(-11);
    font.setName(u"");
    EXPECT_EQ(font.getBlock(), TFont().getBlock());
}

TEST(GraphicsFontTest, ReckonsSizeAndHeight)
{
    TFont font;
    for (const auto& [size, height] :
         {std::pair(8, -11), {9, -12}, {10, -13}, {12, -16}, {24, -32}, {0, 0}, {-10, 13}}) {
        SCOPED_TRACE(size);
        font.setSize(size);
        EXPECT_EQ(font.getHeight(), height);
        EXPECT_EQ(font.getSize(), size);
    }
    font.setSize(12);
    font.setPixelsPerInch(192);
    EXPECT_EQ(font.getHeight(), -32);
    EXPECT_EQ(font.getSize(), 12);
    font.setPixelsPerInch(0);
    EXPECT_EQ(font.getHeight(), -16);
}

TEST(GraphicsFontTest, TellsEachChangeOnce)
{
    TFont font;
    int changes = 0;
    font.setOnChange([&](System::TObject* sender) {
        EXPECT_EQ(sender, &font);
        ++changes;
    });
    font.setStyle({fsBold});
    font.setStyle({fsBold});
    font.setSize(12);
    font.setColor(clRed);
    font.setColor(clRed);
    EXPECT_EQ(changes, 3);
    TFont other;
    font.Assign(&other);
    EXPECT_EQ(changes, 4);
    other.setSize(8);
    font.Assign(&other);
    EXPECT_EQ(changes, 4);
}

TEST(GraphicsFontTest, SharesByAssignUntilOneChanges)
{
    TFont first;
    first.setName(u"Symbol");
    TFont second;
    second.Assign(&first);
    EXPECT_EQ(first.getBlock(), second.getBlock());
    second.setStyle({fsItalic, fsUnderline});
    EXPECT_TRUE(first.getStyle().Empty());
    EXPECT_EQ(second.getName(), u"Symbol");
    EXPECT_FALSE(first.IsEqual(second));
    TPen pen;
    EXPECT_THROW(first.Assign(&pen), Sysutils::EConvertError);
    EXPECT_THROW(first.Assign(nullptr), Sysutils::EConvertError);
    EXPECT_EQ(first.getName(), u"Symbol");
}

TEST(GraphicsFontTest, PublishesItsProperties)
{
    TFont font;
    Typinfo::SetStrProp(&font, u"name", u"Courier New");
    Typinfo::SetOrdProp(&font, u"Height", -16);
    Typinfo::SetOrdProp(&font, u"Color", clRed);
    Typinfo::SetOrdProp(&font, u"Style", 5);
    Typinfo::SetOrdProp(&font, u"Charset", 2);
    Typinfo::SetOrdProp(&font, u"Pitch", fpFixed);
    EXPECT_EQ(font.getName(), u"Courier New");
    EXPECT_EQ(Typinfo::GetOrdProp(&font, u"Size"), 12);
    EXPECT_EQ(font.getColor(), clRed);
    EXPECT_EQ(font.getStyle(), (TFontStyles{fsBold, fsUnderline}));
    EXPECT_EQ(font.getCharset(), 2);
    EXPECT_EQ(font.getPitch(), fpFixed);
    EXPECT_FALSE(Typinfo::IsStoredProp(&font, Typinfo::GetPropInfo(&font, u"Size")));
    EXPECT_EQ(Typinfo::GetPropInfo(&font, u"Charset")->getPropType()->Name, u"TFontCharset");
    EXPECT_EQ(Typinfo::GetPropInfo(&font, u"Color")->getPropType()->Name, u"TColor");
    EXPECT_THROW(Typinfo::SetOrdProp(&font, u"Charset", 256), Typinfo::EPropertyConvertError);
}

TEST(GraphicsFontTest, NamesCharsets)
{
    System::UnicodeString ident;
    EXPECT_TRUE(CharsetToIdent(1, ident));
    EXPECT_EQ(ident, u"DEFAULT_CHARSET");
    EXPECT_FALSE(CharsetToIdent(3, ident));
    int charset = 0;
    EXPECT_TRUE(IdentToCharset(u"symbol_charset", charset));
    EXPECT_EQ(charset, 2);
    EXPECT_FALSE(IdentToCharset(u"OWN_CHARSET", charset));
    EXPECT_EQ(charset, 2);
}

} // namespace
