// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/variants/System_Variant.h"
#include "platform/visual/controls/Controls_Types.h"
#include "platform/visual/data/sets/Db_Types.h"

namespace Db
{

/// A column of a data set, and its value in the record at hand. Those that a form's design has stand on their
/// own and say which columns the set shows; where there are none, the set makes them when it opens and
/// destroys them when it closes.
///
/// A value that can't be had as the type that is asked for, or can't be set, raises `EDatabaseError` with the
/// name of the field, and then nothing is changed.
///
///     Db::TField* const voltage = dataSet->FieldByName(u"Voltage");
///     dataSet->Edit();
///     voltage->setAsFloat(12.5);
///     dataSet->Post();
///     label->setCaption(voltage->getDisplayText());
class TRS8_BTL_API TField : public Classes::TComponent
{
    TRS8_BTL_CLASS(TField, Classes::TComponent)

public:
    explicit TField(Classes::TComponent* owner = nullptr) : TField(owner, ftUnknown) {}
    ~TField() override;

    /// The name of the column.
    const System::UnicodeString& getFieldName() const noexcept { return mFieldName; }
    /// `EDatabaseError` while the set is open.
    void setFieldName(const System::UnicodeString& name);
    /// The set that has the field; null at first.
    TDataSet* getDataSet() const noexcept { return mDataSet; }
    /// `EDatabaseError` if the old or the new one is open.
    void setDataSet(TDataSet* dataSet);
    TFieldType getDataType() const noexcept { return mDataType; }
    /// `fkData` at first; `EDatabaseError` for a change while the set is open.
    TFieldKind getFieldKind() const noexcept { return mFieldKind; }
    void setFieldKind(TFieldKind kind);
    /// The place among the set's fields; -1 without a set.
    int getIndex() const;
    /// The number is held within their count.
    void setIndex(int index);
    /// The number of the column in the records, from 1; 0 for a field that is in none, or while closed.
    int getFieldNo() const noexcept { return mColumn + 1; }
    /// The most characters of a text, 0 for any number.
    int getSize() const noexcept { return mSize; }
    void setSize(int size) noexcept { mSize = size; }

    // The value in the record at hand. Without one, or without a value in it, it is Null, 0 or empty.

    System::Variant getValue() const;
    /// Null and Empty take the value away. What the field doesn't take, and a set that isn't edited, raise
    /// `EDatabaseError`.
    void setValue(const System::Variant& value);
    System::UnicodeString getAsString() const { return GetAsString(); }
    void setAsString(const System::UnicodeString& text) { setValue(text); }
    System::UnicodeString getAsWideString() const { return GetAsString(); }
    void setAsWideString(const System::UnicodeString& text) { setValue(text); }
    int getAsInteger() const;
    void setAsInteger(int value) { setValue(value); }
    System::Int64 getAsLargeInt() const;
    void setAsLargeInt(System::Int64 value) { setValue(value); }
    double getAsFloat() const;
    void setAsFloat(double value) { setValue(value); }
    System::Currency getAsCurrency() const;
    void setAsCurrency(System::Currency value) { setValue(value); }
    bool getAsBoolean() const;
    void setAsBoolean(bool value) { setValue(value); }
    System::TDateTime getAsDateTime() const;
    void setAsDateTime(System::TDateTime value) { setValue(value); }
    bool getIsNull() const;
    /// Takes the value away.
    void Clear() { setValue(System::Variant::Null()); }
    /// The value before the record was edited.
    System::Variant getOldValue() const;

    /// The text that a control lets the user edit. Setting it takes what the user typed.
    System::UnicodeString getText() const { return TextOf(false); }
    void setText(const System::UnicodeString& text);
    /// The text that a control shows.
    System::UnicodeString getDisplayText() const { return TextOf(true); }
    /// Whether the character may be a part of a text that the field takes.
    virtual bool IsValidChar(System::WideChar character) const;

    // How it is shown and changed.

    /// The mask by which controls have it edited; empty for none.
    const System::UnicodeString& getEditMask() const noexcept { return mEditMask; }
    void setEditMask(const System::UnicodeString& mask);
    /// What a heading calls it; the name of the column unless it is set.
    const System::UnicodeString& getDisplayLabel() const noexcept
    {
        return mDisplayLabel.IsEmpty() ? mFieldName : mDisplayLabel;
    }
    void setDisplayLabel(const System::UnicodeString& label);
    /// As `getDisplayLabel`.
    const System::UnicodeString& getDisplayName() const noexcept { return getDisplayLabel(); }
    /// In characters; by the type and the size unless it is set. Below 1, it is by these again.
    int getDisplayWidth() const { return mDisplayWidth > 0 ? mDisplayWidth : GetDefaultWidth(); }
    void setDisplayWidth(int width);
    Classes::TAlignment getAlignment() const noexcept { return mAlignment; }
    void setAlignment(Classes::TAlignment alignment);
    /// Whether grids show it; on at first.
    bool getVisible() const noexcept { return mVisible; }
    void setVisible(bool isVisible);
    /// Whether it can't be changed; off at first.
    bool getReadOnly() const noexcept { return mReadOnly; }
    void setReadOnly(bool isReadOnly);
    /// Whether a record without a value in it can't be posted; off at first.
    bool getRequired() const noexcept { return mRequired; }
    void setRequired(bool isRequired) noexcept { mRequired = isRequired; }
    /// Whether its set lets it be changed, if it is edited.
    bool getCanModify() const;
    /// Whether it is calculated.
    bool getCalculated() const noexcept { return mFieldKind == fkCalculated; }
    bool getIsBlob() const noexcept { return mDataType >= ftBlob; }

    bool HasParent() const override { return mDataSet != nullptr; }
    Classes::TComponent* GetParentComponent() const override;

    /// The value was changed, before controls are told.
    TFieldNotifyEvent OnChange;
    /// Raises for a value, which the field has already then, that it mustn't take.
    TFieldNotifyEvent OnValidate;
    TFieldGetTextEvent OnGetText;
    TFieldSetTextEvent OnSetText;

protected:
    TField(Classes::TComponent* owner, TFieldType type);

    /// `value`, which is neither Null nor Empty, as the field stores it; Null for a text that says so.
    virtual System::Variant ToStored(const System::Variant& value) const;
    virtual System::UnicodeString GetAsString() const;
    /// The text of a value that isn't Null, to show or to edit.
    virtual System::UnicodeString GetText(bool displayText) const;
    virtual int GetDefaultWidth() const { return 10; }
    /// Whether the column of a store can be shown as this field.
    virtual bool Accepts(TFieldType type) const { return type == mDataType; }

    void SetParentComponent(Classes::TComponent* parent) override;
    /// Controls have to show it anew.
    void PropertyChanged(bool layoutAffected);
    void CheckInactive() const;
    [[noreturn]] void RaiseBadValue(const System::Variant& value, const char16_t* kind) const;

private:
    friend class TDataSet;

    template <class T>
    T Read(const char16_t* kind) const;
    System::UnicodeString TextOf(bool displayText) const;
    void Validate(const System::Variant& value);

    System::UnicodeString mFieldName;
    System::UnicodeString mDisplayLabel;
    System::UnicodeString mEditMask;
    TDataSet* mDataSet = nullptr;
    /// The value that is being validated.
    const System::Variant* mCandidate = nullptr;
    TFieldType mDataType;
    TFieldKind mFieldKind = fkData;
    Classes::TAlignment mAlignment = Classes::taLeftJustify;
    /// The place of the value in records, or among the calculated ones; -1 while closed.
    int mColumn = -1;
    int mSlot = -1;
    int mSize = 0;
    int mDisplayWidth = 0;
    bool mVisible = true;
    bool mReadOnly = false;
    bool mRequired = false;
    /// The set made it when it opened.
    bool mIsDefault = false;
};

} // namespace Db
