// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtAccessible.h"

#include "platform/toolkit/WindowContents.h"
#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtWindow.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

#include <algorithm>
#include <climits>
#include <map>
#include <optional>
#include <utility>

namespace Toolkits
{

namespace
{

constexpr const char* WindowProperty = "trs8_btl_window";

/// The window of a widget; null once it is at its end.
CQtWindow* WindowOf(const QWidget* widget)
{
    return widget == nullptr ? nullptr
                             : static_cast<CQtWindow*>(widget->property(WindowProperty).value<void*>());
}

WindowContents* ContentsOf(const QWidget* widget)
{
    const CQtWindow* const window = WindowOf(widget);
    return window == nullptr ? nullptr : window->Contents();
}

WindowCells* CellsOf(const QWidget* widget)
{
    WindowContents* const contents = ContentsOf(widget);
    return contents == nullptr ? nullptr : contents->GetWindowCells();
}

/// A thing in a widget that has none of its own.
class AItem : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    /// The column and row of a cell, or the index of a part and -1.
    using TPlace = std::pair<int, int>;

    AItem(QWidget* widget, TPlace place) : mWidget(widget), mPlace(place) {}

    TPlace getPlace() const noexcept { return mPlace; }

    QObject* object() const override { return nullptr; }
    QWindow* window() const override
    {
        return mWidget == nullptr ? nullptr : mWidget->window()->windowHandle();
    }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(mWidget); }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override
    {
        const QRect place = Place();
        return mWidget == nullptr || place.isEmpty()
                   ? QRect()
                   : QRect(mWidget->mapToGlobal(place.topLeft()), place.size());
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

protected:
    QWidget* Widget() const { return mWidget; }
    /// In the widget; empty for what isn't seen.
    virtual QRect Place() const = 0;
    QAccessible::State SeenState(bool isEnabled) const
    {
        QAccessible::State state;
        state.disabled = !isEnabled || !mWidget->isEnabled();
        state.invisible = !mWidget->isVisible();
        state.offscreen = Place().isEmpty();
        return state;
    }

private:
    QPointer<QWidget> mWidget;
    TPlace mPlace;
};

/// A label, a picture, a button without a window.
class CPart final : public AItem
{
public:
    CPart(QWidget* widget, int index) : AItem(widget, {index, -1}), mIndex(index) {}

    bool isValid() const override { return Get().has_value(); }
    QString text(QAccessible::Text kind) const override
    {
        const std::optional<TWindowPart> part = Get();
        if (!part) {
            return {};
        }
        return kind == QAccessible::Name       ? ToQString(part->text)
               : kind == QAccessible::UserText ? ToQString(part->name)
                                               : QString();
    }
    QAccessible::Role role() const override
    {
        constexpr QAccessible::Role roles[] = {QAccessible::StaticText, QAccessible::Button,
                                               QAccessible::Graphic};
        const std::optional<TWindowPart> part = Get();
        return part ? roles[static_cast<int>(part->kind)] : QAccessible::NoRole;
    }
    QAccessible::State state() const override
    {
        const std::optional<TWindowPart> part = Get();
        if (!part) {
            QAccessible::State state;
            state.invalid = true;
            return state;
        }
        QAccessible::State state = SeenState(part->isEnabled);
        state.pressed = part->isDown;
        return state;
    }
    QStringList actionNames() const override
    {
        return role() == QAccessible::Button ? QStringList{pressAction()} : QStringList();
    }
    /// Clicks in the middle, as the user does.
    void doAction(const QString& name) override
    {
        const std::optional<TWindowPart> part = Get();
        if (name != pressAction() || !part || part->kind != EPartKind::Button ||
            !WindowOf(Widget())->CanBeUsed()) {
            return;
        }
        const Types::TRect& bounds = part->bounds;
        TMouseInput mouse;
        mouse.place = {bounds.Left + bounds.Width() / 2, bounds.Top + bounds.Height() / 2};
        CQtWindow& window = *WindowOf(Widget());
        for (const EMouseAction action : {EMouseAction::Move, EMouseAction::Down, EMouseAction::Up}) {
            mouse.action = action;
            mouse.shift =
                action == EMouseAction::Down ? Classes::TShiftState{Classes::ssLeft} : Classes::TShiftState();
            if (!window.Tell([&](WindowEvents& events) { events.MouseUsed(mouse); })) {
                return;
            }
        }
    }

protected:
    QRect Place() const override
    {
        const std::optional<TWindowPart> part = Get();
        return part ? ToQRect(part->bounds) : QRect();
    }

private:
    std::optional<TWindowPart> Get() const
    {
        const WindowContents* const contents = ContentsOf(Widget());
        return contents == nullptr ? std::nullopt : contents->GetWindowPart(mIndex);
    }

    int mIndex;
};

class CCell final : public AItem, public QAccessibleTableCellInterface
{
public:
    CCell(QWidget* widget, int column, int row) : AItem(widget, {column, row}), mColumn(column), mRow(row) {}

    bool isValid() const override { return Cells() != nullptr; }
    QString text(QAccessible::Text kind) const override
    {
        WindowCells* const cells = Cells();
        if (cells == nullptr) {
            return {};
        }
        switch (kind) {
        case QAccessible::Name:
        case QAccessible::Value: {
            System::UnicodeString told;
            WindowOf(Widget())->Tell([&](WindowEvents&) { told = cells->GetCellText(mColumn, mRow); });
            return ToQString(told);
        }
        case QAccessible::UserText:
            return QStringLiteral("%1[%2,%3]").arg(Widget()->objectName()).arg(mColumn).arg(mRow);
        default:
            return {};
        }
    }
    QAccessible::Role role() const override
    {
        const WindowCells* const cells = Cells();
        return cells == nullptr                        ? QAccessible::NoRole
               : cells->IsColumnHeading(mColumn, mRow) ? QAccessible::ColumnHeader
               : cells->IsRowHeading(mColumn, mRow)    ? QAccessible::RowHeader
                                                       : QAccessible::Cell;
    }
    QAccessible::State state() const override
    {
        const WindowCells* const cells = Cells();
        if (cells == nullptr) {
            QAccessible::State state;
            state.invalid = true;
            return state;
        }
        QAccessible::State state = SeenState(true);
        state.selectable = true;
        state.focusable = true;
        state.selected = isSelected();
        state.focused = Widget()->hasFocus() && cells->GetCurrentCell() == Types::TPoint{mColumn, mRow};
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : AItem::interface_cast(type);
    }
    QStringList actionNames() const override { return {setFocusAction()}; }
    void doAction(const QString& name) override
    {
        if (name == setFocusAction() && isValid() && WindowOf(Widget())->CanBeUsed()) {
            WindowOf(Widget())->Tell([this](WindowEvents&) { Cells()->ChooseCell(mColumn, mRow); });
        }
    }

    bool isSelected() const override
    {
        return isValid() && Cells()->GetSelectedCells().Contains({mColumn, mRow});
    }
    QList<QAccessibleInterface*> columnHeaderCells() const override
    {
        return Headings(mColumn, 0, mRow > 0 && isValid() && Cells()->IsColumnHeading(mColumn, 0));
    }
    QList<QAccessibleInterface*> rowHeaderCells() const override
    {
        return Headings(0, mRow, mColumn > 0 && isValid() && Cells()->IsRowHeading(0, mRow));
    }
    int columnIndex() const override { return mColumn; }
    int rowIndex() const override { return mRow; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

protected:
    QRect Place() const override
    {
        const WindowCells* const cells = Cells();
        return cells == nullptr ? QRect() : ToQRect(cells->GetCellBounds(mColumn, mRow));
    }

private:
    /// Null for a cell that isn't there any more.
    WindowCells* Cells() const
    {
        WindowCells* const cells = CellsOf(Widget());
        return cells != nullptr && mColumn < cells->GetCellColumnCount() && mRow < cells->GetCellRowCount()
                   ? cells
                   : nullptr;
    }
    QList<QAccessibleInterface*> Headings(int column, int row, bool areThere) const
    {
        return areThere ? QList<QAccessibleInterface*>{table()->tableInterface()->cellAt(row, column)}
                        : QList<QAccessibleInterface*>();
    }

    int mColumn;
    int mRow;
};

/// A widget that the library paints, with all that is in it.
class CPaintedWidget final : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit CPaintedWidget(QWidget* widget) : QAccessibleWidget(widget) {}
    ~CPaintedWidget() override
    {
        for (const auto& [place, id] : mItems) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    QAccessible::Role role() const override
    {
        return CellsOf(widget()) != nullptr ? QAccessible::Table
               : widget()->isWindow()       ? QAccessible::Window
                                            : QAccessible::Grouping;
    }
    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::UserText) {
            return widget()->objectName();
        }
        if (kind == QAccessible::Name && widget()->accessibleName().isEmpty()) {
            const WindowContents* const contents = ContentsOf(widget());
            return contents == nullptr ? QString() : ToQString(contents->GetWindowName()).left(MostLineUnits);
        }
        return QAccessibleWidget::text(kind);
    }

    int childCount() const override { return QAccessibleWidget::childCount() + ItemCount(); }
    QAccessibleInterface* child(int index) const override
    {
        const int item = index - QAccessibleWidget::childCount();
        return item < 0 ? QAccessibleWidget::child(index) : item < ItemCount() ? Item(item) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* const item = dynamic_cast<const AItem*>(child);
        if (item == nullptr) {
            return QAccessibleWidget::indexOfChild(child);
        }
        return item->parent() == this ? IndexOf(item->getPlace()) : -1;
    }
    QAccessibleInterface* focusChild() const override
    {
        QAccessibleInterface* const cell = widget()->hasFocus() ? CurrentCell() : nullptr;
        return cell == nullptr ? QAccessibleWidget::focusChild() : cell;
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        if (QAccessibleInterface* const inner = QAccessibleWidget::childAt(x, y)) {
            return inner;
        }
        return CellsOf(widget()) == nullptr ? PartAt({x, y}) : nullptr;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TableInterface && CellsOf(widget()) != nullptr
                   ? static_cast<QAccessibleTableInterface*>(this)
                   : QAccessibleWidget::interface_cast(type);
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override
    {
        return row < 0 || row >= rowCount() || column < 0 || column >= columnCount() ? nullptr
                                                                                     : Item({column, row});
    }
    int selectedCellCount() const override
    {
        const Types::TRect cells = Selection();
        return static_cast<int>(std::min<long long>(1LL * cells.Width() * cells.Height(), INT_MAX));
    }
    QList<QAccessibleInterface*> selectedCells() const override
    {
        // More of them tell nobody anything.
        constexpr int most = 1000;
        QList<QAccessibleInterface*> selected;
        const Types::TRect cells = Selection();
        for (int row = cells.Top; row < cells.Bottom && selected.size() < most; ++row) {
            for (int column = cells.Left; column < cells.Right && selected.size() < most; ++column) {
                selected.push_back(cellAt(row, column));
            }
        }
        return selected;
    }
    QString columnDescription(int column) const override { return HeadingText(column, 0); }
    QString rowDescription(int row) const override { return HeadingText(0, row); }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    int columnCount() const override
    {
        const WindowCells* const cells = CellsOf(widget());
        return cells == nullptr ? 0 : cells->GetCellColumnCount();
    }
    int rowCount() const override
    {
        const WindowCells* const cells = CellsOf(widget());
        return cells == nullptr ? 0 : cells->GetCellRowCount();
    }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

    void TellOfCell(ECellNews news)
    {
        QAccessibleInterface* const cell = CurrentCell();
        if (cell != nullptr && (news == ECellNews::Always || cell != mToldCell)) {
            mToldCell = cell;
            QAccessibleEvent event(cell, QAccessible::Focus);
            QAccessible::updateAccessibility(&event);
        }
    }

private:
    using TPlace = AItem::TPlace;

    int ItemCount() const
    {
        if (CellsOf(widget()) != nullptr) {
            const long long count = 1LL * columnCount() * rowCount();
            return static_cast<int>(std::min<long long>(count, INT_MAX - QAccessibleWidget::childCount()));
        }
        const WindowContents* const contents = ContentsOf(widget());
        return contents == nullptr ? 0 : contents->GetWindowPartCount();
    }
    QAccessibleInterface* Item(int index) const
    {
        return CellsOf(widget()) == nullptr ? Item({index, -1})
                                            : Item({index % columnCount(), index / columnCount()});
    }
    /// -1 for a cell behind those that can be counted.
    int IndexOf(TPlace place) const
    {
        const auto [column, row] = place;
        const long long item = row < 0 ? column : 1LL * row * columnCount() + column;
        return item < ItemCount() ? static_cast<int>(item) + QAccessibleWidget::childCount() : -1;
    }
    /// Null where there is none.
    QAccessibleInterface* CurrentCell() const
    {
        const WindowCells* const cells = CellsOf(widget());
        const Types::TPoint cell = cells == nullptr ? Types::TPoint{-1, -1} : cells->GetCurrentCell();
        return cellAt(cell.Y, cell.X);
    }
    /// Made when it is asked for, since a grid may have millions.
    QAccessibleInterface* Item(TPlace place) const
    {
        const auto known = mItems.find(place);
        if (known != mItems.end()) {
            return QAccessible::accessibleInterface(known->second);
        }
        QAccessibleInterface* const made = place.second < 0
                                               ? static_cast<AItem*>(new CPart(widget(), place.first))
                                               : new CCell(widget(), place.first, place.second);
        mItems.emplace(place, QAccessible::registerAccessibleInterface(made));
        return made;
    }
    QAccessibleInterface* PartAt(QPoint place) const
    {
        for (int i = ItemCount(); i > 0; --i) {
            if (QAccessibleInterface* const part = Item(i - 1); part->rect().contains(place)) {
                return part;
            }
        }
        return nullptr;
    }
    Types::TRect Selection() const
    {
        const WindowCells* const cells = CellsOf(widget());
        return cells == nullptr ? Types::TRect() : cells->GetSelectedCells();
    }
    /// What the heading at the place says; nothing for a cell.
    QString HeadingText(int column, int row) const
    {
        const QAccessibleInterface* const cell = cellAt(row, column);
        return cell == nullptr || cell->role() == QAccessible::Cell ? QString()
                                                                    : cell->text(QAccessible::Name);
    }

    mutable std::map<TPlace, QAccessible::Id> mItems;
    /// The cell that readers were told of last.
    const QAccessibleInterface* mToldCell = nullptr;
};

QAccessibleInterface* MakePaintedWidget(const QString& className, QObject* object)
{
    // Those of Qt's own kinds have names of their own.
    auto* const widget = className == QLatin1String("QWidget") ? qobject_cast<QWidget*>(object) : nullptr;
    return WindowOf(widget) == nullptr ? nullptr : new CPaintedWidget(widget);
}

} // namespace

void ShowToReaders(QWidget& widget, CQtWindow* window)
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(MakePaintedWidget);
        return true;
    }();
    static_cast<void>(isInstalled);
    widget.setProperty(WindowProperty, QVariant::fromValue(static_cast<void*>(window)));
}

void TellReadersOfCell(QWidget& widget, ECellNews news)
{
    if (!QAccessible::isActive() || !widget.hasFocus() || CellsOf(&widget) == nullptr) {
        return;
    }
    if (auto* const shown = dynamic_cast<CPaintedWidget*>(QAccessible::queryAccessibleInterface(&widget))) {
        shown->TellOfCell(news);
    }
}

} // namespace Toolkits
