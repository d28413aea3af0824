// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtPages.h"

#include "platform/toolkit/Pixels.h"
#include "platform/toolkit/qt/WindowLog.h"

#include <QTabBar>
#include <QToolButton>

#include <gtest/gtest.h>

namespace
{

using Toolkits::TTabs;

class QtPagesTest : public testing::Test
{
protected:
    QtPagesTest() { mShown.window->SetBounds({0, 0, 200, 100}); }

    /// Tabs that are 80 wide each.
    static TTabs Tabs(int count, int first = 0)
    {
        TTabs tabs{.chosen = first, .first = first, .pages = {0, 20, 200, 100}};
        for (int i = 0; i < count; ++i) {
            const int left = (i - first) * 80;
            tabs.tabs.push_back({.text = u"Page &" + System::UnicodeString(i),
                                 .rect = i < first ? Types::TRect() : Types::TRect{left, 0, left + 80, 20}});
        }
        return tabs;
    }

    /// Where a tab stands in the window.
    QRect TabIn(int index) const { return mBar->tabRect(index).translated(mBar->pos()); }
    bool HasArrows() const
    {
        const auto arrows = mPages->findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly);
        return !arrows.isEmpty() && arrows.front()->isVisible();
    }

    Support::TShownWindow mShown{Toolkits::EWindowKind::Pages};
    QWidget* mPages = Support::FindWidget("Form.Window");
    QTabBar* mBar = mPages->findChild<QTabBar*>();
};

TEST_F(QtPagesTest, HasItsTabsWhereTheControlSays)
{
    mShown.window->SetTabs(Tabs(2));
    EXPECT_EQ(mBar->count(), 2);
    EXPECT_EQ(TabIn(0), QRect(0, 0, 80, 20));
    EXPECT_EQ(TabIn(1), QRect(80, 0, 80, 20));
    EXPECT_EQ(mBar->currentIndex(), 0);
    EXPECT_EQ(mBar->tabText(1), QStringLiteral("Page &1"));
    EXPECT_FALSE(HasArrows());
    TTabs other = Tabs(2);
    other.tabs[0].rect.Right = 60;
    other.tabs[1].rect = {60, 0, 90, 20};
    other.chosen = 1;
    const Toolkits::Pixels picture(16, 12, Toolkits::OpaquePixel(255, 0, 0));
    other.tabs[1].picture = &picture;
    mShown.window->SetTabs(other);
    EXPECT_EQ(TabIn(1), QRect(60, 0, 30, 20));
    EXPECT_EQ(mBar->currentIndex(), 1);
    EXPECT_FALSE(mBar->tabIcon(1).isNull());
    mShown.window->SetTabs({});
    EXPECT_EQ(mBar->count(), 0);
    EXPECT_EQ(mShown.log.Take(), "");
}

TEST_F(QtPagesTest, ShowsThatNoTabIsChosen)
{
    TTabs tabs = Tabs(2);
    mShown.window->SetTabs(tabs);
    const QImage chosen = mBar->grab().toImage();
    tabs.chosen = -1;
    mShown.window->SetTabs(tabs);
    EXPECT_NE(mBar->grab().toImage(), chosen);
    tabs.chosen = 0;
    mShown.window->SetTabs(tabs);
    EXPECT_EQ(mBar->grab().toImage(), chosen);
    EXPECT_EQ(mShown.log.Take(), "");
}

TEST_F(QtPagesTest, LeavesClicksToTheControlAndHearsOfAChoiceByQt)
{
    mShown.window->SetTabs(Tabs(2));
    mShown.Click({90, 5});
    EXPECT_EQ(mShown.log.Take(), "down90,5 ");
    EXPECT_EQ(mPages->childAt(90, 5), nullptr);
    mBar->setCurrentIndex(1);
    EXPECT_EQ(mShown.log.Take(), "chosen1 ");
    mShown.window->SetTabs(Tabs(2));
    mShown.form->SetEnabled(false);
    mBar->setCurrentIndex(1);
    EXPECT_EQ(mBar->currentIndex(), 0);
    EXPECT_EQ(mShown.log.Take(), "");
}

TEST_F(QtPagesTest, HasArrowsForTabsThatDontFit)
{
    mShown.window->SetTabs(Tabs(4));
    ASSERT_TRUE(HasArrows());
    const auto arrows = mPages->findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly);
    EXPECT_FALSE(arrows[0]->isEnabled());
    arrows[1]->click();
    EXPECT_EQ(mShown.log.Take(), "scrolled1 ");
    mShown.window->SetTabs(Tabs(4, 1));
    EXPECT_EQ(TabIn(1), QRect(0, 0, 80, 20));
    EXPECT_LE(TabIn(0).right(), 0);
    EXPECT_EQ(mBar->currentIndex(), 1);
    arrows[0]->click();
    EXPECT_EQ(mShown.log.Take(), "scrolled0 ");
}

} // namespace
