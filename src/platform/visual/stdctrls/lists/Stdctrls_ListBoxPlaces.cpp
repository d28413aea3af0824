// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/toolkit/internal/ListBar.h"
#include "platform/visual/controls/Controls_WindowActs.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_DrawText.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ListBox.h"
#include "platform/visual/stdctrls/lists/internal/Stdctrls_ListItems.h"

#include <algorithm>

// Where the items of a list box are, and how they are drawn.

namespace Stdctrls
{

using Classes::TComponentWatch;
using Types::TRect;

bool TCustomListBox::IsNative() const
{
    return !IsOwnerDrawn() && mColumns == 0;
}

void TCustomListBox::CreateParams(Controls::TCreateParams& params)
{
    TCustomMultiSelectListControl::CreateParams(params);
    params.Kind = IsNative() ? NativeKind() : Toolkits::EWindowKind::Canvas;
}

void TCustomListBox::CreateWnd()
{
    TCustomMultiSelectListControl::CreateWnd();
    ShowTraitsInWindow();
    GetWindow()->ShowItems(*this);
    GetWindow()->SetTopItem(mTopIndex);
    GetWindow()->SelectItem(GetItemIndex());
    ShowChoiceInWindow();
}

Toolkits::TListTraits TCustomListBox::ListTraits() const
{
    return {.itemHeight = getItemHeight(),
            .scrollWidth = mScrollWidth,
            .isMultiple = getMultiSelect(),
            .hasBorder = mBorderStyle != Forms::bsNone,
            .isFromRight = UseRightToLeftAlignment()};
}

void TCustomListBox::ShowTraitsInWindow()
{
    if (GetWindow() != nullptr) {
        GetWindow()->SetListTraits(ListTraits());
    }
}

Toolkits::ECheck TCustomListBox::GetItemCheck(int index) const
{
    return IsVirtual() ? Toolkits::ECheck::Unchecked : mItems->ItemAt(index).check;
}

bool TCustomListBox::IsItemEnabled(int index) const
{
    return IsVirtual() || mItems->ItemAt(index).isEnabled;
}

bool TCustomListBox::IsItemHeader(int index) const
{
    return !IsVirtual() && mItems->ItemAt(index).isHeader;
}

void TCustomListBox::setStyle(TListBoxStyle style)
{
    if (style != mStyle) {
        mStyle = style;
        mTopIndex = 0;
        RecreateWnd();
        Invalidate();
    }
}

void TCustomListBox::setColumns(int columns)
{
    columns = std::max(columns, 0);
    if (columns != mColumns) {
        mColumns = columns;
        KeepTopIndex();
        RecreateWnd();
        Invalidate();
    }
}

void TCustomListBox::setScrollWidth(int width)
{
    width = std::max(width, 0);
    if (width != mScrollWidth) {
        mScrollWidth = width;
        ShowTraitsInWindow();
        KeepTopIndex();
        ShowTopInWindow();
    }
}

void TCustomListBox::setBorderStyle(Forms::TFormBorderStyle style)
{
    if (style != mBorderStyle) {
        mBorderStyle = style;
        RecreateWnd();
        Invalidate();
    }
}

int TCustomListBox::getItemHeight() const
{
    return IsOwnerDrawn() ? mItemHeight : std::max(getCanvas()->TextHeight(u"0"), 1);
}

void TCustomListBox::setItemHeight(int height)
{
    if (height > 0 && height != mItemHeight) {
        mItemHeight = height;
        KeepTopIndex();
        Invalidate();
    }
}

void TCustomListBox::MeasureItem(int index, int& height)
{
    if (OnMeasureItem) {
        OnMeasureItem(this, index, height);
    }
}

int TCustomListBox::HeightOf(int index) const
{
    if (mStyle != lbOwnerDrawVariable || index >= GetCount()) {
        return getItemHeight();
    }
    const TComponentWatch watch(this);
    return MeasuredHeight(*mItems, index, mItemHeight, [&](int& height) {
        const_cast<TCustomListBox*>(this)->MeasureItem(index, height);
        StopIfGone(watch);
    });
}

int TCustomListBox::BarHeight() const
{
    return IsNative() && mScrollWidth > getClientWidth() ? Toolkits::ListBarHeight : 0;
}

int TCustomListBox::RowsInSight() const
{
    return std::max((getClientHeight() - BarHeight()) / getItemHeight(), 1);
}

int TCustomListBox::ItemsInSight() const
{
    if (mColumns > 0) {
        return RowsInSight() * mColumns;
    }
    if (mStyle != lbOwnerDrawVariable) {
        return RowsInSight();
    }
    int count = 0;
    for (int used = 0; mTopIndex + count < GetCount(); ++count) {
        used += HeightOf(mTopIndex + count);
        if (used > getClientHeight()) {
            break;
        }
    }
    return std::max(count, 1);
}

int TCustomListBox::ColumnWidth() const
{
    return mColumns == 0 ? getClientWidth() : std::max(getClientWidth() / mColumns, 1);
}

int TCustomListBox::getTopIndex() const
{
    return mTopIndex;
}

void TCustomListBox::setTopIndex(int index)
{
    const int former = mTopIndex;
    mTopIndex = index;
    KeepTopIndex();
    if (mTopIndex != former) {
        ShowTopInWindow();
    }
}

void TCustomListBox::ShowTopInWindow()
{
    if (GetWindow() != nullptr) {
        GetWindow()->SetTopItem(mTopIndex);
    }
    Invalidate();
}

void TCustomListBox::KeepTopIndex()
{
    int last = GetCount() - 1;
    if (mStyle == lbOwnerDrawVariable) {
        for (int room = getClientHeight(); last > 0; --last) {
            room -= HeightOf(last);
            if (room < HeightOf(last - 1)) {
                break;
            }
        }
    } else {
        last = GetCount() - ItemsInSight();
    }
    mTopIndex = std::clamp(mTopIndex, 0, std::max(last, 0));
    if (mColumns > 0) {
        // Columns are moved as a whole; the last one need not be full.
        const int rows = RowsInSight();
        mTopIndex = (mTopIndex + rows - 1) / rows * rows;
    }
}

void TCustomListBox::ShowIndex(int index)
{
    if (index < mTopIndex) {
        setTopIndex(mColumns > 0 ? index / RowsInSight() * RowsInSight() : index);
        return;
    }
    if (mStyle == lbOwnerDrawVariable) {
        while (mTopIndex < index && index >= mTopIndex + ItemsInSight()) {
            ++mTopIndex;
        }
        ShowTopInWindow();
        return;
    }
    const int inSight = ItemsInSight();
    if (index >= mTopIndex + inSight) {
        setTopIndex(index - inSight + 1);
    }
}

void TCustomListBox::Resize()
{
    KeepTopIndex();
    ShowTopInWindow();
    TCustomMultiSelectListControl::Resize();
}

TRect TCustomListBox::ItemRect(int index) const
{
    if (index < 0 || index > GetCount()) {
        return {};
    }
    if (mColumns > 0) {
        const int rows = RowsInSight();
        const int column = index / rows - mTopIndex / rows;
        const int top = index % rows * getItemHeight();
        return {column * ColumnWidth(), top, (column + 1) * ColumnWidth(), top + getItemHeight()};
    }
    if (mStyle != lbOwnerDrawVariable) {
        const long long top = static_cast<long long>(index - mTopIndex) * getItemHeight();
        const int held = static_cast<int>(std::clamp(top, -0x3FFFFFFFLL, 0x3FFFFFFFLL));
        return {0, held, getClientWidth(), held + getItemHeight()};
    }
    int top = 0;
    for (int i = mTopIndex; i < index; ++i) {
        top += HeightOf(i);
    }
    for (int i = index; i < mTopIndex; ++i) {
        top -= HeightOf(i);
    }
    return {0, top, getClientWidth(), top + HeightOf(index)};
}

int TCustomListBox::ItemAtPos(const Types::TPoint& place, bool existing) const
{
    if (!GetClientRect().Contains(place)) {
        return -1;
    }
    const int count = GetCount();
    int index = mTopIndex;
    if (mColumns > 0) {
        const int row = place.Y / getItemHeight();
        index += row < RowsInSight() ? place.X / ColumnWidth() * RowsInSight() + row : count;
    } else if (mStyle != lbOwnerDrawVariable) {
        index += place.Y / getItemHeight();
    } else {
        for (int bottom = HeightOf(index); index < count && place.Y >= bottom; bottom += HeightOf(index)) {
            ++index;
        }
    }
    if (index < count) {
        return index;
    }
    return existing ? -1 : count;
}

void TCustomListBox::InvalidateItem(int index)
{
    if (GetWindow() != nullptr) {
        GetWindow()->ShowItem(index);
    }
    Invalidate();
}

void TCustomListBox::DrawItem(int index, const TRect& rect, TOwnerDrawState state)
{
    if (OnDrawItem) {
        OnDrawItem(this, index, rect, state);
    } else if (index >= 0 && index < GetCount()) {
        DrawItemText(GetItemText(index), rect);
    } else {
        getCanvas()->FillRect(rect);
    }
}

TRect TCustomListBox::DrawLead(int, const TRect& rect)
{
    return rect;
}

void TCustomListBox::SetItemColors(int index, bool isChosen)
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.getBrush()->setColor(isChosen ? Graphics::clHighlight : getColor());
    if (isChosen) {
        canvas.getFont()->setColor(Graphics::clHighlightText);
    } else if (!getEnabled() || !IsItemEnabled(index)) {
        canvas.getFont()->setColor(Graphics::clGrayText);
    }
}

void TCustomListBox::PaintItem(int index, const TRect& rect)
{
    Graphics::TCanvas& canvas = *getCanvas();
    TOwnerDrawState state;
    const bool isChosen = IsChosen(index);
    const bool isFocused = Focused() && index == GetItemIndex();
    isChosen ? state << odSelected : state;
    isFocused ? state << odFocused : state;
    getEnabled() ? state : state << odDisabled;
    const TComponentWatch watch(this);
    const TRect rest = DrawLead(index, rect);
    canvas.setFont(const_cast<Graphics::TFont*>(&GetShownFont()));
    SetItemColors(index, isChosen);
    if (IsOwnerDrawn()) {
        DrawItem(index, rest, state);
    } else {
        DrawItemText(GetItemText(index), rest);
    }
    if (watch.IsAlive() && isFocused && canvas.HandleAllocated()) {
        canvas.DrawFocusRect(rest);
    }
}

void TCustomListBox::Paint()
{
    if (Controls::WindowActs(*this)) {
        return;
    }
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.FillRect(GetClientRect());
    const int end = mColumns > 0 ? RowsInSight() * (mColumns + 1) : ItemsInSight() + 1;
    const TComponentWatch watch(this);
    for (int i = 0; watch.IsAlive() && i < end && mTopIndex + i < GetCount(); ++i) {
        PaintItem(mTopIndex + i, ItemRect(mTopIndex + i));
    }
    if (watch.IsAlive() && mBorderStyle != Forms::bsNone) {
        canvas.getBrush()->setColor(Graphics::clWindowFrame);
        canvas.FrameRect(GetClientRect());
    }
}

} // namespace Stdctrls
