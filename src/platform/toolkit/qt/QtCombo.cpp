// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtCombo.h"

#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtItems.h"
#include "platform/toolkit/qt/QtPainterDevice.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStylePainter>
#include <QStyledItemDelegate>

#include <algorithm>
#include <climits>
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
            mIsOpen = true;
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

CQtCombo::CQtCombo(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : CQtWindow(std::move(desktop), settings, new CComboWidget),
      mCombo(static_cast<CComboWidget*>(&Widget())),
      mItems(new CQtItems(*this, EBoxes::None, mCombo)),
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

bool CQtCombo::HandleEvent(QEvent& event)
{
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
