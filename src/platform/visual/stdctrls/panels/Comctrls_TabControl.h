// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_CustomControl.h"
#include "platform/visual/graphics/Controls_ImageList.h"

#include <vector>

namespace Comctrls
{

/// The side on which the tabs stand.
enum TTabPosition
{
    tpTop,
    tpBottom,
    tpLeft,
    tpRight
};

/// What the tabs look like.
enum TTabStyle
{
    tsTabs,
    tsButtons,
    tsFlatButtons
};

/// Another tab is about to be chosen by the user; it may be refused.
using TTabChangingEvent = System::TClosure<void(System::TObject* sender, bool& allowChange)>;

/// Base of what has a row of tabs, of which one is chosen. What they stand for, a derived class knows.
class TRS8_BTL_API TCustomTabControl : public Controls::TCustomControl
{
    TRS8_BTL_CLASS(TCustomTabControl, Controls::TCustomControl)

public:
    explicit TCustomTabControl(Classes::TComponent* owner = nullptr);
    ~TCustomTabControl() override;

    /// The chosen tab, counted from 0; -1 for none. An index out of range changes nothing.
    int getTabIndex() const { return GetTabIndex(); }
    void setTabIndex(int index) { SetTabIndex(index); }

    /// At the top at first.
    TTabPosition getTabPosition() const noexcept { return mTabPosition; }
    void setTabPosition(TTabPosition position) { ChangeKind(mTabPosition, position); }
    TTabStyle getStyle() const noexcept { return mStyle; }
    void setStyle(TTabStyle style) { ChangeKind(mStyle, style); }
    /// Whether tabs that don't fit begin another row, or are reached by scrolling; off at first.
    bool getMultiLine() const noexcept { return mMultiLine; }
    void setMultiLine(bool isOn) { ChangeKind(mMultiLine, isOn); }
    /// Pixels of each tab; 0, as at first, leaves them to what the tab shows. A negative one counts as 0.
    int getTabHeight() const noexcept { return mTabHeight; }
    void setTabHeight(int height);
    int getTabWidth() const noexcept { return mTabWidth; }
    void setTabWidth(int width);
    /// Whether the tab under the mouse is marked. Kept for designs.
    bool getHotTrack() const noexcept { return mHotTrack; }
    void setHotTrack(bool isOn) noexcept { mHotTrack = isOn; }

    /// The pictures that tabs show in front of their texts; null, as at first, for none.
    Controls::TImageList* getImages() const noexcept { return mImages.getSender(); }
    void setImages(Controls::TImageList* images);

    /// What is left for what the tabs stand for.
    Types::TRect getDisplayRect() const;
    /// The rows of tabs; 0 without tabs.
    int RowCount() const;
    /// The place of a tab; empty for an index out of range and for a tab that is out of sight.
    Types::TRect TabRect(int index) const;
    /// The tab at a place of the client area; -1 for none.
    int IndexOfTabAt(int x, int y) const;
    /// Moves the tabs of a single row by so many, back for a negative number.
    void ScrollTabs(int delta);

    void Dispatch(void* record) override;

    /// The user chose another tab.
    Classes::TNotifyEvent OnChange;
    /// The user is about to; it may be refused.
    TTabChangingEvent OnChanging;

protected:
    /// What `TabIndex` gives and does; any index may come. By itself there is no tab.
    virtual int GetTabIndex() const { return -1; }
    virtual void SetTabIndex(int) {}
    /// The tabs that can be seen, and what stands in one of them.
    virtual int GetTabCount() const { return 0; }
    virtual System::UnicodeString GetTabText(int) const { return {}; }
    /// The number of its picture; -1 for none.
    virtual int GetTabImage(int) const { return -1; }
    /// Whether the tab asks for attention.
    virtual bool IsTabHighlighted(int) const { return false; }

    /// Whether the user may choose another tab; asks `OnChanging`.
    virtual bool CanChange();
    /// Called when the user chose another tab; calls `OnChange`.
    virtual void Change();
    /// Chooses a tab as the user does, if that is allowed.
    void ChooseTab(int index);
    /// There are other tabs, or they look differently.
    void TabsChanged();
    /// The window has to show the tabs anew.
    void ShowTabs();

    void CreateParams(Controls::TCreateParams& params) override;
    void CreateWnd() override;
    void ChosenInWindow(int index) override;
    void ScrolledInWindow(int first) override { ScrollTabs(first - mFirstTab); }
    void Paint() override;
    void AdjustClientRect(Types::TRect& rect) override;
    void Resize() override;
    bool WantsKey(System::Word key, Classes::TShiftState shift) const override;
    bool ActOnKey(System::Word key, Classes::TShiftState shift) override;
    void ActOnMouse(const Toolkits::TMouseInput& mouse) override;

private:
    struct TLayout;

    template <class Value>
    void Change(Value& member, Value value)
    {
        if (member != value) {
            member = value;
            TabsChanged();
        }
    }
    /// Another window may be needed to show it.
    template <class Value>
    void ChangeKind(Value& member, Value value)
    {
        const bool wasNative = IsNative();
        Change(member, value);
        if (IsNative() != wasNative) {
            RecreateWnd();
        }
    }
    bool IsUpright() const noexcept { return mTabPosition == tpLeft || mTabPosition == tpRight; }
    /// Whether windows of the desktop have tabs like these.
    bool IsNative() const noexcept { return mStyle == tsTabs && !mMultiLine && !IsUpright(); }
    const TLayout& GetLayout() const;
    int GetTabExtent(int index) const;
    /// The picture that a tab shows; -1 for none, and for one that isn't there.
    int ShownImage(int index) const;
    /// What text and picture of a tab take.
    Types::TSize GetContentSize(int index) const;
    int GetTabDepth() const;
    /// Where the pages lie, with the frame round them.
    Types::TRect GetPagesRect() const;
    void PicturesChanged();
    void PaintContent(int index, const Types::TRect& rect);
    void ShowTab(int index);
    void PaintTab(int index);

    Controls::TChangeLink mImages;
    int mTabHeight = 0;
    int mTabWidth = 0;
    /// The first tab in sight of a single row.
    int mFirstTab = 0;
    TTabPosition mTabPosition = tpTop;
    TTabStyle mStyle = tsTabs;
    bool mMultiLine = false;
    bool mHotTrack = false;
    /// Where the tabs stand; null until somebody asks after a change.
    mutable std::unique_ptr<TLayout> mLayout;
};

} // namespace Comctrls

namespace Typinfo
{

// The enumerations of tabs, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Comctrls::TTabPosition>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Comctrls::TTabStyle>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
