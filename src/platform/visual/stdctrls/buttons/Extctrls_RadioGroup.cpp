// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Extctrls_RadioGroup.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_RadioButton.h"

#include <algorithm>

namespace Extctrls
{

using Classes::TComponentWatch;
using System::UnicodeString;

namespace
{

/// Raises a flag for its life.
class CReading
{
public:
    explicit CReading(bool& flag) : mFlag(flag) { mFlag = true; }
    CReading(const CReading&) = delete;
    CReading& operator=(const CReading&) = delete;
    ~CReading() { mFlag = false; }

private:
    bool& mFlag;
};

} // namespace

/// The button of an item. It belongs to the group, which it tells of clicks and of its end.
class TCustomRadioGroup::TGroupButton final : public Stdctrls::TRadioButton
{
public:
    explicit TGroupButton(TCustomRadioGroup& group) : TRadioButton(&group), mGroup(group)
    {
        setEnabled(group.getEnabled());
        setParentShowHint(false);
        setParent(&group);
    }
    ~TGroupButton() override { mGroup.Forget(this); }

    void Click() override
    {
        const TComponentWatch watch(this);
        TRadioButton::Click();
        if (watch.IsAlive()) {
            mGroup.ButtonClicked(this);
        }
    }

    /// Without a click.
    void CheckSilently()
    {
        setClicksDisabled(true);
        setChecked(true);
        setClicksDisabled(false);
    }

protected:
    void Press() override
    {
        if (mGroup.CanModify()) {
            TRadioButton::Press();
        }
    }
    void KeyDown(System::Word& key, Classes::TShiftState shift) override
    {
        const TComponentWatch watch(this);
        TRadioButton::KeyDown(key, shift);
        if (watch.IsAlive() && key != 0 && mGroup.OnKeyDown) {
            mGroup.OnKeyDown(&mGroup, key, shift);
        }
    }
    void KeyPress(System::WideChar& key) override
    {
        const TComponentWatch watch(this);
        TRadioButton::KeyPress(key);
        if (watch.IsAlive() && key != 0 && mGroup.OnKeyPress) {
            mGroup.OnKeyPress(&mGroup, key);
        }
    }

private:
    TCustomRadioGroup& mGroup;
};

System::TMetaClass* TCustomRadioGroup::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomRadioGroup>(u"TCustomRadioGroup").Build();
    return record;
}

TCustomRadioGroup::TCustomRadioGroup(Classes::TComponent* owner)
    : TCustomGroupBox(owner), mItems(std::make_unique<Classes::TStringList>())
{
    setControlStyle({Controls::csSetCaption, Controls::csDoubleClicks, Controls::csParentBackground});
    mItems->setOnChange({this, &TCustomRadioGroup::ItemsChanged});
}

TCustomRadioGroup::~TCustomRadioGroup()
{
    Destroying();
    mItems->setOnChange({});
    DestroyChildren();
}

Classes::TStrings* TCustomRadioGroup::getItems() const noexcept
{
    return mItems.get();
}

void TCustomRadioGroup::setItems(Classes::TStrings* items)
{
    mItems->Assign(items);
}

Stdctrls::TRadioButton* TCustomRadioGroup::getButtons(int index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= mButtons.size()) {
        throw Classes::EListError(u"List index out of bounds (" + UnicodeString(index) + u")");
    }
    return mButtons[static_cast<std::size_t>(index)];
}

void TCustomRadioGroup::setItemIndex(int index)
{
    if (mIsReading) {
        mItemIndex = index;
        return;
    }
    index = std::clamp(index, -1, static_cast<int>(mButtons.size()) - 1);
    if (index == mItemIndex) {
        return;
    }
    const TComponentWatch watch(this);
    if (mItemIndex >= 0) {
        getButtons(mItemIndex)->setChecked(false);
    }
    if (!watch.IsAlive()) {
        return;
    }
    mItemIndex = index;
    if (mItemIndex >= 0) {
        getButtons(mItemIndex)->setChecked(true);
    }
}

void TCustomRadioGroup::setColumns(int columns)
{
    columns = std::clamp(columns, 1, 16);
    if (columns != mColumns) {
        mColumns = columns;
        ArrangeButtons();
        Invalidate();
    }
}

void TCustomRadioGroup::ReadState(Classes::TReader& reader)
{
    {
        const CReading scope(mIsReading);
        TCustomGroupBox::ReadState(reader);
    }
    UpdateButtons();
}

void TCustomRadioGroup::ItemsChanged(System::TObject*)
{
    if (mIsReading || IsDestroying()) {
        return;
    }
    mItemIndex = std::min(mItemIndex, mItems->getCount() - 1);
    UpdateButtons();
}

void TCustomRadioGroup::SetButtonCount(std::size_t count)
{
    while (mButtons.size() > count) {
        delete mButtons.back();
    }
    while (mButtons.size() < count) {
        mButtons.push_back(new TGroupButton(*this));
    }
}

void TCustomRadioGroup::UpdateButtons()
{
    SetButtonCount(static_cast<std::size_t>(mItems->getCount()));
    for (std::size_t i = 0; i < mButtons.size(); ++i) {
        mButtons[i]->setCaption(mItems->At(static_cast<int>(i)));
    }
    mItemIndex = std::clamp(mItemIndex, -1, static_cast<int>(mButtons.size()) - 1);
    if (mItemIndex >= 0) {
        mButtons[static_cast<std::size_t>(mItemIndex)]->CheckSilently();
    }
    ArrangeButtons();
    Invalidate();
}

void TCustomRadioGroup::ArrangeButtons()
{
    if (mButtons.empty() || mIsReading) {
        return;
    }
    const int count = static_cast<int>(mButtons.size());
    const int perColumn = (count + mColumns - 1) / mColumns;
    const int width = std::max(getWidth() - 10, 0) / mColumns;
    const int textHeight = getCanvas()->TextHeight(u"0");
    const int room = std::max(getHeight() - textHeight - 5, 0);
    const int height = room / perColumn;
    const int top = textHeight + 1 + room % perColumn / 2;
    for (int i = 0; i < count; ++i) {
        int left = i / perColumn * width + 8;
        if (UseRightToLeftAlignment()) {
            left = getClientWidth() - left - width;
        }
        TGroupButton* const button = mButtons[static_cast<std::size_t>(i)];
        button->setBiDiMode(getBiDiMode());
        button->SetBounds(left, i % perColumn * height + top, width, height);
    }
}

void TCustomRadioGroup::ButtonClicked(TGroupButton* button)
{
    mItemIndex = static_cast<int>(std::ranges::find(mButtons, button) - mButtons.begin());
    Click();
}

void TCustomRadioGroup::Forget(TGroupButton* button)
{
    std::erase(mButtons, button);
}

void TCustomRadioGroup::EnableButtons()
{
    for (TGroupButton* button : mButtons) {
        button->setEnabled(getEnabled());
    }
}

void TCustomRadioGroup::Dispatch(void* record)
{
    const unsigned number = static_cast<Messages::TMessage*>(record)->Msg;
    const TComponentWatch watch(this);
    TCustomGroupBox::Dispatch(record);
    if (!watch.IsAlive() || IsDestroying()) {
        return;
    }
    switch (number) {
    case CM_ENABLEDCHANGED:
        return EnableButtons();
    case CM_FONTCHANGED:
    case CM_BIDIMODECHANGED:
    case WM_SIZE:
        return ArrangeButtons();
    default:
        return;
    }
}

void TCustomRadioGroup::Loaded()
{
    TCustomGroupBox::Loaded();
    ArrangeButtons();
}

bool TCustomRadioGroup::CanFocus() const
{
    return !mButtons.empty() && TCustomGroupBox::CanFocus();
}

void TCustomRadioGroup::SetFocus()
{
    if (mButtons.empty()) {
        TCustomGroupBox::SetFocus();
        return;
    }
    getButtons(std::max(mItemIndex, 0))->SetFocus();
}

System::TMetaClass* TRadioGroup::ClassRecord()
{
    using T = TRadioGroup;
    static System::TMetaClass* const record =
        Controls::PublishFocus(Controls::PublishControl(System::GClassBuilder<T>(u"TRadioGroup")), false)
            .Property(u"Caption", &T::getCaption, &T::setCaption)
            .Property(u"Columns", &T::getColumns, &T::setColumns, {.defaultValue = 1})
            .Property(u"Ctl3D", &T::getCtl3D, &T::setCtl3D)
            .Property(u"ItemIndex", &T::getItemIndex, &T::setItemIndex, {.defaultValue = -1})
            .Property(u"Items", &T::getItems, &T::setItems)
            .Property(u"ParentCtl3D", &T::getParentCtl3D, &T::setParentCtl3D, {.defaultValue = 1})
            .Build();
    return record;
}

TRadioGroup::~TRadioGroup() = default;

} // namespace Extctrls
