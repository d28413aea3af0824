// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/stdctrls/panels/Comctrls_TabControl.h"

namespace Comctrls
{

class TPageControl;

/// A page of a page control, which shows it while it is the active one. Its caption is that of its tab.
class TRS8_BTL_API TTabSheet : public Controls::TCustomControl
{
    TRS8_BTL_CLASS(TTabSheet, Controls::TCustomControl)

public:
    explicit TTabSheet(Classes::TComponent* owner = nullptr);
    ~TTabSheet() override;

    /// Where the page belongs; null for none. It is the page's parent.
    TPageControl* getPageControl() const noexcept;
    void setPageControl(TPageControl* control);
    /// The place among all pages, from 0; -1 without a page control. The number is held within their count.
    int getPageIndex() const;
    void setPageIndex(int index);
    /// The place among the tabs that can be seen; -1 if this one can't.
    int getTabIndex() const;
    /// Whether the page has a tab to be seen, on at first. The page of a tab that goes makes way for another.
    bool getTabVisible() const noexcept { return mTabVisible; }
    void setTabVisible(bool isVisible);
    /// The number of the picture in the tab, among those of the page control's `Images`; -1, as at first, for
    /// none.
    int getImageIndex() const noexcept { return mImageIndex; }
    void setImageIndex(int index);
    /// Whether the tab is drawn as one that asks for attention.
    bool getHighlighted() const noexcept { return mHighlighted; }
    void setHighlighted(bool isOn);

    void Dispatch(void* record) override;

    /// The page comes to sight, or leaves it.
    Classes::TNotifyEvent OnShow;
    Classes::TNotifyEvent OnHide;

protected:
    /// The page came to sight, or left it; each calls its event.
    virtual void DoShow();
    virtual void DoHide();
    void Paint() override;

private:
    int mImageIndex = -1;
    bool mTabVisible = true;
    bool mHighlighted = false;
};

/// Pages, one of which is seen, with tabs to turn them. Ctrl and Tab turn to the next one.
///
///     auto* const pages = new Comctrls::TPageControl(form);
///     pages->setParent(form);
///     auto* const values = new Comctrls::TTabSheet(form);
///     values->setCaption(u"Values");
///     values->setPageControl(pages);                              // the first page becomes the active one
class TRS8_BTL_API TPageControl : public TCustomTabControl
{
    TRS8_BTL_CLASS(TPageControl, TCustomTabControl)

public:
    explicit TPageControl(Classes::TComponent* owner = nullptr);
    ~TPageControl() override;

    int getPageCount() const noexcept { return static_cast<int>(mPages.size()); }
    /// From 0; `Classes::EListError` out of range.
    TTabSheet* getPages(int index) const;
    /// The page that is seen; null for none. One of another page control changes nothing. No event is called
    /// but those of the pages.
    TTabSheet* getActivePage() const noexcept { return mActivePage; }
    void setActivePage(TTabSheet* page);
    /// Its place among all pages; -1 for none, as any index out of range is.
    int getActivePageIndex() const;
    void setActivePageIndex(int index);
    /// The page behind, or before, `current`, or at that end for null and one that isn't in here; after the
    /// last one comes the first. With `checkTabVisible` of those with a tab. Null if there is none.
    TTabSheet* FindNextPage(TTabSheet* current, bool goForward, bool checkTabVisible) const;
    /// Turns to the next page as the user does: `OnChanging` may refuse it, `OnChange` tells.
    void SelectNextPage(bool goForward, bool checkTabVisible = true);

    /// Turns to the page that `control` lies in.
    void ShowControl(Controls::TControl* control) override;
    void Dispatch(void* record) override;
    void Loaded() override;

protected:
    int GetTabIndex() const override;
    void SetTabIndex(int index) override;
    int GetTabCount() const override;
    System::UnicodeString GetTabText(int index) const override;
    int GetTabImage(int index) const override;
    bool IsTabHighlighted(int index) const override;
    void GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root) override;
    void SetChildOrder(Classes::TComponent* child, int order) override;

private:
    friend class TTabSheet;

    void InsertPage(TTabSheet* page);
    /// Of the page that leaves only the address counts.
    void RemovePage(TTabSheet* page);
    void MovePage(TTabSheet* page, int index);
    void TabVisibleChanged(TTabSheet* page);
    void TurnTo(TTabSheet* page);
    /// Takes the focus from the page that is left; false if it didn't let go.
    bool LeavePage();
    bool DialogKey(const Messages::TMessage& message);
    /// Chooses the tab whose caption marks the key; false if there is none.
    bool ChooseMarked(System::Word key);
    TTabSheet* FindTab(int index) const;

    std::vector<TTabSheet*> mPages;
    TTabSheet* mActivePage = nullptr;
};

} // namespace Comctrls
