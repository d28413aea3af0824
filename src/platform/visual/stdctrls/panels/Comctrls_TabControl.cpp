// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Comctrls_TabControl.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/controls/Controls_FormHost.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_DrawText.h"
#include "platform/visual/stdctrls/panels/Extctrls_Frame3D.h"

#include <algorithm>

namespace Typinfo
{

TTypeInfo GEnumType<Comctrls::TTabPosition>::Make()
{
    return EnumType(u"TTabPosition", {u"tpTop", u"tpBottom", u"tpLeft", u"tpRight"});
}

TTypeInfo GEnumType<Comctrls::TTabStyle>::Make()
{
    return EnumType(u"TTabStyle", {u"tsTabs", u"tsButtons", u"tsFlatButtons"});
}

} // namespace Typinfo

namespace Comctrls
{

using Classes::TComponentWatch;
using Types::TRect;

namespace
{

/// Between a tab's edge and its text, on both sides together.
constexpr int TabPaddingAcross = 12;
constexpr int TabPaddingDown = 6;
/// Between a tab's picture and its text.
constexpr int PictureMargin = 4;
/// Between the tabs and the pages, and around these.
constexpr int PageMargin = 4;

} // namespace

/// Where the tabs stand along their row, and in which row from the outermost one on.
struct TCustomTabControl::TLayout
{
    struct TTab
    {
        int row = -1;
        int begin = 0;
        int end = 0;
    };

    std::vector<TTab> tabs;
    int rows = 0;
    /// The depth of one row.
    int depth = 0;
};

System::TMetaClass* TCustomTabControl::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomTabControl>(u"TCustomTabControl").Build();
    return record;
}

TCustomTabControl::TCustomTabControl(Classes::TComponent* owner) : TCustomControl(owner)
{
    setTabStop(true);
    SetBounds(0, 0, 289, 193);
    mImages.OnChange = [this](System::TObject*) { PicturesChanged(); };
}

TCustomTabControl::~TCustomTabControl() = default;

void TCustomTabControl::setImages(Controls::TImageList* images)
{
    mImages.setSender(images);
    TabsChanged();
}

void TCustomTabControl::PicturesChanged()
{
    if (IsDestroying()) {
        return;
    }
    // The list may be at its end, and what is placed anew calls handlers.
    try {
        TabsChanged();
    } catch (...) {
        if (Controls::ApplicationLinks().HandleException == nullptr) {
            throw;
        }
        Controls::ApplicationLinks().HandleException(this);
    }
}

void TCustomTabControl::setTabHeight(int height)
{
    Change(mTabHeight, std::max(height, 0));
}

void TCustomTabControl::setTabWidth(int width)
{
    Change(mTabWidth, std::max(width, 0));
}

void TCustomTabControl::TabsChanged()
{
    mLayout.reset();
    mFirstTab = std::clamp(mFirstTab, 0, std::max(GetTabCount() - 1, 0));
    ShowTabs();
    Realign();
}

void TCustomTabControl::CreateParams(Controls::TCreateParams& params)
{
    TCustomControl::CreateParams(params);
    params.Kind = IsNative() ? Toolkits::EWindowKind::Pages : Toolkits::EWindowKind::Canvas;
}

void TCustomTabControl::CreateWnd()
{
    TCustomControl::CreateWnd();
    ShowTabs();
}

void TCustomTabControl::ShowTabs()
{
    Invalidate();
    if (GetWindow() == nullptr || !IsNative() || IsDestroying()) {
        return;
    }
    Toolkits::TTabs shown{
        .chosen = getTabIndex(), .first = mFirstTab, .side = mTabPosition, .pages = GetPagesRect()};
    const int count = GetTabCount();
    for (int i = 0; i < count; ++i) {
        const int image = ShownImage(i);
        shown.tabs.push_back({.text = GetTabText(i),
                              .rect = TabRect(i),
                              .picture = image < 0 ? nullptr : getImages()->GetPixels(image),
                              .isHighlighted = IsTabHighlighted(i)});
    }
    GetWindow()->SetTabs(shown);
}

void TCustomTabControl::ChosenInWindow(int index)
{
    const TComponentWatch watch(this);
    ChooseTab(index);
    if (watch.IsAlive()) {
        // The window has turned already, which may have been refused.
        ShowTabs();
    }
}

TRect TCustomTabControl::GetPagesRect() const
{
    const TRect page = getDisplayRect();
    return {page.Left - PageMargin, page.Top - PageMargin, page.Right + PageMargin, page.Bottom + PageMargin};
}

int TCustomTabControl::ShownImage(int index) const
{
    const int image = getImages() == nullptr ? -1 : GetTabImage(index);
    return image >= 0 && image < getImages()->getCount() ? image : -1;
}

Types::TSize TCustomTabControl::GetContentSize(int index) const
{
    Types::TSize size = getCanvas()->TextExtent(GetTabText(index));
    if (ShownImage(index) >= 0) {
        size.cx += getImages()->getWidth() + PictureMargin;
        size.cy = std::max(size.cy, getImages()->getHeight());
    }
    return size;
}

int TCustomTabControl::GetTabExtent(int index) const
{
    if (IsUpright()) {
        return mTabHeight > 0 ? mTabHeight : GetContentSize(index).cy + TabPaddingDown;
    }
    return mTabWidth > 0 ? mTabWidth : GetContentSize(index).cx + TabPaddingAcross;
}

int TCustomTabControl::GetTabDepth() const
{
    const int given = IsUpright() ? mTabWidth : mTabHeight;
    if (given > 0) {
        return given;
    }
    int depth = IsUpright() ? 0 : getCanvas()->TextHeight(u"0") + TabPaddingDown;
    const int count = GetTabCount();
    for (int i = 0; i < count; ++i) {
        const Types::TSize size = GetContentSize(i);
        depth = std::max(depth, IsUpright() ? size.cx + TabPaddingAcross : size.cy + TabPaddingDown);
    }
    return depth;
}

const TCustomTabControl::TLayout& TCustomTabControl::GetLayout() const
{
    if (mLayout != nullptr) {
        return *mLayout;
    }
    auto layout = std::make_unique<TLayout>();
    const int count = GetTabCount();
    layout->tabs.resize(static_cast<std::size_t>(count));
    const int room = IsUpright() ? getHeight() : getWidth();
    int place = 0;
    int row = 0;
    for (int i = mMultiLine ? 0 : mFirstTab; i < count; ++i) {
        const int extent = std::min(GetTabExtent(i), std::max(room, 1));
        if (mMultiLine && place > 0 && place > room - extent) {
            ++row;
            place = 0;
        }
        layout->tabs[static_cast<std::size_t>(i)] = {row, place, place + extent};
        place += extent;
    }
    layout->rows = count == 0 ? 0 : row + 1;
    layout->depth = GetTabDepth();
    mLayout = std::move(layout);
    return *mLayout;
}

int TCustomTabControl::RowCount() const
{
    return GetLayout().rows;
}

TRect TCustomTabControl::TabRect(int index) const
{
    const TLayout& layout = GetLayout();
    if (index < 0 || index >= static_cast<int>(layout.tabs.size())) {
        return {};
    }
    const TLayout::TTab& tab = layout.tabs[static_cast<std::size_t>(index)];
    if (tab.row < 0) {
        return {};
    }
    const int from = tab.row * layout.depth;
    const int to = from + layout.depth;
    switch (mTabPosition) {
    case tpTop:
        return {tab.begin, from, tab.end, to};
    case tpBottom:
        return {tab.begin, getHeight() - to, tab.end, getHeight() - from};
    case tpLeft:
        return {from, tab.begin, to, tab.end};
    case tpRight:
        return {getWidth() - to, tab.begin, getWidth() - from, tab.end};
    }
    return {};
}

TRect TCustomTabControl::getDisplayRect() const
{
    const TLayout& layout = GetLayout();
    const int depth = layout.rows * layout.depth;
    TRect rect{PageMargin, PageMargin, getWidth() - PageMargin, getHeight() - PageMargin};
    switch (mTabPosition) {
    case tpTop:
        rect.Top += depth;
        break;
    case tpBottom:
        rect.Bottom -= depth;
        break;
    case tpLeft:
        rect.Left += depth;
        break;
    case tpRight:
        rect.Right -= depth;
        break;
    }
    return rect;
}

int TCustomTabControl::IndexOfTabAt(int x, int y) const
{
    for (int i = 0; i < GetTabCount(); ++i) {
        const TRect rect = TabRect(i);
        if (x >= rect.Left && x < rect.Right && y >= rect.Top && y < rect.Bottom) {
            return i;
        }
    }
    return -1;
}

void TCustomTabControl::ScrollTabs(int delta)
{
    const long long first = static_cast<long long>(mFirstTab) + delta;
    const int last = std::max(GetTabCount() - 1, 0);
    mFirstTab = static_cast<int>(std::clamp<long long>(first, 0, last));
    TabsChanged();
}

void TCustomTabControl::ShowTab(int index)
{
    if (mMultiLine || index < 0) {
        return;
    }
    if (index < mFirstTab) {
        ScrollTabs(index - mFirstTab);
    }
    const auto end = [&] { return GetLayout().tabs[static_cast<std::size_t>(index)].end; };
    const int room = IsUpright() ? getHeight() : getWidth();
    while (index < GetTabCount() && mFirstTab < index && end() > room) {
        ScrollTabs(1);
    }
}

bool TCustomTabControl::CanChange()
{
    bool isAllowed = true;
    if (OnChanging) {
        OnChanging(this, isAllowed);
    }
    return isAllowed;
}

void TCustomTabControl::Change()
{
    if (OnChange) {
        OnChange(this);
    }
}

void TCustomTabControl::ChooseTab(int index)
{
    if (index < 0 || index >= GetTabCount() || index == getTabIndex()) {
        return;
    }
    const TComponentWatch watch(this);
    if (!CanChange() || !watch.IsAlive()) {
        return;
    }
    setTabIndex(index);
    if (watch.IsAlive() && getTabIndex() == index) {
        ShowTab(index);
        ShowTabs();
        Change();
    }
}

void TCustomTabControl::AdjustClientRect(TRect& rect)
{
    rect = getDisplayRect();
    TCustomControl::AdjustClientRect(rect);
}

void TCustomTabControl::Resize()
{
    mLayout.reset();
    ShowTabs();
    TCustomControl::Resize();
}

void TCustomTabControl::Dispatch(void* record)
{
    switch (static_cast<Messages::TMessage*>(record)->Msg) {
    case CM_FONTCHANGED:
        TCustomControl::Dispatch(record);
        return TabsChanged();
    case WM_SIZE:
        mLayout.reset();
        break;
    default:
        break;
    }
    TCustomControl::Dispatch(record);
}

bool TCustomTabControl::WantsKey(System::Word key, Classes::TShiftState) const
{
    return key == VK_LEFT || key == VK_RIGHT || key == VK_UP || key == VK_DOWN;
}

bool TCustomTabControl::ActOnKey(System::Word key, Classes::TShiftState shift)
{
    if (shift.Contains(Classes::ssCtrl) || shift.Contains(Classes::ssAlt)) {
        return false;
    }
    switch (key) {
    case VK_LEFT:
    case VK_UP:
        ChooseTab(getTabIndex() - 1);
        return true;
    case VK_RIGHT:
    case VK_DOWN:
        ChooseTab(getTabIndex() + 1);
        return true;
    case VK_HOME:
        ChooseTab(0);
        return true;
    case VK_END:
        ChooseTab(GetTabCount() - 1);
        return true;
    default:
        return false;
    }
}

void TCustomTabControl::ActOnMouse(const Toolkits::TMouseInput& mouse)
{
    if (mouse.action != Toolkits::EMouseAction::Down || mouse.button != Controls::mbLeft) {
        return;
    }
    const int index = IndexOfTabAt(mouse.place.X, mouse.place.Y);
    if (index >= 0 && index == getTabIndex() && CanFocus()) {
        SetFocus();
    }
    ChooseTab(index);
}

void TCustomTabControl::PaintContent(int index, const TRect& rect)
{
    Graphics::TCanvas& canvas = *getCanvas();
    const int image = ShownImage(index);
    if (image < 0) {
        TRect text = rect;
        Graphics::DrawText(&canvas, GetTabText(index), text, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
        return;
    }
    const Controls::TImageList& images = *getImages();
    const int left = rect.Left + std::max((rect.Width() - GetContentSize(index).cx) / 2, 0);
    images.Draw(&canvas, left, rect.Top + (rect.Height() - images.getHeight()) / 2, image);
    TRect text{left + images.getWidth() + PictureMargin, rect.Top, rect.Right, rect.Bottom};
    Graphics::DrawText(&canvas, GetTabText(index), text, DT_SINGLELINE | DT_LEFT | DT_VCENTER);
}

void TCustomTabControl::PaintTab(int index)
{
    TRect rect = TabRect(index);
    if (rect.Width() <= 0) {
        return;
    }
    Graphics::TCanvas& canvas = *getCanvas();
    const bool isChosen = index == getTabIndex();
    const bool isLowered = isChosen && mStyle != tsTabs;
    if (mStyle != tsFlatButtons || isChosen) {
        Extctrls::FrameBevel(&canvas, rect, isLowered ? Controls::bvLowered : Controls::bvRaised, getColor(),
                             1);
    }
    canvas.getBrush()->setStyle(Graphics::bsClear);
    canvas.getFont()->setColor(getEnabled() ? GetShownFont().getColor() : Graphics::clGrayText);
    PaintContent(index, rect);
    if (isChosen && Focused()) {
        canvas.DrawFocusRect({rect.Left + 1, rect.Top + 1, rect.Right - 1, rect.Bottom - 1});
    }
}

void TCustomTabControl::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.FillRect(GetClientRect());
    TRect page = GetPagesRect();
    if (mStyle == tsTabs) {
        Extctrls::FrameBevel(&canvas, page, Controls::bvRaised, getColor(), 1);
    }
    for (int i = 0; i < GetTabCount(); ++i) {
        PaintTab(i);
    }
}

} // namespace Comctrls
