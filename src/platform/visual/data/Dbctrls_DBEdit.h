// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/data/Dbctrls_FieldDataLink.h"
#include "platform/visual/stdctrls/edits/Mask_MaskEdit.h"

namespace Dbctrls
{

/// An edit of a field in the record at hand. Typing has the record edited; the text goes into the field when
/// the control is left or the record is posted. While it has the focus it shows the field's text to edit,
/// otherwise the one to show. A text that the field doesn't take keeps the focus here.
///
///     auto* const edit = new Dbctrls::TDBEdit(form);
///     edit->setParent(form);
///     edit->setDataSource(source);
///     edit->setDataField(u"Voltage");
class TRS8_BTL_API TDBEdit : public Mask::TCustomMaskEdit
{
    TRS8_BTL_CLASS(TDBEdit, Mask::TCustomMaskEdit)

public:
    explicit TDBEdit(Classes::TComponent* owner = nullptr);
    ~TDBEdit() override;

    /// Not owned; null at first.
    Db::TDataSource* getDataSource() const noexcept { return mLink.getDataSource(); }
    void setDataSource(Db::TDataSource* dataSource) { mLink.setDataSource(dataSource); }
    const System::UnicodeString& getDataField() const noexcept { return mLink.getFieldName(); }
    void setDataField(const System::UnicodeString& name) { mLink.setFieldName(name); }
    /// Null while the set is closed, and if it has no such field.
    Db::TField* getField() const { return mLink.getField(); }
    /// Shows the field's value again.
    void Reset() override;
    void SetReadOnly(bool isOn) override;
    void Dispatch(void* message) override;

protected:
    /// Has the record edited, if that can be.
    bool EditCanModify() override;
    void Change() override;
    void KeyPress(System::WideChar& key) override;

private:
    void ShowField(System::TObject* sender);
    void StoreText(System::TObject* sender);
    void Enter();
    void Leave();

    TFieldDataLink mLink;
    bool mIsEntered = false;
    /// Whether the most characters are the field's, and not set by hand.
    bool mHasFieldLength = false;
};

} // namespace Dbctrls
