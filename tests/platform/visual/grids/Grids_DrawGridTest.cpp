// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_DrawGrid.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/grids/GridForm.h"

#include <limits>
#include <set>

namespace
{

using namespace Grids;
using System::UnicodeString;

using DrawGridTest = Support::GridTest<TDrawGrid>;

/// What a toolkit without a screen draws at once.
class PaintedDrawGridTest : public DrawGridTest
{
};

constexpr int Most = std::numeric_limits<int>::max();

TEST_F(DrawGridTest, KeepsCountsThatGoTogether)
{
    TDrawGrid grid;
    EXPECT_EQ(grid.getColCount(), 5);
    EXPECT_EQ(grid.getRowCount(), 5);
    EXPECT_EQ(grid.getFixedCols(), 1);
    EXPECT_EQ(grid.getFixedRows(), 1);
    for (const int count : {0, -1, -Most}) {
        grid.setColCount(count);
        EXPECT_EQ(grid.getColCount(), 1);
        EXPECT_EQ(grid.getFixedCols(), 0);
    }
    grid.setColCount(3);
    EXPECT_THROW(grid.setFixedCols(3), EInvalidGridOperation);
    EXPECT_THROW(grid.setFixedRows(-1), EInvalidGridOperation);
    grid.setFixedCols(2);
    EXPECT_EQ(grid.getLeftCol(), 2);
    EXPECT_EQ(grid.getCol(), 2);
    grid.setColCount(2);
    EXPECT_EQ(grid.getFixedCols(), 1);
}

TEST_F(DrawGridTest, RefusesCellsThatArentThere)
{
    EXPECT_THROW(mGrid->setCol(10), EInvalidGridOperation);
    EXPECT_THROW(mGrid->setRow(-1), EInvalidGridOperation);
    EXPECT_THROW(mGrid->setColWidths(10, 5), EInvalidGridOperation);
    EXPECT_THROW(mGrid->setRowHeights(-1, 5), EInvalidGridOperation);
    EXPECT_THROW(mGrid->setLeftCol(-1), EInvalidGridOperation);
    EXPECT_THROW(mGrid->setTopRow(20), EInvalidGridOperation);
    EXPECT_THROW(mGrid->setTabStops(10, false), EInvalidGridOperation);
    EXPECT_EQ(mGrid->getColWidths(99), 64);
    EXPECT_EQ(Cell(), "1,1");
}

TEST_F(DrawGridTest, PutsCellsWhereTheirSizesTell)
{
    EXPECT_EQ(mGrid->CellRect(0, 0), (Types::TRect{0, 0, 64, 24}));
    EXPECT_EQ(mGrid->CellRect(2, 1), (Types::TRect{130, 25, 194, 49}));
    mGrid->setColWidths(1, 10);
    EXPECT_EQ(mGrid->CellRect(2, 1), (Types::TRect{76, 25, 140, 49}));
    mGrid->setColWidths(1, -1);
    EXPECT_EQ(mGrid->CellRect(2, 1), (Types::TRect{65, 25, 129, 49}));
    EXPECT_EQ(mGrid->CellRect(1, 1), (Types::TRect{}));
    mGrid->setLeftCol(3);
    EXPECT_EQ(mGrid->CellRect(2, 1), (Types::TRect{}));
    EXPECT_EQ(mGrid->CellRect(0, 1), (Types::TRect{0, 25, 64, 49}));
    EXPECT_EQ(mGrid->CellRect(3, 1), (Types::TRect{65, 25, 129, 49}));
    EXPECT_EQ(mGrid->BoxRect(0, 0, 4, 2), (Types::TRect{0, 0, 194, 74}));
    mGrid->setDefaultColWidth(20);
    EXPECT_EQ(mGrid->getColWidths(1), 20);
    mGrid->setGridLineWidth(4);
    EXPECT_EQ(mGrid->CellRect(3, 1), (Types::TRect{24, 28, 44, 52}));
    mGrid->setOptions({});
    EXPECT_EQ(mGrid->CellRect(3, 1), (Types::TRect{20, 24, 40, 48}));
}

TEST_F(DrawGridTest, FindsTheCellUnderTheMouse)
{
    const struct
    {
        int x, y;
        TGridCoord cell;
    } cases[] = {{0, 0, {0, 0}},    {64, 24, {0, 0}},  {65, 25, {1, 1}},    {66 + 65, 60, {2, 2}},
                 {-1, 5, {-1, -1}}, {5, -1, {-1, -1}}, {5000, 5, {-1, -1}}, {5, 5000, {-1, -1}}};
    for (const auto& [x, y, cell] : cases) {
        SCOPED_TRACE(testing::Message() << x << ',' << y);
        int col = 7;
        int row = 7;
        mGrid->MouseToCell(x, y, col, row);
        EXPECT_EQ((TGridCoord{col, row}), cell);
    }
    mGrid->setTopRow(11);
    EXPECT_EQ(mGrid->MouseCoord(0, 30), (TGridCoord{0, 11}));
}

TEST_F(DrawGridTest, MirrorsWhatRunsFromTheRight)
{
    const int width = mGrid->getClientWidth();
    mGrid->setBiDiMode(Classes::bdRightToLeft);
    EXPECT_EQ(mGrid->CellRect(0, 0), (Types::TRect{width - 64, 0, width, 24}));
    EXPECT_EQ(mGrid->MouseCoord(width - 1, 0), (TGridCoord{0, 0}));
    mGrid->SetFocus();
    Press(VK_LEFT);
    EXPECT_EQ(Cell(), "2,1");
}

TEST_F(DrawGridTest, CountsWhatIsInSight)
{
    EXPECT_EQ(mGrid->getVisibleColCount(), 4);
    EXPECT_EQ(mGrid->getVisibleRowCount(), 6);
    mGrid->setColWidths(1, 5000);
    EXPECT_EQ(mGrid->getVisibleColCount(), 1);
    mGrid->SetBounds(0, 0, 0, 0);
    EXPECT_EQ(mGrid->getVisibleColCount(), 1);
    EXPECT_EQ(mGrid->getVisibleRowCount(), 1);
}

TEST_F(PaintedDrawGridTest, DrawsOnlyWhatIsInSight)
{
    mGrid->setColCount(Most);
    mGrid->setRowCount(Most);
    std::set<std::pair<int, int>> drawn;
    int count = 0;
    mGrid->OnDrawCell = [&](System::TObject*, int col, int row, Types::TRect rect, TGridDrawState) {
        EXPECT_EQ(rect, mGrid->CellRect(col, row));
        drawn.emplace(col, row);
        ++count;
    };
    mGrid->setLeftCol(1'000'000);
    mGrid->setTopRow(2'000'000'000);
    mGrid->Repaint();
    EXPECT_EQ(count, 5 * 7);
    EXPECT_EQ(drawn.size(), 5U * 7U);
    EXPECT_TRUE(drawn.contains({0, 0}));
    EXPECT_TRUE(drawn.contains({1'000'000, 2'000'000'000}));
    EXPECT_FALSE(drawn.contains({1, 1}));
    count = 0;
    mGrid->InvalidateCell(1, 1);
    mGrid->InvalidateRow(5);
    mGrid->InvalidateCol(5);
    mGrid->Update();
    EXPECT_EQ(count, 0);
    mGrid->InvalidateRow(0);
    mGrid->Update();
    EXPECT_GT(count, 0);
}

TEST_F(DrawGridTest, SurvivesBillionsOfCellsWithoutASize)
{
    mGrid->setGridLineWidth(0);
    mGrid->setDefaultColWidth(0);
    mGrid->setDefaultRowHeight(-1);
    mGrid->setColCount(Most);
    mGrid->setRowCount(Most);
    mGrid->setColWidths(Most - 5, 10);
    mGrid->setRowHeights(Most - 7, 10);
    EXPECT_EQ(mGrid->CellRect(Most - 5, Most - 7), (Types::TRect{0, 0, 10, 10}));
    mGrid->SetFocus();
    Press(VK_END, {Classes::ssCtrl});
    EXPECT_EQ(mGrid->getRow(), Most - 1);
    Press(VK_PRIOR);
    mGrid->Repaint();
    mGrid->setFixedCols(Most - 1);
    mGrid->Repaint();
    EXPECT_EQ(mGrid->getCol(), Most - 1);
}

TEST_F(DrawGridTest, HoldsSizesWithinReason)
{
    mGrid->setColWidths(1, Most);
    mGrid->setColWidths(2, -Most);
    mGrid->setDefaultRowHeight(Most);
    mGrid->setGridLineWidth(Most);
    mGrid->Repaint();
    EXPECT_EQ(mGrid->getColWidths(1), Most / 4);
    EXPECT_EQ(mGrid->getColWidths(2), -1);
    EXPECT_EQ(mGrid->getDefaultRowHeight(), Most / 4);
}

TEST_F(DrawGridTest, GoesByKeys)
{
    mGrid->SetFocus();
    const Classes::TShiftState ctrl{Classes::ssCtrl};
    const struct
    {
        System::Word key;
        Classes::TShiftState shift;
        const char* cell;
        const char* topLeft;
    } cases[] = {
        {VK_RIGHT, {}, "2,1", "1,1"},   {VK_DOWN, {}, "2,2", "1,1"},    {VK_LEFT, {}, "1,2", "1,1"},
        {VK_LEFT, {}, "1,2", "1,1"},    {VK_UP, {}, "1,1", "1,1"},      {VK_UP, {}, "1,1", "1,1"},
        {VK_END, {}, "9,1", "6,1"},     {VK_HOME, {}, "1,1", "1,1"},    {VK_NEXT, {}, "1,7", "1,7"},
        {VK_NEXT, {}, "1,13", "1,13"},  {VK_NEXT, {}, "1,19", "1,14"},  {VK_PRIOR, {}, "1,13", "1,8"},
        {VK_DOWN, ctrl, "1,13", "1,9"}, {VK_UP, ctrl, "1,13", "1,8"},   {VK_NEXT, ctrl, "1,13", "1,8"},
        {VK_PRIOR, ctrl, "1,8", "1,8"}, {VK_RIGHT, ctrl, "5,8", "2,8"}, {VK_LEFT, ctrl, "1,8", "1,8"},
        {VK_END, ctrl, "9,19", "6,14"}, {VK_HOME, ctrl, "1,1", "1,1"},  {VK_TAB, {}, "1,1", "1,1"}};
    for (const auto& [key, shift, cell, topLeft] : cases) {
        SCOPED_TRACE(testing::Message() << key << " to " << cell);
        Press(key, shift);
        EXPECT_EQ(Cell(), cell);
        EXPECT_EQ(TopLeft(), topLeft);
    }
}

TEST_F(DrawGridTest, GoesByTabFromCellToCell)
{
    AddOption(goTabs);
    mGrid->SetFocus();
    const Classes::TShiftState shift{Classes::ssShift};
    Press(VK_TAB, shift);
    EXPECT_EQ(Cell(), "9,19");
    Press(VK_TAB);
    EXPECT_EQ(Cell(), "1,1");
    mGrid->setTabStops(2, false);
    Press(VK_TAB);
    EXPECT_EQ(Cell(), "3,1");
    mGrid->setCol(9);
    Press(VK_TAB);
    EXPECT_EQ(Cell(), "1,2");
    for (int i = 1; i < 10; ++i) {
        mGrid->setTabStops(i, false);
    }
    Press(VK_TAB);
    EXPECT_EQ(Cell(), "1,2");
}

TEST_F(DrawGridTest, SelectsARangeByShift)
{
    mGrid->SetFocus();
    Press(VK_RIGHT);
    Press(VK_DOWN, {Classes::ssShift});
    Press(VK_RIGHT, {Classes::ssShift});
    EXPECT_EQ(Selection(), "2,1-3,2");
    Press(VK_HOME, {Classes::ssShift, Classes::ssCtrl});
    EXPECT_EQ(Selection(), "1,1-2,1");
    Press(VK_DOWN);
    EXPECT_EQ(Selection(), "1,2-1,2");
    mGrid->setOptions({goVertLine});
    Press(VK_DOWN, {Classes::ssShift});
    EXPECT_EQ(Selection(), "1,3-1,3");
}

TEST_F(DrawGridTest, SelectsWholeRows)
{
    AddOption(goRowSelect);
    AddOption(goAlwaysShowEditor);
    EXPECT_FALSE(mGrid->getOptions().Contains(goAlwaysShowEditor));
    mGrid->SetFocus();
    Press(VK_RIGHT);
    EXPECT_EQ(Selection(), "1,2-9,2");
    EXPECT_EQ(Cell(), "1,2");
    Press(VK_END);
    EXPECT_EQ(Selection(), "1,19-9,19");
    Down(200, 60);
    EXPECT_EQ(Cell(), "1,15");
}

TEST_F(DrawGridTest, LetsTheSelectionBeSet)
{
    mGrid->setSelection({2, 3, 4, 5});
    EXPECT_EQ(Selection(), "2,3-4,5");
    EXPECT_EQ(Cell(), "4,5");
    mGrid->setSelection({-1, -1, -1, -1});
    EXPECT_EQ(Selection(), "-1,-1--1,-1");
    mGrid->SetFocus();
    Press(VK_DOWN);
    EXPECT_EQ(Cell(), "1,1");
    mGrid->setSelection({-1, -1, -1, -1});
    mGrid->setRow(4);
    EXPECT_EQ(mGrid->getRow(), 4);
    mGrid->setSelection({1, 1, Most, Most});
    EXPECT_EQ(Selection(), "1,1-9,19");
}

TEST_F(DrawGridTest, SelectsByMouseAndScrollsWhileItIsHeldOutside)
{
    mToolkit.UseVirtualClock();
    Down(70, 30);
    EXPECT_TRUE(mGrid->Focused());
    MoveTo(140, 80);
    EXPECT_EQ(Selection(), "1,1-2,3");
    MoveTo(140, 900);
    mToolkit.AdvanceClock(60 * 5);
    EXPECT_EQ(Selection(), "1,1-2,8");
    EXPECT_EQ(TopLeft(), "1,3");
    Up(140, 900);
    mToolkit.AdvanceClock(600);
    EXPECT_EQ(Selection(), "1,1-2,8");
    Down(70, 30, {Classes::ssShift});
    EXPECT_EQ(Selection(), "1,1-1,3");
}

TEST_F(DrawGridTest, SizesByTheLinesOfFixedCells)
{
    Drag(129, 5, 149, 5);
    EXPECT_EQ(mGrid->getColWidths(1), 64);
    AddOption(goColSizing);
    AddOption(goRowSizing);
    Drag(129, 5, 149, 5);
    EXPECT_EQ(mGrid->getColWidths(1), 84);
    Drag(149, 5, 0, 5);
    EXPECT_EQ(mGrid->getColWidths(1), 1);
    Drag(5, 49, 5, 60);
    EXPECT_EQ(mGrid->getRowHeights(1), 35);
    Drag(300, 49, 300, 80);
    EXPECT_EQ(mGrid->getRowHeights(1), 35);
    Drag(64, 5, 99, 5);
    EXPECT_EQ(mGrid->getColWidths(0), 64);
}

TEST_F(DrawGridTest, ShowsByTheCursorWhatCanBeSized)
{
    AddOption(goColSizing);
    AddOption(goRowSizing);
    const struct
    {
        int x, y, cursor;
    } cases[] = {{129, 5, Controls::crHSplit}, {5, 49, Controls::crVSplit}, {129, 49, Controls::crDefault}};
    for (const auto& [x, y, cursor] : cases) {
        MoveTo(x, y);
        EXPECT_EQ(mToolkit.getCursor(), cursor);
    }
    MoveTo(129, 5);
    delete mGrid;
    EXPECT_EQ(mToolkit.getCursor(), Controls::crDefault);
}

TEST_F(DrawGridTest, MovesByFixedCells)
{
    UnicodeString log;
    const auto note = [&](System::TObject*, int from, int to) {
        log += UnicodeString(from) + u">" + UnicodeString(to) + u" ";
    };
    mGrid->OnColumnMoved = note;
    mGrid->OnRowMoved = note;
    Drag(100, 5, 230, 5);
    EXPECT_EQ(log, u"");
    AddOption(goColMoving);
    AddOption(goRowMoving);
    mGrid->setColWidths(1, 60);
    mGrid->setCol(1);
    Drag(100, 5, 230, 5);
    Drag(5, 90, 5, 30);
    EXPECT_EQ(log, u"1>3 3>1 ");
    EXPECT_EQ(mGrid->getColWidths(3), 60);
    EXPECT_EQ(mGrid->getColWidths(1), 64);
    EXPECT_EQ(Cell(), "3,2");
    Drag(100, 5, 100, 5);
    Drag(5, 5, 100, 5);
    EXPECT_EQ(log, u"1>3 3>1 ");
}

TEST_F(DrawGridTest, ScrollsWhileAColumnIsDraggedOutside)
{
    mToolkit.UseVirtualClock();
    AddOption(goColMoving);
    Down(100, 5);
    MoveTo(900, 5);
    mToolkit.AdvanceClock(60 * 3);
    EXPECT_EQ(TopLeft(), "4,1");
    Up(900, 5);
    mGrid->setColWidths(1, 64);
    EXPECT_EQ(TopLeft(), "4,1");
}

TEST_F(DrawGridTest, ClicksOnFixedCells)
{
    UnicodeString log;
    mGrid->OnFixedCellClick = [&](System::TObject*, int col, int row) {
        log += UnicodeString(col) + u"," + UnicodeString(row) + u" ";
    };
    Drag(100, 5, 100, 5);
    AddOption(goFixedRowClick);
    Drag(100, 5, 100, 5);
    Drag(5, 100, 5, 100);
    AddOption(goFixedColClick);
    Drag(5, 100, 5, 100);
    Drag(100, 5, 200, 5);
    EXPECT_EQ(log, u"1,0 0,4 ");
}

TEST_F(DrawGridTest, ScrollsByItsBars)
{
    const int width = mGrid->getClientWidth();
    const int height = mGrid->getClientHeight();
    EXPECT_EQ(width, mGrid->getWidth() - 17);
    const int x = width + 8;
    Drag(x, height - 5, x, height - 5);
    EXPECT_EQ(TopLeft(), "1,2");
    Drag(x, height - 20, x, height - 20);
    EXPECT_EQ(TopLeft(), "1,8");
    Drag(x, 5, x, 5);
    EXPECT_EQ(TopLeft(), "1,7");
    Drag(width - 5, height + 8, width - 5, height + 8);
    EXPECT_EQ(TopLeft(), "2,7");
    Drag(x, height / 2, x, 9000);
    EXPECT_EQ(TopLeft(), "2,14");
    Down(x, height - 25);
    MoveTo(x, 0);
    EXPECT_EQ(TopLeft(), "2,14");
    Up(x, 0);
    EXPECT_EQ(TopLeft(), "2,1");
    mGrid->setScrollBars(Stdctrls::ssNone);
    EXPECT_EQ(mGrid->getClientWidth(), mGrid->getWidth());
}

TEST_F(DrawGridTest, GoesByTheWheel)
{
    Toolkits::TMouseInput wheel;
    wheel.action = Toolkits::EMouseAction::Wheel;
    for (const auto& [delta, row] : {std::pair(-120, 2), {-60, 2}, {-60, 3}, {240, 1}, {Most, 1}}) {
        SCOPED_TRACE(delta);
        wheel.wheelDelta = delta;
        mDriver.Mouse(u"fGrid", wheel);
        EXPECT_EQ(mGrid->getRow(), row);
    }
}

TEST_F(DrawGridTest, AsksBeforeItGoesToACell)
{
    int clicks = 0;
    mGrid->OnClick = [&](System::TObject*) { ++clicks; };
    mGrid->OnSelectCell = [](System::TObject*, int col, int, bool& canSelect) { canSelect = col != 3; };
    mGrid->setCol(3);
    EXPECT_EQ(Cell(), "1,1");
    mGrid->setCol(4);
    EXPECT_EQ(Cell(), "4,1");
    EXPECT_EQ(clicks, 2);
    Down(210, 30);
    EXPECT_EQ(Cell(), "4,1");
    mGrid->OnSelectCell = [this](System::TObject*, int, int, bool&) { mGrid->setRowCount(2); };
    mGrid->setRow(5);
    EXPECT_EQ(Cell(), "4,1");
}

TEST_F(DrawGridTest, TellsWhatWasScrolled)
{
    int told = 0;
    mGrid->OnTopLeftChanged = [&](System::TObject*) { ++told; };
    mGrid->setTopRow(4);
    mGrid->setTopRow(4);
    mGrid->setTopRow(0);
    EXPECT_EQ(TopLeft(), "1,1");
    EXPECT_EQ(told, 2);
    mGrid->setCol(9);
    EXPECT_EQ(told, 3);
}

/// Each event at whose call the grid may be destroyed.
TEST_F(DrawGridTest, MayBeDestroyedByItsHandlers)
{
    using Handler = void (*)(TDrawGrid&);
    const Handler handlers[] = {
        [](TDrawGrid& grid) { grid.OnClick = [&grid](System::TObject*) { delete &grid; }; },
        [](TDrawGrid& grid) {
            grid.OnSelectCell = [&grid](System::TObject*, int, int, bool&) { delete &grid; };
        },
        [](TDrawGrid& grid) { grid.OnTopLeftChanged = [&grid](System::TObject*) { delete &grid; }; },
        [](TDrawGrid& grid) {
            grid.OnKeyDown = [&grid](System::TObject*, System::Word&, Classes::TShiftState) { delete &grid; };
        },
        [](TDrawGrid& grid) {
            grid.OnMouseDown = [&grid](System::TObject*, Controls::TMouseButton, Classes::TShiftState, int,
                                       int) { delete &grid; };
        },
        [](TDrawGrid& grid) {
            grid.OnMouseMove = [&grid](System::TObject*, Classes::TShiftState, int, int) { delete &grid; };
        },
        [](TDrawGrid& grid) { grid.OnColumnMoved = [&grid](System::TObject*, int, int) { delete &grid; }; },
        [](TDrawGrid& grid) {
            grid.OnFixedCellClick = [&grid](System::TObject*, int, int) { delete &grid; };
        },
        [](TDrawGrid& grid) {
            grid.OnDrawCell = [&grid](System::TObject*, int, int, Types::TRect, TGridDrawState) {
                delete &grid;
            };
        }};
    for (const Handler& handler : handlers) {
        SCOPED_TRACE(&handler - handlers);
        auto* const grid = new TDrawGrid(&mForm);
        grid->setName(u"fOther");
        grid->setOptions(grid->getOptions() + TGridOptions{goColMoving, goFixedRowClick, goColSizing});
        grid->setRowCount(100);
        grid->SetBounds(0, 200, 300, 150);
        grid->setParent(&mForm);
        const Classes::TComponentWatch watch(grid);
        handler(*grid);
        const auto act = [&](auto action) {
            if (watch.IsAlive()) {
                action();
            }
        };
        const auto mouse = [&](Toolkits::EMouseAction action, int x, int y) {
            act([&] {
                Toolkits::TMouseInput input;
                input.action = action;
                input.place = {x, y};
                mDriver.Mouse(u"fOther", input);
            });
        };
        act([&] { grid->Repaint(); });
        act([&] { mDriver.Focus(u"fOther"); });
        for (const auto& [x, toX] : {std::pair(100, 100), {100, 160}}) {
            mouse(Toolkits::EMouseAction::Down, x, 5);
            mouse(Toolkits::EMouseAction::Move, toX, 5);
            mouse(Toolkits::EMouseAction::Up, toX, 5);
        }
        act([&] { Press(VK_DOWN); });
        act([&] { Press(VK_END, {Classes::ssCtrl}); });
        EXPECT_FALSE(watch.IsAlive());
        if (watch.IsAlive()) {
            delete grid;
        }
    }
}

TEST_F(DrawGridTest, GoesOnAfterAHandlerThatThrows)
{
    mGrid->OnDrawCell = [](System::TObject*, int, int, Types::TRect, TGridDrawState) {
        throw Sysutils::Exception(u"no");
    };
    mGrid->OnSelectCell = [](System::TObject*, int, int, bool&) { throw Sysutils::Exception(u"no"); };
    EXPECT_THROW(mGrid->setCol(2), Sysutils::Exception);
    EXPECT_EQ(Cell(), "1,1");
    mGrid->OnSelectCell = nullptr;
    mGrid->OnDrawCell = nullptr;
    mGrid->setCol(2);
    EXPECT_EQ(Cell(), "2,1");
}

} // namespace
