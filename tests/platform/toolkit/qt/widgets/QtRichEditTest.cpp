// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtRichEdit.h"

#include "platform/toolkit/qt/WindowLog.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/edits/Comctrls_RichEdit.h"
#include "testing/FormDriver.h"

#include <QTextBlock>
#include <QTextEdit>
#include <QTextList>

#include <gtest/gtest.h>

namespace
{

/// A rich edit of a form, and the widget that shows it.
class QtRichEditTest : public testing::Test
{
protected:
    QtRichEditTest()
    {
        mForm.setName(u"Rich");
        mEdit->setName(u"Edit");
        mEdit->setParent(&mForm);
        mEdit->SetBounds(0, 0, 200, 100);
        mEdit->setText(u"one two\r\nthree\r\nfour");
        mForm.Show();
        Support::TShownWindow::player().Settle();
    }

    QTextEdit& Shown() const { return *qobject_cast<QTextEdit*>(Support::FindWidget("Rich.Edit")); }
    /// How the character looks that stands at a place of the widget's text.
    QTextCharFormat FormatAt(int place) const
    {
        QTextCursor cursor(Shown().document());
        cursor.setPosition(place + 1);
        return cursor.charFormat();
    }
    QTextBlock Block(int number) const { return Shown().document()->findBlockByNumber(number); }
    void Select(int start, int length)
    {
        mEdit->setSelStart(start);
        mEdit->setSelLength(length);
    }

    Forms::TForm mForm;
    Comctrls::TRichEdit* mEdit = new Comctrls::TRichEdit(&mForm);
    Testing::CFormDriver mDriver{mForm};
};

TEST_F(QtRichEditTest, ShowsTheLooksOfCharacters)
{
    Select(4, 3);
    mEdit->getSelAttributes()->setStyle({Graphics::fsBold, Graphics::fsUnderline});
    mEdit->getSelAttributes()->setColor(Graphics::clRed);
    EXPECT_TRUE(FormatAt(4).font().bold());
    EXPECT_TRUE(FormatAt(6).font().underline());
    EXPECT_EQ(FormatAt(4).foreground().color(), QColor(Qt::red));
    EXPECT_FALSE(FormatAt(3).font().bold());
    EXPECT_FALSE(FormatAt(8).font().bold());
    // A text that is set anew keeps none of it.
    mEdit->setText(u"other text");
    EXPECT_FALSE(FormatAt(4).font().bold());
}

TEST_F(QtRichEditTest, LaysParagraphsOut)
{
    Select(9, 0);
    mEdit->getParagraph()->setAlignment(Classes::taCenter);
    mEdit->getParagraph()->setLeftIndent(72);
    EXPECT_EQ(Block(1).blockFormat().alignment(), Qt::AlignHCenter);
    EXPECT_EQ(Block(1).blockFormat().leftMargin(), 96);
    EXPECT_NE(Block(0).blockFormat().alignment(), Qt::AlignHCenter);
    EXPECT_NE(Block(2).blockFormat().alignment(), Qt::AlignHCenter);
    mEdit->SelectAll();
    mEdit->getParagraph()->setNumbering(Comctrls::nsBullet);
    for (const int number : {0, 1, 2}) {
        EXPECT_NE(Block(number).textList(), nullptr) << number;
    }
    Select(9, 0);
    mEdit->getParagraph()->setNumbering(Comctrls::nsNone);
    EXPECT_NE(Block(0).textList(), nullptr);
    EXPECT_EQ(Block(1).textList(), nullptr);
    EXPECT_EQ(mEdit->getText(), u"one two\r\nthree\r\nfour");
}

TEST_F(QtRichEditTest, ShowsWhatIsTypedInTheLooksThatTheControlGivesIt)
{
    mDriver.Focus(u"Edit");
    Select(3, 0);
    mEdit->getSelAttributes()->setStyle({Graphics::fsItalic});
    mDriver.Type(u"!?");
    EXPECT_EQ(mEdit->getText(), u"one!? two\r\nthree\r\nfour");
    EXPECT_TRUE(FormatAt(3).font().italic());
    EXPECT_TRUE(FormatAt(4).font().italic());
    EXPECT_FALSE(FormatAt(2).font().italic());
    EXPECT_FALSE(FormatAt(5).font().italic());
    EXPECT_EQ(mEdit->getSelStart(), 5);
    mDriver.Press('Z', {Classes::ssCtrl});
    EXPECT_NE(mEdit->getText(), u"one!? two\r\nthree\r\nfour");
    EXPECT_EQ(
        mEdit->getText(),
        System::UnicodeString(
            Shown().toPlainText().replace(QLatin1String("\n"), QLatin1String("\r\n")).toStdU16String()));
}

TEST_F(QtRichEditTest, TakesBackNoLooksThatTheControlHas)
{
    Select(0, 3);
    mEdit->getSelAttributes()->setStyle({Graphics::fsBold});
    Shown().undo();
    EXPECT_TRUE(FormatAt(0).font().bold());
    EXPECT_EQ(mEdit->getText(), u"one two\r\nthree\r\nfour");
}

} // namespace
