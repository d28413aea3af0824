// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtItems.h"

#include "platform/toolkit/LoopFaults.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtWindow.h"

#include <exception>

namespace Toolkits
{

bool AskForItem(CQtWindow& window, const std::function<void()>& ask)
{
    return window.Tell([&ask](WindowEvents&) {
        try {
            ask();
        } catch (...) {
            if (HandleLoopException == nullptr) {
                throw;
            }
            // A box would be shown in the midst of a paint.
            CurrentToolkit().Post([fault = std::current_exception()] {
                try {
                    std::rethrow_exception(fault);
                } catch (...) {
                    HandleLoopException();
                }
            });
        }
    });
}

CQtItems::CQtItems(CQtWindow& window, EBoxes boxes, QObject* parent)
    : QAbstractListModel(parent), mWindow(window), mBoxes(boxes)
{
}

CQtItems::~CQtItems() = default;

void CQtItems::Show(const WindowItems& items)
{
    beginResetModel();
    mItems = &items;
    endResetModel();
}

void CQtItems::Renew(int row)
{
    if (HasRow(row)) {
        Q_EMIT dataChanged(index(row), index(row));
    }
}

int CQtItems::rowCount(const QModelIndex& parent) const
{
    return mItems == nullptr || parent.isValid() ? 0 : mItems->GetItemCount();
}

const DrawnItems* CQtItems::Drawn() const
{
    const auto* const drawn = dynamic_cast<const DrawnItems*>(mItems);
    return drawn != nullptr && drawn->AreItemsDrawn() ? drawn : nullptr;
}

QString CQtItems::TextOf(int row) const
{
    System::UnicodeString text;
    // Whoever is asked for it may raise, or destroy the window.
    if (HasRow(row)) {
        AskForItem(mWindow, [&, items = mItems] { text = items->GetItemText(row); });
    }
    return ToQString(text.Length() > MostLineUnits ? text.SubString(1, MostLineUnits) : text);
}

QVariant CQtItems::data(const QModelIndex& place, int role) const
{
    // The control may have fewer by now.
    if (!HasRow(place.row())) {
        return {};
    }
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        return TextOf(place.row());
    }
    const bool hasBox = mBoxes == EBoxes::Shown && !mItems->IsItemHeader(place.row());
    return role == Qt::CheckStateRole && hasBox ? QVariant(ToCheckState(mItems->GetItemCheck(place.row())))
                                                : QVariant();
}

Qt::ItemFlags CQtItems::flags(const QModelIndex& place) const
{
    Qt::ItemFlags flags = QAbstractListModel::flags(place);
    if (mBoxes == EBoxes::None || !HasRow(place.row())) {
        return flags;
    }
    flags.setFlag(Qt::ItemIsEnabled, mItems->IsItemEnabled(place.row()));
    flags.setFlag(Qt::ItemIsUserCheckable, !mItems->IsItemHeader(place.row()));
    return flags;
}

bool CQtItems::setData(const QModelIndex& place, const QVariant&, int role)
{
    const int row = place.row();
    if (role != Qt::CheckStateRole || mBoxes == EBoxes::None || !HasRow(row) || !mWindow.CanBeUsed()) {
        return false;
    }
    mWindow.Tell([row](WindowEvents& events) { events.ItemChecked(row); });
    return true;
}

Qt::CheckState ToCheckState(ECheck check)
{
    switch (check) {
    case ECheck::Checked:
        return Qt::Checked;
    case ECheck::Grayed:
        return Qt::PartiallyChecked;
    default:
        return Qt::Unchecked;
    }
}

} // namespace Toolkits
