// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/Forms.h"
#include "platform/visual/Grids.h"
#include "support/ScriptedBoxes.h"
#include "support/ShowPainted.h"
#include "testing/FormDriver.h"

#include <gtest/gtest.h>

#include <string>

namespace Support
{

/// A form with the grid "fGrid" of 10 columns and 20 rows, that of 64 by 24 pixels, of which five columns and
/// seven rows are seen.
template <class Grid = Grids::TStringGrid>
class GridTest : public testing::Test
{
protected:
    GridTest()
    {
        mForm.SetBounds(0, 0, 600, 400);
        mGrid = new Grid(&mForm);
        mGrid->setName(u"fGrid");
        mGrid->SetBounds(10, 10, 5 * 65 + 17, 7 * 25 + 17);
        mGrid->setColCount(10);
        mGrid->setRowCount(20);
        mGrid->setParent(&mForm);
        EXPECT_TRUE(ShowPainted(mForm));
    }

    void AddOption(Grids::TGridOption option) { mGrid->setOptions(mGrid->getOptions() + Of(option)); }
    static Grids::TGridOptions Of(Grids::TGridOption option) { return {option}; }

    void Press(System::Word key, const Classes::TShiftState& shift = {}) { mDriver.Press(key, shift); }
    void Mouse(Toolkits::EMouseAction action, int x, int y, Classes::TShiftState shift = {})
    {
        if (action != Toolkits::EMouseAction::Up) {
            shift << Classes::ssLeft;
        }
        Toolkits::TMouseInput mouse;
        mouse.action = action;
        mouse.place = {x, y};
        mouse.shift = shift;
        mDriver.Mouse(u"fGrid", mouse);
    }
    void Down(int x, int y, const Classes::TShiftState& shift = {})
    {
        Mouse(Toolkits::EMouseAction::Down, x, y, shift);
    }
    void MoveTo(int x, int y) { Mouse(Toolkits::EMouseAction::Move, x, y); }
    void Up(int x, int y) { Mouse(Toolkits::EMouseAction::Up, x, y); }
    void Drag(int x, int y, int toX, int toY)
    {
        Down(x, y);
        MoveTo(toX, toY);
        Up(toX, toY);
    }
    /// The cell at hand, as "col,row".
    std::string Cell() const
    {
        return std::to_string(mGrid->getCol()) + ',' + std::to_string(mGrid->getRow());
    }
    std::string Selection() const
    {
        const Grids::TGridRect s = mGrid->getSelection();
        return std::to_string(s.Left) + ',' + std::to_string(s.Top) + '-' + std::to_string(s.Right) + ',' +
               std::to_string(s.Bottom);
    }
    /// The first column and row in sight behind the fixed ones.
    std::string TopLeft() const
    {
        return std::to_string(mGrid->getLeftCol()) + ',' + std::to_string(mGrid->getTopRow());
    }

    Support::ScriptedBoxes mToolkit;
    Forms::TForm mForm;
    Grid* mGrid = nullptr;
    Testing::CFormDriver mDriver{mForm};
};

} // namespace Support
