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
class CQtMemo final : public CQtWindow
{
public:
    CQtMemo(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtMemo() override;

    void SetText(const System::UnicodeString& text) override;
    void SetSelection(int start, int length) override;
    void SetEditTraits(const TEditTraits& traits) override;
    void ShowCaret() override;
    bool ActsByItself() const override { return !mIsTooLong; }
    QWidget& Surface() const noexcept override;

private:
    void TellSelection();
    void TellText();
    /// A place in the control's text, where each end of a line counts twice, and back.
    int ToControl(int place) const;
    int ToWidget(int place) const;

    QPlainTextEdit* mMemo;
    QString mTold;
    int mMaxLength = 0;
    bool mIsBusy = false;
    bool mIsTooLong = false;
};

} // namespace Toolkits
