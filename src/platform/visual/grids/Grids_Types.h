// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_Closure.h"
#include "platform/runtime/typinfo/Typinfo.h"

namespace Grids
{

/// A cell that isn't in the grid, or counts that don't go together.
class TRS8_BTL_API EInvalidGridOperation : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EInvalidGridOperation() override;
};

/// What a grid draws and what its user may do. `goFixedVertLine` to `goHorzLine` are the lines between fixed
/// cells and between others. `goRangeSelect` lets the user select several cells, `goRowSelect` whole rows;
/// `goDrawFocusSelected` draws the cell with the focus as a selected one. `goRowSizing`, `goColSizing`,
/// `goRowMoving` and `goColMoving` let the user size and move rows and columns by their fixed cells.
/// `goEditing` lets the user edit cells, `goAlwaysShowEditor` without a key for it. With `goTabs` the Tab key
/// goes from cell to cell. `goThumbTracking` scrolls while the thumb of a bar is dragged. `goFixedColClick`
/// and `goFixedRowClick` make clicks on the cells of fixed columns and rows, `goFixedHotTrack` shows which of
/// them the mouse is over.
enum TGridOption
{
    goFixedVertLine,
    goFixedHorzLine,
    goVertLine,
    goHorzLine,
    goRangeSelect,
    goDrawFocusSelected,
    goRowSizing,
    goColSizing,
    goRowMoving,
    goColMoving,
    goEditing,
    goTabs,
    goRowSelect,
    goAlwaysShowEditor,
    goThumbTracking,
    goFixedColClick,
    goFixedRowClick,
    goFixedHotTrack
};
/// All that holds for a grid at a time.
using TGridOptions = System::Set<TGridOption, goFixedVertLine, goFixedHotTrack>;

/// What a cell is while it is drawn.
enum TGridDrawStateFlag
{
    gdSelected,
    gdFocused,
    gdFixed,
    gdRowSelected,
    gdHotTrack,
    gdPressed
};
/// All that a cell is while it is drawn.
using TGridDrawState = System::Set<TGridDrawStateFlag, gdSelected, gdPressed>;

/// What the user does with the mouse in a grid just now.
enum TGridState
{
    gsNormal,
    gsSelecting,
    gsRowSizing,
    gsColSizing,
    gsRowMoving,
    gsColMoving
};

/// How fixed cells look: flat or raised ones, or shaded from one colour to another.
enum TGridDrawingStyle
{
    gdsClassic,
    gdsThemed,
    gdsGradient
};

/// A direction in which a grid scrolls.
enum TGridScrollDirectionFlag
{
    sdLeft,
    sdRight,
    sdUp,
    sdDown
};
/// The directions in which a grid scrolls at a time.
using TGridScrollDirection = System::Set<TGridScrollDirectionFlag, sdLeft, sdDown>;

/// A cell: `X` is its column, `Y` its row, from 0.
struct TGridCoord
{
    int X = 0;
    int Y = 0;

    friend bool operator==(const TGridCoord&, const TGridCoord&) = default;
};

/// Cells by the columns and rows at their edges, all of them inside.
struct TGridRect
{
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    /// Whether the cell is one of them.
    constexpr bool Contains(int col, int row) const noexcept
    {
        return col >= Left && col <= Right && row >= Top && row <= Bottom;
    }

    friend bool operator==(const TGridRect&, const TGridRect&) = default;
};

/// A cell is to be drawn within `rect`, on the grid's canvas.
using TDrawCellEvent = System::TClosure<void(System::TObject* sender, int col, int row, Types::TRect rect,
                                             TGridDrawState state)>;
/// The user, or a program, is about to go to a cell; `canSelect` may refuse it.
using TSelectCellEvent = System::TClosure<void(System::TObject* sender, int col, int row, bool& canSelect)>;
/// Gives what the editor of a cell begins with: its text, or its mask.
using TGetEditEvent =
    System::TClosure<void(System::TObject* sender, int col, int row, System::UnicodeString& value)>;
/// The text of a cell changed in its editor.
using TSetEditEvent =
    System::TClosure<void(System::TObject* sender, int col, int row, const System::UnicodeString& value)>;
/// A column or row was moved.
using TMovedEvent = System::TClosure<void(System::TObject* sender, int fromIndex, int toIndex)>;
/// The user clicked on a fixed cell.
using TFixedCellClickEvent = System::TClosure<void(System::TObject* sender, int col, int row)>;

} // namespace Grids

namespace Typinfo
{

// The enumerations of grids, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Grids::TGridOption>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Grids::TGridDrawingStyle>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
