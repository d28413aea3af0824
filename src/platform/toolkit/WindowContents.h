// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/Types.h"

#include <optional>

namespace Toolkits
{

/// What a thing within a window is, that has no window of its own.
enum class EPartKind
{
    Text,
    Button,
    Picture
};

/// A thing within a window as those who can't see it hear of it.
struct TWindowPart
{
    EPartKind kind = EPartKind::Picture;
    /// The names of its control and that one's owners: "Settings.fLabel".
    System::UnicodeString name = {};
    /// What it says, without the mark of its accelerator.
    System::UnicodeString text = {};
    /// In the client area of the window.
    Types::TRect bounds = {};
    bool isEnabled = true;
    /// Of a button that stays down.
    bool isDown = false;
};

/// The cells of a grid, for those who can't see them. Columns and rows count from 0, and are within the
/// counts.
class TRS8_BTL_API WindowCells
{
public:
    virtual ~WindowCells();

    /// How many columns there are, the fixed ones among them.
    virtual int GetCellColumnCount() const = 0;
    /// As `GetCellColumnCount`, of rows.
    virtual int GetCellRowCount() const = 0;
    /// Whether the cell is a heading of its column or row.
    virtual bool IsColumnHeading(int column, int row) const = 0;
    virtual bool IsRowHeading(int column, int row) const = 0;
    /// Empty for a cell without a text.
    virtual System::UnicodeString GetCellText(int column, int row) = 0;
    /// In the client area; empty if nothing of it is seen.
    virtual Types::TRect GetCellBounds(int column, int row) const = 0;
    /// From the first selected column and row to those behind the last; empty if none is.
    virtual Types::TRect GetSelectedCells() const = 0;
    /// The column and row of the one at hand, which keys act on; one of them negative for none.
    virtual Types::TPoint GetCurrentCell() const = 0;
    /// Goes to the cell as the user does, and brings it to sight.
    virtual void ChooseCell(int column, int row) = 0;
};

/// What a control that paints its window has in it. A toolkit asks on behalf of those who can't see it, such
/// as readers of screens and tools for tests.
class TRS8_BTL_API WindowContents
{
public:
    virtual ~WindowContents();

    /// What those who can't see the window know it by: what its label says, or else its own text, without
    /// the mark of an accelerator.
    virtual System::UnicodeString GetWindowName() const = 0;
    /// How many things stand in the window without one of their own and can be seen.
    virtual int GetWindowPartCount() const = 0;
    /// One of them, from the back at 0 to the front; nothing for one that isn't there.
    virtual std::optional<TWindowPart> GetWindowPart(int index) const = 0;
    /// The cells, if it is a grid; null otherwise. They are there as long as the control.
    virtual WindowCells* GetWindowCells() { return nullptr; }
};

} // namespace Toolkits
