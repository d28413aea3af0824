// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/QtWindow.h"

class QLineEdit;
class QPlainTextEdit;

namespace Toolkits
{

/// A line that the user edits. One that is too long for Qt is edited and painted by the control itself.
class CQtEdit final : public CQtWindow
{
public:
    CQtEdit(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtEdit() override;

    void SetText(const System::UnicodeString& text) override;
    void SetSelection(int start, int length) override;
    void SetEditTraits(const TEditTraits& traits) override;
    bool ActsByItself() const override { return !mIsTooLong; }

private:
    void TellSelection();
    void TellText();

    QLineEdit* mEdit;
    bool mIsTooLong = false;
    /// What the control knows.
    QString mTold;
};

/// Lines that the user edits. The control's text has "\r\n" between them. If one is too long for Qt, the
/// control itself edits and paints all of them.
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
    bool ActsByItself() const override { return !mIsTooLong; }
    QWidget& Surface() const noexcept override;

protected:
    Edit& Memo() const noexcept { return *mMemo; }
    /// The place of the widget that is one in the control's text, where each end of a line counts twice.
    int ToWidget(int place) const;
    /// Does what isn't told as the user's doing.
    template <class Action>
    void Quietly(Action action)
    {
        const bool wasBusy = mIsBusy;
        mIsBusy = true;
        action();
        mIsBusy = wasBusy;
    }

private:
    void TellSelection();
    void TellText();
    int ToControl(int place) const;

    Edit* mMemo;
    QString mTold;
    int mMaxLength = 0;
    bool mIsBusy = false;
    bool mIsTooLong = false;
};

/// Lines without formats.
using CQtMemo = GQtMemo<QPlainTextEdit>;

} // namespace Toolkits
