// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_GroupBox.h"

#include <vector>

namespace Classes
{
class TStringList;
} // namespace Classes

namespace Stdctrls
{
class TRadioButton;
} // namespace Stdctrls

namespace Extctrls
{

/// Base of boxes with a radio button for each of their items.
///
///     auto* const group = new Extctrls::TRadioGroup(form);
///     group->setParent(form);
///     group->getItems()->AddStrings({u"Slow", u"Fast"});
///     group->setItemIndex(1);                                     // calls OnClick, as the user's choice
///     does
class TRS8_BTL_API TCustomRadioGroup : public Stdctrls::TCustomGroupBox
{
    TRS8_BTL_CLASS(TCustomRadioGroup, Stdctrls::TCustomGroupBox)

public:
    explicit TCustomRadioGroup(Classes::TComponent* owner = nullptr);
    ~TCustomRadioGroup() override;

    /// The captions of the buttons. The group owns the list; writing copies.
    Classes::TStrings* getItems() const noexcept;
    void setItems(Classes::TStrings* items);
    /// The item whose button is checked; -1, which is first, for none. An index that isn't there is held to
    /// the last one. A change by whatever means is a click.
    int getItemIndex() const noexcept { return mItemIndex; }
    void setItemIndex(int index);
    /// In how many columns the buttons stand, 1 to 16; 1 at first.
    int getColumns() const noexcept { return mColumns; }
    void setColumns(int columns);
    /// The button of an item. `Classes::EListError` for an index that isn't there.
    Stdctrls::TRadioButton* getButtons(int index) const;

    void Dispatch(void* message) override;
    void Loaded() override;
    bool CanFocus() const override;
    /// Focuses the checked button, or the first one.
    void SetFocus() override;

protected:
    /// Whether the user may choose another item.
    virtual bool CanModify() { return true; }
    void ReadState(Classes::TReader& reader) override;
    void GetChildren(const Classes::TGetChildProc&, Classes::TComponent*) override {}

private:
    class TGroupButton;

    void ItemsChanged(System::TObject* sender);
    void UpdateButtons();
    void SetButtonCount(std::size_t count);
    void ArrangeButtons();
    void ButtonClicked(TGroupButton* button);
    void Forget(TGroupButton* button);
    void EnableButtons();

    std::unique_ptr<Classes::TStringList> mItems;
    std::vector<TGroupButton*> mButtons;
    int mItemIndex = -1;
    int mColumns = 1;
    bool mIsReading = false;
};

/// A box of radio buttons.
class TRS8_BTL_API TRadioGroup : public TCustomRadioGroup
{
    TRS8_BTL_CLASS(TRadioGroup, TCustomRadioGroup)

public:
    explicit TRadioGroup(Classes::TComponent* owner = nullptr) : TCustomRadioGroup(owner) {}
    ~TRadioGroup() override;
};

} // namespace Extctrls
