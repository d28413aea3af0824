// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_DrawGrid.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"

namespace Grids
{

using System::UnicodeString;

System::TMetaClass* TCustomDrawGrid::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomDrawGrid>(u"TCustomDrawGrid").Build();
    return record;
}

TCustomDrawGrid::TCustomDrawGrid(Classes::TComponent* owner) : TCustomGrid(owner) {}

TCustomDrawGrid::~TCustomDrawGrid() = default;

void TCustomDrawGrid::DrawCell(int col, int row, const Types::TRect& rect, TGridDrawState state)
{
    if (OnDrawCell) {
        OnDrawCell(this, col, row, rect, state);
    }
}

void TCustomDrawGrid::ColumnMoved(int from, int to)
{
    if (OnColumnMoved) {
        OnColumnMoved(this, from, to);
    }
}

void TCustomDrawGrid::RowMoved(int from, int to)
{
    if (OnRowMoved) {
        OnRowMoved(this, from, to);
    }
}

void TCustomDrawGrid::FixedCellClick(int col, int row)
{
    if (OnFixedCellClick) {
        OnFixedCellClick(this, col, row);
    }
}

bool TCustomDrawGrid::SelectCell(int col, int row)
{
    bool canSelect = true;
    if (OnSelectCell) {
        OnSelectCell(this, col, row, canSelect);
    }
    return canSelect;
}

UnicodeString TCustomDrawGrid::GetEditMask(int col, int row)
{
    UnicodeString mask;
    if (OnGetEditMask) {
        OnGetEditMask(this, col, row, mask);
    }
    return mask;
}

UnicodeString TCustomDrawGrid::GetEditText(int col, int row)
{
    UnicodeString text;
    if (OnGetEditText) {
        OnGetEditText(this, col, row, text);
    }
    return text;
}

void TCustomDrawGrid::SetEditText(int col, int row, const UnicodeString& text)
{
    if (OnSetEditText) {
        OnSetEditText(this, col, row, text);
    }
}

void TCustomDrawGrid::TopLeftChanged()
{
    const Classes::TComponentWatch watch(this);
    TCustomGrid::TopLeftChanged();
    if (watch.IsAlive() && OnTopLeftChanged) {
        OnTopLeftChanged(this);
    }
}

System::TMetaClass* TDrawGrid::ClassRecord()
{
    using T = TDrawGrid;
    static System::TMetaClass* const record =
        Controls::PublishFocus(Controls::PublishColoredControl(System::GClassBuilder<T>(u"TDrawGrid")))
            .Property(u"BorderStyle", &T::getBorderStyle, &T::setBorderStyle,
                      {.defaultValue = Forms::bsSingle})
            .Property(u"ColCount", &T::getColCount, &T::setColCount, {.defaultValue = 5})
            .Property(u"DefaultColWidth", &T::getDefaultColWidth, &T::setDefaultColWidth,
                      {.defaultValue = 64})
            .Property(u"DefaultRowHeight", &T::getDefaultRowHeight, &T::setDefaultRowHeight,
                      {.defaultValue = 24})
            .Property(u"DefaultDrawing", &T::getDefaultDrawing, &T::setDefaultDrawing, {.defaultValue = 1})
            .Property(u"DrawingStyle", &T::getDrawingStyle, &T::setDrawingStyle, {.defaultValue = gdsThemed})
            .Property(u"FixedColor", &T::getFixedColor, &T::setFixedColor,
                      {.defaultValue = Graphics::clBtnFace})
            .Property(u"FixedCols", &T::getFixedCols, &T::setFixedCols, {.defaultValue = 1})
            .Property(u"RowCount", &T::getRowCount, &T::setRowCount, {.defaultValue = 5})
            .Property(u"FixedRows", &T::getFixedRows, &T::setFixedRows, {.defaultValue = 1})
            .Property(u"GradientEndColor", &T::getGradientEndColor, &T::setGradientEndColor,
                      {.defaultValue = Graphics::clBtnFace})
            .Property(u"GradientStartColor", &T::getGradientStartColor, &T::setGradientStartColor,
                      {.defaultValue = Graphics::clWhite})
            .Property(u"GridLineWidth", &T::getGridLineWidth, &T::setGridLineWidth, {.defaultValue = 1})
            .Property(u"Options", &T::getOptions, &T::setOptions, {.defaultValue = 31})
            .Property(u"ScrollBars", &T::getScrollBars, &T::setScrollBars, {.defaultValue = Stdctrls::ssBoth})
            .Property(u"TabStop", &T::getTabStop, &T::setTabStop, {.defaultValue = 1})
            .Property(u"VisibleColCount", &T::getVisibleColCount)
            .Property(u"VisibleRowCount", &T::getVisibleRowCount)
            .Property(u"OnColumnMoved", &T::OnColumnMoved)
            .Property(u"OnDrawCell", &T::OnDrawCell)
            .Property(u"OnFixedCellClick", &T::OnFixedCellClick)
            .Property(u"OnGetEditMask", &T::OnGetEditMask)
            .Property(u"OnGetEditText", &T::OnGetEditText)
            .Property(u"OnRowMoved", &T::OnRowMoved)
            .Property(u"OnSelectCell", &T::OnSelectCell)
            .Property(u"OnSetEditText", &T::OnSetEditText)
            .Property(u"OnTopLeftChanged", &T::OnTopLeftChanged)
            .Build();
    return record;
}

TDrawGrid::TDrawGrid(Classes::TComponent* owner) : TCustomDrawGrid(owner) {}

TDrawGrid::~TDrawGrid() = default;

} // namespace Grids
