// SPDX-License-Identifier: MIT
#include "platform/visual/clipboard/Clipbrd.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_Metafile.h"
#include "platform/visual/graphics/Graphics_Picture.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using Clipbrd::Clipboard;
using Graphics::TBitmap;
using System::UnicodeString;

class ClipbrdTest : public testing::Test
{
protected:
    ClipbrdTest() { Clipboard().Clear(); }

    Support::ScriptedBoxes mToolkit;
};

TEST_F(ClipbrdTest, HoldsTextsOrPictures)
{
    EXPECT_EQ(Clipboard().getFormatCount(), 0);
    Clipboard().setAsText(u"12,5 V");
    EXPECT_TRUE(Clipboard().HasFormat(CF_TEXT));
    EXPECT_TRUE(Clipboard().HasFormat(CF_UNICODETEXT));
    EXPECT_FALSE(Clipboard().HasFormat(CF_BITMAP));
    EXPECT_EQ(Clipboard().getFormats(0), CF_UNICODETEXT);
    EXPECT_THROW(Clipboard().getFormats(2), Classes::EListError);

    TBitmap bitmap(3, 2);
    bitmap.getCanvas()->setPixels(2, 1, Graphics::clLime);
    Clipboard().Assign(&bitmap);
    EXPECT_EQ(Clipboard().getAsText(), u"");
    EXPECT_TRUE(Clipboard().HasFormat(Clipbrd::CF_PICTURE));
    bitmap.SetSize(1, 1);
    TBitmap copy;
    copy.Assign(&Clipboard());
    EXPECT_EQ(copy.getWidth(), 3);
    EXPECT_EQ(copy.getCanvas()->getPixels(2, 1), Graphics::clLime);

    // What comes later counts, whoever put it there.
    Toolkits::CurrentToolkit().SetClipboardText(u"other");
    EXPECT_FALSE(Clipboard().HasFormat(CF_BITMAP));
    EXPECT_THROW(copy.Assign(&Clipboard()), Graphics::EInvalidGraphic);
    EXPECT_EQ(copy.getWidth(), 3);
}

TEST_F(ClipbrdTest, TakesAndGivesWhatHoldsOne)
{
    Classes::TStringList lines;
    lines.setText(u"a\r\nb\r\n");
    Clipboard().Assign(&lines);
    Classes::TStringList other;
    other.Assign(&Clipboard());
    EXPECT_EQ(other.getCount(), 2);

    Graphics::TPicture picture;
    picture.getBitmap()->SetSize(5, 6);
    Clipboard().Assign(&picture);
    Graphics::TPicture copy;
    copy.Assign(&Clipboard());
    EXPECT_EQ(copy.getHeight(), 6);

    Graphics::TPicture empty;
    Clipboard().Assign(&empty);
    EXPECT_FALSE(Clipboard().HasFormat(CF_BITMAP));
    Graphics::TPen pen;
    EXPECT_THROW(Clipboard().Assign(&pen), Sysutils::EConvertError);
    EXPECT_THROW(pen.Assign(&Clipboard()), Sysutils::EConvertError);
}

TEST_F(ClipbrdTest, BearsLongTextsAndNone)
{
    Clipboard().Open();
    Clipboard().SetTextBuf(nullptr);
    EXPECT_FALSE(Clipboard().HasFormat(CF_TEXT));
    const UnicodeString text = UnicodeString::StringOfChar(u'x', 10'000'000) + UnicodeString(u'\0') + u"y";
    Clipboard().setAsText(text);
    Clipboard().Close();
    Clipboard().Close();
    EXPECT_EQ(Clipboard().getAsText(), text);
}

} // namespace
