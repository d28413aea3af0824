// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Comctrls_PageControl.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/visual/controls/Controls_FormHost.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/controls/Forms_Accelerator.h"
#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/graphics/Graphics_Canvas.h"

#include <algorithm>

namespace Comctrls
{

using Classes::TComponentWatch;
using Controls::TControl;
using Controls::TWinControl;

System::TMetaClass* TTabSheet::ClassRecord()
{
    const auto never = [](const System::TObject*) { return false; };
    static System::TMetaClass* const record =
        Controls::PublishControl(System::GClassBuilder<TTabSheet>(u"TTabSheet"))
            .Property(u"BorderWidth", &TTabSheet::getBorderWidth, &TTabSheet::setBorderWidth,
                      {.defaultValue = 0})
            .Property(u"Caption", &TTabSheet::getCaption, &TTabSheet::setCaption)
            .Property(u"Align", &TTabSheet::getAlign, &TTabSheet::setAlign, {.stored = never})
            .Property(u"Height", &TTabSheet::getHeight, &TTabSheet::setHeight, {.stored = never})
            .Property(u"Highlighted", &TTabSheet::getHighlighted, &TTabSheet::setHighlighted,
                      {.defaultValue = 0})
            .Property(u"ImageIndex", &TTabSheet::getImageIndex, &TTabSheet::setImageIndex,
                      {.defaultValue = -1})
            .Property(u"Left", &TTabSheet::getLeft, &TTabSheet::setLeft, {.stored = never})
            .Property(u"PageIndex", &TTabSheet::getPageIndex, &TTabSheet::setPageIndex, {.stored = never})
            .Property(u"TabVisible", &TTabSheet::getTabVisible, &TTabSheet::setTabVisible,
                      {.defaultValue = 1})
            .Property(u"Top", &TTabSheet::getTop, &TTabSheet::setTop, {.stored = never})
            .Property(u"Visible", &TTabSheet::getVisible, &TTabSheet::setVisible, {.stored = never})
            .Property(u"Width", &TTabSheet::getWidth, &TTabSheet::setWidth, {.stored = never})
            .Property(u"OnEnter", &TTabSheet::OnEnter)
            .Property(u"OnExit", &TTabSheet::OnExit)
            .Property(u"OnHide", &TTabSheet::OnHide)
            .Property(u"OnShow", &TTabSheet::OnShow)
            .Build();
    return record;
}

TTabSheet::TTabSheet(Classes::TComponent* owner) : TCustomControl(owner)
{
    Controls::TControlStyle style = getControlStyle();
    setControlStyle(style << Controls::csNoDesignVisible << Controls::csParentBackground);
    setAlign(Controls::alClient);
    setVisible(false);
}

TTabSheet::~TTabSheet()
{
    Destroying();
    DestroyChildren();
    if (TPageControl* const control = getPageControl()) {
        // Another page may come to sight, and its event may raise.
        Forms::Application->RunHandled([&] { control->RemovePage(this); });
    }
}

TPageControl* TTabSheet::getPageControl() const noexcept
{
    return dynamic_cast<TPageControl*>(getParent());
}

void TTabSheet::setPageControl(TPageControl* control)
{
    setParent(control);
}

int TTabSheet::getPageIndex() const
{
    const TPageControl* const control = getPageControl();
    if (control == nullptr) {
        return -1;
    }
    const auto& pages = control->mPages;
    const auto found = std::ranges::find(pages, this);
    return found == pages.end() ? -1 : static_cast<int>(found - pages.begin());
}

void TTabSheet::setPageIndex(int index)
{
    if (TPageControl* const control = getPageControl()) {
        control->MovePage(this, index);
    }
}

int TTabSheet::getTabIndex() const
{
    const int index = getPageIndex();
    if (index < 0 || !mTabVisible) {
        return -1;
    }
    const auto& pages = getPageControl()->mPages;
    return static_cast<int>(std::count_if(pages.begin(), pages.begin() + index,
                                          [](const TTabSheet* page) { return page->mTabVisible; }));
}

void TTabSheet::setTabVisible(bool isVisible)
{
    if (isVisible == mTabVisible) {
        return;
    }
    mTabVisible = isVisible;
    if (TPageControl* const control = getPageControl()) {
        control->TabVisibleChanged(this);
    }
}

void TTabSheet::setImageIndex(int index)
{
    mImageIndex = index;
    if (TPageControl* const control = getPageControl()) {
        control->TabsChanged();
    }
}

void TTabSheet::setHighlighted(bool isOn)
{
    mHighlighted = isOn;
    if (TPageControl* const control = getPageControl()) {
        control->ShowTabs();
    }
}

void TTabSheet::Dispatch(void* record)
{
    const TComponentWatch watch(this);
    TCustomControl::Dispatch(record);
    if (!watch.IsAlive()) {
        return;
    }
    switch (static_cast<Messages::TMessage*>(record)->Msg) {
    case CM_TEXTCHANGED:
        if (TPageControl* const control = getPageControl()) {
            control->TabsChanged();
        }
        return;
    case CM_SHOWINGCHANGED:
        return getShowing() ? DoShow() : DoHide();
    default:
        return;
    }
}

void TTabSheet::DoShow()
{
    if (OnShow) {
        OnShow(this);
    }
}

void TTabSheet::DoHide()
{
    if (OnHide && !IsDestroying()) {
        OnHide(this);
    }
}

void TTabSheet::Paint()
{
    getCanvas()->FillRect(GetClientRect());
}

System::TMetaClass* TPageControl::ClassRecord()
{
    static System::TMetaClass* const record =
        Controls::PublishFocus(Controls::PublishControl(System::GClassBuilder<TPageControl>(u"TPageControl")))
            .Property(u"ActivePage", &TPageControl::getActivePage, &TPageControl::setActivePage)
            .Property(u"HotTrack", &TPageControl::getHotTrack, &TPageControl::setHotTrack,
                      {.defaultValue = 0})
            .Property(u"Images", &TPageControl::getImages, &TPageControl::setImages)
            .Property(u"MultiLine", &TPageControl::getMultiLine, &TPageControl::setMultiLine,
                      {.defaultValue = 0})
            .Property(u"Style", &TPageControl::getStyle, &TPageControl::setStyle, {.defaultValue = tsTabs})
            .Property(u"TabHeight", &TPageControl::getTabHeight, &TPageControl::setTabHeight,
                      {.defaultValue = 0})
            .Property(u"TabIndex", &TPageControl::getTabIndex, &TPageControl::setTabIndex,
                      {.stored = [](const System::TObject*) { return false; }})
            .Property(u"TabPosition", &TPageControl::getTabPosition, &TPageControl::setTabPosition,
                      {.defaultValue = tpTop})
            .Property(u"TabWidth", &TPageControl::getTabWidth, &TPageControl::setTabWidth,
                      {.defaultValue = 0})
            .Property(u"OnChange", &TPageControl::OnChange)
            .Property(u"OnChanging", &TPageControl::OnChanging)
            .Build();
    return record;
}

TPageControl::TPageControl(Classes::TComponent* owner) : TCustomTabControl(owner)
{
    setControlStyle({Controls::csDoubleClicks, Controls::csOpaque});
}

TPageControl::~TPageControl()
{
    Destroying();
    DestroyChildren();
}

TTabSheet* TPageControl::getPages(int index) const
{
    if (index < 0 || index >= getPageCount()) {
        throw Classes::EListError(u"There is no page " + System::UnicodeString(index));
    }
    return mPages[static_cast<std::size_t>(index)];
}

int TPageControl::getActivePageIndex() const
{
    return mActivePage == nullptr ? -1 : mActivePage->getPageIndex();
}

void TPageControl::setActivePageIndex(int index)
{
    setActivePage(index >= 0 && index < getPageCount() ? getPages(index) : nullptr);
}

void TPageControl::setActivePage(TTabSheet* page)
{
    const bool isOwn = page == nullptr || std::ranges::find(mPages, page) != mPages.end();
    if (isOwn && page != mActivePage) {
        TurnTo(page);
    }
}

bool TPageControl::LeavePage()
{
    Controls::AFormHost* const form = Controls::FindFormHost(this);
    TWinControl* const active = form == nullptr ? nullptr : form->getActiveControl();
    if (mActivePage == nullptr || active == nullptr || !mActivePage->ContainsControl(active)) {
        return true;
    }
    const TComponentWatch watch(this);
    if (CanFocus()) {
        SetFocus();
    }
    return watch.IsAlive() && form->getActiveControl() == this;
}

void TPageControl::TurnTo(TTabSheet* page)
{
    const TWinControl* const focused = Controls::GetFocusedControl();
    const bool hadFocus =
        mActivePage != nullptr && focused != nullptr && mActivePage->ContainsControl(focused);
    const TComponentWatch watch(this);
    if (!LeavePage() || !watch.IsAlive()) {
        return;
    }
    TTabSheet* const former = std::exchange(mActivePage, page);
    const auto isThere = [&](TTabSheet* sheet) {
        return sheet != nullptr && watch.IsAlive() && std::ranges::find(mPages, sheet) != mPages.end();
    };
    // The new page is there before the former one goes, so that nothing below is seen between.
    if (isThere(page)) {
        page->BringToFront();
        page->setVisible(true);
    }
    if (isThere(former) && former != mActivePage) {
        former->setVisible(false);
    }
    if (!watch.IsAlive()) {
        return;
    }
    ShowTabs();
    if (hadFocus && isThere(page) && page == mActivePage) {
        page->SelectFirst();
    }
}

TTabSheet* TPageControl::FindNextPage(TTabSheet* current, bool goForward, bool checkTabVisible) const
{
    std::vector<TTabSheet*> pages(mPages);
    if (!goForward) {
        std::ranges::reverse(pages);
    }
    const auto place = std::ranges::find(pages, current);
    if (place != pages.end()) {
        std::rotate(pages.begin(), std::next(place), pages.end());
    }
    const auto found = std::ranges::find_if(
        pages, [&](const TTabSheet* page) { return !checkTabVisible || page->getTabVisible(); });
    return found == pages.end() ? nullptr : *found;
}

void TPageControl::SelectNextPage(bool goForward, bool checkTabVisible)
{
    TTabSheet* const page = FindNextPage(mActivePage, goForward, checkTabVisible);
    if (page == nullptr || page == mActivePage) {
        return;
    }
    const TComponentWatch watch(this);
    if (!CanChange() || !watch.IsAlive()) {
        return;
    }
    setActivePage(page);
    if (watch.IsAlive() && mActivePage == page) {
        Change();
    }
}

void TPageControl::ShowControl(TControl* control)
{
    for (TControl* inner = control; inner != nullptr; inner = inner->getParent()) {
        if (inner->getParent() == this) {
            setActivePage(dynamic_cast<TTabSheet*>(inner));
            break;
        }
    }
    TCustomTabControl::ShowControl(control);
}

void TPageControl::InsertPage(TTabSheet* page)
{
    if (std::ranges::find(mPages, page) != mPages.end()) {
        return;
    }
    mPages.push_back(page);
    TabsChanged();
    if (mActivePage == nullptr && page->getTabVisible() && !IsLoading()) {
        setActivePage(page);
    }
}

void TPageControl::RemovePage(TTabSheet* page)
{
    const auto place = std::ranges::find(mPages, page);
    if (place == mPages.end()) {
        return;
    }
    TTabSheet* next = FindNextPage(page, true, true);
    if (next == page) {
        next = nullptr;
    }
    mPages.erase(place);
    if (mActivePage == page) {
        mActivePage = nullptr;
        if (!IsDestroying()) {
            setActivePage(next);
        }
    }
    if (!IsDestroying()) {
        TabsChanged();
    }
}

void TPageControl::MovePage(TTabSheet* page, int index)
{
    const auto place = std::ranges::find(mPages, page);
    if (place == mPages.end()) {
        return;
    }
    mPages.erase(place);
    index = std::clamp(index, 0, getPageCount());
    mPages.insert(mPages.begin() + index, page);
    TabsChanged();
}

void TPageControl::TabVisibleChanged(TTabSheet* page)
{
    TabsChanged();
    if (IsLoading()) {
        return;
    }
    if (page->getTabVisible()) {
        if (mActivePage == nullptr) {
            setActivePage(page);
        }
    } else if (page == mActivePage) {
        setActivePage(FindNextPage(page, true, true));
    }
}

TTabSheet* TPageControl::FindTab(int index) const
{
    for (TTabSheet* page : mPages) {
        if (page->getTabVisible() && index-- == 0) {
            return page;
        }
    }
    return nullptr;
}

int TPageControl::GetTabCount() const
{
    return static_cast<int>(
        std::ranges::count_if(mPages, [](const TTabSheet* page) { return page->getTabVisible(); }));
}

System::UnicodeString TPageControl::GetTabText(int index) const
{
    const TTabSheet* const page = FindTab(index);
    return page == nullptr ? System::UnicodeString() : page->getCaption();
}

int TPageControl::GetTabImage(int index) const
{
    const TTabSheet* const page = FindTab(index);
    return page == nullptr ? -1 : page->getImageIndex();
}

bool TPageControl::IsTabHighlighted(int index) const
{
    const TTabSheet* const page = FindTab(index);
    return page != nullptr && page->getHighlighted();
}

int TPageControl::GetTabIndex() const
{
    return mActivePage == nullptr ? -1 : mActivePage->getTabIndex();
}

void TPageControl::SetTabIndex(int index)
{
    if (TTabSheet* const page = FindTab(index)) {
        setActivePage(page);
    }
}

bool TPageControl::DialogKey(const Messages::TMessage& message)
{
    const auto shift = Controls::ParamToShift(static_cast<std::uintptr_t>(message.LParam));
    const TWinControl* const focused = Controls::GetFocusedControl();
    if (message.WParam != VK_TAB || !shift.Contains(Classes::ssCtrl) || focused == nullptr ||
        !ContainsControl(focused)) {
        return false;
    }
    SelectNextPage(!shift.Contains(Classes::ssShift));
    return true;
}

bool TPageControl::ChooseMarked(System::Word key)
{
    const auto isMarked = [key](const TTabSheet* page) {
        return page->getTabVisible() && Forms::IsAccel(key, page->getCaption());
    };
    const auto found = std::ranges::find_if(mPages, isMarked);
    if (found == mPages.end() || !CanFocus()) {
        return false;
    }
    ChooseTab((*found)->getTabIndex());
    return true;
}

void TPageControl::Dispatch(void* record)
{
    auto& message = *static_cast<Messages::TMessage*>(record);
    switch (message.Msg) {
    case CM_DIALOGKEY:
        // One that lies further inside goes first.
        TCustomTabControl::Dispatch(record);
        if (message.Result == 0 && DialogKey(message)) {
            message.Result = 1;
        }
        return;
    case CM_DIALOGCHAR:
        if (ChooseMarked(static_cast<System::Word>(message.WParam))) {
            message.Result = 1;
            return;
        }
        return TCustomTabControl::Dispatch(record);
    case CM_CONTROLCHANGE: {
        TCustomTabControl::Dispatch(record);
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the parameter of the message is an address
        auto* const control = reinterpret_cast<TControl*>(message.WParam);
        auto* const page = dynamic_cast<TTabSheet*>(control);
        if (page != nullptr) {
            message.LParam != 0 ? InsertPage(page) : RemovePage(page);
        }
        return;
    }
    default:
        return TCustomTabControl::Dispatch(record);
    }
}

void TPageControl::Loaded()
{
    TCustomTabControl::Loaded();
    if (mActivePage == nullptr) {
        setActivePage(FindNextPage(nullptr, true, true));
    }
    TabsChanged();
}

void TPageControl::GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent*)
{
    for (TTabSheet* page : std::vector<TTabSheet*>(mPages)) {
        proc(page);
    }
}

void TPageControl::SetChildOrder(Classes::TComponent* child, int order)
{
    if (auto* const page = dynamic_cast<TTabSheet*>(child)) {
        MovePage(page, order);
    }
}

} // namespace Comctrls
