// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_InplaceEdit.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/grids/GridForm.h"

namespace
{

using namespace Grids;
using System::UnicodeString;

/// A grid that may refuse characters and changes.
class TProbeGrid : public TStringGrid
{
public:
    using TStringGrid::TStringGrid;

    UnicodeString refused;
    bool canModify = true;

protected:
    bool CanEditAcceptKey(System::WideChar character) override { return refused.Pos(character) == 0; }
    bool CanEditModify() override { return canModify; }
    int GetEditLimit() override { return 4; }
};

class InplaceEditTest : public Support::GridTest<TProbeGrid>
{
protected:
    InplaceEditTest()
    {
        AddOption(goEditing);
        mGrid->SetFocus();
    }

    TInplaceEdit* Editor() const { return mGrid->getInplaceEditor(); }
    bool IsEditing() const { return Editor() != nullptr && Editor()->getVisible(); }

    UnicodeString CellAtHand() const { return mGrid->getCells(mGrid->getCol(), mGrid->getRow()); }
};

TEST_F(InplaceEditTest, BeginsByTypingAndPutsEachChangeIntoTheCell)
{
    UnicodeString log;
    mGrid->OnSetEditText = [&](System::TObject*, int col, int row, const UnicodeString& text) {
        log += UnicodeString(col) + u"," + UnicodeString(row) + u"=" + text + u" ";
    };
    mGrid->setCells(1, 1, u"old");
    EXPECT_FALSE(IsEditing());
    mDriver.Type(u"ab");
    EXPECT_TRUE(IsEditing());
    EXPECT_TRUE(mGrid->getEditorMode());
    EXPECT_TRUE(Editor()->Focused());
    EXPECT_EQ(Editor()->getBoundsRect(), mGrid->CellRect(1, 1));
    EXPECT_EQ(mGrid->getCells(1, 1), u"ab");
    Press(VK_BACK);
    EXPECT_EQ(mGrid->getCells(1, 1), u"a");
    mDriver.Type(u"bcdef");
    EXPECT_EQ(mGrid->getCells(1, 1), u"abcd");
    EXPECT_EQ(log, u"1,1=a 1,1=ab 1,1=a 1,1=ab 1,1=abc 1,1=abcd ");
}

TEST_F(InplaceEditTest, BeginsAndEndsByKeys)
{
    mGrid->setCells(1, 1, u"old");
    Press(VK_F2);
    EXPECT_TRUE(IsEditing());
    EXPECT_EQ(Editor()->getText(), u"old");
    EXPECT_EQ(Editor()->getSelLength(), 3);
    Press(VK_F2);
    EXPECT_EQ(Editor()->getSelLength(), 0);
    mDriver.Type(u"x");
    Press(VK_RETURN);
    EXPECT_FALSE(IsEditing());
    EXPECT_TRUE(mGrid->Focused());
    EXPECT_EQ(mGrid->getCells(1, 1), u"oldx");
    Press(VK_RETURN);
    EXPECT_TRUE(IsEditing());
    mDriver.Type(u"y");
    EXPECT_EQ(mGrid->getCells(1, 1), u"y");
    Press(VK_ESCAPE);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(mGrid->getCells(1, 1), u"oldx");
}

TEST_F(InplaceEditTest, LeavesTheCellByKeysThatGoFurther)
{
    mDriver.Type(u"a");
    Press(VK_LEFT);
    EXPECT_EQ(Cell(), "1,1");
    EXPECT_TRUE(IsEditing());
    Press(VK_DOWN);
    EXPECT_EQ(Cell(), "1,2");
    EXPECT_FALSE(IsEditing());
    EXPECT_TRUE(mGrid->Focused());
    mDriver.Type(u"b");
    AddOption(goTabs);
    Press(VK_TAB);
    EXPECT_EQ(Cell(), "2,2");
    EXPECT_EQ(mGrid->getCols(1)->getCommaText().SubString(1, 5), u",a,b,");
}

TEST_F(InplaceEditTest, IsAlwaysThereWhereThatIsAnOption)
{
    AddOption(goAlwaysShowEditor);
    EXPECT_TRUE(IsEditing());
    EXPECT_TRUE(Editor()->Focused());
    mDriver.Type(u"ab");
    Press(VK_LEFT);
    EXPECT_EQ(Cell(), "1,1");
    Press(VK_END);
    Press(VK_RIGHT);
    EXPECT_EQ(Cell(), "2,1");
    EXPECT_TRUE(IsEditing());
    EXPECT_TRUE(Editor()->Focused());
    EXPECT_EQ(Editor()->getBoundsRect(), mGrid->CellRect(2, 1));
    Press(VK_DOWN);
    mDriver.Type(u"c");
    Press(VK_ESCAPE);
    EXPECT_TRUE(IsEditing());
    EXPECT_EQ(CellAtHand(), u"");
}

TEST_F(InplaceEditTest, OpensByAClickOnTheCellAtHand)
{
    mDriver.ClickCell(u"fGrid", 2, 2);
    EXPECT_EQ(Cell(), "2,2");
    EXPECT_FALSE(IsEditing());
    mDriver.ClickCell(u"fGrid", 2, 2);
    EXPECT_TRUE(IsEditing());
    mDriver.ClickCell(u"fGrid", 3, 3);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Cell(), "3,3");
}

TEST_F(InplaceEditTest, AsksForTextAndMask)
{
    mGrid->OnGetEditText = [](System::TObject*, int, int, UnicodeString& text) { text = u"12"; };
    mGrid->OnGetEditMask = [](System::TObject*, int, int, UnicodeString& mask) { mask = u"00-0;1;_"; };
    Press(VK_F2);
    EXPECT_EQ(Editor()->getEditMask(), u"00-0;1;_");
    EXPECT_EQ(Editor()->getEditText(), u"12-_");
    EXPECT_EQ(mGrid->getCells(1, 1), u"");
}

TEST_F(InplaceEditTest, StaysWhileAMaskedTextIsntComplete)
{
    mGrid->OnGetEditMask = [](System::TObject*, int, int, UnicodeString& mask) { mask = u"00;1;_"; };
    mDriver.Type(u"1");
    Press(VK_DOWN);
    EXPECT_EQ(Cell(), "1,1");
    EXPECT_TRUE(mGrid->getEditorMode());
    EXPECT_TRUE(IsEditing());
    EXPECT_TRUE(Editor()->Focused());
    Editor()->setText(u"12");
    Press(VK_DOWN);
    EXPECT_EQ(Cell(), "1,2");
    EXPECT_EQ(mGrid->getCells(1, 1), u"12");
}

TEST_F(InplaceEditTest, TakesOnlyWhatTheGridAllows)
{
    mGrid->refused = u"xy";
    mDriver.Type(u"axby");
    EXPECT_EQ(mGrid->getCells(1, 1), u"ab");
    mGrid->canModify = false;
    mDriver.Type(u"c");
    Press(VK_BACK);
    Press(VK_HOME);
    Press(VK_DELETE);
    EXPECT_EQ(mGrid->getCells(1, 1), u"ab");
    mGrid->setOptions(mGrid->getOptions() - Of(goEditing));
    EXPECT_FALSE(IsEditing());
    mDriver.Type(u"c");
    EXPECT_FALSE(IsEditing());
}

TEST_F(InplaceEditTest, FollowsItsCell)
{
    mGrid->setCells(1, 1, u"old");
    Press(VK_F2);
    mGrid->setColWidths(0, 10);
    EXPECT_EQ(Editor()->getBoundsRect(), mGrid->CellRect(1, 1));
    mGrid->setCells(1, 1, u"new");
    EXPECT_EQ(Editor()->getText(), u"new");
    mGrid->setTopRow(5);
    EXPECT_LE(Editor()->getBoundsRect().Bottom, 0);
    EXPECT_TRUE(Editor()->Focused());
    mGrid->setTopRow(1);
    EXPECT_EQ(Editor()->getBoundsRect(), mGrid->CellRect(1, 1));
    mGrid->MoveRow(1, 3);
    EXPECT_EQ(Editor()->getBoundsRect(), mGrid->CellRect(1, 3));
    mDriver.Type(u"x");
    EXPECT_EQ(mGrid->getCells(1, 3), u"x");
    mGrid->setRowCount(2);
    EXPECT_FALSE(IsEditing());
}

TEST_F(InplaceEditTest, LetsWhatIsTypedBeCorrected)
{
    mGrid->OnSetEditText = [this](System::TObject*, int col, int row, const UnicodeString& text) {
        mGrid->setCells(col, row, text.UpperCase());
    };
    mDriver.Type(u"abc");
    EXPECT_EQ(mGrid->getCells(1, 1), u"ABC");
    EXPECT_EQ(Editor()->getText(), u"ABC");
}

TEST_F(InplaceEditTest, GoesWhenTheGridIsLeft)
{
    auto* const other = new TStringGrid(&mForm);
    other->setName(u"fOther");
    other->SetBounds(0, 250, 100, 100);
    other->setParent(&mForm);
    mDriver.Type(u"a");
    EXPECT_TRUE(IsEditing());
    mDriver.Focus(u"fOther");
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(mDriver.Focused(), u"fOther");
    EXPECT_EQ(mGrid->getCells(1, 1), u"a");
}

TEST_F(InplaceEditTest, MayBeDestroyedWithItsGridByItsHandlers)
{
    const Classes::TComponentWatch watch(mGrid);
    mGrid->OnSetEditText = [this](System::TObject*, int, int, const UnicodeString&) { delete mGrid; };
    mDriver.Type(u"a");
    EXPECT_FALSE(watch.IsAlive());
}

TEST_F(InplaceEditTest, MayBeDestroyedWhileItIsFilled)
{
    const Classes::TComponentWatch watch(mGrid);
    mGrid->OnGetEditText = [this](System::TObject*, int, int, UnicodeString&) { delete mGrid; };
    Press(VK_F2);
    EXPECT_FALSE(watch.IsAlive());
}

TEST_F(InplaceEditTest, IsMadeAnewAfterItWasDestroyed)
{
    Press(VK_F2);
    delete Editor();
    EXPECT_EQ(Editor(), nullptr);
    mGrid->SetFocus();
    Press(VK_F2);
    EXPECT_TRUE(IsEditing());
}

TEST_F(InplaceEditTest, SurvivesHandlersThatThrow)
{
    mGrid->OnSetEditText = [](System::TObject*, int, int, const UnicodeString&) {
        throw Sysutils::Exception(u"no");
    };
    mDriver.Type(u"ab");
    EXPECT_EQ(mGrid->getCells(1, 1), u"ab");
    mGrid->OnSetEditText = nullptr;
    mDriver.Type(u"c");
    EXPECT_EQ(mGrid->getCells(1, 1), u"abc");
}

} // namespace
