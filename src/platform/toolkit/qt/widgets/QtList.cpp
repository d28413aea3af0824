// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtList.h"

#include "platform/toolkit/internal/ListBar.h"
#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/widgets/QtItems.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace Toolkits
{

/// The bar below the items, as high as the control counts.
class CListBar final : public QScrollBar
{
public:
    QSize sizeHint() const override { return {QScrollBar::sizeHint().width(), ListBarHeight}; }
};

/// Rows of one height, whose places need no more than their numbers: a million of them is as quick as ten.
/// Each stands where the control has it, counted from the corner of the whole widget; the frame lies over
/// them.
class CListView final : public QListView
{
public:
    CListView()
    {
        setFocusPolicy(Qt::NoFocus);
        setEditTriggers(NoEditTriggers);
        setHorizontalScrollBar(new CListBar);
        setAutoScroll(false);
        setAcceptDrops(true);
        viewport()->setMouseTracking(true);
        verticalScrollBar()->setAttribute(Qt::WA_NoMousePropagation);
        horizontalScrollBar()->setAttribute(Qt::WA_NoMousePropagation);
    }

    const TListTraits& Traits() const noexcept { return mTraits; }
    void SetTraits(const TListTraits& traits)
    {
        mTraits = traits;
        setFrameShape(traits.hasBorder ? StyledPanel : NoFrame);
        setLayoutDirection(traits.isFromRight ? Qt::RightToLeft : Qt::LeftToRight);
        setSelectionMode(traits.isMultiple ? ExtendedSelection : SingleSelection);
        updateGeometries();
        viewport()->update();
    }

    int Top() const noexcept { return mTop; }
    void SetTop(int row)
    {
        mTop = row;
        updateGeometries();
        viewport()->update();
    }
    /// Whether the bar moves because the control says so.
    bool IsPlacing() const noexcept { return mIsPlacing; }

    QRect visualRect(const QModelIndex& place) const override
    {
        return place.isValid() ? RectOf(place.row()) : QRect();
    }
    QModelIndex indexAt(const QPoint& place) const override
    {
        const int y = place.y() + viewport()->y();
        return y < 0 ? QModelIndex() : model()->index(mTop + y / RowHeight(), 0);
    }
    void scrollTo(const QModelIndex& place, ScrollHint) override
    {
        const int row = place.row();
        const int last = std::max(row - RowsInSight() + 1, 0);
        verticalScrollBar()->setValue(std::clamp(mTop, std::min(last, row), std::max(row, 0)));
    }
    // That of a list view lays each row out.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    void doItemsLayout() override { QAbstractItemView::doItemsLayout(); }

protected:
    void updateGeometries() override
    {
        const bool wasPlacing = std::exchange(mIsPlacing, true);
        QScrollBar& bar = *verticalScrollBar();
        bar.setPageStep(RowsInSight());
        bar.setRange(0, std::max(Count() - RowsInSight(), 0));
        bar.setValue(mTop);
        const int width = viewport()->width();
        horizontalScrollBar()->setPageStep(width);
        horizontalScrollBar()->setRange(0, BarHeight() > 0 ? mTraits.scrollWidth - width : 0);
        mIsPlacing = wasPlacing;
    }
    void scrollContentsBy(int, int) override
    {
        mTop = mIsPlacing ? mTop : verticalScrollBar()->value();
        viewport()->update();
    }
    int verticalOffset() const override { return 0; }
    int horizontalOffset() const override { return 0; }
    QModelIndex moveCursor(CursorAction, Qt::KeyboardModifiers) override { return {}; }
    void setSelection(const QRect&, QItemSelectionModel::SelectionFlags) override {}
    QRegion visualRegionForSelection(const QItemSelection&) const override { return viewport()->rect(); }
    // By itself the view would choose a first row.
    void focusInEvent(QFocusEvent*) override { viewport()->update(); }
    void focusOutEvent(QFocusEvent*) override { viewport()->update(); }

    bool viewportEvent(QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove: {
            const auto& mouse = static_cast<const QMouseEvent&>(*event);
            QMouseEvent passed(mouse.type(), ToWhole(mouse.position()), mouse.globalPosition(),
                               mouse.button(), mouse.buttons(), mouse.modifiers());
            QCoreApplication::sendEvent(this, &passed);
            return true;
        }
        case QEvent::ToolTip: {
            const auto& help = static_cast<const QHelpEvent&>(*event);
            QHelpEvent passed(help.type(), help.pos() + viewport()->pos(), help.globalPos());
            QCoreApplication::sendEvent(this, &passed);
            return true;
        }
        case QEvent::Wheel: {
            const auto& wheel = static_cast<const QWheelEvent&>(*event);
            QWheelEvent passed(ToWhole(wheel.position()), wheel.globalPosition(), wheel.pixelDelta(),
                               wheel.angleDelta(), wheel.buttons(), wheel.modifiers(), wheel.phase(),
                               wheel.inverted());
            QCoreApplication::sendEvent(this, &passed);
            return true;
        }
        default:
            return QListView::viewportEvent(event);
        }
    }

    void paintEvent(QPaintEvent*) override
    {
        // Whoever is asked for a text may change the items, or be at the end of all.
        QStringList texts;
        for (int row = mTop; row < Count() && RectOf(row).top() < viewport()->height(); ++row) {
            texts.append(Items().TextOf(row));
        }
        QPainter painter(viewport());
        QStyleOptionViewItem option;
        initViewItemOption(&option);
        for (int i = 0; i < texts.size() && Items().HasRow(mTop + i); ++i) {
            PaintRow(painter, option, mTop + i, texts[i]);
        }
    }

private:
    CQtItems& Items() const { return static_cast<CQtItems&>(*model()); }
    int Count() const { return model() == nullptr ? 0 : model()->rowCount(); }
    int RowHeight() const { return std::max(mTraits.itemHeight, 1); }
    /// As many as the control counts.
    int RowsInSight() const { return std::max((height() - BarHeight()) / RowHeight(), 1); }
    int BarHeight() const { return mTraits.scrollWidth > width() ? ListBarHeight : 0; }
    QPointF ToWhole(const QPointF& place) const { return place + QPointF(viewport()->pos()); }
    QRect RectOf(int row) const
    {
        const long long top = (static_cast<long long>(row) - mTop) * RowHeight() - viewport()->y();
        const int held = static_cast<int>(std::clamp<long long>(top, -QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        const int width = viewport()->width();
        const int moved = horizontalScrollBar()->value();
        const int all = width + horizontalScrollBar()->maximum();
        return {mTraits.isFromRight ? width - all + moved : -moved, held, all, RowHeight()};
    }

    void PaintRow(QPainter& painter, const QStyleOptionViewItem& common, int row, const QString& text)
    {
        const WindowItems& items = *Items().Items();
        const bool isHeader = mTraits.boxWidth > 0 && items.IsItemHeader(row);
        const bool isChosen = items.IsItemChosen(row);
        const bool canBeUsed = isEnabled() && items.IsItemEnabled(row);
        QStyleOptionViewItem option = common;
        option.rect = RectOf(row);
        option.state.setFlag(QStyle::State_Selected, isChosen);
        option.state.setFlag(QStyle::State_Enabled, canBeUsed);
        option.palette.setCurrentColorGroup(!canBeUsed   ? QPalette::Disabled
                                            : hasFocus() ? QPalette::Active
                                                         : QPalette::Inactive);
        if (isHeader && !isChosen) {
            option.palette.setColor(QPalette::Text, QColor::fromRgba(mTraits.headerText));
            painter.fillRect(option.rect, QColor::fromRgba(mTraits.headerGround));
        }
        style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, &painter, this);
        QRect rest = option.rect;
        if (mTraits.boxWidth > 0 && !isHeader) {
            PaintBox(painter, option, items.GetItemCheck(row));
            rest = mTraits.isFromRight ? rest.adjusted(0, 0, -mTraits.boxWidth, 0)
                                       : rest.adjusted(mTraits.boxWidth, 0, 0, 0);
        }
        const int margin = 2;
        const Qt::Alignment side = mTraits.isFromRight ? Qt::AlignRight : Qt::AlignLeft;
        style()->drawItemText(
            &painter, rest.adjusted(margin, 0, -margin, 0),
            static_cast<int>(side | Qt::AlignVCenter | Qt::AlignAbsolute) | Qt::TextSingleLine,
            option.palette, canBeUsed, text, isChosen ? QPalette::HighlightedText : QPalette::Text);
        if (hasFocus() && row == currentIndex().row()) {
            PaintFocus(painter, option, rest);
        }
    }

    void PaintBox(QPainter& painter, const QStyleOptionViewItem& item, ECheck check)
    {
        QStyleOptionViewItem option = item;
        const int side = std::min(mTraits.boxWidth, item.rect.height()) - 2;
        const int left = mTraits.isFromRight ? item.rect.right() - side : item.rect.left() + 1;
        option.rect = {left, item.rect.top() + (item.rect.height() - side) / 2, side, side};
        option.state.setFlag(QStyle::State_Selected, false);
        option.state |= check == ECheck::Grayed    ? QStyle::State_NoChange
                        : check == ECheck::Checked ? QStyle::State_On
                                                   : QStyle::State_Off;
        style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &option, &painter, this);
    }

    void PaintFocus(QPainter& painter, const QStyleOptionViewItem& item, const QRect& rect)
    {
        QStyleOptionFocusRect option;
        option.QStyleOption::operator=(item);
        option.rect = rect;
        option.state |= QStyle::State_KeyboardFocusChange | QStyle::State_HasFocus;
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }

    TListTraits mTraits;
    int mTop = 0;
    bool mIsPlacing = false;
};

CQtList::CQtList(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : CQtWindow(std::move(desktop), settings, new CListView),
      mView(static_cast<CListView*>(&Widget())),
      mItems(new CQtItems(*this, settings.kind == EWindowKind::CheckListBox ? EBoxes::Shown : EBoxes::None,
                          mView))
{
    mView->setModel(mItems);
    QObject::connect(mView->verticalScrollBar(), &QScrollBar::valueChanged, Context(), [this](int first) {
        if (!mView->IsPlacing()) {
            Tell([first](WindowEvents& events) { events.Scrolled(first); });
        }
    });
    QObject::connect(mView->selectionModel(), &QItemSelectionModel::selectionChanged, Context(),
                     [this] { TellChoice(); });
}

CQtList::~CQtList()
{
    mItems->Leave();
}

bool CQtList::HandleEvent(QEvent& event)
{
    return event.type() != QEvent::Paint && CQtWindow::HandleEvent(event);
}

void CQtList::SetLook(const TWindowLook& look)
{
    CQtWindow::SetLook(look);
    mView->viewport()->update();
}

void CQtList::Invalidate(const Types::TRect*)
{
    mView->viewport()->update();
}

void CQtList::ShowItems(const WindowItems& items)
{
    const bool wasUpdating = std::exchange(mIsUpdating, true);
    mItems->Show(items);
    mIsUpdating = wasUpdating;
    mView->SetTop(mView->Top());
}

void CQtList::ShowItem(int index)
{
    mItems->Renew(index);
    if (mView->Traits().isMultiple) {
        UpdateChoiceSoon();
    }
}

void CQtList::SelectItem(int index)
{
    const bool wasUpdating = std::exchange(mIsUpdating, true);
    mView->selectionModel()->setCurrentIndex(mItems->index(index), mView->Traits().isMultiple
                                                                       ? QItemSelectionModel::NoUpdate
                                                                       : QItemSelectionModel::ClearAndSelect);
    mIsUpdating = wasUpdating;
    mView->viewport()->update();
}

void CQtList::SetListTraits(const TListTraits& traits)
{
    mView->SetTraits(traits);
}

void CQtList::SetTopItem(int index)
{
    mView->SetTop(index);
}

void CQtList::ShowChoice()
{
    mView->viewport()->update();
    UpdateChoiceSoon();
}

void CQtList::UpdateChoiceSoon()
{
    // A program that chooses many, one by one, is asked once.
    if (!std::exchange(mIsUpdateDue, true)) {
        QMetaObject::invokeMethod(
            Context(), [this] { UpdateChoice(); }, Qt::QueuedConnection);
    }
}

void CQtList::UpdateChoice()
{
    mIsUpdateDue = false;
    if (mItems->Items() == nullptr) {
        return;
    }
    // Qt compares each range with each other one.
    constexpr int mostRanges = 256;
    QItemSelection chosen;
    const int count = mItems->rowCount();
    for (int row = 0; row < count && chosen.size() < mostRanges; ++row) {
        const int begin = row;
        while (row < count && mItems->Items()->IsItemChosen(row)) {
            ++row;
        }
        if (row > begin) {
            chosen.append(QItemSelectionRange(mItems->index(begin), mItems->index(row - 1)));
        }
    }
    const bool wasUpdating = std::exchange(mIsUpdating, true);
    mView->selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
    mIsUpdating = wasUpdating;
}

void CQtList::TellChoice()
{
    // Those who help the user choose by Qt itself.
    const QItemSelection& chosen = mView->selectionModel()->selection();
    if (mIsUpdating || chosen.isEmpty()) {
        return;
    }
    if (!CanBeUsed()) {
        // They don't ask whether the user may.
        UpdateChoiceSoon();
        return;
    }
    const int row = chosen.last().top();
    Tell([row](WindowEvents& events) { events.Chosen(row); });
}

} // namespace Toolkits
