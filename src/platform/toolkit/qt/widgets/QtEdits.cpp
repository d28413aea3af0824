// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtEdits.h"

#include "platform/toolkit/qt/QtConvert.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextEdit>

#include <algorithm>
#include <climits>
#include <utility>

namespace Toolkits
{

namespace
{

bool HasLongLine(std::u16string_view text)
{
    while (text.size() > static_cast<std::size_t>(MostLineUnits)) {
        const std::size_t end = text.rfind(u'\n', static_cast<std::size_t>(MostLineUnits));
        if (end == text.npos) {
            return true;
        }
        text.remove_prefix(end + 1);
    }
    return false;
}

/// Text that came without a key is told of like one, so that the control can refuse it.
void TellForeignText(WindowEvents& events)
{
    System::Word key = VK_PROCESSKEY;
    events.KeyPressed(key, {});
}

} // namespace

CQtEdit::CQtEdit(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : CQtWindow(std::move(desktop), settings, new QLineEdit), mEdit(static_cast<QLineEdit*>(&Widget()))
{
    mEdit->setFocusPolicy(Qt::ClickFocus);
    mEdit->setMaxLength(INT_MAX);
    SetText(settings.text);
    // Not only what is typed: readers of screens set the text.
    QObject::connect(mEdit, &QLineEdit::textChanged, Context(), [this] { TellText(); });
    QObject::connect(mEdit, &QLineEdit::selectionChanged, Context(), [this] { TellSelection(); });
    QObject::connect(mEdit, &QLineEdit::cursorPositionChanged, Context(), [this] { TellSelection(); });
}

CQtEdit::~CQtEdit() = default;

void CQtEdit::SetText(const System::UnicodeString& text)
{
    mIsTooLong = text.Length() > MostLineUnits;
    mTold = mIsTooLong ? QString() : ToQString(text);
    if (mIsTooLong) {
        mEdit->update();
    }
    if (mTold != mEdit->text()) {
        const QSignalBlocker blocker(mEdit);
        mEdit->setText(mTold);
    }
}

void CQtEdit::SetSelection(int start, int length)
{
    const QSignalBlocker blocker(mEdit);
    if (length == 0) {
        mEdit->deselect();
        mEdit->setCursorPosition(start);
    } else {
        mEdit->setSelection(start, length);
    }
}

void CQtEdit::SetEditTraits(const TEditTraits& traits)
{
    const QSignalBlocker blocker(mEdit);
    // A longer text than the user can type is shown all the same.
    mEdit->setMaxLength(
        traits.maxLength <= 0 ? INT_MAX : std::max(traits.maxLength, static_cast<int>(mEdit->text().size())));
    mEdit->setEchoMode(traits.passwordChar == 0 ? QLineEdit::Normal : QLineEdit::Password);
    const QString style = QStringLiteral("lineedit-password-character: %1").arg(int{traits.passwordChar});
    mEdit->setStyleSheet(traits.passwordChar == 0 ? QString() : style);
    mEdit->setPlaceholderText(ToQString(traits.hint));
    mEdit->setAlignment(ToQtAlignment(traits.alignment) | Qt::AlignVCenter);
    mEdit->setReadOnly(traits.isReadOnly);
    mEdit->setFrame(traits.hasBorder);
}

void CQtEdit::TellText()
{
    if (mEdit->text() == mTold) {
        return;
    }
    mTold = mEdit->text();
    const System::UnicodeString text = FromQString(mTold);
    if (!IsPassing() && !Tell(TellForeignText)) {
        return;
    }
    if (Tell([&](WindowEvents& events) { events.TextEdited(text); })) {
        TellSelection();
    }
}

void CQtEdit::TellSelection()
{
    // The one in a text that the control doesn't know yet follows that.
    if (mEdit->text() != mTold) {
        return;
    }
    const bool isSelected = mEdit->hasSelectedText();
    const int start = isSelected ? mEdit->selectionStart() : mEdit->cursorPosition();
    const int length = isSelected ? mEdit->selectionLength() : 0;
    Tell([&](WindowEvents& events) { events.SelectionMoved(start, length); });
}

template <class Edit>
GQtMemo<Edit>::GQtMemo(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : CQtWindow(std::move(desktop), settings, new Edit), mMemo(static_cast<Edit*>(&Widget()))
{
    WatchPart(mMemo->viewport());
    mMemo->setFocusPolicy(Qt::ClickFocus);
    SetText(settings.text);
    QObject::connect(mMemo, &Edit::textChanged, Context(), [this] { TellText(); });
    QObject::connect(mMemo, &Edit::selectionChanged, Context(), [this] { TellSelection(); });
    QObject::connect(mMemo, &Edit::cursorPositionChanged, Context(), [this] { TellSelection(); });
}

template <class Edit>
GQtMemo<Edit>::~GQtMemo() = default;

template <class Edit>
QWidget& GQtMemo<Edit>::Surface() const noexcept
{
    return *mMemo->viewport();
}

template <class Edit>
void GQtMemo<Edit>::SetText(const System::UnicodeString& text)
{
    mIsTooLong = HasLongLine(text.AsView());
    const QString shown =
        mIsTooLong ? QString() : ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (mIsTooLong) {
        Surface().update();
    }
    if (shown == mTold) {
        return;
    }
    mTold = shown;
    const bool wasBusy = std::exchange(mIsBusy, true);
    mMemo->setPlainText(shown);
    mIsBusy = wasBusy;
}

template <class Edit>
int GQtMemo<Edit>::ToControl(int place) const
{
    return place + mMemo->document()->findBlock(place).blockNumber();
}

template <class Edit>
int GQtMemo<Edit>::ToWidget(int place) const
{
    const QTextDocument& document = *mMemo->document();
    // The blocks before the one that is sought have a unit less than the lines of the control.
    int first = 0;
    int count = document.blockCount();
    while (count > 1) {
        const int half = count / 2;
        if (document.findBlockByNumber(first + half).position() + first + half <= place) {
            first += half;
            count -= half;
        } else {
            count = half;
        }
    }
    const QTextBlock block = document.findBlockByNumber(first);
    const int within = place - first - block.position();
    return block.position() + std::clamp(within, 0, block.length() - 1);
}

template <class Edit>
void GQtMemo<Edit>::SetSelection(int start, int length)
{
    const bool wasBusy = std::exchange(mIsBusy, true);
    QTextCursor cursor = mMemo->textCursor();
    cursor.setPosition(ToWidget(start));
    cursor.setPosition(ToWidget(static_cast<int>(std::min(0LL + start + length, 0LL + INT_MAX))),
                       QTextCursor::KeepAnchor);
    mMemo->setTextCursor(cursor);
    mIsBusy = wasBusy;
}

template <class Edit>
void GQtMemo<Edit>::SetEditTraits(const TEditTraits& traits)
{
    mMaxLength = std::max(traits.maxLength, 0);
    mMemo->setPlaceholderText(ToQString(traits.hint));
    mMemo->setReadOnly(traits.isReadOnly);
    mMemo->setFrameShape(traits.hasBorder ? QFrame::StyledPanel : QFrame::NoFrame);
    mMemo->setLineWrapMode(traits.isWordWrapped ? Edit::WidgetWidth : Edit::NoWrap);
    mMemo->setTabChangesFocus(!traits.wantsTabs);
    const auto policy = [](bool hasBar) { return hasBar ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff; };
    mMemo->setHorizontalScrollBarPolicy(policy(traits.hasHorizontalBar));
    mMemo->setVerticalScrollBarPolicy(policy(traits.hasVerticalBar));
    QTextOption option = mMemo->document()->defaultTextOption();
    option.setAlignment(ToQtAlignment(traits.alignment));
    const bool wasBusy = std::exchange(mIsBusy, true);
    mMemo->document()->setDefaultTextOption(option);
    mIsBusy = wasBusy;
}

template <class Edit>
void GQtMemo<Edit>::ShowCaret()
{
    mMemo->ensureCursorVisible();
}

template <class Edit>
void GQtMemo<Edit>::TellText()
{
    QString text = mMemo->toPlainText();
    // The signal is given for changes of the look, too.
    if (mIsBusy || text == mTold) {
        return;
    }
    // Without steps back the control puts it right.
    if (mMemo->isUndoRedoEnabled() && mMaxLength > 0 && text.size() > mMaxLength &&
        text.size() > mTold.size()) {
        mIsBusy = true;
        mMemo->undo();
        mIsBusy = false;
        return;
    }
    mTold = text;
    text.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    if (!IsPassing() && !Tell(TellForeignText)) {
        return;
    }
    if (Tell([&](WindowEvents& events) { events.TextEdited(FromQString(text)); })) {
        TellSelection();
    }
}

template <class Edit>
void GQtMemo<Edit>::TellSelection()
{
    if (mIsBusy || mMemo->document()->isEmpty() != mTold.isEmpty()) {
        return;
    }
    const QTextCursor cursor = mMemo->textCursor();
    const int start = ToControl(cursor.selectionStart());
    const int end = ToControl(cursor.selectionEnd());
    Tell([&](WindowEvents& events) { events.SelectionMoved(start, end - start); });
}

template class GQtMemo<QPlainTextEdit>;
template class GQtMemo<QTextEdit>;

} // namespace Toolkits
