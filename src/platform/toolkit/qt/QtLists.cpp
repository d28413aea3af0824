// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtLists.h"

#include "platform/toolkit/qt/QtConvert.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QSignalBlocker>

#include <algorithm>
#include <climits>
#include <utility>

namespace Toolkits
{

/// The items of a control, read where they are.
class CQtItems final : public QAbstractListModel
{
public:
    /// `checked` hears of the boxes that the user clicked on; for null there are none.
    CQtItems(QObject* owner, CQtList* checked) : QAbstractListModel(owner), mChecked(checked) {}

    /// The control is at its end, but the widget isn't yet.
    void Leave()
    {
        mItems = nullptr;
        mChecked = nullptr;
    }

    void Show(const WindowItems& items)
    {
        beginResetModel();
        mItems = &items;
        endResetModel();
    }
    void Renew(int row) { Q_EMIT dataChanged(index(row), index(row)); }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return mItems == nullptr || parent.isValid() ? 0 : mItems->GetItemCount();
    }

    QVariant data(const QModelIndex& place, int role) const override
    {
        // The control may have fewer by now.
        const int row = place.row();
        if (row < 0 || row >= rowCount()) {
            return {};
        }
        if (role == Qt::DisplayRole || role == Qt::EditRole) {
            return ToQString(mItems->GetItemText(row));
        }
        if (role == Qt::CheckStateRole && HasBox(row)) {
            switch (mItems->GetItemCheck(row)) {
            case ECheck::Checked:
                return Qt::Checked;
            case ECheck::Grayed:
                return Qt::PartiallyChecked;
            default:
                return Qt::Unchecked;
            }
        }
        return {};
    }

    bool setData(const QModelIndex& place, const QVariant&, int role) override
    {
        if (role != Qt::CheckStateRole || mChecked == nullptr) {
            return false;
        }
        mChecked->TellCheck(place.row());
        return true;
    }

    Qt::ItemFlags flags(const QModelIndex& place) const override
    {
        Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
        const int row = place.row();
        if (row >= 0 && row < rowCount() && HasBox(row) && mItems->IsItemEnabled(row)) {
            flags |= Qt::ItemIsUserCheckable;
        }
        return flags;
    }

private:
    bool HasBox(int row) const { return mChecked != nullptr && !mItems->IsItemHeader(row); }

    const WindowItems* mItems = nullptr;
    CQtList* mChecked;
};

CQtList::CQtList(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : CQtWindow(std::move(desktop), settings, new QListView),
      mList(static_cast<QListView*>(&Widget())),
      mItems(new CQtItems(mList, settings.kind == EWindowKind::CheckListBox ? this : nullptr))
{
    WatchPart(mList->viewport());
    mList->setFocusPolicy(Qt::ClickFocus);
    mList->setEditTriggers(QAbstractItemView::NoEditTriggers);
    mList->setUniformItemSizes(true);
    mList->setModel(mItems);
    QObject::connect(mList->selectionModel(), &QItemSelectionModel::currentChanged, Context(),
                     [this](const QModelIndex& place) {
                         if (!mIsBusy && place.isValid()) {
                             Tell([&](WindowEvents& events) { events.Chosen(place.row()); });
                         }
                     });
}

CQtList::~CQtList()
{
    mItems->Leave();
}

void CQtList::TellCheck(int row)
{
    Tell([row](WindowEvents& events) { events.ItemChecked(row); });
}

QWidget& CQtList::Surface() const noexcept
{
    return *mList->viewport();
}

void CQtList::ShowItems(const WindowItems& items)
{
    const int row = mList->currentIndex().row();
    const bool wasBusy = std::exchange(mIsBusy, true);
    mItems->Show(items);
    mIsBusy = wasBusy;
    SelectItem(row < mItems->rowCount() ? row : -1);
}

void CQtList::ShowItem(int index)
{
    mItems->Renew(index);
}

void CQtList::SelectItem(int index)
{
    const bool wasBusy = std::exchange(mIsBusy, true);
    mList->setCurrentIndex(mItems->index(index));
    mIsBusy = wasBusy;
}

/// Tells when its list opens and closes.
class CComboWidget final : public QComboBox
{
public:
    /// Null where the window is at its end.
    CQtCombo* window = nullptr;

    void showPopup() override
    {
        const QPointer<CComboWidget> self = this;
        Tell(true);
        // Whoever heard of it may have destroyed the window.
        if (self != nullptr && window != nullptr) {
            QComboBox::showPopup();
        }
    }
    void hidePopup() override
    {
        const bool wasOpen = view()->isVisible();
        QComboBox::hidePopup();
        if (wasOpen) {
            Tell(false);
        }
    }

private:
    void Tell(bool isOpen)
    {
        if (window != nullptr) {
            window->TellDrop(isOpen);
        }
    }
};

CQtCombo::CQtCombo(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : CQtWindow(std::move(desktop), settings, new CComboWidget),
      mCombo(static_cast<CComboWidget*>(&Widget())),
      mItems(new CQtItems(mCombo, nullptr)),
      mText(settings.text)
{
    mCombo->window = this;
    mCombo->setFocusPolicy(Qt::ClickFocus);
    mCombo->setModel(mItems);
    mCombo->setInsertPolicy(QComboBox::NoInsert);
    SetEditable(true);
    QObject::connect(mCombo, &QComboBox::activated, Context(),
                     [this](int index) { Tell([index](WindowEvents& events) { events.Chosen(index); }); });
}

CQtCombo::~CQtCombo()
{
    mCombo->window = nullptr;
    mItems->Leave();
}

void CQtCombo::TellDrop(bool isOpen)
{
    if (!mIsToldSo) {
        Tell([isOpen](WindowEvents& events) { events.DropChanged(isOpen); });
    }
}

void CQtCombo::SetEditable(bool isEditable)
{
    if (isEditable == mCombo->isEditable()) {
        return;
    }
    const QSignalBlocker blocker(mCombo);
    mCombo->setEditable(isEditable);
    if (isEditable) {
        QLineEdit* const line = mCombo->lineEdit();
        mCombo->setCompleter(nullptr);
        line->setMaxLength(INT_MAX);
        QObject::connect(line, &QLineEdit::textEdited, Context(),
                         [this](const QString& text) { TellText(text); });
        QObject::connect(line, &QLineEdit::selectionChanged, Context(), [this] { TellSelection(); });
        QObject::connect(line, &QLineEdit::cursorPositionChanged, Context(), [this] { TellSelection(); });
        WatchPart(line);
        SetText(mText);
    }
}

void CQtCombo::SetText(const System::UnicodeString& text)
{
    mText = text;
    if (!mCombo->isEditable()) {
        return;
    }
    mIsTooLong = text.Length() > MostLineUnits;
    mCombo->lineEdit()->setVisible(!mIsTooLong);
    const QString shown = mIsTooLong ? QString() : ToQString(text);
    if (shown != mCombo->lineEdit()->text()) {
        const QSignalBlocker blocker(mCombo->lineEdit());
        mCombo->lineEdit()->setText(shown);
    }
    mCombo->update();
}

void CQtCombo::SetSelection(int start, int length)
{
    if (mCombo->isEditable()) {
        const QSignalBlocker blocker(mCombo->lineEdit());
        mCombo->lineEdit()->setSelection(start, length);
        if (length == 0) {
            mCombo->lineEdit()->setCursorPosition(start);
        }
    }
}

void CQtCombo::ShowItems(const WindowItems& items)
{
    const int index = mCombo->currentIndex();
    {
        const QSignalBlocker blocker(mCombo);
        mItems->Show(items);
    }
    SelectItem(index < mItems->rowCount() ? index : -1);
}

void CQtCombo::ShowItem(int index)
{
    mItems->Renew(index);
}

void CQtCombo::SelectItem(int index)
{
    const QSignalBlocker blocker(mCombo);
    if (!mCombo->isEditable()) {
        mCombo->setCurrentIndex(index);
        return;
    }
    const QSignalBlocker lineBlocker(mCombo->lineEdit());
    mCombo->setCurrentIndex(index);
    SetText(mText);
}

void CQtCombo::SetComboTraits(const TComboTraits& traits)
{
    SetEditable(traits.isEditable);
    mCombo->setMaxVisibleItems(std::max(traits.dropDownCount, 1));
    if (mCombo->isEditable()) {
        mCombo->lineEdit()->setMaxLength(traits.maxLength > 0 ? traits.maxLength : INT_MAX);
    }
}

void CQtCombo::SetDropped(bool isOpen)
{
    const bool was = std::exchange(mIsToldSo, true);
    isOpen ? mCombo->showPopup() : mCombo->hidePopup();
    mIsToldSo = was;
}

void CQtCombo::TellText(const QString& text)
{
    mText = FromQString(text);
    const System::UnicodeString edited = mText;
    if (Tell([&](WindowEvents& events) { events.TextEdited(edited); })) {
        TellSelection();
    }
}

void CQtCombo::TellSelection()
{
    const QLineEdit* const line = mCombo->lineEdit();
    // The one in a text that the control doesn't know yet follows that.
    if (line->text() != ToQString(mText)) {
        return;
    }
    const int start = line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
    const int length = line->hasSelectedText() ? line->selectionLength() : 0;
    Tell([&](WindowEvents& events) { events.SelectionMoved(start, length); });
}

} // namespace Toolkits
