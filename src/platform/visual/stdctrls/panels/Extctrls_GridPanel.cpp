// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Extctrls_GridPanel.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/stdctrls/panels/internal/Extctrls_PublishPanel.h"

#include <algorithm>
#include <cmath>

namespace Extctrls
{

using Classes::TComponentWatch;
using Controls::TControl;
using Types::TPoint;
using Types::TRect;

namespace
{

/// Raises a flag for the length of a change.
class CChanging
{
public:
    explicit CChanging(bool& flag) : mFlag(flag), mFormer(std::exchange(flag, true)) {}
    CChanging(const CChanging&) = delete;
    CChanging& operator=(const CChanging&) = delete;
    ~CChanging() { mFlag = mFormer; }

private:
    bool& mFlag;
    bool mFormer;
};

/// Whether an alignment gives a control the width, or the height, of its room.
bool FillsAcross(const TControl& control)
{
    const Controls::TAlign align = control.getAlign();
    return align == Controls::alClient || align == Controls::alTop || align == Controls::alBottom;
}
bool FillsDown(const TControl& control)
{
    const Controls::TAlign align = control.getAlign();
    return align == Controls::alClient || align == Controls::alLeft || align == Controls::alRight;
}

/// Sizes beyond this are held, so that sums of them don't overflow.
constexpr int MostPixels = 1 << 24;

/// The pixels of each column or row within the room.
std::vector<int> ShareOut(const TCellCollection& cells, const std::vector<int>& autoSizes, int room)
{
    std::vector<int> sizes(cells.size());
    double shares = 0;
    long long fixed = 0;
    for (int i = 0; i < cells.GetCount(); ++i) {
        const TCellItem& cell = *cells.getItems(i);
        int& size = sizes[static_cast<std::size_t>(i)];
        if (cell.getSizeStyle() == ssPercent) {
            shares += cell.getValue();
            continue;
        }
        size = cell.getSizeStyle() == ssAuto
                   ? autoSizes[static_cast<std::size_t>(i)]
                   : static_cast<int>(std::lround(std::min<double>(cell.getValue(), MostPixels)));
        fixed += size;
    }
    const auto rest = static_cast<double>(std::max(room - fixed, 0LL));
    // By the sums, so that what is lost by rounding is nobody's.
    double sum = 0;
    long long begin = 0;
    for (int i = 0; shares > 0 && i < cells.GetCount(); ++i) {
        const TCellItem& cell = *cells.getItems(i);
        if (cell.getSizeStyle() == ssPercent) {
            sum += cell.getValue();
            const long long end = std::llround(rest * sum / shares);
            sizes[static_cast<std::size_t>(i)] = static_cast<int>(end - begin);
            begin = end;
        }
    }
    return sizes;
}

/// Begin and end of a control between the edges of its cell, by the anchors of that direction.
TPoint Anchored(TPoint cell, int size, bool toBegin, bool toEnd)
{
    if (toBegin && toEnd) {
        return cell;
    }
    if (toEnd) {
        return {cell.Y - size, cell.Y};
    }
    const int begin = toBegin ? cell.X : cell.X + (cell.Y - cell.X - size) / 2;
    return {begin, begin + size};
}

TRect PlaceInCell(const TControl& control, const TRect& cell)
{
    const int width = control.getWidth();
    const int height = control.getHeight();
    switch (control.getAlign()) {
    case Controls::alClient:
        return cell;
    case Controls::alTop:
        return {cell.Left, cell.Top, cell.Right, cell.Top + height};
    case Controls::alBottom:
        return {cell.Left, cell.Bottom - height, cell.Right, cell.Bottom};
    case Controls::alLeft:
        return {cell.Left, cell.Top, cell.Left + width, cell.Bottom};
    case Controls::alRight:
        return {cell.Right - width, cell.Top, cell.Right, cell.Bottom};
    default:
        break;
    }
    const Controls::TAnchors& anchors = control.getAnchors();
    const TPoint across = Anchored({cell.Left, cell.Right}, width, anchors.Contains(Controls::akLeft),
                                   anchors.Contains(Controls::akRight));
    const TPoint down = Anchored({cell.Top, cell.Bottom}, height, anchors.Contains(Controls::akTop),
                                 anchors.Contains(Controls::akBottom));
    return {across.X, down.X, across.Y, down.Y};
}

} // namespace

System::TMetaClass* TCustomGridPanel::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomGridPanel>(u"TCustomGridPanel").Build();
    return record;
}

TCustomGridPanel::TCustomGridPanel(Classes::TComponent* owner)
    : TCustomPanel(owner),
      mColumns(System::MakeOwner<TColumnCollection>(this)),
      mRows(System::MakeOwner<TRowCollection>(this)),
      mControls(System::MakeOwner<TControlCollection>(this))
{
    const CChanging changing(mIsChanging);
    for (int i = 0; i < 2; ++i) {
        mColumns->Add();
        mRows->Add();
    }
}

TCustomGridPanel::~TCustomGridPanel()
{
    Destroying();
    DestroyChildren();
}

TPoint TCustomGridPanel::GetExtent(const TCellCollection& cells, int index, int span)
{
    if (index < 0 || index >= cells.GetCount()) {
        return {};
    }
    const TCellItem& first = *cells.getItems(index);
    const TCellItem& last = *cells.getItems(index + std::min(span, cells.GetCount() - index) - 1);
    return {first.mBegin, last.mBegin + last.mSize};
}

TRect TCustomGridPanel::getCellRect(int column, int row) const
{
    const TPoint across = GetExtent(*mColumns, column, 1);
    const TPoint down = GetExtent(*mRows, row, 1);
    return {mOrigin.X + across.X, mOrigin.Y + down.X, mOrigin.X + across.Y, mOrigin.Y + down.Y};
}

int TCustomGridPanel::getCellCount() const
{
    return mColumns->GetCount() * mRows->GetCount();
}

bool TCustomGridPanel::IsColumnEmpty(int column) const
{
    return std::none_of(mControls->begin(), mControls->end(), [&](const Classes::TCollectionItem* item) {
        const auto& place = *static_cast<const TControlItem*>(item);
        return place.Covers(column, place.getRow());
    });
}

bool TCustomGridPanel::IsRowEmpty(int row) const
{
    return std::none_of(mControls->begin(), mControls->end(), [&](const Classes::TCollectionItem* item) {
        const auto& place = *static_cast<const TControlItem*>(item);
        return place.Covers(place.getColumn(), row);
    });
}

void TCustomGridPanel::Take(const TControlItem& item)
{
    const int columns = mColumns->GetCount();
    const int right = std::min(item.getColumnSpan(), std::max(columns - item.getColumn(), 0));
    const int down = std::min(item.getRowSpan(), std::max(mRows->GetCount() - item.getRow(), 0));
    for (int row = item.getRow(); row < item.getRow() + down; ++row) {
        const auto begin = mTakenCells.begin() + row * columns + item.getColumn();
        std::fill(begin, begin + right, true);
    }
}

void TCustomGridPanel::CountTakenCells()
{
    mTakenCells.assign(static_cast<std::size_t>(getCellCount()), false);
    mFirstFree = 0;
    for (const Classes::TCollectionItem* item : *mControls) {
        Take(*static_cast<const TControlItem*>(item));
    }
}

TPoint TCustomGridPanel::GrowForCell()
{
    const CChanging changing(mIsChanging);
    if (mExpandStyle == emFixedSize) {
        throw EGridPanelException(u"The grid panel '" + getName() + u"' has no cell for another control");
    }
    if (mColumns->GetCount() == 0) {
        mColumns->Add();
    }
    if (mExpandStyle == emAddColumns && mRows->GetCount() > 0) {
        mColumns->Add()->setSizeStyle(ssAuto);
        return {mColumns->GetCount() - 1, 0};
    }
    std::vector<bool> taken = std::move(mTakenCells);
    mRows->Add()->setSizeStyle(ssAuto);
    taken.resize(static_cast<std::size_t>(getCellCount()));
    mTakenCells = std::move(taken);
    return {0, mRows->GetCount() - 1};
}

TPoint TCustomGridPanel::FindFreeCell()
{
    if (mTakenCells.size() != static_cast<std::size_t>(getCellCount())) {
        CountTakenCells();
    }
    const auto first = mTakenCells.begin() + static_cast<std::ptrdiff_t>(mFirstFree);
    const auto free = std::find(first, mTakenCells.end(), false);
    mFirstFree = static_cast<std::size_t>(free - mTakenCells.begin());
    if (free == mTakenCells.end()) {
        return GrowForCell();
    }
    const int place = static_cast<int>(mFirstFree);
    return {place % mColumns->GetCount(), place / mColumns->GetCount()};
}

void TCustomGridPanel::TakeControl(TControl* control)
{
    if (control == nullptr || mControls->IndexOf(control) >= 0) {
        return;
    }
    const TPoint cell = FindFreeCell();
    const CChanging changing(mIsChanging);
    std::vector<bool> taken = std::move(mTakenCells);
    auto* const item = static_cast<TControlItem*>(mControls->Add());
    item->mColumn = cell.X;
    item->mRow = cell.Y;
    item->setControl(control);
    mTakenCells = std::move(taken);
    if (!mTakenCells.empty()) {
        Take(*item);
    }
}

void TCustomGridPanel::CellsChanged()
{
    if (!mIsChanging) {
        Invalidate();
        Realign();
    }
}

void TCustomGridPanel::Notification(Classes::TComponent* component, Classes::TOperation operation)
{
    TCustomPanel::Notification(component, operation);
    // In its own destructor, the panel has no collection any more.
    if (operation == Classes::opRemove && !IsDestroying()) {
        const auto isIt = [component](const Classes::TCollectionItem* item) {
            return static_cast<const TControlItem*>(item)->getControl() == component;
        };
        const auto* const found = std::find_if(mControls->begin(), mControls->end(), isIt);
        if (found != mControls->end()) {
            const CChanging changing(mIsChanging);
            delete *found;
        }
    }
}

void TCustomGridPanel::Dispatch(void* record)
{
    const auto& message = *static_cast<Messages::TMessage*>(record);
    if (message.Msg == CM_CONTROLLISTCHANGE && !IsLoading() && !IsDestroying()) {
        auto* const control = reinterpret_cast<TControl*>(message.WParam);
        if (message.LParam != 0) {
            TakeControl(control);
        } else {
            const CChanging changing(mIsChanging);
            mControls->RemoveControl(control);
        }
    }
    TCustomPanel::Dispatch(record);
}

void TCustomGridPanel::CompleteItems()
{
    const CChanging changing(mIsChanging);
    for (int i = mControls->GetCount() - 1; i >= 0; --i) {
        TControlItem& item = *mControls->getItems(i);
        if (item.mControl == nullptr || item.mControl->getParent() != this) {
            mControls->Delete(i);
            continue;
        }
        item.mOwnWidth = item.mControl->getWidth();
        item.mOwnHeight = item.mControl->getHeight();
    }
    for (int i = 0; i < GetControlCount(); ++i) {
        TakeControl(GetControl(i));
    }
}

void TCustomGridPanel::Loaded()
{
    CompleteItems();
    TCustomPanel::Loaded();
}

std::vector<int> TCustomGridPanel::GetAutoSizes(bool ofColumns) const
{
    std::vector<int> sizes((ofColumns ? mColumns->size() : mRows->size()));
    for (const Classes::TCollectionItem* entry : *mControls) {
        const auto& item = *static_cast<const TControlItem*>(entry);
        const auto place = static_cast<std::size_t>(ofColumns ? item.mColumn : item.mRow);
        const int span = ofColumns ? item.mColumnSpan : item.mRowSpan;
        if (span > 1 || place >= sizes.size() || item.mControl == nullptr || !item.mControl->getVisible()) {
            continue;
        }
        const TControl& control = *item.mControl;
        const int across = FillsAcross(control) ? item.mOwnWidth : control.getWidth();
        const int down = FillsDown(control) ? item.mOwnHeight : control.getHeight();
        sizes[place] =
            std::clamp(ofColumns ? across : down, sizes[place], std::max(sizes[place], MostPixels));
    }
    return sizes;
}

TRect TCustomGridPanel::GetCell(const TControlItem& item) const
{
    const TPoint across = GetExtent(*mColumns, item.getColumn(), item.getColumnSpan());
    const TPoint down = GetExtent(*mRows, item.getRow(), item.getRowSpan());
    return {mOrigin.X + across.X, mOrigin.Y + down.X, mOrigin.X + across.Y, mOrigin.Y + down.Y};
}

void TCustomGridPanel::PlaceControls()
{
    std::vector<std::pair<TControl*, TRect>> places;
    for (const Classes::TCollectionItem* entry : *mControls) {
        const auto& item = *static_cast<const TControlItem*>(entry);
        const bool isInside = item.mColumn < mColumns->GetCount() && item.mRow < mRows->GetCount();
        if (isInside && item.mControl != nullptr && item.mControl->getParent() == this) {
            places.emplace_back(item.mControl, PlaceInCell(*item.mControl, GetCell(item)));
        }
    }
    const TComponentWatch watch(this);
    const unsigned removals = mControls->mRemovals;
    for (const auto& [control, bounds] : places) {
        if (mControls->mRemovals == removals || mControls->IndexOf(control) >= 0) {
            control->setBoundsRect(bounds);
        }
        if (!watch.IsAlive()) {
            return;
        }
    }
}

void TCustomGridPanel::AlignControls(TControl*, TRect& rect)
{
    AdjustClientRect(rect);
    const auto take = [](const TCellCollection& cells, const std::vector<int>& sizes) {
        int begin = 0;
        for (int i = 0; i < cells.GetCount(); ++i) {
            TCellItem& cell = *cells.getItems(i);
            cell.mBegin = begin;
            cell.mSize = sizes[static_cast<std::size_t>(i)];
            begin = std::min(begin + cell.mSize, MostPixels);
        }
    };
    take(*mColumns, ShareOut(*mColumns, GetAutoSizes(true), rect.Width()));
    take(*mRows, ShareOut(*mRows, GetAutoSizes(false), rect.Height()));
    mOrigin = {rect.Left, rect.Top};
    PlaceControls();
}

System::TMetaClass* TGridPanel::ClassRecord()
{
    static System::TMetaClass* const record =
        PublishPanel(System::GClassBuilder<TGridPanel>(u"TGridPanel"))
            .Property(u"ColumnCollection", &TGridPanel::getColumnCollection, &TGridPanel::setColumnCollection)
            .Property(u"ControlCollection", &TGridPanel::getControlCollection,
                      &TGridPanel::setControlCollection)
            .Property(u"ExpandStyle", &TGridPanel::getExpandStyle, &TGridPanel::setExpandStyle,
                      {.defaultValue = emAddRows})
            .Property(u"RowCollection", &TGridPanel::getRowCollection, &TGridPanel::setRowCollection)
            .Build();
    return record;
}

TGridPanel::~TGridPanel() = default;

} // namespace Extctrls
