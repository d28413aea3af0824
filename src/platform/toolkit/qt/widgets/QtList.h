// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/qt/QtWindow.h"

namespace Toolkits
{

class CListView;
class CQtItems;

/// A list, or one with boxes to check. The control acts on keys and the mouse, and so has the choices, the
/// marks and the typed letters of each toolkit; the widget shows the items as the desktop does, and is
/// scrolled by its bar.
class CQtList final : public CQtWindow
{
public:
    CQtList(std::shared_ptr<CQtDesktop> desktop, const TWindowSettings& settings);
    ~CQtList() override;

    void SetLook(const TWindowLook& look) override;
    void Invalidate(const Types::TRect* part) override;
    void ShowItems(const WindowItems& items) override;
    void ShowItem(int index) override;
    void SelectItem(int index) override;
    void SetListTraits(const TListTraits& traits) override;
    void SetTopItem(int index) override;
    void ShowChoice() override;

protected:
    bool HandleEvent(QEvent& event) override;

private:
    /// Lets those who ask Qt know what is chosen.
    void UpdateChoice();
    void UpdateChoiceSoon();
    void TellChoice();

    CListView* mView;
    CQtItems* mItems;
    bool mIsUpdating = false;
    bool mIsUpdateDue = false;
};

} // namespace Toolkits
