// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Comctrls_TabControl.h"

#include "platform/toolkit/PaintRecording.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

namespace
{

using Comctrls::TCustomTabControl;
using System::UnicodeString;
using Types::TRect;

/// Tabs that stand for nothing.
class TBareTabs : public TCustomTabControl
{
public:
    void SetTabs(std::vector<UnicodeString> tabs)
    {
        mTabs = std::move(tabs);
        TabsChanged();
    }

protected:
    int GetTabIndex() const override { return mChosen; }
    void SetTabIndex(int index) override { mChosen = index; }
    int GetTabCount() const override { return static_cast<int>(mTabs.size()); }
    UnicodeString GetTabText(int index) const override { return mTabs.at(static_cast<std::size_t>(index)); }

private:
    std::vector<UnicodeString> mTabs;
    int mChosen = 0;
};

class TabControlTest : public testing::Test
{
protected:
    TabControlTest()
    {
        mTabs.SetBounds(0, 0, 100, 80);
        mTabs.setTabWidth(40);
        mTabs.setTabHeight(20);
        mTabs.SetTabs({u"A", u"B", u"C"});
    }

    Support::ScriptedBoxes mToolkit;
    TBareTabs mTabs;
};

TEST_F(TabControlTest, PutsTheTabsOnEachSide)
{
    const struct
    {
        Comctrls::TTabPosition position;
        TRect second;
        TRect display;
    } cases[] = {
        {Comctrls::tpTop, {40, 0, 80, 20}, {4, 24, 96, 76}},
        {Comctrls::tpBottom, {40, 60, 80, 80}, {4, 4, 96, 56}},
        {Comctrls::tpLeft, {0, 20, 40, 40}, {44, 4, 96, 76}},
        {Comctrls::tpRight, {60, 20, 100, 40}, {4, 4, 56, 76}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.position);
        mTabs.setTabPosition(c.position);
        EXPECT_EQ(mTabs.TabRect(1), c.second);
        EXPECT_EQ(mTabs.getDisplayRect(), c.display);
        EXPECT_EQ(mTabs.IndexOfTabAt(c.second.Left, c.second.Top), 1);
        EXPECT_EQ(mTabs.IndexOfTabAt(50, 50), -1);
    }
}

TEST_F(TabControlTest, BeginsAnotherRowOrScrolls)
{
    EXPECT_EQ(mTabs.RowCount(), 1);
    EXPECT_EQ(mTabs.TabRect(2), (TRect{80, 0, 120, 20}));
    mTabs.ScrollTabs(1);
    EXPECT_EQ(mTabs.TabRect(2), (TRect{40, 0, 80, 20}));
    EXPECT_EQ(mTabs.TabRect(0), TRect{});
    mTabs.ScrollTabs(2147483647);
    EXPECT_EQ(mTabs.TabRect(2).Left, 0);
    mTabs.ScrollTabs(-2147483647);
    mTabs.setMultiLine(true);
    EXPECT_EQ(mTabs.RowCount(), 2);
    EXPECT_EQ(mTabs.TabRect(2), (TRect{0, 20, 40, 40}));
    EXPECT_EQ(mTabs.getDisplayRect(), (TRect{4, 44, 96, 76}));
    mTabs.setWidth(200);
    EXPECT_EQ(mTabs.RowCount(), 1);
}

TEST_F(TabControlTest, SizesTheTabsByTheirTexts)
{
    mTabs.setTabWidth(0);
    mTabs.SetTabs({u"I", u"A wide one"});
    EXPECT_LT(mTabs.TabRect(0).Width(), mTabs.TabRect(1).Width());
    EXPECT_EQ(mTabs.TabRect(0).Right, mTabs.TabRect(1).Left);
}

TEST_F(TabControlTest, PaintsInAnySize)
{
    mTabs.SetTabs({u"Ofen"});
    for (const auto style : {Comctrls::tsTabs, Comctrls::tsButtons, Comctrls::tsFlatButtons}) {
        mTabs.setStyle(style);
        for (const auto& [width, height] : {std::pair(0, 0), {1, 1}, {100, 80}}) {
            mTabs.SetBounds(0, 0, width, height);
            Toolkits::PaintRecording recording;
            EXPECT_NO_THROW(mTabs.PaintTo(&recording, 0, 0));
            EXPECT_TRUE(width < 100 || recording.AsText().Pos(u"Ofen") > 0) << style;
        }
    }
    mTabs.SetTabs({});
    EXPECT_EQ(mTabs.RowCount(), 0);
    EXPECT_EQ(mTabs.TabRect(0), TRect{});
    EXPECT_EQ(mTabs.IndexOfTabAt(1, 1), -1);
}

} // namespace
