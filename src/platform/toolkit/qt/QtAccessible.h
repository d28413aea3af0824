// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace Toolkits
{

class CQtWindow;

/// Shows readers of screens, and tools that test programs, what `window` has in its widget: labels and
/// buttons without a window of their own, the cells of grids. Each has a name path as its text of the kind
/// `QAccessible::UserText`, since this Qt has no identifiers; a widget's is its object name too. Widgets of
/// Qt's own kinds tell their contents by themselves. Null ends it.
void ShowToReaders(QWidget& widget, CQtWindow* window);

/// Whether readers are told of a cell that they may know already.
enum class ECellNews
{
    IfOther,
    Always
};

/// Tells readers of the cell at hand of a grid in `widget`, as what has the focus, while the widget has the
/// keyboard. Nothing happens for any other widget.
void TellReadersOfCell(QWidget& widget, ECellNews news);

} // namespace Toolkits
