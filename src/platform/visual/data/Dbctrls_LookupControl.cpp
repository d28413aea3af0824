// SPDX-License-Identifier: MIT
#include "platform/visual/data/Dbctrls_LookupControl.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/data/internal/Dbctrls_ReadScope.h"
#include "platform/visual/data/sets/Db_Field.h"
#include "platform/visual/graphics/Graphics_Canvas.h"

#include <algorithm>
#include <limits>

namespace Dbctrls
{

using Classes::TComponentWatch;
using System::UnicodeString;
using System::Variant;

namespace
{

template <class T>
System::TMetaClass* MakeRecord(const char16_t* name)
{
    return Controls::PublishFocus(Controls::PublishColoredControl(System::GClassBuilder<T>(name)))
        .Property(u"DataField", &T::getDataField, &T::setDataField)
        .Property(u"DataSource", &T::getDataSource, &T::setDataSource)
        .Property(u"KeyField", &T::getKeyField, &T::setKeyField)
        .Property(u"ListField", &T::getListField, &T::setListField)
        .Property(u"ListSource", &T::getListSource, &T::setListSource)
        .Property(u"ReadOnly", &T::getReadOnly, &T::setReadOnly, {.defaultValue = 0})
        .Build();
}

} // namespace

/// Tells the control when the list is another one.
class TDBLookupControl::CListLink : public Db::TDataLink
{
public:
    explicit CListLink(TDBLookupControl& control) : mControl(control)
    {
        setBufferCount(std::numeric_limits<int>::max());
    }

protected:
    void ActiveChanged() override { mControl.ListChanged(); }
    void DataSetScrolled(int) override {}
    void RecordChanged(Db::TField*) override { mControl.ListChanged(); }

private:
    TDBLookupControl& mControl;
};

System::TMetaClass* TDBLookupControl::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TDBLookupControl>(u"TDBLookupControl").Build();
    return record;
}

System::TMetaClass* TDBLookupComboBox::ClassRecord()
{
    static System::TMetaClass* const record = MakeRecord<TDBLookupComboBox>(u"TDBLookupComboBox");
    return record;
}

System::TMetaClass* TDBLookupListBox::ClassRecord()
{
    static System::TMetaClass* const record = MakeRecord<TDBLookupListBox>(u"TDBLookupListBox");
    return record;
}

TDBLookupControl::TDBLookupControl(Classes::TComponent* owner)
    : TCustomControl(owner), mList(std::make_unique<CListLink>(*this))
{
    mLink.setControl(this);
    mLink.OnDataChange = {this, &TDBLookupControl::ShowField};
    setControlStyle({Controls::csCaptureMouse, Controls::csOpaque, Controls::csDoubleClicks});
    setColor(Graphics::clWindow);
    setTabStop(true);
}

TDBLookupControl::~TDBLookupControl()
{
    Destroying();
    mLink.OnDataChange = nullptr;
}

Db::TDataSource* TDBLookupControl::getListSource() const noexcept
{
    return mList->getDataSource();
}

void TDBLookupControl::setListSource(Db::TDataSource* source)
{
    mList->setDataSource(source);
}

void TDBLookupControl::setKeyField(const UnicodeString& name)
{
    mKeyField.setName(name);
    ListChanged();
}

void TDBLookupControl::setListField(const UnicodeString& name)
{
    mListField.setName(name);
    ListChanged();
}

// Its text is that of a record.
void TDBLookupControl::SetText(const UnicodeString&) {}

int TDBLookupControl::GetListCount() const noexcept
{
    return mList->getRecordCount();
}

Variant TDBLookupControl::GetListValue(const Db::CFieldReference& reference, int index) const
{
    if (index < 0 || index >= GetListCount()) {
        return Variant::Null();
    }
    const Db::TField* const field = reference.Find(mList->getDataSet());
    const CReadScope reading(*mList->getDataSet(), index);
    return field == nullptr ? Variant::Null() : field->getValue();
}

UnicodeString TDBLookupControl::GetListText(int index) const
{
    if (index < 0 || index >= GetListCount()) {
        return {};
    }
    const Db::CFieldReference& reference = mListField.getName().IsEmpty() ? mKeyField : mListField;
    const Db::TField* const field = reference.Find(mList->getDataSet());
    const CReadScope reading(*mList->getDataSet(), index);
    return field == nullptr ? UnicodeString() : field->getDisplayText();
}

int TDBLookupControl::FindKey(const Variant& key) const
{
    if (key.IsNull()) {
        return -1;
    }
    const int count = GetListCount();
    for (int i = 0; i < count; ++i) {
        const Variant value = GetListValue(mKeyField, i);
        if (!value.IsNull() && value == key) {
            return i;
        }
    }
    return -1;
}

void TDBLookupControl::ListChanged()
{
    mChosen = FindKey(mKeyValue);
    mShownText = GetListText(mChosen);
    ChosenChanged();
}

void TDBLookupControl::setKeyValue(const Variant& value)
{
    mKeyValue = value.IsEmpty() ? Variant::Null() : value;
    ListChanged();
}

void TDBLookupControl::ShowField(System::TObject*)
{
    const Db::TField* const field = mLink.getField();
    if (field != nullptr || !getDataField().IsEmpty()) {
        setKeyValue(field == nullptr ? Variant::Null() : field->getValue());
    }
}

bool TDBLookupControl::Choose(int index)
{
    if (index < 0 || index >= GetListCount()) {
        return false;
    }
    const TComponentWatch watch(this);
    const Variant key = GetListValue(mKeyField, index);
    if (!getDataField().IsEmpty()) {
        if (!mLink.Edit() || !watch.IsAlive()) {
            return false;
        }
        mLink.getField()->setValue(key);
    } else {
        setKeyValue(key);
    }
    if (watch.IsAlive()) {
        Click();
    }
    return true;
}

bool TDBLookupControl::WantsKey(System::Word key, Classes::TShiftState shift) const
{
    return key == VK_UP || key == VK_DOWN || TCustomControl::WantsKey(key, shift);
}

bool TDBLookupControl::ActOnKey(System::Word key, Classes::TShiftState shift)
{
    const int last = GetListCount() - 1;
    const auto from = [&](int distance) { return std::clamp(mChosen + distance, 0, std::max(last, 0)); };
    switch (key) {
    case VK_UP:
        return Choose(from(-1));
    case VK_DOWN:
        return Choose(from(1));
    case VK_PRIOR:
        return Choose(from(-PageSize()));
    case VK_NEXT:
        return Choose(from(PageSize()));
    case VK_HOME:
        return Choose(0);
    case VK_END:
        return Choose(last);
    default:
        return TCustomControl::ActOnKey(key, shift);
    }
}

int TDBLookupControl::IndexAt(int) const
{
    return -1;
}

void TDBLookupControl::MouseDown(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y)
{
    const TComponentWatch watch(this);
    if (button == Controls::mbLeft) {
        if (CanFocus()) {
            SetFocus();
        }
        if (watch.IsAlive()) {
            Choose(IndexAt(y));
        }
    }
    if (watch.IsAlive()) {
        TCustomControl::MouseDown(button, shift, x, y);
    }
}

int TDBLookupControl::LineHeight() const
{
    constexpr int Margin = 2;
    return Toolkits::CurrentToolkit().TextExtent(GetShownFont().getData(), u"Wg").cy + Margin;
}

void TDBLookupControl::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.getBrush()->setColor(getColor());
    canvas.TextRect(GetClientRect(), 2, 2, mShownText);
    canvas.getBrush()->setColor(Graphics::clBtnShadow);
    canvas.FrameRect(GetClientRect());
}

TDBLookupComboBox::TDBLookupComboBox(Classes::TComponent* owner) : TDBLookupControl(owner)
{
    SetBounds(getLeft(), getTop(), 145, 21);
}

TDBLookupComboBox::~TDBLookupComboBox() = default;

TDBLookupListBox::TDBLookupListBox(Classes::TComponent* owner) : TDBLookupControl(owner)
{
    SetBounds(getLeft(), getTop(), 121, 97);
}

TDBLookupListBox::~TDBLookupListBox() = default;

int TDBLookupListBox::getRowCount() const
{
    return std::max(getClientHeight() / std::max(LineHeight(), 1), 1);
}

int TDBLookupListBox::IndexAt(int y) const
{
    return y < 0 ? -1 : mFirst + y / std::max(LineHeight(), 1);
}

void TDBLookupListBox::ChosenChanged()
{
    const int chosen = GetChosenIndex();
    if (chosen >= 0) {
        mFirst = std::clamp(mFirst, std::max(chosen - getRowCount() + 1, 0), chosen);
    }
    mFirst = std::min(mFirst, std::max(GetListCount() - getRowCount(), 0));
    TDBLookupControl::ChosenChanged();
}

void TDBLookupListBox::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    const TComponentWatch watch(this);
    const int height = LineHeight();
    const int width = getClientWidth();
    canvas.getBrush()->setColor(getColor());
    canvas.FillRect(GetClientRect());
    for (int i = mFirst; i < GetListCount() && (i - mFirst) * height < getClientHeight(); ++i) {
        // The text of a field may come from a handler, which may do whatever it likes.
        const UnicodeString text = GetListText(i);
        if (!watch.IsAlive()) {
            return;
        }
        const bool isChosen = i == GetChosenIndex();
        canvas.getBrush()->setColor(isChosen ? Graphics::clHighlight : getColor());
        canvas.getFont()->setColor(isChosen ? Graphics::clHighlightText : GetShownFont().getColor());
        const int top = (i - mFirst) * height;
        canvas.TextRect({0, top, width, top + height}, 2, top + 1, text);
    }
    canvas.getBrush()->setColor(Graphics::clBtnShadow);
    canvas.FrameRect(GetClientRect());
}

} // namespace Dbctrls
