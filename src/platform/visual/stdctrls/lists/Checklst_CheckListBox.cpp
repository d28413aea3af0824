// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Checklst_CheckListBox.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/controls/Controls_WindowActs.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/buttons/internal/Stdctrls_ButtonPainting.h"
#include "platform/visual/stdctrls/lists/internal/Stdctrls_ListItems.h"

namespace Checklst
{

using Stdctrls::CListItem;
using Stdctrls::TCheckBoxState;
using Types::TRect;

System::TMetaClass* TCheckListBox::ClassRecord()
{
    using T = TCheckListBox;
    static System::TMetaClass* const record =
        Stdctrls::PublishListBox(Controls::PublishFocus(Controls::PublishColoredControl(
                                     System::GClassBuilder<T>(u"TCheckListBox"))))
            .Property(u"AllowGrayed", &T::getAllowGrayed, &T::setAllowGrayed, {.defaultValue = 0})
            .Property(u"Flat", &T::getFlat, &T::setFlat, {.defaultValue = 1})
            .Property(u"HeaderBackgroundColor", &T::getHeaderBackgroundColor, &T::setHeaderBackgroundColor,
                      {.defaultValue = Graphics::clInfoBk})
            .Property(u"HeaderColor", &T::getHeaderColor, &T::setHeaderColor,
                      {.defaultValue = Graphics::clInfoText})
            .Property(u"OnClickCheck", &T::OnClickCheck)
            .Build();
    return record;
}

TCheckListBox::~TCheckListBox() = default;

TCheckBoxState TCheckListBox::getState(int index) const
{
    CheckIndex(index);
    return static_cast<TCheckBoxState>(GetItemCheck(index));
}

void TCheckListBox::setState(int index, TCheckBoxState state)
{
    CheckIndex(index);
    if (IsVirtual() || state == getState(index)) {
        return;
    }
    ItemList().ItemAt(index).check = static_cast<Toolkits::ECheck>(state);
    InvalidateItem(index);
}

void TCheckListBox::setChecked(int index, bool isChecked)
{
    setState(index, isChecked ? Stdctrls::cbChecked : Stdctrls::cbUnchecked);
}

bool TCheckListBox::getItemEnabled(int index) const
{
    CheckIndex(index);
    return IsItemEnabled(index);
}

void TCheckListBox::setItemEnabled(int index, bool isEnabled)
{
    CheckIndex(index);
    if (!IsVirtual()) {
        ItemList().ItemAt(index).isEnabled = isEnabled;
        InvalidateItem(index);
    }
}

bool TCheckListBox::getHeader(int index) const
{
    CheckIndex(index);
    return IsItemHeader(index);
}

void TCheckListBox::setHeader(int index, bool isHeader)
{
    CheckIndex(index);
    if (!IsVirtual()) {
        ItemList().ItemAt(index).isHeader = isHeader;
        InvalidateItem(index);
    }
}

void TCheckListBox::CheckAll(TCheckBoxState state, bool allowGrayed, bool allowDisabled)
{
    for (int i = 0; i < GetCount(); ++i) {
        const bool isMeant = !getHeader(i) && (allowDisabled || getItemEnabled(i)) &&
                             (allowGrayed || getState(i) != Stdctrls::cbGrayed);
        if (isMeant) {
            setState(i, state);
        }
    }
}

void TCheckListBox::setFlat(bool isOn)
{
    mFlat = isOn;
    Invalidate();
}

void TCheckListBox::setHeaderColor(Graphics::TColor color)
{
    mHeaderColor = color;
    ShowTraitsInWindow();
    Invalidate();
}

void TCheckListBox::setHeaderBackgroundColor(Graphics::TColor color)
{
    mHeaderBackgroundColor = color;
    ShowTraitsInWindow();
    Invalidate();
}

Toolkits::TListTraits TCheckListBox::ListTraits() const
{
    Toolkits::TListTraits traits = TCustomListBox::ListTraits();
    traits.boxWidth = GetCheckWidth();
    traits.headerText = Graphics::ColorToPixel(mHeaderColor);
    traits.headerGround = Graphics::ColorToPixel(mHeaderBackgroundColor);
    return traits;
}

int TCheckListBox::GetCheckWidth() const
{
    return Stdctrls::BoxSize + Stdctrls::BoxGap;
}

void TCheckListBox::ClickCheck()
{
    if (OnClickCheck) {
        OnClickCheck(this);
    }
}

void TCheckListBox::ToggleClickCheck(int index)
{
    if (index < 0 || index >= GetCount() || IsVirtual() || !getItemEnabled(index) || getHeader(index)) {
        return;
    }
    switch (getState(index)) {
    case Stdctrls::cbUnchecked:
        setState(index, mAllowGrayed ? Stdctrls::cbGrayed : Stdctrls::cbChecked);
        break;
    case Stdctrls::cbChecked:
        setState(index, Stdctrls::cbUnchecked);
        break;
    default:
        setState(index, Stdctrls::cbChecked);
        break;
    }
    ClickCheck();
}

bool TCheckListBox::IsOnBox(int index, Types::TPoint place) const
{
    const TRect rect = ItemRect(index);
    return UseRightToLeftAlignment() ? place.X >= rect.Right - GetCheckWidth()
                                     : place.X < rect.Left + GetCheckWidth();
}

void TCheckListBox::MouseDown(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y)
{
    const Classes::TComponentWatch watch(this);
    TCustomListBox::MouseDown(button, shift, x, y);
    if (!watch.IsAlive() || button != Controls::mbLeft || Controls::WindowActs(*this)) {
        return;
    }
    const int index = ItemAtPos({x, y}, true);
    if (index >= 0 && IsOnBox(index, {x, y})) {
        ToggleClickCheck(index);
    }
}

bool TCheckListBox::ActOnKey(System::Word key, Classes::TShiftState shift)
{
    // The character that it makes checks the item, unless a handler keeps it.
    return key != VK_SPACE && TCustomListBox::ActOnKey(key, shift);
}

bool TCheckListBox::ActOnChar(System::WideChar character)
{
    if (character != u' ') {
        return TCustomListBox::ActOnChar(character);
    }
    ToggleClickCheck(GetItemIndex());
    return true;
}

void TCheckListBox::SetItemColors(int index, bool isChosen)
{
    TCustomListBox::SetItemColors(index, isChosen);
    if (IsItemHeader(index) && !isChosen) {
        getCanvas()->getBrush()->setColor(mHeaderBackgroundColor);
        getCanvas()->getFont()->setColor(mHeaderColor);
    }
}

TRect TCheckListBox::DrawLead(int index, const TRect& rect)
{
    if (IsItemHeader(index)) {
        return rect;
    }
    const bool isAtRight = UseRightToLeftAlignment();
    const int left = isAtRight ? rect.Right - Stdctrls::BoxSize - 1 : rect.Left + 1;
    const int top = rect.Top + (rect.Height() - Stdctrls::BoxSize) / 2;
    Stdctrls::CButtonPainter(*this, *getCanvas())
        .CheckBox({left, top, left + Stdctrls::BoxSize, top + Stdctrls::BoxSize}, GetItemCheck(index));
    return {rect.Left + (isAtRight ? 0 : GetCheckWidth()), rect.Top,
            rect.Right - (isAtRight ? GetCheckWidth() : 0), rect.Bottom};
}

} // namespace Checklst
