// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/DrawnItems.h"

#include <QAbstractListModel>

#include <functional>

namespace Toolkits
{

class CQtWindow;

/// Whether items have boxes that can be checked.
enum class EBoxes
{
    None,
    Shown
};

/// Asks a control for something of its items, from within Qt. Nobody else asked, so that the application is
/// told, by the message loop, what that raises. False if the window is gone by then.
bool AskForItem(CQtWindow& window, const std::function<void()>& ask);

/// The items of a control as a model of Qt, which reads them where they are.
class CQtItems final : public QAbstractListModel
{
public:
    /// `parent` owns the model, and may outlive the window.
    CQtItems(CQtWindow& window, EBoxes boxes, QObject* parent);
    ~CQtItems() override;

    /// The window is at its end, and so may be the control, but the widget isn't yet.
    void Leave() noexcept { mItems = nullptr; }

    void Show(const WindowItems& items);
    void Renew(int row);
    /// Null where there are none.
    const WindowItems* Items() const noexcept { return mItems; }
    /// Those that the control draws; null if it doesn't, or there are none.
    const DrawnItems* Drawn() const;
    bool HasRow(int row) const { return row >= 0 && row < rowCount(); }
    /// What an item shows, without what is too much for a line; empty for one that isn't there.
    QString TextOf(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& place, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& place) const override;
    /// As the user's click on the box does.
    bool setData(const QModelIndex& place, const QVariant& value, int role) override;

private:
    CQtWindow& mWindow;
    const WindowItems* mItems = nullptr;
    EBoxes mBoxes;
};

/// The state of a box by its mark.
Qt::CheckState ToCheckState(ECheck check);

} // namespace Toolkits
