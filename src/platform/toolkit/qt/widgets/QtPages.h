// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/QtWindow.h"

class QToolButton;

namespace Toolkits
{

class CPagesWidget;
class CTabBar;

/// A row of tabs and the frame of the pages. The control acts on keys and the mouse, and says where each tab
/// stands; tabs that don't fit are reached by two arrows.
class CQtPages final : public CQtWindow
{
public:
    CQtPages(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtPages() override;

    void SetTabs(const TTabs& tabs) override;

protected:
    bool HandleEvent(QEvent& event) override;

private:
    void TellChosen(int index);
    void PlaceArrows(const TTabs& tabs);
    void ScrollTabs(int delta);

    CPagesWidget* mPages;
    CTabBar* mBar;
    /// Back and on.
    QToolButton* mArrows[2];
    int mFirst = 0;
    int mChosen = -1;
    bool mIsShowing = false;
};

} // namespace Toolkits
