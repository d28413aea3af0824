// SPDX-License-Identifier: MIT
#include "platform/visual/data/Dbctrls_DBEdit.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/data/sets/Db_Field.h"
#include "platform/visual/stdctrls/edits/Stdctrls_PublishEdit.h"

namespace Dbctrls
{

using System::UnicodeString;

System::TMetaClass* TDBEdit::ClassRecord()
{
    // Its text and mask are the field's, and so are in no design.
    static System::TMetaClass* const record =
        Stdctrls::PublishEdit(System::GClassBuilder<TDBEdit>(u"TDBEdit"))
            .Property(u"AutoSelect", &TDBEdit::getAutoSelect, &TDBEdit::setAutoSelect, {.defaultValue = 1})
            .Property(u"AutoSize", &TDBEdit::getAutoSize, &TDBEdit::setAutoSize, {.defaultValue = 1})
            .Property(u"CharCase", &TDBEdit::getCharCase, &TDBEdit::setCharCase,
                      {.defaultValue = Stdctrls::ecNormal})
            .Property(u"DataField", &TDBEdit::getDataField, &TDBEdit::setDataField)
            .Property(u"DataSource", &TDBEdit::getDataSource, &TDBEdit::setDataSource)
            .Property(u"PasswordChar", &TDBEdit::getPasswordChar, &TDBEdit::setPasswordChar,
                      {.defaultValue = 0})
            .Property(u"TextHint", &TDBEdit::getTextHint, &TDBEdit::setTextHint)
            .Build();
    return record;
}

TDBEdit::TDBEdit(Classes::TComponent* owner) : TCustomMaskEdit(owner)
{
    mLink.setControl(this);
    mLink.OnDataChange = {this, &TDBEdit::ShowField};
    mLink.OnUpdateData = {this, &TDBEdit::StoreText};
}

TDBEdit::~TDBEdit()
{
    mLink.OnDataChange = nullptr;
}

void TDBEdit::SetReadOnly(bool isOn)
{
    const Classes::TComponentWatch watch(this);
    TCustomMaskEdit::SetReadOnly(isOn);
    if (watch.IsAlive()) {
        mLink.setReadOnly(isOn);
    }
}

void TDBEdit::ShowField(System::TObject*)
{
    const Classes::TComponentWatch watch(this);
    const Db::TField* const field = mLink.getField();
    if (field == nullptr) {
        setEditMask(UnicodeString());
        if (watch.IsAlive()) {
            setText(IsDesigning() ? getName() : UnicodeString());
        }
    } else {
        const bool isToEdit =
            getIsMasked() || !field->getEditMask().IsEmpty() || (mIsEntered && mLink.getCanModify());
        const UnicodeString text = isToEdit ? field->getText() : field->getDisplayText();
        const UnicodeString mask = field->getEditMask();
        const bool isText = field->getDataType() == Db::ftString || field->getDataType() == Db::ftWideString;
        const int size = isText ? field->getSize() : 0;
        if (getMaxLength() == 0 || mHasFieldLength) {
            mHasFieldLength = size > 0;
            setMaxLength(size);
        }
        setAlignment(field->getAlignment());
        if (mask != getEditMask()) {
            setEditMask(mask);
        }
        if (watch.IsAlive()) {
            setText(text);
        }
    }
    if (watch.IsAlive()) {
        setModified(false);
    }
}

void TDBEdit::StoreText(System::TObject*)
{
    const Classes::TComponentWatch watch(this);
    ValidateEdit();
    Db::TField* const field = watch.IsAlive() ? mLink.getField() : nullptr;
    if (field == nullptr) {
        return;
    }
    field->setText(getText());
    if (watch.IsAlive()) {
        setModified(false);
    }
}

bool TDBEdit::EditCanModify()
{
    return mLink.Edit();
}

void TDBEdit::Change()
{
    mLink.Modified();
    TCustomMaskEdit::Change();
}

void TDBEdit::Reset()
{
    const Classes::TComponentWatch watch(this);
    mLink.Reset();
    if (watch.IsAlive()) {
        SelectAll();
    }
}

void TDBEdit::KeyPress(System::WideChar& key)
{
    constexpr System::WideChar Escape = 27;
    const Classes::TComponentWatch watch(this);
    TCustomMaskEdit::KeyPress(key);
    if (!watch.IsAlive()) {
        return;
    }
    const Db::TField* const field = mLink.getField();
    if (key == Escape) {
        key = 0;
        Reset();
    } else if (key >= u' ' && field != nullptr && !field->IsValidChar(key)) {
        key = 0;
    }
}

void TDBEdit::Enter()
{
    mIsEntered = true;
    if (mLink.getCanModify() && !mLink.getIsModified()) {
        ShowField(nullptr);
    }
}

void TDBEdit::Leave()
{
    const Classes::TComponentWatch watch(this);
    try {
        mLink.UpdateRecord();
    } catch (...) {
        if (watch.IsAlive() && CanFocus()) {
            SelectAll();
            SetFocus();
        }
        throw;
    }
    if (watch.IsAlive()) {
        mIsEntered = false;
        mLink.Reset();
    }
}

void TDBEdit::Dispatch(void* message)
{
    const unsigned number = static_cast<const Messages::TMessage*>(message)->Msg;
    const Classes::TComponentWatch watch(this);
    if (number == CM_ENTER) {
        Enter();
    } else if (number == CM_EXIT) {
        Leave();
    }
    if (watch.IsAlive()) {
        TCustomMaskEdit::Dispatch(message);
    }
}

} // namespace Dbctrls
