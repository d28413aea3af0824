// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/QtWindow.h"

#include <QLineEdit>

#include <utility>

namespace Toolkits
{

/// Text that came without a key is told of like one, so that the control can refuse it.
void TellForeignText(WindowEvents& events);

/// A line that keeps its selection while its control is without the keyboard. Qt's own drops it, and tells
/// so.
class CLineWidget final : public QLineEdit
{
public:
    /// Where a selection begins, and how long it is, with the caret at its end; for less than nothing, the
    /// caret is at its beginning.
    struct TSelection
    {
        int start = 0;
        int length = 0;
    };

    CLineWidget();
    ~CLineWidget() override;

    /// Whether the selection is seen only while the control has the keyboard.
    void SetHiding(bool isHiding);
    void SetKeyboard(bool isHere);
    /// Selects without a signal, as soon as the selection may be seen.
    void Select(TSelection selection);
    /// As it is, hidden or not.
    TSelection Selection() const;
    /// Without a signal. Nothing is selected then.
    void Show(const QString& text);

protected:
    bool event(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// The one that is hidden; of no length for none.
    TSelection mHidden;
    bool mIsHiding = true;
    bool mHasKeyboard = false;
};

/// A window in which the user edits one line: an edit, or a combo box. A text that is too long for Qt is
/// edited and painted by the control itself. Nothing that the control says is told back.
class AQtLine : public CQtWindow
{
public:
    ~AQtLine() override;

    void SetSelection(int start, int length) override;
    bool ActsByItself() const override { return !mIsTooLong; }
    void KeyboardMoved(bool isHere) override;

protected:
    /// Without a line at first.
    AQtLine(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings, QWidget* widget);

    /// From now on this is the line, with the text of the control in it; null for none.
    void UseLine(CLineWidget* line);
    CLineWidget* Line() const noexcept { return mLine; }
    void ShowText(const System::UnicodeString& text);
    /// Most characters that the user can bring the text to; 0 is no limit.
    void SetLimit(int most);
    /// Whether the control hears in another way of a text that Qt put in.
    virtual bool IsToldOtherwise() const { return false; }
    /// Whether the control hears of a text that the user edited, and so changes nothing of it as a rule.
    bool IsTellingText() const noexcept { return mIsTellingText; }
    /// Does what changes the line, and has it as it was then.
    template <class Action>
    void KeepLine(Action action)
    {
        const CLineWidget::TSelection selection = mLine->Selection();
        const bool wasBusy = std::exchange(mIsBusy, true);
        action();
        mIsBusy = wasBusy;
        RestoreLine(selection);
    }

private:
    void TellText();
    void TellSelection();
    void HoldLimit();
    void RestoreLine(const CLineWidget::TSelection& selection);

    CLineWidget* mLine = nullptr;
    /// What the control knows; empty for a text that is too long.
    QString mTold;
    int mLimit = 0;
    bool mIsTooLong = false;
    bool mHasKeyboard = false;
    bool mIsBusy = false;
    bool mIsTellingText = false;
};

} // namespace Toolkits
