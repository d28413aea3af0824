// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtEdits.h"

#include "platform/toolkit/qt/QtConvert.h"

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

/// Whether there are characters that Qt takes for ends of lines, and control texts don't.
bool HasForeignBreaks(std::u16string_view text)
{
    return text.find_first_of(u"\u2029\uFDD0\uFDD1") != text.npos;
}

} // namespace

CQtEdit::CQtEdit(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : AQtLine(std::move(desktop), settings, new CLineWidget)
{
    auto* const line = static_cast<CLineWidget*>(&Widget());
    line->setFocusPolicy(Qt::ClickFocus);
    ShowText(settings.text);
    UseLine(line);
}

CQtEdit::~CQtEdit() = default;

void CQtEdit::SetEditTraits(const TEditTraits& traits)
{
    CLineWidget& line = *Line();
    const QSignalBlocker blocker(line);
    SetLimit(traits.maxLength);
    line.setEchoMode(traits.passwordChar == 0 ? QLineEdit::Normal : QLineEdit::Password);
    const QString style = QStringLiteral("lineedit-password-character: %1").arg(int{traits.passwordChar});
    line.setStyleSheet(traits.passwordChar == 0 ? QString() : style);
    line.setPlaceholderText(ToQString(traits.hint));
    line.setAlignment(ToQtAlignment(traits.alignment) | Qt::AlignVCenter);
    line.setReadOnly(traits.isReadOnly);
    line.setFrame(traits.hasBorder);
    line.SetHiding(traits.hidesSelection);
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
    mIsBeyondQt = HasLongLine(text.AsView()) || HasForeignBreaks(text.AsView());
    const QString shown =
        mIsBeyondQt ? QString() : ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (mIsBeyondQt) {
        Surface().update();
    }
    if (shown != mTold) {
        mTold = shown;
        mHidden.reset();
        Quietly([&] { mMemo->setPlainText(shown); });
    }
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
    const int end = static_cast<int>(std::min(0LL + start + length, 0LL + INT_MAX));
    const TSelection selection{ToWidget(start), ToWidget(end)};
    mHidden.reset();
    if (IsSelectionSeen() || length == 0) {
        Select(selection);
    } else {
        Select({selection.caret, selection.caret});
        mHidden = selection;
    }
}

template <class Edit>
void GQtMemo<Edit>::Select(const TSelection& selection)
{
    Quietly([&] {
        QTextCursor cursor = mMemo->textCursor();
        cursor.setPosition(selection.anchor);
        cursor.setPosition(selection.caret, QTextCursor::KeepAnchor);
        mMemo->setTextCursor(cursor);
    });
}

template <class Edit>
void GQtMemo<Edit>::HideSelection()
{
    const QTextCursor cursor = mMemo->textCursor();
    if (mHidden || !cursor.hasSelection()) {
        return;
    }
    mHidden = TSelection{cursor.anchor(), cursor.position()};
    // The caret comes to sight wherever it is set.
    const int left = mMemo->horizontalScrollBar()->value();
    const int top = mMemo->verticalScrollBar()->value();
    Select({cursor.position(), cursor.position()});
    mMemo->horizontalScrollBar()->setValue(left);
    mMemo->verticalScrollBar()->setValue(top);
}

template <class Edit>
void GQtMemo<Edit>::ShowOrHideSelection()
{
    if (!IsSelectionSeen()) {
        HideSelection();
    } else if (const auto hidden = std::exchange(mHidden, std::nullopt)) {
        Select(*hidden);
    }
}

template <class Edit>
void GQtMemo<Edit>::KeyboardMoved(bool isHere)
{
    mHasKeyboard = isHere;
    ShowOrHideSelection();
}

template <class Edit>
void GQtMemo<Edit>::SetEditTraits(const TEditTraits& traits)
{
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
    Quietly([&] { mMemo->document()->setDefaultTextOption(option); });
    mHidesSelection = traits.hidesSelection;
    ShowOrHideSelection();
}

template <class Edit>
void GQtMemo<Edit>::ShowCaret()
{
    mMemo->ensureCursorVisible();
}

template <class Edit>
QString GQtMemo<Edit>::ShownText() const
{
    // As plain text it would be without what stands for blanks and ends of lines in it.
    return mMemo->document()->toRawText().replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
}

template <class Edit>
int GQtMemo<Edit>::Revision() const
{
    return mMemo->document()->revision();
}

template <class Edit>
void GQtMemo<Edit>::TellText()
{
    if (mIsBusy) {
        return;
    }
    QString text = ShownText();
    mToldRevision = Revision();
    // The signal is given for changes of the look, too.
    if (text == mTold) {
        return;
    }
    mHidden.reset();
    if (!CanBeUsed()) {
        // Somebody who doesn't ask whether the user may.
        Quietly([this] { mMemo->setPlainText(mTold); });
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
    // The one in a text that the control doesn't know yet follows that.
    if (mIsBusy || Revision() != mToldRevision) {
        return;
    }
    mHidden.reset();
    const QTextCursor cursor = mMemo->textCursor();
    const int start = ToControl(cursor.selectionStart());
    const int end = ToControl(cursor.selectionEnd());
    Tell([&](WindowEvents& events) { events.SelectionMoved(start, end - start); });
}

template class GQtMemo<QPlainTextEdit>;
template class GQtMemo<QTextEdit>;

} // namespace Toolkits
