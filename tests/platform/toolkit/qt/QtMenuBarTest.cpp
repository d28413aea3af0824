// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtMenuBar.h"

#include "platform/toolkit/qt/WindowLog.h"
#include "platform/visual/Forms.h"
#include "platform/visual/menus/Menus.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "testing/FormDriver.h"

#include <QActionGroup>
#include <QKeyEvent>
#include <QMenu>

#include <gtest/gtest.h>

namespace
{

using System::TObject;
using System::UnicodeString;

class QtMenuBarTest : public testing::Test
{
protected:
    QtMenuBarTest()
    {
        mForm->setName(u"Menued");
        mForm->SetBounds(100, 100, 300, 200);
        auto* const edit = new Stdctrls::TEdit(mForm.get());
        edit->setName(u"Edit");
        edit->setParent(mForm.get());
        mFile = Add(mMenu->getItems(), u"&File");
        mSave = Add(mFile, u"&Save");
        mForm->setMenu(mMenu);
        mForm->Show();
        Settle();
    }
    ~QtMenuBarTest() override
    {
        if (QWidget* const open = QApplication::activePopupWidget()) {
            open->close();
        }
        mForm.reset();
        Settle();
    }

    Menus::TMenuItem* Add(Menus::TMenuItem* parent, const UnicodeString& caption)
    {
        auto* const item = new Menus::TMenuItem(mForm.get());
        item->setCaption(caption);
        item->OnClick = [this, caption](TObject*) { mLog += caption + u" "; };
        parent->Add(item);
        return item;
    }
    static void Settle() { Support::TShownWindow::player().Settle(); }
    static QMenuBar& Bar() { return *Support::FindWidget("Menued")->window()->findChild<QMenuBar*>(); }
    static void Send(QWidget& widget, int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, {});
        QCoreApplication::sendEvent(&widget, &event);
        Settle();
    }
    /// Presses the key and lets it go, as Qt hears of it from a screen.
    static void PressAlt(Testing::CFormDriver& driver)
    {
        QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::AltModifier);
        asked.ignore();
        QWidget* const focused = QApplication::focusWidget();
        QCoreApplication::sendEvent(focused == nullptr ? Support::FindWidget("Menued") : focused, &asked);
        driver.Press(VK_MENU, {Classes::ssAlt});
        Settle();
    }
    static QMenu* Open() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    static QAction* Entry(const QMenu& menu, const char* text)
    {
        for (QAction* const action : menu.actions()) {
            if (action->text() == QLatin1String(text)) {
                return action;
            }
        }
        return nullptr;
    }

    std::unique_ptr<Forms::TForm> mForm = std::make_unique<Forms::TForm>();
    Menus::TMainMenu* mMenu = new Menus::TMainMenu(mForm.get());
    Menus::TMenuItem* mFile = nullptr;
    Menus::TMenuItem* mSave = nullptr;
    UnicodeString mLog;
};

TEST_F(QtMenuBarTest, LeavesTheClientAreaWhereItIsWithoutAMenu)
{
    const QWidget& client = *Support::FindWidget("Menued");
    const auto place = [&] { return QRect(client.mapToGlobal(QPoint()), client.size()); };
    const QRect with = place();
    EXPECT_EQ(with.size(), QSize(mForm->getClientWidth(), mForm->getClientHeight()));
    EXPECT_GT(Bar().height(), 0);
    EXPECT_EQ(Bar().mapToGlobal(QPoint(0, Bar().height())), with.topLeft());
    mForm->setMenu(nullptr);
    Settle();
    EXPECT_EQ(place(), with);
    mForm->setMenu(mMenu);
    mForm->SetBounds(120, 130, 400, 300);
    Settle();
    EXPECT_EQ(place().size(), QSize(mForm->getClientWidth(), mForm->getClientHeight()));
    EXPECT_EQ(Bar().width(), mForm->getClientWidth());
    EXPECT_EQ(mForm->getHeight(), 300);
    EXPECT_TRUE(mForm->getShowing());
}

TEST_F(QtMenuBarTest, OpensByItsLetterAndDoesWhatIsChosen)
{
    Testing::CFormDriver driver(*mForm);
    driver.Focus(u"Edit");
    mFile->OnClick = [this](TObject*) {
        mLog += u"opening ";
        Add(mFile, u"Prepared");
    };
    driver.Press('F', {Classes::ssAlt});
    ASSERT_NE(Open(), nullptr);
    EXPECT_EQ(mLog, u"opening ");
    QAction* const prepared = Entry(*Open(), "Prepared");
    ASSERT_NE(prepared, nullptr);
    prepared->trigger();
    Settle();
    EXPECT_NE(mLog.Pos(u"Prepared "), 0);
}

TEST_F(QtMenuBarTest, OpensByTheKeyOfMenus)
{
    Testing::CFormDriver driver(*mForm);
    driver.Focus(u"Edit");
    mFile->setEnabled(false);
    Add(Add(mMenu->getItems(), u"&Edit"), u"Cut");
    Settle();
    driver.Press(VK_F10);
    ASSERT_NE(Open(), nullptr);
    EXPECT_NE(Entry(*Open(), "Cut"), nullptr);
    EXPECT_EQ(mLog, u"&Edit ");
}

TEST_F(QtMenuBarTest, IsEnteredByAltAloneAndLeftByOneEscape)
{
    mSave->setShortCut(Menus::TextToShortCut(u"Ctrl+S"));
    Testing::CFormDriver driver(*mForm);
    driver.Focus(u"Edit");
    QWidget& edit = *Support::FindWidget("Menued.Edit");
    PressAlt(driver);
    EXPECT_EQ(QApplication::focusWidget(), &Bar());
    EXPECT_EQ(Bar().activeAction(), Bar().actions().front());
    EXPECT_EQ(driver.Focused(), u"Edit") << "no control loses the keyboard to a menu";
    Send(Bar(), Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), &edit);
    for (const bool isByLetter : {false, true}) {
        SCOPED_TRACE(isByLetter);
        if (isByLetter) {
            driver.Press('F', {Classes::ssAlt});
            Settle();
        } else {
            PressAlt(driver);
            Send(Bar(), Qt::Key_Down);
        }
        ASSERT_NE(Open(), nullptr);
        Send(*Open(), Qt::Key_Escape);
        EXPECT_EQ(Open(), nullptr);
        EXPECT_EQ(Bar().activeAction(), nullptr);
        ASSERT_EQ(QApplication::focusWidget(), &edit);
        mLog = {};
        driver.Press('S', {Classes::ssCtrl});
        EXPECT_EQ(mLog, u"&Save ");
    }
}

TEST_F(QtMenuBarTest, IsntEnteredWhereThereIsNothingToDo)
{
    Testing::CFormDriver driver(*mForm);
    driver.Focus(u"Edit");
    mForm->setEnabled(false);
    PressAlt(driver);
    EXPECT_NE(QApplication::focusWidget(), &Bar());
    Bar().actions().front()->menu()->actions().front()->trigger();
    Settle();
    EXPECT_EQ(mLog, u"");
    mForm->setEnabled(true);
    driver.Focus(u"Edit");
    mForm->setMenu(nullptr);
    Settle();
    PressAlt(driver);
    EXPECT_NE(QApplication::focusWidget(), &Bar());
}

TEST_F(QtMenuBarTest, GivesTheKeyboardToWhoeverIsToHaveIt)
{
    auto* const other = new Stdctrls::TEdit(mForm.get());
    other->setName(u"Other");
    other->setParent(mForm.get());
    other->setTop(50);
    Testing::CFormDriver driver(*mForm);
    driver.Focus(u"Edit");
    PressAlt(driver);
    ASSERT_EQ(QApplication::focusWidget(), &Bar());
    other->SetFocus();
    Settle();
    EXPECT_EQ(QApplication::focusWidget(), Support::FindWidget("Menued.Other"));
    EXPECT_EQ(driver.Focused(), u"Other");
    EXPECT_EQ(Bar().activeAction(), nullptr);
}

TEST_F(QtMenuBarTest, HasNoSayInWhichItemsExcludeWhich)
{
    for (const int group : {1, 1, 2, 2}) {
        Menus::TMenuItem* const item = Add(mFile, u"Radio");
        item->setGroupIndex(static_cast<System::Byte>(group));
        item->setRadioItem(true);
        item->setChecked(true);
    }
    const auto checks = [] {
        std::string marks;
        for (const QAction* const action : Bar().actions().front()->menu()->actions()) {
            marks += action->isChecked() ? 'x' : '-';
        }
        return marks;
    };
    for (int i = 0; i < 10; ++i) {
        mSave->setCaption(System::UnicodeString(i));
        Settle();
    }
    EXPECT_EQ(checks(), "--x-x");
    EXPECT_EQ(Bar().findChildren<QActionGroup*>().size(), 4);
}

TEST_F(QtMenuBarTest, ShowsItemsAsTheyAre)
{
    mSave->setShortCut(Menus::TextToShortCut(u"Ctrl+S"));
    mSave->setChecked(true);
    mSave->setDefault(true);
    Add(mFile, u"-");
    Add(mFile, u"Off")->setEnabled(false);
    Add(mFile, u"Gone")->setVisible(false);
    Menus::TMenuItem* const radio = Add(mFile, u"Radio");
    radio->setRadioItem(true);
    Add(Add(mFile, u"More"), u"Inner");
    Settle();
    const QMenu& menu = *Bar().actions().front()->menu();
    const QAction* const save = Entry(menu, "&Save\tCtrl+S");
    ASSERT_NE(save, nullptr);
    EXPECT_TRUE(save->isChecked());
    EXPECT_EQ(menu.defaultAction(), save);
    EXPECT_TRUE(menu.actions()[1]->isSeparator());
    EXPECT_FALSE(Entry(menu, "Off")->isEnabled());
    EXPECT_EQ(Entry(menu, "Gone"), nullptr);
    EXPECT_TRUE(Entry(menu, "Radio")->isCheckable());
    EXPECT_NE(Entry(*Entry(menu, "More")->menu(), "Inner"), nullptr);
    mSave->setCaption(u"Store");
    Settle();
    EXPECT_NE(Entry(menu, "Store\tCtrl+S"), nullptr);
}

TEST_F(QtMenuBarTest, ChoosesAnItemOfTheBarItself)
{
    Add(mMenu->getItems(), u"&About");
    Settle();
    Bar().actions().back()->trigger();
    Settle();
    EXPECT_EQ(mLog, u"&About ");
    Testing::CFormDriver driver(*mForm);
    driver.Press('A', {Classes::ssAlt});
    Settle();
    EXPECT_EQ(mLog, u"&About &About ");
}

TEST_F(QtMenuBarTest, BearsTheEndOfTheFormByAnItem)
{
    for (const bool isOpening : {false, true}) {
        SCOPED_TRACE(isOpening);
        if (mForm == nullptr) {
            mForm = std::make_unique<Forms::TForm>();
            mForm->setName(u"Menued");
            mMenu = new Menus::TMainMenu(mForm.get());
            mFile = Add(mMenu->getItems(), u"&File");
            mSave = Add(mFile, u"&Save");
            mForm->setMenu(mMenu);
            mForm->Show();
            Settle();
        }
        (isOpening ? mFile : mSave)->OnClick = [this](TObject*) { mForm.reset(); };
        if (isOpening) {
            Testing::CFormDriver(*mForm).Press('F', {Classes::ssAlt});
        } else {
            Bar().actions().front()->menu()->actions().front()->trigger();
        }
        Settle();
        EXPECT_EQ(mForm, nullptr);
        while (Toolkits::CurrentToolkit().ProcessMessage()) {
        }
        EXPECT_EQ(Support::FindWidget("Menued"), nullptr);
    }
}

TEST_F(QtMenuBarTest, MakesRoomForTheFirstItem)
{
    auto* const other = new Menus::TMainMenu(mForm.get());
    mForm->setMenu(other);
    Settle();
    EXPECT_EQ(Bar().height(), 0);
    const int height = Support::FindWidget("Menued")->height();
    Add(other->getItems(), u"&First");
    Settle();
    EXPECT_GT(Bar().height(), 0);
    EXPECT_EQ(Support::FindWidget("Menued")->height(), height);
}

TEST_F(QtMenuBarTest, LetsGoOfAMenuThatEnds)
{
    delete mMenu;
    Settle();
    EXPECT_EQ(mForm->getMenu(), nullptr);
    EXPECT_EQ(Bar().height(), 0);
}

} // namespace
