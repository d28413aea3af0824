// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics.h"

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/filer/Classes_FormText.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/Controls_Cursor.h"

#include <gtest/gtest.h>

namespace
{

using namespace Graphics;

/// A component with a property of each kind that the room has.
class TSign : public Classes::TComponent
{
    TRS8_BTL_CLASS(TSign, Classes::TComponent)

public:
    explicit TSign(Classes::TComponent* owner = nullptr) : TComponent(owner) {}

    TFont* getFont() const { return &mFont; }
    void setFont(TFont* font) { mFont.Assign(font); }
    TBrush* getBrush() const { return &mBrush; }
    void setBrush(TBrush* brush) { mBrush.Assign(brush); }
    TPicture* getPicture() const { return &mPicture; }
    void setPicture(TPicture* picture) { mPicture.Assign(picture); }
    TBitmap* getGlyph() const { return &mGlyph; }
    void setGlyph(TBitmap* glyph) { mGlyph.Assign(glyph); }

    TColor Color = clBtnFace;
    Controls::TCursor Cursor = Controls::crDefault;

private:
    mutable TFont mFont;
    mutable TBrush mBrush;
    mutable TPicture mPicture;
    mutable TBitmap mGlyph;
};

System::TMetaClass* TSign::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TSign>(u"TSign")
            .Property(u"Color", &TSign::Color, {.defaultValue = clBtnFace})
            .Property(u"Cursor", &TSign::Cursor, {.defaultValue = Controls::crDefault})
            .Property(u"Font", &TSign::getFont, &TSign::setFont)
            .Property(u"Brush", &TSign::getBrush, &TSign::setBrush)
            .Property(u"Glyph", &TSign::getGlyph, &TSign::setGlyph)
            .Property(u"Picture", &TSign::getPicture, &TSign::setPicture)
            .Build();
    return record;
}

std::string TextOf(TSign& sign)
{
    Classes::TMemoryStream binary;
    {
        Classes::TWriter writer(&binary, 1024);
        writer.WriteRootComponent(&sign);
    }
    binary.setPosition(0);
    Classes::TMemoryStream text;
    Classes::ObjectBinaryToText(&binary, &text);
    return std::string(text.AsView());
}

void ReadText(TSign& sign, std::string_view text)
{
    Classes::TMemoryStream source;
    source.WriteBuffer(text.data(), static_cast<System::Int64>(text.size()));
    source.setPosition(0);
    Classes::TMemoryStream binary;
    Classes::ObjectTextToBinary(&source, &binary);
    binary.setPosition(0);
    Classes::TReader reader(&binary, 1024);
    reader.ReadRootComponent(&sign);
}

constexpr std::string_view Design = "object TSign\n"
                                    "  Color = clYellow\n"
                                    "  Cursor = crHandPoint\n"
                                    "  Font.Charset = ANSI_CHARSET\n"
                                    "  Font.Color = clRed\n"
                                    "  Font.Height = -16\n"
                                    "  Font.Name = 'Courier New'\n"
                                    "  Font.Style = [fsBold, fsUnderline]\n"
                                    "  Brush.Color = 1193046\n"
                                    "  Brush.Style = bsCross\n"
                                    "end\n";

TEST(GraphicsTest, ReadsAndWritesByNames)
{
    TSign sign;
    ReadText(sign, Design);
    EXPECT_EQ(sign.Color, clYellow);
    EXPECT_EQ(sign.Cursor, Controls::crHandPoint);
    EXPECT_EQ(sign.getFont()->getSize(), 12);
    EXPECT_EQ(sign.getFont()->getCharset(), 0);
    EXPECT_EQ(sign.getFont()->getStyle(), (TFontStyles{fsBold, fsUnderline}));
    EXPECT_EQ(sign.getBrush()->getColor(), 0x123456);
    EXPECT_EQ(TextOf(sign), Design);
}

TEST(GraphicsTest, KeepsPicturesOfForms)
{
    TSign sign;
    sign.getGlyph()->SetSize(2, 1);
    sign.getPicture()->getBitmap()->SetSize(3, 1);
    sign.getPicture()->getBitmap()->getCanvas()->setPixels(1, 0, clRed);
    const std::string text = TextOf(sign);
    EXPECT_NE(text.find("Glyph.Data = {"), std::string::npos);
    EXPECT_NE(text.find("Picture.Data = {"), std::string::npos);
    TSign read;
    ReadText(read, text);
    EXPECT_EQ(read.getGlyph()->getWidth(), 2);
    EXPECT_EQ(read.getPicture()->getBitmap()->getCanvas()->getPixels(1, 0), clRed);
    EXPECT_EQ(TextOf(read), text);
    EXPECT_TRUE(read.getGlyph()->Equals(sign.getGlyph()));
    EXPECT_FALSE(read.getGlyph()->Equals(sign.getPicture()->getBitmap()));
    TSign plain;
    EXPECT_EQ(TextOf(plain).find("Data"), std::string::npos);
    EXPECT_THROW(ReadText(read, "object TSign\n  Glyph.Data = {0400000042}\nend\n"), Sysutils::Exception);
}

} // namespace
