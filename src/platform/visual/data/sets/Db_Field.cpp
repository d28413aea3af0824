// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_Field.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/data/sets/Db_DataSet.h"

namespace Db
{

using System::UnicodeString;
using System::Variant;

System::TMetaClass* TField::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TField>(u"TField")
            .Property(u"Alignment", &TField::getAlignment, &TField::setAlignment)
            .Property(
                u"DisplayLabel", [](const TField& field) { return field.mDisplayLabel; },
                &TField::setDisplayLabel)
            .Property(u"DisplayWidth", [](const TField& field) { return field.mDisplayWidth; },
                      &TField::setDisplayWidth, {.defaultValue = 0})
            .Property(u"EditMask", &TField::getEditMask, &TField::setEditMask)
            .Property(u"FieldKind", &TField::getFieldKind, &TField::setFieldKind, {.defaultValue = fkData})
            .Property(u"FieldName", &TField::getFieldName, &TField::setFieldName)
            .Property(u"ReadOnly", &TField::getReadOnly, &TField::setReadOnly, {.defaultValue = 0})
            .Property(u"Required", &TField::getRequired, &TField::setRequired, {.defaultValue = 0})
            .Property(u"Size", &TField::getSize, &TField::setSize, {.defaultValue = 0})
            .Property(u"Visible", &TField::getVisible, &TField::setVisible, {.defaultValue = 1})
            .Property(u"OnChange", &TField::OnChange)
            .Property(u"OnGetText", &TField::OnGetText)
            .Property(u"OnSetText", &TField::OnSetText)
            .Property(u"OnValidate", &TField::OnValidate)
            .Build();
    return record;
}

TField::TField(Classes::TComponent* owner, TFieldType type) : Classes::TComponent(owner), mDataType(type)
{
    const bool isNumber = type == ftInteger || type == ftLargeint || type == ftFloat;
    mAlignment = isNumber ? Classes::taRightJustify : Classes::taLeftJustify;
}

TField::~TField()
{
    if (mDataSet != nullptr) {
        mDataSet->DetachField(*this);
    }
}

void TField::CheckInactive() const
{
    if (mDataSet != nullptr && mDataSet->getActive()) {
        throw EDatabaseError(u"Field \"" + mFieldName +
                             u"\" can't be changed so while its data set is open.");
    }
}

void TField::setFieldName(const UnicodeString& name)
{
    CheckInactive();
    mFieldName = name;
}

void TField::setDataSet(TDataSet* dataSet)
{
    if (dataSet == mDataSet) {
        return;
    }
    CheckInactive();
    if (dataSet != nullptr && dataSet->getActive()) {
        throw EDatabaseError(u"Field \"" + mFieldName + u"\" can't be added to a data set that is open.");
    }
    if (mDataSet != nullptr) {
        mDataSet->DetachField(*this);
    }
    if (dataSet != nullptr) {
        dataSet->AttachField(*this);
    }
}

void TField::setFieldKind(TFieldKind kind)
{
    if (kind != mFieldKind) {
        CheckInactive();
        mFieldKind = kind;
    }
}

int TField::getIndex() const
{
    return mDataSet == nullptr ? -1 : mDataSet->IndexOfField(*this);
}

void TField::setIndex(int index)
{
    if (mDataSet != nullptr) {
        mDataSet->MoveField(*this, index);
    }
}

Variant TField::getValue() const
{
    if (mCandidate != nullptr) {
        return *mCandidate;
    }
    return mDataSet == nullptr ? Variant::Null() : mDataSet->ReadValue(*this);
}

void TField::setValue(const Variant& value)
{
    if (mDataSet == nullptr) {
        throw EDatabaseError(u"Field \"" + mFieldName + u"\" has no data set.");
    }
    mDataSet->CheckSettable(*this);
    mDataSet->WriteValue(*this, value.IsNull() || value.IsEmpty() ? Variant::Null() : ToStored(value));
}

Variant TField::getOldValue() const
{
    return mDataSet == nullptr ? Variant::Null() : mDataSet->ReadOldValue(*this);
}

void TField::Validate(const Variant& value)
{
    if (!OnValidate) {
        return;
    }
    const Classes::TComponentWatch watch(this);
    const Variant* const outer = std::exchange(mCandidate, &value);
    const auto restore = [&] {
        if (watch.IsAlive()) {
            mCandidate = outer;
        }
    };
    try {
        OnValidate(this);
    } catch (...) {
        restore();
        throw;
    }
    restore();
}

bool TField::getIsNull() const
{
    const Variant value = getValue();
    return value.IsNull() || value.IsEmpty();
}

void TField::RaiseBadValue(const Variant& value, const char16_t* kind) const
{
    // A text of any length is no message.
    const UnicodeString text =
        value.IsArray() ? UnicodeString(u"(binary data)") : value.As<UnicodeString>().SubString(1, 100);
    throw EDatabaseError(u"\"" + text + u"\" is no " + kind + u" for field \"" + getDisplayName() + u"\".");
}

template <class T>
T TField::Read(const char16_t* kind) const
{
    const Variant value = getValue();
    if (value.IsNull()) {
        return T();
    }
    try {
        return value.As<T>();
    } catch (const Sysutils::EVariantError&) {
        RaiseBadValue(value, kind);
    }
}

UnicodeString TField::GetAsString() const
{
    return Read<UnicodeString>(u"text");
}

int TField::getAsInteger() const
{
    return Read<int>(u"integer");
}

System::Int64 TField::getAsLargeInt() const
{
    return Read<System::Int64>(u"integer");
}

double TField::getAsFloat() const
{
    return Read<double>(u"number");
}

System::Currency TField::getAsCurrency() const
{
    return Read<System::Currency>(u"amount");
}

bool TField::getAsBoolean() const
{
    return Read<bool>(u"boolean");
}

System::TDateTime TField::getAsDateTime() const
{
    return Read<System::TDateTime>(u"date and time");
}

Variant TField::ToStored(const Variant& value) const
{
    return value;
}

UnicodeString TField::GetText(bool) const
{
    return GetAsString();
}

UnicodeString TField::TextOf(bool displayText) const
{
    UnicodeString text = getIsNull() ? UnicodeString() : GetText(displayText);
    if (OnGetText) {
        OnGetText(const_cast<TField*>(this), text, displayText);
    }
    return text;
}

void TField::setText(const UnicodeString& text)
{
    if (OnSetText) {
        OnSetText(this, text);
    } else {
        setAsString(text);
    }
}

bool TField::IsValidChar(System::WideChar) const
{
    return true;
}

void TField::PropertyChanged(bool layoutAffected)
{
    if (mDataSet != nullptr && mDataSet->getActive()) {
        mDataSet->Notify(layoutAffected ? deLayoutChange : deDataSetChange);
    }
}

void TField::setEditMask(const UnicodeString& mask)
{
    mEditMask = mask;
    PropertyChanged(false);
}

void TField::setDisplayLabel(const UnicodeString& label)
{
    mDisplayLabel = label;
    PropertyChanged(true);
}

void TField::setDisplayWidth(int width)
{
    mDisplayWidth = std::max(width, 0);
    PropertyChanged(true);
}

void TField::setAlignment(Classes::TAlignment alignment)
{
    mAlignment = alignment;
    PropertyChanged(false);
}

void TField::setVisible(bool isVisible)
{
    mVisible = isVisible;
    PropertyChanged(true);
}

void TField::setReadOnly(bool isReadOnly)
{
    mReadOnly = isReadOnly;
    PropertyChanged(false);
}

bool TField::getCanModify() const
{
    return mDataSet != nullptr && mDataSet->getCanModify() && !mReadOnly && mFieldKind == fkData;
}

Classes::TComponent* TField::GetParentComponent() const
{
    return mDataSet;
}

void TField::SetParentComponent(Classes::TComponent* parent)
{
    setDataSet(dynamic_cast<TDataSet*>(parent));
}

} // namespace Db
