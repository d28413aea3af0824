// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/Comctrls_RichEdit.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/toolkit/PaintRecording.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/stdctrls/edits/EditForm.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using namespace Comctrls;
using Graphics::fsBold;
using Graphics::fsItalic;
using System::UnicodeString;

class RichEditTest : public testing::Test, protected Support::TEditForm<TRichEdit, Stdctrls::TEdit>
{
protected:
    void Load(std::string_view bytes)
    {
        Classes::TMemoryStream stream;
        stream.WriteBuffer(bytes.data(), static_cast<System::Int64>(bytes.size()));
        stream.setPosition(0);
        lines.LoadFromStream(&stream);
    }

    std::string Save()
    {
        Classes::TMemoryStream stream;
        lines.SaveToStream(&stream);
        return {static_cast<const char*>(stream.getMemory()), static_cast<std::size_t>(stream.getSize())};
    }

    TTextAttributes& At(int start, int length = 1)
    {
        edit->setSelStart(start);
        edit->setSelLength(length);
        return *edit->getSelAttributes();
    }

    Classes::TStrings& lines = *edit->getLines();
};

/// One that paints in place of its window.
class PaintedRichEditTest : public RichEditTest
{
};

TEST_F(RichEditTest, ReadsRichText)
{
    Load("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}{\\f1\\fmodern Courier New;}}"
         "{\\colortbl ;\\red255\\green0\\blue0;}{\\info{\\author nobody}}\r\n"
         "\\pard\\qc\\fs24 one \\b two\\b0\\par\r\n\\pard\\li720{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}"
         "{\\pntext x}\\f1\\cf1\\i thr\\'e9\\u8364?\\{\\}\\plain\\tab e\\par}ignored");
    EXPECT_EQ(edit->getText(), u"one two\r\nthr\u00E9\u20AC{}\te\r\n");
    EXPECT_EQ(lines.getCount(), 2);
    EXPECT_FALSE(At(0).getStyle().Contains(fsBold));
    EXPECT_TRUE(At(4).getStyle().Contains(fsBold));
    EXPECT_EQ(At(4).getSize(), 12);
    EXPECT_EQ(edit->getParagraph()->getAlignment(), Classes::taCenter);
    EXPECT_EQ(At(10).getName(), u"Courier New");
    EXPECT_EQ(At(10).getColor(), Graphics::clRed);
    EXPECT_EQ(At(10).getStyle(), Graphics::TFontStyles{fsItalic});
    EXPECT_EQ(edit->getParagraph()->getLeftIndent(), 36);
    EXPECT_EQ(edit->getParagraph()->getNumbering(), nsBullet);
    EXPECT_EQ(At(18).getName(), u"Arial");
    EXPECT_EQ(At(18).getStyle(), Graphics::TFontStyles());
}

TEST_F(RichEditTest, WritesWhatItReads)
{
    edit->setText(u"plain {\\} \u20AC\tend\r\nsecond\r\n\r\nlast");
    At(0, 5).setStyle({fsBold});
    At(2, 9).setColor(Graphics::clNavy);
    At(4, 3).setName(u"Symbol");
    At(4, 3).setProtected(true);
    At(20, 2).setSize(20);
    edit->getParagraph()->setAlignment(Classes::taRightJustify);
    edit->getParagraph()->setTab(1, 70);
    const TFormattedText former = edit->GetFormattedText();
    const std::string saved = Save();
    lines.Clear();
    Load(saved);
    EXPECT_EQ(edit->getText(), former.text);
    EXPECT_EQ(Save(), saved);
    EXPECT_TRUE(At(0).getStyle().Contains(fsBold));
    EXPECT_EQ(At(4).getColor(), Graphics::clNavy);
    EXPECT_TRUE(At(4).getProtected());
    EXPECT_EQ(At(20).getSize(), 20);
    EXPECT_EQ(edit->getParagraph()->getTab(1), 70);
    edit->setPlainText(true);
    EXPECT_EQ(Save().substr(0, 6), "plain ");
    Load("{\\rtf1 x}");
    EXPECT_EQ(edit->getText(), u"{\\rtf1 x}");
}

TEST_F(RichEditTest, KeepsFormatsThroughEdits)
{
    edit->setText(u"abcdef");
    At(2, 2).setStyle({fsBold});
    EXPECT_FALSE(At(0, 6).getConsistentAttributes().Contains(caBold));
    EXPECT_TRUE(At(2, 2).getConsistentAttributes().Contains(caBold));
    edit->setSelStart(4);
    driver.Type(u"X");
    EXPECT_TRUE(At(4).getStyle().Contains(fsBold));
    edit->setSelStart(0);
    edit->getSelAttributes()->setStyle({fsItalic});
    driver.Type(u"12");
    EXPECT_EQ(edit->getText(), u"12abcdXef");
    EXPECT_EQ(At(0, 2).getStyle(), Graphics::TFontStyles{fsItalic});
    EXPECT_EQ(At(2).getStyle(), Graphics::TFontStyles());
    edit->setSelStart(2);
    driver.Press(VK_DELETE);
    EXPECT_EQ(At(3).getStyle(), Graphics::TFontStyles{fsBold});
    driver.Press('Z', {Classes::ssCtrl});
    EXPECT_EQ(edit->getText(), u"12abcdXef");
    EXPECT_EQ(At(4).getStyle(), Graphics::TFontStyles{fsBold});
    edit->getDefAttributes()->setSize(17);
    EXPECT_EQ(At(8).getSize(), 17);
}

TEST_F(PaintedRichEditTest, PaintsItsFormats)
{
    edit->SetBounds(0, 0, 308, 200);
    Load("{\\rtf1{\\colortbl;\\red255;}\\fs20 ab{\\b\\fs40\\cf1 C}d\\par\\qr right\\par\\ql in}");
    edit->setSelStart(edit->getText().Length() - 1);
    edit->getParagraph()->setLeftIndent(72);
    edit->getParagraph()->setFirstIndent(-36);
    edit->getParagraph()->setNumbering(nsBullet);
    edit->Update();
    const UnicodeString painted = edit->GetWindow()->LastPainting()->AsText();
    const std::string seen = System::ToUtf8(painted);
    const auto font = [](int height, Graphics::TFontStyles styles = {}) {
        Toolkits::TFontData data;
        data.name = u"Tahoma";
        data.height = height;
        data.styles = styles;
        return data;
    };
    Toolkits::Toolkit& measures = Toolkits::CurrentToolkit();
    const auto metrics = [&](const Toolkits::TFontData& data) { return measures.FontMetrics(data); };
    const auto width = [&](const Toolkits::TFontData& data, const char16_t* text) {
        return measures.TextExtent(data, text).cx;
    };
    const Toolkits::TFontData small = font(-13);
    const Toolkits::TFontData large = font(-26, {fsBold});
    const auto expect = [&](int x, int y, const std::string& rest) {
        const std::string call = "text " + std::to_string(x) + "," + std::to_string(y) + " " + rest;
        EXPECT_NE(seen.find(call), std::string::npos) << call << "\nin\n" << seen;
    };
    const int ascent = metrics(large).ascent;
    const int down = ascent - metrics(small).ascent;
    expect(4, 4 + down, "\"ab\"");
    expect(4 + width(small, u"ab"), 4, "\"C\"");
    expect(4 + width(small, u"ab") + width(large, u"C"), 4 + down, "\"d\"");
    const int second = 4 + ascent + metrics(large).descent;
    expect(304 - width(small, u"right"), second, "\"right\"");
    const int third = second + metrics(small).height;
    expect(4 + 48, third, "\"\u2022\"");
    expect(4 + 48 + 16, third, "\"in\"");
    EXPECT_NE(seen.find("-26 bold color #FF0000"), std::string::npos) << seen;
}

TEST_F(RichEditTest, BearsBrokenText)
{
    for (const char* text :
         {"{\\rtf", "{\\rtf1{{{{", "{\\rtf1}}}}", "{\\rtf1\\", "{\\rtf1\\'", "{\\rtf1\\'zz}",
          "{\\rtf1\\bin99999999999 x", "{\\rtf1\\u-99999999999}", "{\\rtf1\\fs-1\\cf-5\\f-9 a}",
          "{\\rtf1\\tx1\\uc99999 \\u1 a", "{\\rtf1{\\fonttbl\\f", "{\\rtf1{\\*\\pn\\pnlvlblt"}) {
        SCOPED_TRACE(text);
        EXPECT_NO_THROW(Load(text));
        EXPECT_NO_THROW(Load(Save()));
    }
    Load("{\\rtf1 " + std::string(100'000, '{') + "deep");
    EXPECT_EQ(edit->getText(), u"deep");
}

} // namespace
