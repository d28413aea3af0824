// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_WinControl.h"
#include "platform/visual/graphics/Graphics_Font.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using namespace Controls;
using Types::TRect;

class AlignmentTest : public testing::Test
{
protected:
    TControl* Add(TAlign align, TRect bounds)
    {
        auto* const control = new TControl(&mParent);
        control->setBoundsRect(bounds);
        control->setParent(&mParent);
        control->setAlign(align);
        return control;
    }

    Support::ScriptedBoxes mToolkit;
    TWinControl mParent;
};

TEST_F(AlignmentTest, FillsEdgesInTheirOrderAndTheRestByClient)
{
    mParent.SetBounds(0, 0, 200, 100);
    const TControl* const client = Add(alClient, {0, 0, 1, 1});
    const TControl* const left = Add(alLeft, {0, 0, 30, 1});
    const TControl* const top = Add(alTop, {0, 0, 1, 20});
    const TControl* const bottom = Add(alBottom, {0, 90, 1, 100});
    const TControl* const right = Add(alRight, {190, 0, 200, 1});
    EXPECT_EQ(top->getBoundsRect(), (TRect{0, 0, 200, 20}));
    EXPECT_EQ(bottom->getBoundsRect(), (TRect{0, 90, 200, 100}));
    EXPECT_EQ(left->getBoundsRect(), (TRect{0, 20, 30, 90}));
    EXPECT_EQ(right->getBoundsRect(), (TRect{190, 20, 200, 90}));
    EXPECT_EQ(client->getBoundsRect(), (TRect{30, 20, 190, 90}));

    mParent.SetBounds(5, 5, 100, 50);
    EXPECT_EQ(bottom->getBoundsRect(), (TRect{0, 40, 100, 50}));
    EXPECT_EQ(client->getBoundsRect(), (TRect{30, 20, 90, 40}));
}

TEST_F(AlignmentTest, PilesUpByPlaceAndPassesOverWhatIsHidden)
{
    mParent.SetBounds(0, 0, 100, 100);
    TControl* const second = Add(alTop, {0, 50, 1, 60});
    TControl* const first = Add(alTop, {0, 0, 1, 30});
    EXPECT_EQ(first->getTop(), 0);
    EXPECT_EQ(second->getTop(), 30);
    first->setTop(31);
    EXPECT_EQ(second->getTop(), 0);
    EXPECT_EQ(first->getTop(), 10);
    first->setTop(-1);
    first->setVisible(false);
    EXPECT_EQ(second->getTop(), 0);
}

TEST_F(AlignmentTest, KeepsToItsAnchors)
{
    struct TCase
    {
        TAnchors anchors;
        TRect expected;
    };
    const TCase cases[] = {
        {{akLeft, akTop}, {10, 10, 30, 20}},
        {{akRight, akBottom}, {110, 60, 130, 70}},
        {{akLeft, akTop, akRight, akBottom}, {10, 10, 130, 70}},
        {{}, {60, 35, 80, 45}},
    };
    for (const TCase& row : cases) {
        mParent.SetBounds(0, 0, 100, 50);
        TControl control;
        control.setParent(&mParent);
        control.SetBounds(10, 10, 20, 10);
        control.setAnchors(row.anchors);
        // By way of a size too small for it, which must leave nothing behind.
        mParent.SetBounds(0, 0, 5, 5);
        mParent.SetBounds(0, 0, 200, 100);
        EXPECT_EQ(control.getBoundsRect(), row.expected);
    }
}

TEST_F(AlignmentTest, TakesTheRoomOfOneThatIsAlignedNoMore)
{
    mParent.SetBounds(0, 0, 200, 100);
    TControl* const top = Add(alTop, {0, 0, 1, 20});
    const TControl* const client = Add(alClient, {});
    top->setAlign(alNone);
    EXPECT_EQ(client->getTop(), 0);
    EXPECT_EQ(top->getBoundsRect(), (TRect{0, 0, 200, 20}));
}

TEST_F(AlignmentTest, KnowsWhetherAnyIsPlacedWhereverItComesFrom)
{
    TWinControl other;
    other.SetBounds(0, 0, 50, 50);
    mParent.SetBounds(0, 0, 200, 100);
    TControl* const moved = Add(alNone, {0, 0, 10, 10});
    moved->setAnchors({akLeft, akTop, akRight});
    moved->setParent(&other);
    other.setWidth(70);
    EXPECT_EQ(moved->getWidth(), 30);
    moved->setParent(nullptr);
    moved->setAnchors({akLeft, akTop});
    moved->setAlign(alClient);
    moved->setParent(&mParent);
    EXPECT_EQ(moved->getBoundsRect(), (TRect{0, 0, 200, 100}));
    delete moved;
    const TControl* const late = Add(alTop, {0, 0, 1, 5});
    EXPECT_EQ(late->getWidth(), 200);
}

TEST_F(AlignmentTest, HoldsSizesWithinTheirLimits)
{
    mParent.SetBounds(0, 0, 200, 100);
    TControl* const left = Add(alLeft, {0, 0, 30, 1});
    const TControl* const client = Add(alClient, {});
    left->getConstraints()->setMinWidth(50);
    EXPECT_EQ(left->getWidth(), 50);
    EXPECT_EQ(client->getLeft(), 50);
    left->SetBounds(0, 0, -7, 1'000'000'000);
    EXPECT_EQ(left->getWidth(), 50);
    EXPECT_EQ(left->getHeight(), 100);
    left->OnCanResize = [](System::TObject*, int& width, int&, bool& resize) {
        resize = width != 77;
        width = std::min(width, 60);
    };
    left->setWidth(77);
    EXPECT_EQ(left->getWidth(), 50);
    left->setWidth(90);
    EXPECT_EQ(left->getWidth(), 60);
}

TEST_F(AlignmentTest, WaitsWhileItIsDisabled)
{
    mParent.SetBounds(0, 0, 200, 100);
    mParent.DisableAlign();
    mParent.DisableAlign();
    const TControl* const top = Add(alTop, {3, 3, 4, 20});
    mParent.EnableAlign();
    EXPECT_EQ(top->getWidth(), 1);
    mParent.EnableAlign();
    EXPECT_EQ(top->getWidth(), 200);
}

TEST_F(AlignmentTest, BearsThatAHandlerDestroysWhatIsBeingPlaced)
{
    mParent.SetBounds(0, 0, 200, 100);
    TControl* const first = Add(alTop, {0, 0, 1, 10});
    TControl* const second = Add(alTop, {0, 10, 1, 20});
    Add(alClient, {});
    first->OnResize = [&](System::TObject*) {
        first->OnResize = nullptr;
        delete second;
        delete first;
    };
    mParent.SetBounds(0, 0, 300, 100);
    ASSERT_EQ(mParent.GetControlCount(), 1);
    EXPECT_EQ(mParent.GetControl(0)->getBoundsRect(), (TRect{0, 0, 300, 100}));
}

TEST_F(AlignmentTest, PlacesTreesDeeperThanTheStackBears)
{
    constexpr int levels = 10'000;
    mParent.SetBounds(0, 0, 100, 100);
    TWinControl* innermost = &mParent;
    for (int i = 0; i < levels; ++i) {
        auto* const panel = new TWinControl;
        panel->setParent(innermost);
        panel->setAlign(alClient);
        innermost = panel;
    }
    mParent.SetBounds(0, 0, 300, 200);
    mParent.getFont()->setName(u"Arial");
    mParent.setColor(Graphics::clRed);
    EXPECT_EQ(innermost->getBoundsRect(), (TRect{0, 0, 300, 200}));
    EXPECT_EQ(innermost->getColor(), Graphics::clRed);
    EXPECT_EQ(innermost->GetShownFont().getName(), u"Arial");
}

} // namespace
