// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/QtWindow.h"

class QProgressBar;

namespace Toolkits
{

/// A bar that shows how far something is.
class CQtProgress final : public CQtWindow
{
public:
    CQtProgress(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtProgress() override;

    /// The bar sees by itself when it has to be painted.
    void Invalidate(const Types::TRect*) override {}
    void SetProgress(const TProgress& progress) override;

protected:
    bool HandleEvent(QEvent& event) override;
    void ShowColors() override;

private:
    void ShowValues();

    QProgressBar* mBar;
    TProgress mProgress;
};

} // namespace Toolkits
