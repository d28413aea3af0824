// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/widgets/QtProgress.h"

#include <QEvent>
#include <QProgressBar>

#include <limits>
#include <utility>

namespace Toolkits
{

CQtProgress::CQtProgress(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings)
    : CQtWindow(std::move(desktop), settings, new QProgressBar), mBar(static_cast<QProgressBar*>(&Widget()))
{
    mBar->setTextVisible(false);
    ShowValues();
}

CQtProgress::~CQtProgress() = default;

bool CQtProgress::HandleEvent(QEvent& event)
{
    return event.type() != QEvent::Paint && CQtWindow::HandleEvent(event);
}

void CQtProgress::SetProgress(const TProgress& progress)
{
    if (progress == mProgress) {
        return;
    }
    const bool isColored = progress.bar != mProgress.bar || progress.ground != mProgress.ground;
    mProgress = progress;
    ShowValues();
    if (isColored) {
        ShowColors();
    }
}

void CQtProgress::ShowValues()
{
    // The bar would paint itself, and what lies behind it, before its setter returns.
    mBar->setUpdatesEnabled(false);
    mBar->setOrientation(mProgress.isVertical ? Qt::Vertical : Qt::Horizontal);
    const long long span = static_cast<long long>(mProgress.max) - mProgress.min;
    const long long done = static_cast<long long>(mProgress.position) - mProgress.min;
    if (mProgress.isWandering) {
        mBar->setRange(0, 0);
    } else if (span <= 0) {
        // One without a span would wander.
        mBar->setRange(0, 1);
        mBar->setValue(0);
    } else if (span > std::numeric_limits<int>::max()) {
        // Styles reckon with the span as a number of 32 bits.
        mBar->setRange(0, static_cast<int>(span / 2));
        mBar->setValue(static_cast<int>(done / 2));
    } else {
        mBar->setRange(mProgress.min, mProgress.max);
        mBar->setValue(mProgress.position);
    }
    mBar->setUpdatesEnabled(true);
}

void CQtProgress::ShowColors()
{
    CQtWindow::ShowColors();
    QPalette palette = mBar->palette();
    palette.setColor(QPalette::Highlight, QColor::fromRgba(mProgress.bar));
    palette.setColor(QPalette::Base, QColor::fromRgba(mProgress.ground));
    mBar->setPalette(palette);
}

} // namespace Toolkits
