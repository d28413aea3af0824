// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Extctrls_GridPanel.h"

#include "platform/runtime/filer/FilerSupport.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/Forms.h"
#include "platform/visual/controls/ProbeControl.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <stdexcept>

namespace
{

using namespace Extctrls;
using Support::TProbe;
using Types::TRect;

class GridPanelTest : public testing::Test
{
protected:
    GridPanelTest()
    {
        mGrid.setBevelOuter(Controls::bvNone);
        mGrid.SetBounds(0, 0, 100, 60);
        mGrid.setParent(&mForm);
    }

    TProbe* Add(int width = 10, int height = 5)
    {
        auto* const probe = new TProbe(&mForm);
        probe->SetBounds(0, 0, width, height);
        probe->setParent(&mGrid);
        return probe;
    }
    /// Makes the panel have these columns and rows, each a style and a value.
    void SetCells(std::vector<std::pair<TSizeStyle, double>> columns,
                  std::vector<std::pair<TSizeStyle, double>> rows)
    {
        const auto fill = [](auto& cells, const auto& sizes) {
            cells.BeginUpdate();
            cells.Clear();
            for (const auto& [style, value] : sizes) {
                auto* const cell = cells.Add();
                cell->setSizeStyle(style);
                cell->setValue(value);
            }
            cells.EndUpdate();
        };
        fill(*mGrid.getColumnCollection(), columns);
        fill(*mGrid.getRowCollection(), rows);
    }
    TControlItem* ItemOf(const Controls::TControl* control)
    {
        const TControlCollection& items = *mGrid.getControlCollection();
        return items.getItems(items.IndexOf(control));
    }

    Support::ScriptedBoxes mToolkit;
    Forms::TForm mForm;
    TGridPanel mGrid{&mForm};
};

TEST_F(GridPanelTest, GivesControlsTheNextFreeCells)
{
    TProbe* probes[4];
    for (TProbe*& probe : probes) {
        probe = Add();
    }
    EXPECT_EQ(probes[0]->getBoundsRect(), (TRect{0, 0, 10, 5}));
    EXPECT_EQ(probes[1]->getBoundsRect(), (TRect{50, 0, 60, 5}));
    EXPECT_EQ(probes[2]->getBoundsRect(), (TRect{0, 30, 10, 35}));
    EXPECT_EQ(probes[3]->getBoundsRect(), (TRect{50, 30, 60, 35}));
    delete probes[1];
    EXPECT_TRUE(mGrid.getControlCollection()->getControls(1, 0) == nullptr);
    EXPECT_EQ(Add()->getBoundsRect(), (TRect{50, 0, 60, 5}));
    probes[2]->setParent(&mForm);
    EXPECT_EQ(mGrid.getControlCollection()->GetCount(), 3);
    EXPECT_FALSE(mGrid.IsRowEmpty(1));
    EXPECT_FALSE(mGrid.IsColumnEmpty(0));
}

TEST_F(GridPanelTest, GrowsOrRefusesWhenItIsFull)
{
    for (int i = 0; i < 4; ++i) {
        Add();
    }
    mGrid.setExpandStyle(emFixedSize);
    TProbe refused(&mForm);
    EXPECT_THROW(refused.setParent(&mGrid), EGridPanelException);
    EXPECT_EQ(refused.getParent(), nullptr);
    EXPECT_EQ(mGrid.GetControlCount(), 4);
    mGrid.setExpandStyle(emAddRows);
    Add();
    EXPECT_EQ(mGrid.getRowCollection()->GetCount(), 3);
    EXPECT_EQ(mGrid.getRowCollection()->getItems(2)->getSizeStyle(), ssAuto);
    Add();
    mGrid.setExpandStyle(emAddColumns);
    Add();
    EXPECT_EQ(mGrid.getColumnCollection()->GetCount(), 3);
    EXPECT_EQ(mGrid.getCellCount(), 9);
    mGrid.getColumnCollection()->Clear();
    mGrid.getRowCollection()->Clear();
    Add();
    EXPECT_EQ(mGrid.getCellCount(), 1);
}

TEST_F(GridPanelTest, SharesOutItsRoom)
{
    const struct
    {
        const char* name;
        std::vector<std::pair<TSizeStyle, double>> columns;
        std::vector<int> sizes;
    } cases[] = {
        {"shares", {{ssPercent, 25}, {ssPercent, 75}}, {25, 75}},
        {"shares of another whole", {{ssPercent, 1}, {ssPercent, 2}}, {33, 67}},
        {"pixels first", {{ssAbsolute, 40}, {ssPercent, 50}, {ssPercent, 50}}, {40, 30, 30}},
        {"by what is in it", {{ssAuto, 0}, {ssPercent, 50}}, {10, 90}},
        {"more than there is", {{ssAbsolute, 150}, {ssPercent, 50}}, {150, 0}},
        {"no share", {{ssPercent, 0}, {ssPercent, 0}}, {0, 0}},
        {"no numbers",
         {{ssPercent, std::numeric_limits<double>::quiet_NaN()},
          {ssAbsolute, -5},
          {ssPercent, std::numeric_limits<double>::infinity()}},
         {0, 0, 100}},
    };
    Add();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        SetCells(c.columns, {{ssPercent, 100}});
        std::vector<int> sizes;
        for (int i = 0; i < mGrid.getColumnCollection()->GetCount(); ++i) {
            sizes.push_back(mGrid.getColumnCollection()->getItems(i)->getSize());
        }
        EXPECT_EQ(sizes, c.sizes);
    }
}

TEST_F(GridPanelTest, PlacesControlsWithinTheirCells)
{
    using Controls::TAnchors;
    SetCells({{ssPercent, 100}}, {{ssPercent, 100}});
    TProbe* const probe = Add(20, 10);
    const struct
    {
        Controls::TAlign align;
        TAnchors anchors;
        TRect bounds;
    } cases[] = {
        {Controls::alNone, {Controls::akLeft, Controls::akTop}, {0, 0, 20, 10}},
        {Controls::alNone, {Controls::akRight, Controls::akBottom}, {80, 50, 100, 60}},
        {Controls::alNone, {}, {40, 25, 60, 35}},
        {Controls::alNone, {Controls::akLeft, Controls::akRight}, {0, 25, 100, 35}},
        {Controls::alTop, {}, {0, 0, 100, 10}},
        {Controls::alRight, {}, {0, 0, 100, 60}},
        {Controls::alClient, {}, {0, 0, 100, 60}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.align << ' ' << c.bounds.Left);
        probe->setAlign(c.align);
        probe->setAnchors(c.anchors);
        mGrid.Realign();
        EXPECT_EQ(probe->getBoundsRect(), c.bounds);
    }
}

TEST_F(GridPanelTest, CoversSeveralCells)
{
    TProbe* const probe = Add();
    probe->setAlign(Controls::alClient);
    ItemOf(probe)->setColumnSpan(2);
    EXPECT_EQ(probe->getBoundsRect(), (TRect{0, 0, 100, 30}));
    EXPECT_EQ(Add()->getTop(), 30);
    EXPECT_EQ(mGrid.getControlCollection()->getControls(1, 0), probe);
    ItemOf(probe)->setColumnSpan(2147483647);
    ItemOf(probe)->setRowSpan(2147483647);
    EXPECT_EQ(probe->getBoundsRect(), (TRect{0, 0, 100, 60}));
    ItemOf(probe)->setRowSpan(-1);
    EXPECT_EQ(ItemOf(probe)->getRowSpan(), 1);
}

TEST_F(GridPanelTest, LetsControlsChangePlaces)
{
    TProbe* const first = Add();
    TProbe* const second = Add();
    ItemOf(first)->setColumn(1);
    EXPECT_EQ(first->getLeft(), 50);
    EXPECT_EQ(second->getLeft(), 0);
    ItemOf(first)->SetLocation(0, 1);
    EXPECT_EQ(first->getBoundsRect(), (TRect{0, 30, 10, 35}));
    EXPECT_THROW(mGrid.getControlCollection()->AddControl(first, 0, 0), EGridPanelException);
    TProbe third(&mForm);
    mGrid.getControlCollection()->AddControl(&third, 1, 1);
    EXPECT_EQ(third.getParent(), &mGrid);
    EXPECT_EQ(mGrid.getControlCollection()->getControls(1, 1), &third);
    // A row that isn't there has no place for it.
    ItemOf(&third)->setRow(9);
    mGrid.setWidth(200);
    EXPECT_EQ(third.getLeft(), 50);
    mGrid.getControlCollection()->RemoveControl(&third);
    EXPECT_EQ(third.getParent(), &mGrid);
    EXPECT_EQ(mGrid.getControlCollection()->IndexOf(&third), -1);
}

TEST_F(GridPanelTest, IsFilledAnewInOneUpdate)
{
    for (int round = 0; round < 2; ++round) {
        std::vector<std::unique_ptr<TProbe>> cells;
        mGrid.getColumnCollection()->BeginUpdate();
        mGrid.getRowCollection()->BeginUpdate();
        mGrid.getColumnCollection()->Clear();
        mGrid.getRowCollection()->Clear();
        for (int i = 0; i < 3; ++i) {
            mGrid.getColumnCollection()->Add()->setSizeStyle(ssAuto);
            mGrid.getRowCollection()->Add()->setSizeStyle(ssAuto);
        }
        for (int i = 0; i < 9; ++i) {
            cells.push_back(std::make_unique<TProbe>(&mForm));
            cells.back()->SetBounds(0, 0, 10 + i, 4);
            cells.back()->setParent(&mGrid);
        }
        mGrid.getRowCollection()->EndUpdate();
        mGrid.getColumnCollection()->EndUpdate();
        // The widest of each column are those of the last row.
        EXPECT_EQ(cells[8]->getBoundsRect(), (TRect{33, 8, 51, 12})) << round;
        EXPECT_EQ(mGrid.getCellCount(), 9);
    }
}

TEST_F(GridPanelTest, BearsHandlersThatDestroyAndRaise)
{
    TProbe* const first = Add();
    TProbe* const second = Add();
    first->setAlign(Controls::alClient);
    second->setAlign(Controls::alClient);
    first->OnResize = [second](System::TObject*) { delete second; };
    mGrid.setWidth(200);
    EXPECT_EQ(mGrid.getControlCollection()->GetCount(), 1);
    first->OnResize = [](System::TObject*) { throw std::runtime_error("size"); };
    EXPECT_THROW(mGrid.setWidth(300), std::runtime_error);
    first->OnResize = {};
    mGrid.setWidth(100);
    EXPECT_EQ(first->getWidth(), 50);
}

/// A form with a grid panel, as a design has it.
class TGridForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TGridForm, Forms::TForm)

public:
    explicit TGridForm(Classes::TComponent* owner = nullptr) : TForm(owner) { ReadDesign(); }

    TGridPanel* Grid = nullptr;
    TPanel* Left = nullptr;
    TPanel* Right = nullptr;
};

System::TMetaClass* TGridForm::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TGridForm>(u"TGridForm")
                                                  .Field(u"Grid", &TGridForm::Grid)
                                                  .Field(u"Left", &TGridForm::Left)
                                                  .Field(u"Right", &TGridForm::Right)
                                                  .Build();
    return record;
}

TEST_F(GridPanelTest, StandsInADesignAndIsWrittenAsItWasRead)
{
    const FilerTest::CRegisteredDesign registered(
        "TGridForm",
        "object GridForm: TGridForm\n  ClientHeight = 100\n  ClientWidth = 200\n"
        "  object Grid: TGridPanel\n    Left = 0\n    Top = 0\n    Width = 200\n    Height = 100\n"
        "    BevelOuter = bvNone\n"
        "    ColumnCollection = <\n      item\n        SizeStyle = ssAbsolute\n        Value = 50\n      "
        "end\n"
        "      item\n        Value = 100\n      end>\n"
        "    ControlCollection = <\n"
        "      item\n        Column = 1\n        Control = Left\n        Row = 0\n      end\n"
        "      item\n        Column = 0\n        ColumnSpan = 2\n        Control = Right\n        Row = 1\n"
        "      end>\n"
        "    ExpandStyle = emFixedSize\n"
        "    RowCollection = <\n      item\n        Value = 40\n      end\n"
        "      item\n        Value = 60\n      end>\n"
        "    object Left: TPanel\n      Align = alClient\n    end\n"
        "    object Right: TPanel\n      Align = alClient\n    end\n  end\nend");
    TGridForm form;
    EXPECT_EQ(form.Left->getBoundsRect(), (TRect{50, 0, 200, 40}));
    EXPECT_EQ(form.Right->getBoundsRect(), (TRect{0, 40, 200, 100}));
    EXPECT_EQ(form.Grid->getControlCollection()->GetCount(), 2);
    const std::string written = FilerTest::WrittenText(form);
    for (const char* line : {"SizeStyle = ssAbsolute", "ColumnSpan = 2", "Control = Right",
                             "ExpandStyle = emFixedSize", "RowCollection = <"}) {
        EXPECT_NE(written.find(line), std::string::npos) << line << "\n" << written;
    }
}

TEST_F(GridPanelTest, CompletesADesignThatHasNoCells)
{
    const FilerTest::CRegisteredDesign registered(
        "TGridForm",
        "object GridForm: TGridForm\n  ClientHeight = 100\n  ClientWidth = 200\n"
        "  object Grid: TGridPanel\n    Width = 200\n    Height = 100\n    BevelOuter = bvNone\n"
        "    ControlCollection = <\n      item\n        Column = 1\n        Row = 0\n      end>\n"
        "    object Left: TPanel\n      Align = alClient\n    end\n"
        "    object Right: TPanel\n      Align = alClient\n    end\n  end\nend");
    TGridForm form;
    EXPECT_EQ(form.Left->getBoundsRect(), (TRect{0, 0, 100, 50}));
    EXPECT_EQ(form.Right->getBoundsRect(), (TRect{100, 0, 200, 50}));
}

} // namespace
