// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtLine.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/qt/WindowLog.h"
#include "platform/visual/Forms.h"
#include "platform/visual/menus/Menus.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ComboBox.h"
#include "testing/FormDriver.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>

#include <gtest/gtest.h>

// Lines and memos of a form, and what Qt has of them.

namespace
{

using System::TObject;
using Toolkits::EWindowKind;

class QtLineTest : public testing::Test
{
protected:
    QtLineTest()
    {
        mForm.setName(u"Lines");
        Place(mEdit, u"Edit", 0);
        Place(mCombo, u"Combo", 40);
        Place(mMemo, u"Memo", 80);
        mEdit->setAutoSelect(false);
        for (Controls::TWinControl* const control :
             {static_cast<Controls::TWinControl*>(mEdit), static_cast<Controls::TWinControl*>(mMemo)}) {
            control->setText(u"some text");
        }
        mCombo->getItems()->AddStrings({u"one", u"two"});
        mCombo->setText(u"some text");
        mForm.Show();
        Settle();
    }

    static void Settle() { Support::TShownWindow::player().Settle(); }
    template <class Widget>
    static Widget& Shown(const char* name)
    {
        QWidget* const widget = Support::FindWidget(name);
        return qobject_cast<Widget*>(widget) != nullptr ? *qobject_cast<Widget*>(widget)
                                                        : *widget->findChild<Widget*>();
    }
    bool IsSelectionSeen(const char* name) const
    {
        QWidget* const widget = Support::FindWidget(name);
        const auto* const memo = qobject_cast<QPlainTextEdit*>(widget);
        return memo != nullptr ? memo->textCursor().hasSelection() : Shown<QLineEdit>(name).hasSelectedText();
    }

    Forms::TForm mForm;
    Stdctrls::TEdit* mEdit = new Stdctrls::TEdit(&mForm);
    Stdctrls::TComboBox* mCombo = new Stdctrls::TComboBox(&mForm);
    Stdctrls::TMemo* mMemo = new Stdctrls::TMemo(&mForm);
    Testing::CFormDriver mDriver{mForm};

private:
    void Place(Controls::TWinControl* control, const char16_t* name, int top)
    {
        control->setName(name);
        control->setParent(&mForm);
        control->setTop(top);
    }
};

TEST_F(QtLineTest, ShowsTheSelectionWithTheFocusAlone)
{
    const struct
    {
        const char16_t* name;
        const char* widget;
        Controls::TWinControl* other;
    } rows[] = {
        {u"Edit", "Lines.Edit", mMemo}, {u"Memo", "Lines.Memo", mEdit}, {u"Combo", "Lines.Combo", mEdit}};
    for (const auto& [name, widget, other] : rows) {
        SCOPED_TRACE(widget);
        auto* const edit = dynamic_cast<Stdctrls::TCustomEdit*>(&mDriver.Find(name));
        const auto selected = [&] {
            return edit == nullptr ? std::pair(mCombo->getSelStart(), mCombo->getSelLength())
                                   : std::pair(edit->getSelStart(), edit->getSelLength());
        };
        mDriver.Focus(name);
        const auto select = [&](int start, int length) {
            edit == nullptr ? mCombo->setSelStart(start) : edit->setSelStart(start);
            edit == nullptr ? mCombo->setSelLength(length) : edit->setSelLength(length);
        };
        select(2, 4);
        EXPECT_TRUE(IsSelectionSeen(widget));
        other->SetFocus();
        Settle();
        EXPECT_FALSE(IsSelectionSeen(widget));
        EXPECT_EQ(selected(), std::pair(2, 4));
        // What is selected meanwhile is seen as soon as the rest.
        select(1, 3);
        EXPECT_FALSE(IsSelectionSeen(widget));
        mDriver.Focus(name);
        Settle();
        EXPECT_TRUE(IsSelectionSeen(widget));
        EXPECT_EQ(selected(), std::pair(1, 3));
        if (edit == nullptr) {
            continue;
        }
        edit->setHideSelection(false);
        other->SetFocus();
        Settle();
        EXPECT_TRUE(IsSelectionSeen(widget));
        QEvent activation(QEvent::WindowActivate);
        QCoreApplication::sendEvent(Support::FindWidget(widget), &activation);
        Settle();
        EXPECT_TRUE(IsSelectionSeen(widget));
        edit->setHideSelection(true);
        EXPECT_FALSE(IsSelectionSeen(widget));
        edit->setHideSelection(false);
        EXPECT_TRUE(IsSelectionSeen(widget));
        EXPECT_EQ(selected(), std::pair(1, 3));
        mDriver.Focus(name);
        mDriver.Type(u"x");
        EXPECT_EQ(edit->getText(), u"sx text");
    }
}

TEST_F(QtLineTest, HasOneMenuOfTheMouse)
{
    Menus::TPopupMenu menu;
    int opened = 0;
    const auto closeIt = [] {
        if (QWidget* const open = QApplication::activePopupWidget()) {
            open->close();
        }
    };
    menu.OnPopup = [&](TObject*) {
        ++opened;
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        Toolkits::CurrentToolkit().Post(closeIt);
    };
    const auto use = [](QWidget& widget, Toolkits::Window& window) {
        QContextMenuEvent asked(QContextMenuEvent::Mouse, {5, 5}, widget.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&widget, &asked);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        for (const auto action : {Toolkits::EMouseAction::Down, Toolkits::EMouseAction::Up}) {
            Support::TShownWindow::player().UseMouse(
                window, {.action = action, .button = Controls::mbRight, .place = {5, 5}});
        }
    };
    for (const bool isMemo : {false, true}) {
        SCOPED_TRACE(isMemo);
        Controls::TWinControl& control = isMemo ? static_cast<Controls::TWinControl&>(*mMemo) : *mEdit;
        QWidget& widget = *Support::FindWidget(isMemo ? "Lines.Memo" : "Lines.Edit");
        use(isMemo ? *static_cast<QPlainTextEdit&>(widget).viewport() : widget, *control.GetWindow());
        EXPECT_NE(QApplication::activePopupWidget(), nullptr);
        closeIt();
        Settle();
        opened = 0;
        control.setPopupMenu(&menu);
        use(isMemo ? *static_cast<QPlainTextEdit&>(widget).viewport() : widget, *control.GetWindow());
        EXPECT_EQ(opened, 1);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        control.setPopupMenu(nullptr);
    }
}

TEST_F(QtLineTest, ShowsATextThatTheUserCouldntTypeAndTakesStepsBack)
{
    mCombo->setMaxLength(3);
    mCombo->setText(u"abcdef");
    EXPECT_EQ(Shown<QLineEdit>("Lines.Combo").text(), QStringLiteral("abcdef"));
    mDriver.Focus(u"Combo");
    mCombo->setSelStart(2);
    mDriver.Press(VK_DELETE);
    EXPECT_EQ(mCombo->getText(), u"abdef");
    EXPECT_EQ(mCombo->getSelStart(), 2);
    mDriver.Type(u"x");
    EXPECT_EQ(mCombo->getText(), u"abdef");
    mCombo->setMaxLength(0);
    // An item is typed and left again.
    mCombo->setItemIndex(1);
    mCombo->setSelStart(3);
    mDriver.Type(u"x");
    EXPECT_EQ(mCombo->getItemIndex(), -1);
    Shown<QLineEdit>("Lines.Combo").undo();
    EXPECT_EQ(mCombo->getText(), u"two");
    EXPECT_EQ(mCombo->getItemIndex(), 1);
}

TEST_F(QtLineTest, ClosesAListWithoutItems)
{
    System::UnicodeString log;
    mCombo->OnDropDown = [&](TObject*) { log += u"drop "; };
    mCombo->OnCloseUp = [&](TObject*) { log += u"close "; };
    mCombo->getItems()->Clear();
    Shown<QComboBox>("Lines.Combo").showPopup();
    EXPECT_EQ(log, u"drop close ");
    EXPECT_FALSE(mCombo->getDroppedDown());
    mDriver.Focus(u"Combo");
    mDriver.Focus(u"Edit");
    EXPECT_TRUE(mEdit->Focused());
    EXPECT_FALSE(mCombo->Focused());
}

TEST_F(QtLineTest, OpensItsListAtTheItemWhoseTextWasTyped)
{
    mDriver.Focus(u"Combo");
    mCombo->setItemIndex(0);
    mCombo->SelectAll();
    mDriver.Type(u"two");
    EXPECT_EQ(mCombo->getItemIndex(), 1);
    int choices = 0;
    mCombo->OnSelect = [&](TObject*) { ++choices; };
    auto& shown = Shown<QComboBox>("Lines.Combo");
    shown.showPopup();
    EXPECT_EQ(shown.view()->currentIndex().row(), 1);
    QKeyEvent up(QEvent::KeyPress, Qt::Key_Up, {});
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, {});
    QCoreApplication::sendEvent(shown.view(), &up);
    QCoreApplication::sendEvent(shown.view(), &enter);
    EXPECT_EQ(mCombo->getText(), u"one");
    EXPECT_EQ(choices, 1);
    EXPECT_FALSE(mCombo->getDroppedDown());
}

TEST(QtMemoTest, TellsOfTheTextAndThenOfTheSelection)
{
    Support::TShownWindow shown(EWindowKind::Memo);
    shown.Type(u"ab");
    EXPECT_EQ(shown.log.Take(), "key65 chara text=a selection1+0 key66 charb text=ab selection2+0 ");
    shown.Press(VK_BACK, u'\b');
    EXPECT_EQ(shown.log.Take(), "key8 char\b text=a selection1+0 ");
}

TEST(QtMemoTest, KeepsCharactersThatQtTakesForOthers)
{
    Support::TShownWindow shown(EWindowKind::Memo);
    shown.window->SetText(u"20\u00A0°C\u2028x\r\n");
    shown.window->SetSelection(9, 0);
    shown.Type(u"a");
    EXPECT_EQ(shown.log.Take(), "key65 chara text=20\u00A0°C\u2028x\r\na selection10+0 ");
    for (const char16_t* const text : {u"a\u2029b", u"a\uFDD0b", u"a\uFDD1b"}) {
        shown.window->SetText(text);
        EXPECT_FALSE(shown.window->ActsByItself());
        shown.window->SetText(u"ab");
        EXPECT_TRUE(shown.window->ActsByItself());
    }
}

} // namespace
