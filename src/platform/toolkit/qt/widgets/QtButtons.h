// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/QtWindow.h"

class QAbstractButton;

namespace Toolkits
{

/// A button, check box or radio button.
class CQtButton final : public CQtWindow
{
public:
    CQtButton(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtButton() override;

    void SetText(const System::UnicodeString& text) override;
    void SetCheck(ECheck check) override;
    void SetDefaultButton(bool isDefault) override;
    bool ActsByItself() const override { return true; }

protected:
    bool HandleEvent(QEvent& event) override;

private:
    void TellChosen();

    QAbstractButton* mButton;
};

} // namespace Toolkits
