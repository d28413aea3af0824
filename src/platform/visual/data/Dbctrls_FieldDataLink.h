// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/data/sets/Db_DataSource.h"

namespace Controls
{
class TWinControl;
} // namespace Controls

namespace Dbctrls
{

/// What a control has to hear of one field. The sender of its events is the control.
///
///     mLink.setControl(this);
///     mLink.OnDataChange = {this, &TGauge::ShowValue};
///     mLink.setFieldName(u"Voltage");
class TRS8_BTL_API TFieldDataLink : public Db::TDataLink
{
public:
    TFieldDataLink() = default;
    ~TFieldDataLink() override;

    /// Not owned; null at first.
    Controls::TWinControl* getControl() const noexcept { return mControl; }
    void setControl(Controls::TWinControl* control) noexcept { mControl = control; }
    const System::UnicodeString& getFieldName() const noexcept { return mField.getName(); }
    void setFieldName(const System::UnicodeString& name);
    /// Null while the set is closed, and if it has no such field.
    Db::TField* getField() const { return getActive() ? mField.Find(getDataSet()) : nullptr; }
    /// Whether the user may change the field.
    bool getCanModify() const;
    /// As of any link, but only if the user may change the field.
    bool Edit();
    /// The user changed what the control holds, which is to go into the field later.
    void Modified() noexcept { mIsModified = true; }
    /// Whether what the control holds has still to go into the field.
    bool getIsModified() const noexcept { return mIsModified; }
    /// Has the control show the field's value again.
    void Reset() { RecordChanged(nullptr); }

    Classes::TNotifyEvent OnActiveChange;
    /// The control has to show the value anew.
    Classes::TNotifyEvent OnDataChange;
    Classes::TNotifyEvent OnEditingChange;
    /// What the control holds has to go into the field.
    Classes::TNotifyEvent OnUpdateData;

protected:
    void ActiveChanged() override;
    void EditingChanged() override;
    void RecordChanged(Db::TField* field) override;
    void UpdateData() override;

private:
    Db::CFieldReference mField;
    Controls::TWinControl* mControl = nullptr;
    bool mIsModified = false;
};

} // namespace Dbctrls
