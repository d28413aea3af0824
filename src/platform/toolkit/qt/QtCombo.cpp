// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtCombo.h"

#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtItems.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <utility>

namespace Toolkits
{

/// Tells when its list opens and closes.
class CComboWidget final : public QComboBox
{
public:
    /// Null where the window is at its end.
    CQtCombo* window = nullptr;

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
            mIsOpen ? QComboBox::showPopup() : Tell(false);
        }
    }
    void hidePopup() override
    {
        QComboBox::hidePopup();
        if (std::exchange(mIsOpen, false)) {
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

    bool mIsOpen = false;
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
