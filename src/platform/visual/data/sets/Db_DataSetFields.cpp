// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/visual/data/sets/Db_DataSet.h"
#include "platform/visual/data/sets/Db_FieldTypes.h"
#include "platform/visual/data/sets/internal/Db_StateScope.h"

#include <algorithm>

namespace Db
{

using System::UnicodeString;
using System::Variant;

namespace
{

/// Never given twice, so that a set at the place of one that is gone isn't taken for it.
System::Int64 NextFieldsVersion() noexcept
{
    static System::Int64 version = 0;
    return ++version;
}

} // namespace

TField* TDataSet::getFields(int index) const
{
    if (index < 0 || index >= getFieldCount()) {
        throw Classes::EListError(u"There is no field " + UnicodeString(index) + u".");
    }
    return mFields[static_cast<std::size_t>(index)];
}

TField* TDataSet::FindField(const UnicodeString& name) const
{
    const auto found = std::find_if(mFields.begin(), mFields.end(), [&](const TField* field) {
        return Sysutils::AnsiSameText(field->getFieldName(), name);
    });
    return found == mFields.end() ? nullptr : *found;
}

TField* TDataSet::FieldByName(const UnicodeString& name) const
{
    TField* const field = FindField(name);
    if (field == nullptr) {
        RaiseError(u"There is no field \"" + name + u"\".");
    }
    return field;
}

std::vector<TField*> TDataSet::GetFieldList(const UnicodeString& names) const
{
    std::vector<TField*> fields;
    UnicodeString rest = names;
    while (!rest.IsEmpty()) {
        const int separator = rest.Pos(u';');
        const UnicodeString name = separator == 0 ? rest : rest.SubString(1, separator - 1);
        rest = separator == 0 ? UnicodeString() : rest.SubString(separator + 1);
        fields.push_back(FieldByName(Sysutils::Trim(name)));
    }
    return fields;
}

Variant TDataSet::getFieldValues(const UnicodeString& name) const
{
    return FieldByName(name)->getValue();
}

void TDataSet::setFieldValues(const UnicodeString& name, const Variant& value)
{
    FieldByName(name)->setValue(value);
}

void TDataSet::AttachField(TField& field)
{
    field.mDataSet = this;
    mFields.push_back(&field);
    mFieldsVersion = NextFieldsVersion();
}

void TDataSet::DetachField(TField& field) noexcept
{
    std::erase(mFields, &field);
    field.mDataSet = nullptr;
    mFieldsVersion = NextFieldsVersion();
    if (!getActive()) {
        return;
    }
    // A field that is destroyed while its set is open leaves controls without it; nobody can refuse that.
    try {
        Notify(deLayoutChange);
    } catch (...) {
    }
}

int TDataSet::IndexOfField(const TField& field) const noexcept
{
    return static_cast<int>(std::find(mFields.begin(), mFields.end(), &field) - mFields.begin());
}

void TDataSet::MoveField(TField& field, int index)
{
    std::erase(mFields, &field);
    mFields.insert(mFields.begin() + std::clamp(index, 0, getFieldCount()), &field);
    if (getActive()) {
        Notify(deLayoutChange);
    }
}

void TDataSet::BindField(TField& field)
{
    field.mColumn = field.mSlot = -1;
    if (field.getCalculated()) {
        field.mSlot = mCalculatedCount++;
        return;
    }
    field.mColumn = mFieldDefs->IndexOf(field.getFieldName());
    if (field.mColumn < 0) {
        RaiseError(u"There is no column \"" + field.getFieldName() + u"\" for the field of that name.");
    }
    const TFieldDef& def = *mFieldDefs->getItems(field.mColumn);
    if (!field.Accepts(def.getDataType())) {
        const auto nameOf = [](TFieldType type) {
            return Typinfo::GetEnumName(Typinfo::TypeInfoOf<TFieldType>(), type);
        };
        RaiseError(u"Field \"" + field.getFieldName() + u"\" is of the type " + nameOf(field.getDataType()) +
                   u", but its column of " + nameOf(def.getDataType()) + u".");
    }
    if (field.mSize == 0) {
        field.mSize = def.getSize();
    }
}

void TDataSet::AddDefaultFields()
{
    for (int i = 0; i < mFieldDefs->GetCount(); ++i) {
        const TFieldDef& def = *mFieldDefs->getItems(i);
        TField* const field = NewField(def.getDataType(), this);
        if (field == nullptr) {
            continue;
        }
        field->mIsDefault = true;
        field->mFieldName = def.getName();
        field->mRequired = def.getRequired();
        AttachField(*field);
    }
}

void TDataSet::BindFields()
{
    mCalculatedCount = 0;
    const bool hasColumns = std::any_of(mFields.begin(), mFields.end(),
                                        [](const TField* field) { return !field->getCalculated(); });
    if (!hasColumns) {
        AddDefaultFields();
    }
    for (auto* const field : mFields) {
        BindField(*field);
    }
}

void TDataSet::ReleaseFields() noexcept
{
    const auto fields = mFields;
    for (auto* const field : fields) {
        field->mColumn = field->mSlot = -1;
        if (field->mIsDefault) {
            delete field;
        }
    }
    mFieldsVersion = NextFieldsVersion();
}

void TDataSet::Calculate(const std::shared_ptr<TRecord>& record)
{
    record->isCalculated = true;
    record->calculated.assign(static_cast<std::size_t>(mCalculatedCount), Variant::Null());
    if (OnCalcFields) {
        const CStateScope scope(*this, dsCalcFields, record);
        OnCalcFields(this);
        scope.CheckAlive();
    }
}

Variant TDataSet::ValueIn(const std::shared_ptr<TRecord>& record, const TField& field)
{
    const auto valueAt = [](const std::vector<Variant>& values, int index) {
        const bool isThere = index >= 0 && static_cast<std::size_t>(index) < values.size();
        const Variant value = isThere ? values[static_cast<std::size_t>(index)] : Variant::Null();
        return value.IsEmpty() ? Variant::Null() : value;
    };
    if (record == nullptr) {
        return Variant::Null();
    }
    if (!field.getCalculated()) {
        return valueAt(record->values, field.mColumn);
    }
    const int slot = field.mSlot;
    if (!record->isCalculated && getActive()) {
        Calculate(record);
    }
    return valueAt(record->calculated, slot);
}

Variant TDataSet::ReadValue(const TField& field)
{
    return mState == dsInactive ? Variant::Null() : ValueIn(RecordToRead(), field);
}

Variant TDataSet::ReadOldValue(const TField& field)
{
    return mState == dsEdit     ? ValueIn(mBefore, field)
           : mState == dsInsert ? Variant::Null()
                                : ReadValue(field);
}

void TDataSet::CheckSettable(const TField& field) const
{
    const bool isCalculating = mState == dsCalcFields;
    if (!isCalculating && !IsEditState(mState)) {
        RaiseError(u"Field \"" + field.getDisplayName() + u"\" can't be set: the record isn't being edited.");
    }
    if (isCalculating != field.getCalculated()) {
        RaiseError(u"Field \"" + field.getDisplayName() +
                   u"\" can't be set: only calculated ones are, and only " + u"while they are calculated.");
    }
    if (field.getReadOnly() && mState != dsSetKey && !isCalculating) {
        RaiseError(u"Field \"" + field.getDisplayName() + u"\" is read-only.");
    }
}

void TDataSet::WriteValue(TField& field, const Variant& value)
{
    if (mState == dsCalcFields) {
        mInspected->calculated[static_cast<std::size_t>(field.mSlot)] = value;
        return;
    }
    const Classes::TComponentWatch watch(this);
    const Classes::TComponentWatch fieldWatch(&field);
    const auto buffer = mBuffer;
    field.Validate(value);
    // Only what is still being edited takes it.
    if (!watch.IsAlive() || !fieldWatch.IsAlive() || mBuffer != buffer || field.mColumn < 0) {
        return;
    }
    buffer->values[static_cast<std::size_t>(field.mColumn)] = value;
    buffer->isCalculated = false;
    mModified = true;
    if (field.OnChange) {
        field.OnChange(&field);
    }
    if (watch.IsAlive() && fieldWatch.IsAlive() && mBuffer == buffer) {
        Notify(deFieldChange, &field);
    }
}

} // namespace Db
