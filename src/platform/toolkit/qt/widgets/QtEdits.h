// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/widgets/QtLine.h"

#include <optional>

class QPlainTextEdit;

namespace Toolkits
{

/// A line that the user edits.
class CQtEdit final : public AQtLine
{
public:
    CQtEdit(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtEdit() override;

    void SetText(const System::UnicodeString& text) override { ShowText(text); }
    void SetEditTraits(const TEditTraits& traits) override;
};

/// Lines that the user edits. The control's text has "\r\n" between them. A text that Qt can't show, since a
/// line is too long or a character isn't one to Qt, is edited and painted by the control itself.
template <class Edit>
class GQtMemo : public CQtWindow
{
public:
    GQtMemo(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~GQtMemo() override;

    void SetText(const System::UnicodeString& text) override;
    void SetSelection(int start, int length) override;
    void SetEditTraits(const TEditTraits& traits) override;
    void ShowCaret() override;
    bool ActsByItself() const override { return !mIsBeyondQt; }
    QWidget& Surface() const noexcept override;
    void KeyboardMoved(bool isHere) override;

protected:
    Edit& Memo() const noexcept { return *mMemo; }
    /// The place of the widget that is one in the control's text, where each end of a line counts twice.
    int ToWidget(int place) const;
    /// Does what isn't told as the user's doing.
    template <class Action>
    void Quietly(Action action)
    {
        const bool wasBusy = std::exchange(mIsBusy, true);
        action();
        mIsBusy = wasBusy;
        mToldRevision = Revision();
    }

private:
    /// Where a selection was begun and where its caret is, in the widget.
    struct TSelection
    {
        int anchor;
        int caret;
    };

    void TellSelection();
    void TellText();
    int ToControl(int place) const;
    /// The units of the document, with "\n" between the lines.
    QString ShownText() const;
    /// Which of the document's texts there is now.
    int Revision() const;
    bool IsSelectionSeen() const { return !mHidesSelection || mHasKeyboard; }
    void ShowOrHideSelection();
    void HideSelection();
    void Select(const TSelection& selection);

    Edit* mMemo;
    QString mTold;
    int mToldRevision = 0;
    /// The selection that isn't seen while the memo is without the keyboard.
    std::optional<TSelection> mHidden;
    bool mHidesSelection = true;
    bool mHasKeyboard = false;
    bool mIsBusy = false;
    bool mIsBeyondQt = false;
};

/// Lines without formats.
using CQtMemo = GQtMemo<QPlainTextEdit>;

} // namespace Toolkits
