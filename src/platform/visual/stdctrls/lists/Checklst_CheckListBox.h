// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/stdctrls/buttons/Stdctrls_CheckBox.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ListBox.h"

namespace Checklst
{

/// A list of texts with a check box in front of each, which the user checks by a click on the box or by the
/// space bar. Headings among them have no box.
///
///     auto* const box = new Checklst::TCheckListBox(form);
///     box->getItems()->AddStrings({u"Temperature", u"Pressure"});
///     box->setChecked(1, true);                                   // no event
///     box->OnClickCheck = Classes::TNotifyEvent(this, &TMainForm::ChannelsChosen);
class TRS8_BTL_API TCheckListBox : public Stdctrls::TCustomListBox
{
    TRS8_BTL_CLASS(TCheckListBox, Stdctrls::TCustomListBox)

public:
    explicit TCheckListBox(Classes::TComponent* owner = nullptr) : TCustomListBox(owner) {}
    ~TCheckListBox() override;

    // Of an item; `Classes::EListError` for an index that isn't there.

    /// Whether the state is `cbChecked`.
    bool getChecked(int index) const { return getState(index) == Stdctrls::cbChecked; }
    void setChecked(int index, bool isChecked);
    Stdctrls::TCheckBoxState getState(int index) const;
    void setState(int index, Stdctrls::TCheckBoxState state);
    /// Whether the user can check the item; at first he can.
    bool getItemEnabled(int index) const;
    void setItemEnabled(int index, bool isEnabled);
    /// Whether the item is a heading; none is at first.
    bool getHeader(int index) const;
    void setHeader(int index, bool isHeader);
    /// Gives all items but headings the state, those that are gray or can't be used only if allowed.
    void CheckAll(Stdctrls::TCheckBoxState state, bool allowGrayed = true, bool allowDisabled = true);

    /// Whether the user can make a state gray; off at first.
    bool getAllowGrayed() const noexcept { return mAllowGrayed; }
    void setAllowGrayed(bool isOn) noexcept { mAllowGrayed = isOn; }
    /// Whether boxes are drawn without depth; on at first.
    bool getFlat() const noexcept { return mFlat; }
    void setFlat(bool isOn);
    /// The colours of headings.
    Graphics::TColor getHeaderColor() const noexcept { return mHeaderColor; }
    void setHeaderColor(Graphics::TColor color);
    Graphics::TColor getHeaderBackgroundColor() const noexcept { return mHeaderBackgroundColor; }
    void setHeaderBackgroundColor(Graphics::TColor color);

    /// The user changed a state.
    Classes::TNotifyEvent OnClickCheck;

protected:
    /// Calls `OnClickCheck`.
    virtual void ClickCheck();
    /// Turns the state of an item over as the user does.
    void ToggleClickCheck(int index);
    /// How much in front of an item the box takes.
    int GetCheckWidth() const;

    Types::TRect DrawLead(int index, const Types::TRect& rect) override;
    void SetItemColors(int index, bool isChosen) override;
    Toolkits::EWindowKind NativeKind() const override { return Toolkits::EWindowKind::CheckListBox; }
    void ItemCheckedInWindow(int index) override { ToggleClickCheck(index); }
    Toolkits::TListTraits ListTraits() const override;
    void MouseDown(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y) override;
    bool ActOnKey(System::Word key, Classes::TShiftState shift) override;
    bool ActOnChar(System::WideChar character) override;

private:
    bool IsOnBox(int index, Types::TPoint place) const;

    Graphics::TColor mHeaderColor = Graphics::clInfoText;
    Graphics::TColor mHeaderBackgroundColor = Graphics::clInfoBk;
    bool mAllowGrayed = false;
    bool mFlat = true;
};

} // namespace Checklst
