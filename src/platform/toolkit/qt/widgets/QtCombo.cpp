// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtCombo.h"

#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/painting/QtPainterDevice.h"
#include "platform/toolkit/qt/widgets/QtItems.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStylePainter>
#include <QStyledItemDelegate>

#include <algorithm>
#include <array>
#include <utility>

namespace Toolkits
{

/// Tells when its list opens and closes, and has its window draw what the control draws itself.
class CComboWidget final : public QComboBox
{
public:
    /// Null where the window is at its end.
    CQtCombo* window = nullptr;

    bool IsDrawn() const { return window != nullptr && window->Drawn() != nullptr; }

    /// Whether the list has the keyboard, or gives it back.
    bool IsOpen() const noexcept { return mIsOpen; }

    void showPopup() override
    {
        const QPointer<CComboWidget> self = this;
        Tell(true);
        // Whoever heard of it may have destroyed the window.
        if (self != nullptr && window != nullptr) {
            window->ShowIndex();
            // Qt opens no list without items.
            mIsOpen = count() > 0;
            if (!mIsOpen) {
                return Tell(false);
            }
            PrepareRows();
            QComboBox::showPopup();
        }
    }
    void hidePopup() override
    {
        QComboBox::hidePopup();
        if (std::exchange(mIsOpen, false)) {
            Tell(false);
        }
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        if (!IsDrawn()) {
            QComboBox::paintEvent(event);
            return;
        }
        QStyleOptionComboBox option;
        initStyleOption(&option);
        option.currentText.clear();
        QStylePainter painter(this);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        const QRect field =
            painter.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
        Paint(painter, *this, field, [this](CQtPainterDevice& device, const Types::TRect& bounds) {
            return window->DrawField(device, bounds);
        });
    }

private:
    /// Shows the rows as the control draws them, as high as it says.
    class CDrawnRows final : public QStyledItemDelegate
    {
    public:
        explicit CDrawnRows(CComboWidget& box) : QStyledItemDelegate(&box), mBox(box) {}

        void paint(QPainter* painter, const QStyleOptionViewItem& option,
                   const QModelIndex& place) const override
        {
            const bool isChosen = option.state.testFlag(QStyle::State_Selected);
            if (mBox.IsDrawn()) {
                mBox.Paint(*painter, *mBox.view()->viewport(), option.rect,
                           [&](CQtPainterDevice& device, const Types::TRect& bounds) {
                               return mBox.window->DrawRow(device, place.row(), bounds, isChosen);
                           });
            }
        }
        QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& place) const override
        {
            const QSize usual = QStyledItemDelegate::sizeHint(option, place);
            const DrawnItems* const items = mBox.window == nullptr ? nullptr : mBox.window->Drawn();
            const bool isThere = items != nullptr && place.row() < items->GetItemCount();
            return isThere ? QSize(usual.width(), items->GetItemHeight(place.row())) : usual;
        }

    private:
        CComboWidget& mBox;
    };

    void PrepareRows()
    {
        if (!IsDrawn()) {
            return;
        }
        if (!std::exchange(mHasDrawnRows, true)) {
            setItemDelegate(new CDrawnRows(*this));
        }
        // They may have other heights by now.
        view()->doItemsLayout();
    }

    template <class Draw>
    static void Paint(QPainter& painter, QWidget& surface, const QRect& rect, Draw draw)
    {
        if (rect.isEmpty()) {
            return;
        }
        const Types::TRect bounds = FromQRect(rect);
        CQtPainterDevice device(surface, bounds, surface.palette().color(QPalette::Base).rgba());
        if (draw(device, bounds)) {
            device.Show(painter);
        }
    }

    void Tell(bool isOpen)
    {
        if (window != nullptr) {
            window->TellDrop(isOpen);
        }
    }

    bool mIsOpen = false;
    bool mHasDrawnRows = false;
};

namespace
{

bool IsListKey(int key)
{
    constexpr std::array keys = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_F4};
    return std::ranges::find(keys, key) != keys.end();
}

} // namespace

CQtCombo::CQtCombo(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : AQtLine(std::move(desktop), settings, new CComboWidget),
      mCombo(static_cast<CComboWidget*>(&Widget())),
      mItems(new CQtItems(*this, EBoxes::None, mCombo))
{
    mCombo->window = this;
    mCombo->setFocusPolicy(Qt::ClickFocus);
    mCombo->setModel(mItems);
    mCombo->setInsertPolicy(QComboBox::NoInsert);
    ShowText(settings.text);
    SetEditable(true);
    QObject::connect(mCombo, &QComboBox::activated, Context(),
                     [this](int index) { Tell([index](WindowEvents& events) { events.Chosen(index); }); });
}

CQtCombo::~CQtCombo()
{
    mCombo->window = nullptr;
    mItems->Leave();
}

bool CQtCombo::HandleEvent(QEvent& event)
{
    if (event.type() == QEvent::KeyPress) {
        mIsListKey = IsListKey(static_cast<const QKeyEvent&>(event).key());
    } else if (event.type() == QEvent::Wheel) {
        ShowIndex();
    }
    const bool isFocus = event.type() == QEvent::FocusIn || event.type() == QEvent::FocusOut;
    return !(isFocus && mCombo->IsOpen()) && CQtWindow::HandleEvent(event);
}

void CQtCombo::TellDrop(bool isOpen)
{
    if (!mIsToldSo) {
        Tell([isOpen](WindowEvents& events) { events.DropChanged(isOpen); });
    }
}

const DrawnItems* CQtCombo::Drawn() const
{
    return mItems->Drawn();
}

bool CQtCombo::DrawField(CQtPainterDevice& device, const Types::TRect& bounds)
{
    if (!IsWithin(Desktop().Only())) {
        Desktop().PaintLater(this);
        return true;
    }
    return AskForItem(*this, [&, items = Drawn()] { items->PaintField(device, bounds); });
}

bool CQtCombo::DrawRow(CQtPainterDevice& device, int row, const Types::TRect& bounds, bool isChosen)
{
    // Whoever draws one may take others away.
    return !mItems->HasRow(row) ||
           AskForItem(*this, [&, items = Drawn()] { items->PaintItem(device, row, bounds, isChosen); });
}

bool CQtCombo::ActsOnKeys() const
{
    return ActsByItself() && mCombo->isEditable() && !mIsListKey;
}

void CQtCombo::SetEditable(bool isEditable)
{
    if (isEditable == mCombo->isEditable()) {
        return;
    }
    const QSignalBlocker blocker(mCombo);
    if (!isEditable) {
        UseLine(nullptr);
        mCombo->setEditable(false);
        return;
    }
    mCombo->setEditable(true);
    auto* const line = new CLineWidget;
    // A line that has no completer is given one, which takes longer to make than the rest of the box.
    QCompleter none;
    line->setCompleter(&none);
    mCombo->setLineEdit(line);
    mCombo->setCompleter(nullptr);
    // Qt would choose the item whose text was typed, once the keyboard is elsewhere.
    QObject::disconnect(line, &QLineEdit::editingFinished, mCombo, nullptr);
    UseLine(line);
    WatchPart(line);
    line->setVisible(ActsByItself());
}

void CQtCombo::SetText(const System::UnicodeString& text)
{
    ShowText(text);
    if (Line() != nullptr) {
        Line()->setVisible(ActsByItself());
    }
}

bool CQtCombo::IsToldOtherwise() const
{
    // The choice of an item comes after its text.
    return mCombo->currentIndex() != mShownIndex;
}

void CQtCombo::ShowItems(const WindowItems& items)
{
    const QSignalBlocker blocker(mCombo);
    ChangeItems([&] { mItems->Show(items); });
    mIndex = mIndex < mItems->rowCount() ? mIndex : -1;
    ShowIndex();
}

void CQtCombo::ShowItem(int index)
{
    ChangeItems([&] { mItems->Renew(index); });
}

void CQtCombo::SelectItem(int index)
{
    mIndex = index;
    // Qt would put the text in anew, and take no step of the user's back from then on.
    if (!IsTellingText()) {
        ShowIndex();
    }
}

void CQtCombo::ShowIndex()
{
    if (mIndex != mCombo->currentIndex()) {
        const QSignalBlocker blocker(mCombo);
        ChangeItems([this] { mCombo->setCurrentIndex(mIndex); });
    }
    mShownIndex = mCombo->currentIndex();
}

template <class Action>
void CQtCombo::ChangeItems(Action action)
{
    if (Line() == nullptr) {
        action();
    } else {
        KeepLine(action);
    }
}

void CQtCombo::SetComboTraits(const TComboTraits& traits)
{
    SetEditable(traits.isEditable);
    mCombo->setMaxVisibleItems(std::max(traits.dropDownCount, 1));
    SetLimit(traits.maxLength);
}

void CQtCombo::SetDropped(bool isOpen)
{
    const bool was = std::exchange(mIsToldSo, true);
    isOpen ? mCombo->showPopup() : mCombo->hidePopup();
    mIsToldSo = was;
}

} // namespace Toolkits
