// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtWindow.h"

#include "platform/toolkit/Pixels.h"
#include "platform/toolkit/qt/WindowLog.h"
#include "platform/visual/Forms.h"
#include "platform/visual/Grids.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"

#include <QApplication>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScreen>
#include <QTextDocumentFragment>
#include <QToolTip>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <utility>

namespace
{

using Support::FindWidget;
using Support::TShownWindow;
using Toolkits::EWindowKind;
using Types::TRect;

TEST(QtWindowTest, IsFoundByTheNameOfItsControl)
{
    const TShownWindow shown(EWindowKind::Edit);
    ASSERT_NE(FindWidget("Form.Window"), nullptr);
    EXPECT_TRUE(FindWidget("Form")->isAncestorOf(FindWidget("Form.Window")));
}

TEST(QtWindowTest, TellsOfKeysCharactersTextAndSelectionInTheirOrder)
{
    TShownWindow shown(EWindowKind::Edit);
    shown.Type(u"a");
    EXPECT_EQ(shown.log.Take(), "key65 chara text=a selection1+0 selection1+0 ");
    shown.Press(VK_LEFT);
    EXPECT_EQ(shown.log.Take(), "key37 selection0+0 ");
    shown.Press(VK_DELETE);
    EXPECT_EQ(shown.log.Take(), "key46 text= selection0+0 ");
}

TEST(QtWindowTest, KeepsKeysFromItsFormThatItHasNoUseFor)
{
    for (const EWindowKind kind : {EWindowKind::Edit, EWindowKind::Memo, EWindowKind::ComboBox}) {
        TShownWindow shown(kind);
        shown.Press(VK_F5);
        shown.Press(VK_ESCAPE, 27);
        EXPECT_EQ(shown.formLog.Take(), "");
        EXPECT_EQ(shown.log.Take().find("key116 key27 "), 0U);
    }
}

TEST(QtWindowTest, DoesNothingWithWhatTheControlRefuses)
{
    TShownWindow shown(EWindowKind::Edit);
    shown.log.refused = u"x";
    shown.Type(u"axb");
    EXPECT_NE(shown.log.Take().find("text=ab "), std::string::npos);
}

TEST(QtWindowTest, AnnouncesTextThatNoKeyMakes)
{
    TShownWindow shown(EWindowKind::Edit);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("ß"));
    QCoreApplication::sendEvent(FindWidget("Form.Window"), &event);
    EXPECT_EQ(shown.log.Take(), "key229 text=ß selection1+0 ");
}

TEST(QtWindowTest, TakesWhatAnInputMethodOrADeadKeyMakes)
{
    TShownWindow shown(EWindowKind::Canvas);
    QWidget* const widget = FindWidget("Form.Window");
    QInputMethodQueryEvent query(Qt::ImEnabled | Qt::ImCursorRectangle);
    QCoreApplication::sendEvent(widget, &query);
    EXPECT_TRUE(query.value(Qt::ImEnabled).toBool());
    EXPECT_TRUE(widget->rect().intersects(query.value(Qt::ImCursorRectangle).toRect()));
    // What isn't made yet isn't told.
    QInputMethodEvent begun(QStringLiteral("´"), {});
    QCoreApplication::sendEvent(widget, &begun);
    EXPECT_EQ(shown.log.Take(), "");
    QInputMethodEvent done;
    done.setCommitString(QStringLiteral("éß"));
    QCoreApplication::sendEvent(widget, &done);
    EXPECT_EQ(shown.log.Take(), "charé charß ");
}

TEST(QtWindowTest, KeepsALookThatItSharedWithItsForm)
{
    TShownWindow shown(EWindowKind::Button);
    const Toolkits::TWindowLook look{.font = {.height = -12}, .ground = Toolkits::OpaquePixel(1, 2, 3)};
    shown.form->SetLook(look);
    shown.window->SetLook(look);
    const QWidget& widget = *FindWidget("Form.Window");
    const auto expectLook = [&] {
        EXPECT_EQ(widget.font().pixelSize(), 12);
        EXPECT_EQ(widget.palette().color(QPalette::Window).rgb(), look.ground);
        EXPECT_EQ(widget.layoutDirection(), Qt::LeftToRight);
    };
    expectLook();
    shown.form->SetLook(
        {.font = {.height = -20}, .ground = Toolkits::OpaquePixel(9, 9, 9), .isMirrored = true});
    expectLook();
    EXPECT_EQ(FindWidget("Form")->font().pixelSize(), 20);
}

/// The column of the first dark pixel within the frame of a widget.
int FirstInk(QWidget& widget)
{
    const QImage image = widget.grab().toImage();
    int first = image.width();
    for (int x = 4; x < image.width() - 4; ++x) {
        for (int y = 4; y < image.height() - 4; ++y) {
            first = qGray(image.pixel(x, y)) < 96 ? std::min(first, x) : first;
        }
    }
    return first;
}

TEST(QtWindowTest, SwapsLeftAndRight)
{
    Forms::TForm form;
    form.setName(u"Swapped");
    Stdctrls::TEdit edit(&form);
    edit.setName(u"Field");
    edit.setText(u"12");
    edit.setParent(&form);
    edit.SetBounds(10, 10, 200, 24);
    form.Show();
    Forms::Application->ProcessMessages();
    QWidget& widget = *FindWidget("Swapped.Field");
    EXPECT_EQ(widget.layoutDirection(), Qt::LeftToRight);
    EXPECT_LT(FirstInk(widget), 50);
    form.setBiDiMode(Classes::bdRightToLeft);
    EXPECT_EQ(widget.layoutDirection(), Qt::RightToLeft);
    EXPECT_GT(FirstInk(widget), 150);
    // What Qt takes for left and right mustn't depend on the text.
    edit.setText(u"אב");
    EXPECT_GT(FirstInk(widget), 150);
    form.setBiDiMode(Classes::bdLeftToRight);
    EXPECT_LT(FirstInk(widget), 50);
}

TEST(QtWindowTest, SetsTextAndSelectionWithoutAnEcho)
{
    TShownWindow shown(EWindowKind::Edit);
    shown.window->SetText(u"<b>bold</b>");
    shown.window->SetSelection(3, 4);
    EXPECT_EQ(shown.log.Take(), "");
    shown.Type(u"x");
    EXPECT_NE(shown.log.Take().find("text=<b>x</b> "), std::string::npos);
}

TEST(QtWindowTest, KeepsToTheTraitsOfAnEdit)
{
    TShownWindow shown(EWindowKind::Edit);
    shown.window->SetEditTraits({.maxLength = 2});
    shown.Type(u"abc");
    const auto* const edit = qobject_cast<QLineEdit*>(FindWidget("Form.Window"));
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->text(), QStringLiteral("ab"));
    shown.window->SetEditTraits({.passwordChar = u'*', .isReadOnly = true});
    shown.Type(u"d");
    EXPECT_EQ(edit->text(), QStringLiteral("ab"));
    EXPECT_EQ(edit->displayText(), QStringLiteral("**"));
}

TEST(QtWindowTest, EndsLinesOfAMemoAsControlsDo)
{
    TShownWindow shown(EWindowKind::Memo);
    shown.window->SetText(u"one\r\ntwo");
    shown.window->SetSelection(5, 3);
    shown.Type(u"2");
    EXPECT_NE(shown.log.Take().find("text=one\r\n2 selection6+0 "), std::string::npos);
    shown.Press(VK_RETURN, u'\r');
    EXPECT_NE(shown.log.Take().find("text=one\r\n2\r\n selection8+0 "), std::string::npos);
}

TEST(QtWindowTest, ChoosesByMouseAndByKeys)
{
    for (const EWindowKind kind : {EWindowKind::Button, EWindowKind::CheckBox, EWindowKind::RadioButton}) {
        TShownWindow shown(kind);
        shown.Click();
        EXPECT_EQ(shown.log.Take(), "down5,5 chosen0 ");
        shown.Press(VK_SPACE, u' ');
        EXPECT_EQ(shown.log.Take(), "key32 char  chosen0 ");
    }
}

/// What a combo box has.
class TwoItems final : public Toolkits::WindowItems
{
public:
    int GetItemCount() const override { return 2; }
    System::UnicodeString GetItemText(int index) const override { return index == 0 ? u"one" : u"two"; }
};

TEST(QtWindowTest, ShowsTheItemsOfAComboBox)
{
    const TwoItems items;
    TShownWindow shown(EWindowKind::ComboBox);
    shown.window->ShowItems(items);
    shown.window->SelectItem(0);
    EXPECT_EQ(shown.log.Take(), "");
    shown.Press(VK_DOWN);
    EXPECT_EQ(shown.log.Take(), "key40 ") << "which item that leads to is up to the control";
    shown.window->SetDropped(true);
    shown.window->SetDropped(false);
    EXPECT_EQ(shown.log.Take(), "");
}

TEST(QtWindowTest, HearsOfTheFocusAtOnceAndFromTheUserOnce)
{
    TShownWindow shown(EWindowKind::Edit);
    Support::WindowLog otherLog;
    const auto other = Toolkits::CurrentToolkit().MakeWindow({.kind = EWindowKind::Edit,
                                                              .parent = shown.form.get(),
                                                              .events = &otherLog,
                                                              .bounds = {10, 60, 110, 90}});
    other->SetVisible(true);
    other->Focus();
    EXPECT_EQ(shown.log.Take(), "unfocus ");
    EXPECT_EQ(otherLog.Take(), "focus ");
    shown.Click();
    EXPECT_EQ(otherLog.Take(), "unfocus ");
    EXPECT_EQ(shown.log.Take(), "focus down5,5 ");
    shown.window->SetVisible(false);
    TShownWindow::player().Settle();
    EXPECT_EQ(shown.log.Take(), "unfocus ");
    EXPECT_EQ(otherLog.Take(), "");
}

TEST(QtWindowTest, KeepsTheUserFromAFormThatIsDisabled)
{
    TShownWindow shown(EWindowKind::Edit);
    shown.form->SetEnabled(false);
    shown.Type(u"a");
    shown.Click();
    QCoreApplication::postEvent(FindWidget("Form"), new QEvent(QEvent::Close));
    EXPECT_EQ(shown.log.Take(), "");
    EXPECT_TRUE(FindWidget("Form.Window")->isEnabled());
    shown.form->SetEnabled(true);
    FindWidget("Form")->close();
    EXPECT_EQ(shown.formLog.Take(), "close ");
    EXPECT_TRUE(FindWidget("Form")->isVisible());
}

TEST(QtWindowTest, AFrameHasItsCloseButtonUnlessItIsMadeWithout)
{
    using Toolkits::EFrame;
    Support::WindowLog log;
    for (const EFrame frame : {EFrame::Dialog, EFrame::Single, EFrame::Sizeable, EFrame::ToolWindow}) {
        for (const bool hasButton : {true, false}) {
            SCOPED_TRACE(static_cast<int>(frame));
            const auto window = Toolkits::CurrentToolkit().MakeWindow({.kind = EWindowKind::Form,
                                                                       .frame = frame,
                                                                       .events = &log,
                                                                       .name = u"Framed",
                                                                       .bounds = {10, 10, 310, 210},
                                                                       .hasCloseButton = hasButton});
            EXPECT_EQ(FindWidget("Framed")->windowFlags().testFlag(Qt::WindowCloseButtonHint), hasButton);
        }
    }
}

TEST(QtWindowTest, IsPaintedIntoPixelsWithAllThatIsInIt)
{
    Forms::TForm form;
    form.setClientWidth(120);
    form.setClientHeight(60);
    form.setColor(Graphics::clRed);
    Stdctrls::TEdit edit(&form);
    edit.setColor(Graphics::clLime);
    edit.setParent(&form);
    edit.SetBounds(20, 10, 80, 40);
    form.Show();
    Toolkits::Pixels pixels;
    ASSERT_TRUE(form.GetWindow()->Grab(pixels));
    // A screen may have several of its pixels to one of the form.
    const int scale = pixels.getWidth() / 120;
    ASSERT_GE(scale, 1);
    EXPECT_EQ(pixels.getHeight() / scale, 60);
    EXPECT_EQ(pixels.At(5 * scale, 5 * scale), Toolkits::OpaquePixel(255, 0, 0));
    EXPECT_EQ(pixels.At(60 * scale, 40 * scale), Toolkits::OpaquePixel(0, 255, 0));
}

/// What is on the screen of a window, as it was painted.
QImage OnScreen(const Forms::TForm& form)
{
    const auto& widget = *static_cast<QWidget*>(form.GetWindow()->NativeObject());
    return widget.screen()->grabWindow(widget.winId()).toImage();
}

TEST(QtWindowTest, MovesTheCellsOfAGridThatStayInSight)
{
    Forms::TForm form;
    form.SetBounds(0, 0, 400, 300);
    auto* const grid = new Grids::TStringGrid(&form);
    grid->SetBounds(7, 5, 350, 220);
    grid->setColCount(40);
    grid->setRowCount(60);
    grid->setRowHeights(9, 11);
    grid->setColWidths(3, 31);
    for (int row = 0; row < 60; ++row) {
        for (int col = 0; col < 40; ++col) {
            grid->setCells(col, row, System::UnicodeString(row * 100 + col));
        }
    }
    int drawn = 0;
    grid->OnDrawCell = [&](System::TObject*, int, int, const TRect&, Grids::TGridDrawState) { ++drawn; };
    grid->setParent(&form);
    form.Show();
    Forms::Application->ProcessMessages();
    grid->Update();
    const auto paint = [&] {
        drawn = 0;
        grid->Update();
        return drawn;
    };
    grid->Invalidate();
    const int all = paint();
    ASSERT_GT(all, 50);
    const bool canMove = OnScreen(form).devicePixelRatioF() == 1.0;
    struct TStep
    {
        int left;
        int top;
        bool isFar;
    };
    for (const bool isMirrored : {false, true}) {
        grid->setBiDiMode(isMirrored ? Classes::bdRightToLeft : Classes::bdLeftToRight);
        for (const auto& [left, top, isFar] : {TStep{1, 2, false},
                                               {1, 8, true},
                                               {1, 10, false},
                                               {1, 9, false},
                                               {2, 9, false},
                                               {4, 9, true},
                                               {3, 9, false},
                                               {3, 40, true},
                                               {5, 41, true},
                                               {1, 1, true}}) {
            paint();
            // A cell that changed before comes along.
            grid->setCells(left + 2, top + 4, u"new");
            grid->setTopRow(top);
            grid->setLeftCol(left);
            const int count = paint();
            EXPECT_TRUE(isFar || !canMove || count < all * 3 / 4) << left << "," << top << ": " << count;
            const QImage moved = OnScreen(form);
            grid->Invalidate();
            grid->Update();
            EXPECT_EQ(moved, OnScreen(form)) << left << "," << top;
        }
    }
}

TEST(QtWindowTest, BearsSizesOfAllKinds)
{
    TShownWindow shown(EWindowKind::Canvas);
    constexpr int huge = 2'000'000'000;
    for (const TRect& bounds : {TRect{0, 0, -5, -5}, TRect{-huge, -huge, huge / 8, huge / 8},
                                TRect{huge, huge, huge + 10, huge + 10}, TRect{0, 0, 100, 100}}) {
        shown.window->SetBounds(bounds);
        shown.form->SetBounds(bounds);
        TShownWindow::player().Settle();
    }
    EXPECT_EQ(FindWidget("Form.Window")->size(), QSize(100, 100));
    EXPECT_EQ(FindWidget("Form")->size(), QSize(100, 100));
}

TEST(QtWindowTest, LeavesTextsThatAreTooLongToTheControl)
{
    for (const EWindowKind kind : {EWindowKind::Edit, EWindowKind::Memo, EWindowKind::ComboBox}) {
        TShownWindow shown(kind);
        EXPECT_TRUE(shown.window->ActsByItself());
        shown.window->SetText(System::UnicodeString(std::u16string(10'000'000, u'x')));
        EXPECT_FALSE(shown.window->ActsByItself());
        shown.Type(u"a");
        EXPECT_EQ(shown.log.Take(), "key65 chara ");
        shown.window->SetText(u"short");
        EXPECT_TRUE(shown.window->ActsByItself());
    }
}

TEST(QtWindowTest, BearsItsEndInEachOfItsEvents)
{
    using TCase = std::pair<EWindowKind, const char*>;
    for (const auto& [kind, word] : {TCase(EWindowKind::Edit, "key65"),
                                     {EWindowKind::Edit, "chara"},
                                     {EWindowKind::Edit, "text=a"},
                                     {EWindowKind::Edit, "selection1+0"},
                                     {EWindowKind::Memo, "text=a"},
                                     {EWindowKind::Memo, "selection1+0"},
                                     {EWindowKind::Button, "down5,5"},
                                     {EWindowKind::Button, "chosen0"},
                                     {EWindowKind::CheckBox, "chosen0"},
                                     {EWindowKind::ListBox, "down5,5"},
                                     {EWindowKind::ComboBox, "text=a"},
                                     {EWindowKind::Canvas, "down5,5"},
                                     {EWindowKind::Canvas, "chara"},
                                     {EWindowKind::Edit, "unfocus"}}) {
        for (const bool isWhole : {false, true}) {
            SCOPED_TRACE(word);
            const TwoItems items;
            TShownWindow shown(kind);
            shown.window->ShowItems(items);
            bool isHeard = false;
            shown.log.heard = [&, wanted = std::string(word)](const std::string& heard) {
                if (heard == wanted) {
                    isHeard = true;
                    shown.window.reset();
                    if (isWhole) {
                        shown.form.reset();
                    }
                }
            };
            const auto isThere = [&] { return shown.window != nullptr; };
            shown.Click();
            if (isThere()) {
                shown.Type(u"a");
            }
            if (isThere()) {
                shown.Press(VK_SPACE, u' ');
            }
            if (isThere()) {
                shown.window->SetVisible(false);
            }
            EXPECT_TRUE(isHeard);
            while (Toolkits::CurrentToolkit().ProcessMessage()) {
            }
            EXPECT_EQ(FindWidget("Form.Window") != nullptr, isThere());
        }
    }
}

TEST(QtWindowTest, ShowsHintsAsPlainText)
{
    for (const EWindowKind kind : {EWindowKind::Canvas, EWindowKind::Button, EWindowKind::ListBox}) {
        TShownWindow shown(kind);
        shown.log.hint = u"less < <b>more</b>";
        QWidget* const widget = FindWidget("Form.Window");
        QHelpEvent event(QEvent::ToolTip, {5, 5}, widget->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(widget, &event);
        EXPECT_EQ(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(),
                  QStringLiteral("less < <b>more</b>"));
        shown.form->SetEnabled(false);
        QToolTip::hideText();
        shown.log.hint = u"other";
        QCoreApplication::sendEvent(widget, &event);
        EXPECT_FALSE(QToolTip::text().contains(QStringLiteral("other")));
    }
}

TEST(QtWindowTest, LetsNoExceptionPassThroughQt)
{
    TShownWindow shown(EWindowKind::Canvas);
    shown.log.heard = [](const std::string&) { throw Sysutils::Exception(u"heard"); };
    EXPECT_NO_THROW(shown.Click());
    shown.log.heard = nullptr;
    EXPECT_THROW(while (Toolkits::CurrentToolkit().ProcessMessage()){}, Sysutils::Exception);
    while (true) {
        try {
            if (!Toolkits::CurrentToolkit().ProcessMessage()) {
                break;
            }
        } catch (const Sysutils::Exception&) {
        }
    }
}

} // namespace
