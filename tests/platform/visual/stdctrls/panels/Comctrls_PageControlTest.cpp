// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Comctrls_PageControl.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/filer/FilerSupport.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/Forms.h"
#include "platform/visual/controls/ProbeControl.h"
#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace
{

using Comctrls::TPageControl;
using Comctrls::TTabSheet;
using Support::TProbe;
using System::TObject;
using System::UnicodeString;

/// A form with pages "Page0" to "Page2", each with a control "Edit0" to "Edit2".
class PageControlTest : public testing::Test
{
protected:
    PageControlTest()
    {
        mPages->setName(u"Pages");
        mPages->SetBounds(0, 0, 300, 200);
        mPages->setParent(&mForm);
        mPages->OnChange = [this](TObject*) { mLog += u"change "; };
        for (int i = 0; i < 3; ++i) {
            AddPage(i);
        }
        mForm.Show();
        mLog = {};
    }

    TTabSheet* AddPage(int number)
    {
        auto* const page = new TTabSheet(&mForm);
        page->setName(u"Page" + UnicodeString(number));
        page->setPageControl(mPages);
        page->OnShow = [this](TObject* sender) { mLog += u"+" + NameOf(sender); };
        page->OnHide = [this](TObject* sender) { mLog += u"-" + NameOf(sender); };
        auto* const edit = new TProbe(&mForm, u"Edit" + UnicodeString(number));
        edit->SetBounds(5, 5, 50, 20);
        edit->setParent(page);
        return page;
    }
    static UnicodeString NameOf(TObject* component)
    {
        return dynamic_cast<Classes::TComponent*>(component)->getName() + u" ";
    }
    TTabSheet* Page(int index) { return mPages->getPages(index); }
    TProbe* Edit(int number)
    {
        return dynamic_cast<TProbe*>(mForm.FindComponent(u"Edit" + UnicodeString(number)));
    }
    /// Clicks on a tab.
    void ClickTab(int index)
    {
        const Types::TRect rect = mPages->TabRect(index);
        mDriver.Click(u"Pages", {rect.Left + 2, rect.Top + 2});
    }

    Support::ScriptedBoxes mToolkit;
    UnicodeString mLog;
    Forms::TForm mForm;
    TPageControl* mPages = new TPageControl(&mForm);
    Testing::CFormDriver mDriver{mForm};
};

TEST_F(PageControlTest, ShowsTheFirstPageAndTurnsToOthers)
{
    EXPECT_EQ(mPages->getPageCount(), 3);
    EXPECT_EQ(mPages->getActivePageIndex(), 0);
    EXPECT_TRUE(Page(0)->getShowing());
    EXPECT_EQ(Page(0)->getBoundsRect(), mPages->getDisplayRect());
    mPages->setActivePageIndex(2);
    EXPECT_EQ(mPages->getActivePage(), Page(2));
    EXPECT_TRUE(Page(2)->getShowing());
    EXPECT_FALSE(Page(0)->getShowing());
    mPages->setActivePageIndex(7);
    EXPECT_EQ(mPages->getActivePage(), nullptr);
    EXPECT_EQ(mPages->getTabIndex(), -1);
    EXPECT_FALSE(Page(2)->getShowing());
    // Code that turns the page doesn't hear of it.
    EXPECT_EQ(mLog, u"+Page2 -Page0 -Page2 ");
}

TEST_F(PageControlTest, TellsWhenTheUserTurnsThePage)
{
    ClickTab(1);
    EXPECT_EQ(mLog, u"+Page1 -Page0 change ");
    mLog = {};
    ClickTab(1);
    EXPECT_EQ(mLog, u"");
    mPages->OnChanging = [](TObject*, bool& allow) { allow = false; };
    ClickTab(2);
    mPages->SelectNextPage(true);
    EXPECT_EQ(mLog, u"");
    EXPECT_EQ(mPages->getActivePageIndex(), 1);
}

TEST_F(PageControlTest, TurnsRoundByCtrlAndTab)
{
    Edit(0)->SetFocus();
    mDriver.Press(VK_TAB, {Classes::ssCtrl});
    EXPECT_EQ(mPages->getActivePageIndex(), 1);
    EXPECT_EQ(mDriver.Focused(), u"Edit1");
    mDriver.Press(VK_TAB, {Classes::ssCtrl, Classes::ssShift});
    mDriver.Press(VK_TAB, {Classes::ssCtrl, Classes::ssShift});
    EXPECT_EQ(mPages->getActivePageIndex(), 2);
    Page(0)->setTabVisible(false);
    mDriver.Press(VK_TAB, {Classes::ssCtrl});
    EXPECT_EQ(mPages->getActivePageIndex(), 1);
}

TEST_F(PageControlTest, TurnsByArrowsAndByMarkedCharacters)
{
    mPages->SetFocus();
    mDriver.Press(VK_RIGHT);
    EXPECT_EQ(mPages->getActivePageIndex(), 1);
    mDriver.Press(VK_END);
    EXPECT_EQ(mPages->getActivePageIndex(), 2);
    mDriver.Press(VK_RIGHT);
    EXPECT_EQ(mPages->getActivePageIndex(), 2);
    mDriver.Press(VK_HOME);
    EXPECT_EQ(mPages->getActivePageIndex(), 0);
    Page(1)->setCaption(u"&Werte");
    mDriver.Press('W', {Classes::ssAlt});
    EXPECT_EQ(mPages->getActivePageIndex(), 1);
}

TEST_F(PageControlTest, StaysWhereTheFocusIsNotLetGo)
{
    Edit(0)->SetFocus();
    Edit(0)->OnExit = [](TObject*) { throw std::runtime_error("not yet"); };
    EXPECT_THROW(mPages->setActivePageIndex(1), std::runtime_error);
    EXPECT_EQ(mPages->getActivePageIndex(), 0);
    EXPECT_TRUE(Page(0)->getShowing());
    Edit(0)->OnExit = {};
    mPages->setActivePageIndex(1);
    EXPECT_EQ(mDriver.Focused(), u"Edit1");
}

TEST_F(PageControlTest, TurnsToWhatIsToBeShown)
{
    Edit(2)->Show();
    EXPECT_EQ(mPages->getActivePageIndex(), 2);
    EXPECT_NE(mDriver.Print().find("TPageControl Pages 0,0 300x200 \"\" focused tab 2\n"), std::string::npos)
        << mDriver.Print();
}

TEST_F(PageControlTest, HasPagesWithoutTabs)
{
    Page(0)->setTabVisible(false);
    EXPECT_EQ(mPages->getActivePageIndex(), 1);
    EXPECT_EQ(mPages->getTabIndex(), 0);
    EXPECT_EQ(Page(0)->getTabIndex(), -1);
    EXPECT_EQ(Page(2)->getTabIndex(), 1);
    EXPECT_EQ(mPages->FindNextPage(Page(2), true, true), Page(1));
    EXPECT_EQ(mPages->FindNextPage(Page(2), true, false), Page(0));
    EXPECT_EQ(mPages->FindNextPage(nullptr, false, true), Page(2));
    // The program may still turn to it.
    mPages->setActivePage(Page(0));
    EXPECT_TRUE(Page(0)->getShowing());
    EXPECT_EQ(mPages->getTabIndex(), -1);
    mPages->setTabIndex(7);
    EXPECT_EQ(mPages->getActivePage(), Page(0));
    mPages->setTabIndex(1);
    EXPECT_EQ(mPages->getActivePage(), Page(2));
}

TEST_F(PageControlTest, MovesPages)
{
    TTabSheet* const first = Page(0);
    first->setPageIndex(9);
    EXPECT_EQ(first->getPageIndex(), 2);
    EXPECT_EQ(mPages->getActivePage(), first);
    first->setPageIndex(-1);
    EXPECT_EQ(first->getPageIndex(), 0);
    EXPECT_THROW(mPages->getPages(3), Classes::EListError);
    EXPECT_THROW(mPages->getPages(-1), Classes::EListError);
}

TEST_F(PageControlTest, LosesPages)
{
    delete Page(0);
    EXPECT_EQ(mPages->getPageCount(), 2);
    EXPECT_EQ(mPages->getActivePage(), Page(0));
    EXPECT_TRUE(Page(0)->getShowing());
    TPageControl other(&mForm);
    other.setParent(&mForm);
    TTabSheet* const moved = Page(0);
    moved->setPageControl(&other);
    EXPECT_EQ(other.getActivePage(), moved);
    EXPECT_EQ(mPages->getPageCount(), 1);
    mPages->setActivePage(moved);
    EXPECT_EQ(mPages->getActivePageIndex(), 0);
    moved->setPageControl(nullptr);
    EXPECT_EQ(other.getPageCount(), 0);
    EXPECT_EQ(moved->getPageIndex(), -1);
}

TEST_F(PageControlTest, BearsTheEndOfPagesWithinTheirEvents)
{
    TTabSheet* const page = Page(1);
    page->OnShow = [](TObject* sender) { delete sender; };
    ClickTab(1);
    EXPECT_EQ(mPages->getPageCount(), 2);
    EXPECT_NE(mPages->getActivePage(), page);
    mPages->setActivePageIndex(0);
    Page(0)->OnHide = [this](TObject*) { delete mPages; };
    ClickTab(1);
    EXPECT_EQ(mForm.FindComponent(u"Pages"), nullptr);
}

TEST_F(PageControlTest, ShowsWhatIsRaisedAsAPageGoes)
{
    Page(1)->OnShow = [](TObject*) { throw std::runtime_error("shown"); };
    testing::internal::CaptureStderr();
    delete Page(0);
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(mToolkit.TakeShown().at(0).box.text, u"shown");
    EXPECT_EQ(mPages->getPageCount(), 2);
}

TEST_F(PageControlTest, EndsFromWithinItsOwnQuestion)
{
    mPages->OnChanging = [](TObject* sender, bool&) { delete sender; };
    ClickTab(1);
    EXPECT_EQ(mForm.FindComponent(u"Pages"), nullptr);
}

/// A form with pages, as a design has them.
class TPagesForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TPagesForm, Forms::TForm)

public:
    explicit TPagesForm(Classes::TComponent* owner = nullptr) : TForm(owner) { ReadDesign(); }

    TPageControl* Pages = nullptr;
    TTabSheet* Values = nullptr;
    TTabSheet* Memo = nullptr;
};

System::TMetaClass* TPagesForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TPagesForm>(u"TPagesForm")
                                                  .Field(u"Pages", &TPagesForm::Pages)
                                                  .Field(u"Values", &TPagesForm::Values)
                                                  .Field(u"Memo", &TPagesForm::Memo)
                                                  .Build();
    return record;
}

TEST_F(PageControlTest, StandsInADesign)
{
    const FilerTest::CRegisteredDesign registered(
        "TPagesForm",
        "object PagesForm: TPagesForm\n  ClientHeight = 100\n  ClientWidth = 200\n"
        "  object Pages: TPageControl\n    Left = 0\n    Top = 0\n    Width = 200\n    Height = 100\n"
        "    ActivePage = Memo\n    Align = alClient\n    MultiLine = True\n    TabOrder = 0\n"
        "    object Values: TTabSheet\n      Caption = 'Values'\n    end\n"
        "    object Memo: TTabSheet\n      Caption = 'Memo'\n      ImageIndex = 3\n    end\n  end\nend");
    TPagesForm form;
    EXPECT_EQ(form.Pages->getPageCount(), 2);
    EXPECT_EQ(form.Pages->getActivePage(), form.Memo);
    EXPECT_EQ(form.Memo->getImageIndex(), 3);
    form.Show();
    EXPECT_TRUE(form.Memo->getShowing());
    EXPECT_FALSE(form.Values->getShowing());
    const std::string written = FilerTest::WrittenText(form);
    EXPECT_NE(written.find("ActivePage = Memo"), std::string::npos) << written;
    EXPECT_LT(written.find("object Values"), written.find("object Memo")) << written;
    EXPECT_EQ(written.find("Visible = False"), std::string::npos) << written;
}

TEST_F(PageControlTest, ShowsPicturesInItsTabs)
{
    const int plain = mPages->TabRect(1).Width();
    const int depth = mPages->getDisplayRect().Top;
    auto images = std::make_unique<Controls::TImageList>();
    images->setWidth(40);
    images->setHeight(30);
    Graphics::TBitmap bitmap(40, 30);
    bitmap.getCanvas()->getBrush()->setColor(Graphics::clRed);
    bitmap.getCanvas()->FillRect({0, 0, 40, 30});
    images->Add(&bitmap);
    mPages->setImages(images.get());
    Page(1)->setImageIndex(0);
    Page(2)->setImageIndex(7);
    EXPECT_EQ(mPages->TabRect(1).Width(), plain + 40 + 4);
    EXPECT_EQ(mPages->TabRect(2).Width(), plain);
    EXPECT_EQ(mPages->TabRect(1).Height(), 36);
    EXPECT_GT(mPages->getDisplayRect().Top, depth);

    const auto colorAt = [this](int x, int y) {
        Graphics::TBitmap target(300, 200);
        mPages->PaintTo(target.getCanvas()->getHandle(), 0, 0);
        return target.getCanvas()->getPixels(x, y);
    };
    const Types::TRect tab = mPages->TabRect(1);
    const int middle = (tab.Top + tab.Bottom) / 2;
    EXPECT_EQ(colorAt(tab.Left + 6, middle), Graphics::clRed);
    EXPECT_EQ(colorAt(tab.Left + 45, tab.Top + 4), Graphics::clRed);
    EXPECT_NE(colorAt(tab.Left + 47, tab.Top + 4), Graphics::clRed);
    images.reset();
    EXPECT_EQ(mPages->getImages(), nullptr);
    EXPECT_EQ(mPages->TabRect(1).Width(), plain);
    EXPECT_EQ(mPages->getDisplayRect().Top, depth);
}

} // namespace
