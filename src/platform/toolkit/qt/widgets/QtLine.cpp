// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtLine.h"

#include "platform/toolkit/qt/QtConvert.h"

#include <QFocusEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <utility>

namespace Toolkits
{

void TellForeignText(WindowEvents& events)
{
    System::Word key = VK_PROCESSKEY;
    events.KeyPressed(key, {});
}

CLineWidget::CLineWidget()
{
    // Whoever changes the text or the selection has that one, not the hidden.
    const auto forget = [this] { mHidden = {}; };
    connect(this, &QLineEdit::textChanged, this, forget);
    connect(this, &QLineEdit::selectionChanged, this, forget);
    connect(this, &QLineEdit::cursorPositionChanged, this, forget);
}

CLineWidget::~CLineWidget() = default;

void CLineWidget::SetHiding(bool isHiding)
{
    const TSelection selection = Selection();
    if (std::exchange(mIsHiding, isHiding) != isHiding) {
        Select(selection);
    }
}

void CLineWidget::SetKeyboard(bool isHere)
{
    const TSelection selection = Selection();
    if (std::exchange(mHasKeyboard, isHere) != isHere && mIsHiding) {
        Select(selection);
    }
}

CLineWidget::TSelection CLineWidget::Selection() const
{
    if (mHidden.length != 0) {
        return mHidden;
    }
    if (!hasSelectedText()) {
        return {cursorPosition(), 0};
    }
    const int start = selectionStart();
    const int length = selectionLength();
    return cursorPosition() == start ? TSelection{start + length, -length} : TSelection{start, length};
}

void CLineWidget::Select(TSelection selection)
{
    const QSignalBlocker blocker(this);
    mHidden = {};
    setCursorPosition(selection.start + selection.length);
    if (selection.length == 0) {
        return;
    }
    if (mIsHiding && !mHasKeyboard) {
        mHidden = selection;
    } else {
        setSelection(selection.start, selection.length);
    }
}

void CLineWidget::Show(const QString& text)
{
    const QSignalBlocker blocker(this);
    mHidden = {};
    setText(text);
}

bool CLineWidget::event(QEvent* event)
{
    // A line without the keyboard would drop its selection soon after.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return event->type() == QEvent::WindowActivate ? QWidget::event(event) : QLineEdit::event(event);
}

void CLineWidget::focusOutEvent(QFocusEvent* event)
{
    if (IsLent(*event)) {
        QLineEdit::focusOutEvent(event);
        return;
    }
    QFocusEvent kept(event->type(), Qt::ActiveWindowFocusReason);
    QLineEdit::focusOutEvent(&kept);
}

AQtLine::AQtLine(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings, QWidget* widget)
    : CQtWindow(std::move(desktop), settings, widget)
{
}

AQtLine::~AQtLine() = default;

void AQtLine::UseLine(CLineWidget* line)
{
    mLine = line;
    if (line == nullptr) {
        return;
    }
    HoldLimit();
    line->SetKeyboard(mHasKeyboard);
    line->Show(mTold);
    // Not only what is typed: readers of screens set the text.
    QObject::connect(line, &QLineEdit::textChanged, Context(), [this] { TellText(); });
    QObject::connect(line, &QLineEdit::selectionChanged, Context(), [this] { TellSelection(); });
    QObject::connect(line, &QLineEdit::cursorPositionChanged, Context(), [this] { TellSelection(); });
}

void AQtLine::KeyboardMoved(bool isHere)
{
    mHasKeyboard = isHere;
    if (mLine != nullptr) {
        mLine->SetKeyboard(isHere);
    }
}

void AQtLine::ShowText(const System::UnicodeString& text)
{
    mIsTooLong = text.Length() > MostLineUnits;
    mTold = mIsTooLong ? QString() : ToQString(text);
    if (mLine != nullptr && mTold != mLine->text()) {
        HoldLimit();
        mLine->Show(mTold);
    }
    Surface().update();
}

void AQtLine::SetLimit(int most)
{
    mLimit = std::max(most, 0);
    HoldLimit();
}

void AQtLine::HoldLimit()
{
    // A longer text than the user can type is shown all the same.
    const int most = mLimit == 0 ? INT_MAX : std::max(mLimit, static_cast<int>(mTold.size()));
    if (mLine == nullptr || mLine->maxLength() == most) {
        return;
    }
    // Qt moves the caret to the end then.
    const CLineWidget::TSelection selection = mLine->Selection();
    const QSignalBlocker blocker(mLine);
    mLine->setMaxLength(most);
    mLine->Select(selection);
}

void AQtLine::RestoreLine(const CLineWidget::TSelection& selection)
{
    if (mLine->text() != mTold) {
        mLine->Show(mTold);
    }
    mLine->Select(selection);
}

void AQtLine::SetSelection(int start, int length)
{
    if (mLine != nullptr) {
        mLine->Select({start, length});
    }
}

void AQtLine::TellText()
{
    const QString text = mLine->text();
    if (mIsBusy || text == mTold || IsToldOtherwise()) {
        return;
    }
    if (!CanBeUsed()) {
        // Somebody who doesn't ask whether the user may.
        mLine->Show(mTold);
        return;
    }
    mTold = text;
    HoldLimit();
    const System::UnicodeString told = FromQString(text);
    if (!IsPassing() && !Tell(TellForeignText)) {
        return;
    }
    mIsTellingText = true;
    if (Tell([&](WindowEvents& events) { events.TextEdited(told); })) {
        mIsTellingText = false;
        TellSelection();
    }
}

void AQtLine::TellSelection()
{
    // The one in a text that the control doesn't know yet follows that.
    if (mIsBusy || mLine == nullptr || mLine->text() != mTold) {
        return;
    }
    const CLineWidget::TSelection selection = mLine->Selection();
    const int start = std::min(selection.start, selection.start + selection.length);
    const int length = std::abs(selection.length);
    Tell([&](WindowEvents& events) { events.SelectionMoved(start, length); });
}

} // namespace Toolkits
