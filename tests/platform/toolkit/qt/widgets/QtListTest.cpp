// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtList.h"

#include "platform/toolkit/qt/WindowLog.h"

#include <QListView>
#include <QMouseEvent>
#include <QScrollBar>

#include <gtest/gtest.h>

#include <set>

namespace
{

using Toolkits::EWindowKind;

/// Numbers, of which each third is checked, 4 a heading and 5 not to be used.
class Numbers final : public Toolkits::WindowItems
{
public:
    int count = 1'000'000;
    std::set<int> chosen;
    /// How many were asked for.
    mutable int askedCount = 0;

    int GetItemCount() const override { return count; }
    System::UnicodeString GetItemText(int index) const override
    {
        ++askedCount;
        return System::UnicodeString(index);
    }
    Toolkits::ECheck GetItemCheck(int index) const override
    {
        return index % 3 == 0 ? Toolkits::ECheck::Checked : Toolkits::ECheck::Unchecked;
    }
    bool IsItemHeader(int index) const override { return index == 4; }
    bool IsItemEnabled(int index) const override { return index != 5; }
    bool IsItemChosen(int index) const override { return chosen.contains(index); }
};

class QtListTest : public testing::Test
{
protected:
    explicit QtListTest(EWindowKind kind = EWindowKind::ListBox) : mShown(kind)
    {
        mShown.window->SetBounds({0, 0, 100, 60});
        mShown.window->SetListTraits({.itemHeight = 10});
        mShown.window->ShowItems(mItems);
        mShown.player().Settle();
        mView = qobject_cast<QListView*>(Support::FindWidget("Form.Window"));
    }

    int RowAt(int y) const { return mView->indexAt({5, y - mView->viewport()->y()}).row(); }
    std::set<int> Selected() const
    {
        std::set<int> rows;
        for (const QModelIndex& index : mView->selectionModel()->selectedIndexes()) {
            rows.insert(index.row());
        }
        return rows;
    }

    Numbers mItems;
    Support::TShownWindow mShown;
    QListView* mView = nullptr;
};

class QtCheckListTest : public QtListTest
{
protected:
    QtCheckListTest() : QtListTest(EWindowKind::CheckListBox) {}
};

TEST_F(QtListTest, StandsWhereTheControlSaysAndReadsWhatIsInSight)
{
    EXPECT_EQ(RowAt(25), 2);
    mShown.window->SetTopItem(999'990);
    EXPECT_EQ(RowAt(0), 999'990);
    EXPECT_EQ(mView->verticalScrollBar()->value(), 999'990);
    EXPECT_EQ(mView->verticalScrollBar()->maximum(), 999'994);
    mItems.askedCount = 0;
    mView->grab();
    EXPECT_LT(mItems.askedCount, 20);
    EXPECT_EQ(mShown.log.Take(), "");
}

TEST_F(QtListTest, HasABarBelowForAWidthThatDoesntFit)
{
    QScrollBar& bar = *mView->horizontalScrollBar();
    EXPECT_FALSE(bar.isVisible());
    for (const bool isFromRight : {false, true}) {
        SCOPED_TRACE(isFromRight);
        mShown.window->SetListTraits({.itemHeight = 10, .scrollWidth = 300, .isFromRight = isFromRight});
        mShown.player().Settle();
        EXPECT_TRUE(bar.isVisible());
        EXPECT_EQ(bar.height(), 17);
        const int room = mView->viewport()->width();
        EXPECT_EQ(bar.maximum(), 300 - room);
        // The last row isn't behind the bar.
        EXPECT_EQ(mView->verticalScrollBar()->maximum(), 1'000'000 - 4);
        const auto row = [&] { return mView->visualRect(mView->model()->index(0, 0)); };
        bar.setValue(0);
        EXPECT_EQ(row().width(), 300);
        EXPECT_EQ(isFromRight ? row().right() : row().left(), isFromRight ? room - 1 : 0);
        bar.setValue(50);
        EXPECT_EQ(isFromRight ? row().right() : row().left(), isFromRight ? room - 1 + 50 : -50);
        EXPECT_EQ(RowAt(25), 2);
        mView->grab();
    }
    mShown.window->SetListTraits({.itemHeight = 10, .scrollWidth = 90});
    mShown.player().Settle();
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(mShown.log.Take(), "");
}

TEST_F(QtListTest, LeavesMouseAndKeysToTheControlAndTellsOfTheBar)
{
    mShown.Click({50, 33});
    EXPECT_EQ(mShown.log.Take(), "down50,33 ");
    mShown.Press(VK_DOWN);
    EXPECT_EQ(mShown.log.Take(), "key40 ");
    mView->verticalScrollBar()->setValue(7);
    EXPECT_EQ(mShown.log.Take(), "scrolled7 ");
    EXPECT_EQ(RowAt(0), 7);
    mItems.count = 6;
    mShown.window->ShowItems(mItems);
    mShown.window->SetTopItem(0);
    EXPECT_EQ(mView->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(mShown.log.Take(), "");
}

TEST_F(QtListTest, TellsWhereTheMouseIsInAllOfIt)
{
    // What Qt itself sends comes to the part within the frame.
    QWidget& inner = *mView->viewport();
    const QPointF place(20, 20);
    QMouseEvent event(QEvent::MouseButtonPress, place, inner.mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&inner, &event);
    const int frame = inner.y();
    EXPECT_GT(frame, 0);
    EXPECT_EQ(mShown.log.Take(),
              "down" + std::to_string(20 + inner.x()) + "," + std::to_string(20 + frame) + " ");
}

TEST_F(QtListTest, ShowsWhichItemsAreChosen)
{
    mShown.window->SelectItem(3);
    EXPECT_EQ(Selected(), std::set{3});
    EXPECT_EQ(mView->currentIndex().row(), 3);
    mShown.window->SelectItem(-1);
    EXPECT_EQ(Selected(), std::set<int>());
    mShown.window->SetListTraits({.itemHeight = 10, .isMultiple = true});
    mItems.count = 20'000;
    mShown.window->ShowItems(mItems);
    mItems.chosen = {1, 2, 5, 19'999};
    mShown.window->ShowChoice();
    mShown.player().Settle();
    EXPECT_EQ(Selected(), mItems.chosen);
    mItems.chosen.erase(2);
    mShown.window->ShowItem(2);
    mShown.player().Settle();
    EXPECT_EQ(Selected(), mItems.chosen);
    EXPECT_EQ(mShown.log.Take(), "");
    for (int i = 0; i < 10'000; i += 2) {
        mItems.chosen.insert(i);
    }
    mShown.window->ShowChoice();
    mShown.player().Settle();
    EXPECT_TRUE(Selected().contains(2));
}

TEST_F(QtListTest, HearsOfAChoiceThatIsMadeByQt)
{
    mView->selectionModel()->select(mView->model()->index(2, 0), QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(mShown.log.Take(), "chosen2 ");
}

TEST_F(QtListTest, KeepsItsChoiceWhileTheUserIsKeptFromIt)
{
    mItems.count = 10;
    mItems.chosen = {3};
    mShown.window->ShowItems(mItems);
    mShown.window->SelectItem(3);
    mShown.form->SetEnabled(false);
    mView->selectionModel()->select(mView->model()->index(2, 0), QItemSelectionModel::ClearAndSelect);
    mShown.player().Settle();
    EXPECT_EQ(Selected(), mItems.chosen);
    EXPECT_EQ(mShown.log.Take(), "");
}

TEST_F(QtListTest, OutlivesItemsThatEndItWhileTheyArePainted)
{
    class EndingItems final : public Toolkits::WindowItems
    {
    public:
        explicit EndingItems(Support::TShownWindow& shown) : mShown(shown) {}
        int GetItemCount() const override { return 5; }
        System::UnicodeString GetItemText(int) const override
        {
            mShown.window.reset();
            return u"text";
        }

    private:
        Support::TShownWindow& mShown;
    };
    const EndingItems items(mShown);
    mShown.window->ShowItems(items);
    mShown.window->Invalidate(nullptr);
    mShown.window->Update();
    EXPECT_EQ(mShown.window, nullptr);
    while (Toolkits::CurrentToolkit().ProcessMessage()) {
    }
    EXPECT_EQ(Support::FindWidget("Form.Window"), nullptr);
}

TEST_F(QtCheckListTest, HasMarksHeadingsAndItemsThatCantBeUsed)
{
    const QAbstractItemModel& model = *mView->model();
    const auto check = [&](int row) { return model.index(row, 0).data(Qt::CheckStateRole); };
    EXPECT_EQ(check(3), QVariant(Qt::Checked));
    EXPECT_EQ(check(1), QVariant(Qt::Unchecked));
    EXPECT_FALSE(check(4).isValid());
    EXPECT_FALSE(model.flags(model.index(5, 0)).testFlag(Qt::ItemIsEnabled));
    mView->model()->setData(model.index(2, 0), Qt::Checked, Qt::CheckStateRole);
    EXPECT_EQ(mShown.log.Take(), "check2 ");
    mShown.form->SetEnabled(false);
    mView->model()->setData(model.index(2, 0), Qt::Checked, Qt::CheckStateRole);
    EXPECT_EQ(mShown.log.Take(), "");
}

TEST_F(QtCheckListTest, PaintsHeadingsInTheirColour)
{
    const Toolkits::TPixel lime = Toolkits::OpaquePixel(0, 255, 0);
    for (const bool isFromRight : {false, true}) {
        mShown.window->SetListTraits(
            {.itemHeight = 10, .boxWidth = 16, .isFromRight = isFromRight, .headerGround = lime});
        const QImage image = mView->grab().toImage();
        const int x = mView->width() / 2 + mView->viewport()->x();
        EXPECT_EQ(image.pixel(x, 41), lime);
        EXPECT_NE(image.pixel(x, 31), lime);
    }
}

} // namespace
