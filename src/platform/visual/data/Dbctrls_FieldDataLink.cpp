// SPDX-License-Identifier: MIT
#include "platform/visual/data/Dbctrls_FieldDataLink.h"

#include "platform/visual/controls/Controls_WinControl.h"
#include "platform/visual/data/sets/Db_Field.h"

namespace Dbctrls
{

TFieldDataLink::~TFieldDataLink() = default;

void TFieldDataLink::setFieldName(const System::UnicodeString& name)
{
    if (name != getFieldName()) {
        mField.setName(name);
        RecordChanged(nullptr);
    }
}

bool TFieldDataLink::getCanModify() const
{
    const Db::TField* const field = getField();
    return !getReadOnly() && field != nullptr && field->getCanModify();
}

bool TFieldDataLink::Edit()
{
    return getCanModify() && TDataLink::Edit();
}

void TFieldDataLink::ActiveChanged()
{
    const auto life = GetLife();
    if (OnActiveChange) {
        OnActiveChange(mControl);
    }
    if (!life.expired()) {
        RecordChanged(nullptr);
    }
}

void TFieldDataLink::EditingChanged()
{
    if (OnEditingChange) {
        OnEditingChange(mControl);
    }
}

void TFieldDataLink::RecordChanged(Db::TField* field)
{
    if (field != nullptr && field != getField()) {
        return;
    }
    const auto life = GetLife();
    if (OnDataChange) {
        OnDataChange(mControl);
    }
    if (!life.expired()) {
        mIsModified = false;
    }
}

void TFieldDataLink::UpdateData()
{
    if (!mIsModified) {
        return;
    }
    const auto life = GetLife();
    if (getField() != nullptr && OnUpdateData) {
        OnUpdateData(mControl);
    }
    if (!life.expired()) {
        mIsModified = false;
    }
}

} // namespace Dbctrls
