// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"
#include "platform/visual/controls/Controls_CustomControl.h"
#include "platform/visual/data/Dbctrls_FieldDataLink.h"

namespace Dbctrls
{

/// Base of the controls that let the user choose a record of one data set, the list, and hold its key: in a
/// field of the record at hand of another one, or for themselves if no field is named.
///
///     auto* const box = new Dbctrls::TDBLookupComboBox(form);
///     box->setListSource(channels);                               // shows the names of the channels
///     box->setKeyField(u"Number");
///     box->setListField(u"Name");
///     box->setKeyValue(3);
///     box->getText();                                             // "Anode"
class TRS8_BTL_API TDBLookupControl : public Controls::TCustomControl
{
    TRS8_BTL_CLASS(TDBLookupControl, Controls::TCustomControl)

public:
    explicit TDBLookupControl(Classes::TComponent* owner = nullptr);
    ~TDBLookupControl() override;

    // The field that takes the key; none needs to be named. Sources aren't owned, and null at first.

    Db::TDataSource* getDataSource() const noexcept { return mLink.getDataSource(); }
    void setDataSource(Db::TDataSource* dataSource) { mLink.setDataSource(dataSource); }
    const System::UnicodeString& getDataField() const noexcept { return mLink.getFieldName(); }
    void setDataField(const System::UnicodeString& name) { mLink.setFieldName(name); }
    Db::TField* getField() const { return mLink.getField(); }
    bool getReadOnly() const noexcept { return mLink.getReadOnly(); }
    void setReadOnly(bool isReadOnly) { mLink.setReadOnly(isReadOnly); }

    // The list: the field with the keys, and the one that is shown.

    Db::TDataSource* getListSource() const noexcept;
    void setListSource(Db::TDataSource* source);
    const System::UnicodeString& getKeyField() const noexcept { return mKeyField.getName(); }
    void setKeyField(const System::UnicodeString& name);
    /// The key field unless it is set.
    const System::UnicodeString& getListField() const noexcept { return mListField.getName(); }
    void setListField(const System::UnicodeString& name);

    /// The key of the record that is chosen; Null for none. Setting it shows that record, but leaves the
    /// field of the data source alone; a key that the list hasn't is kept, and shows no text.
    const System::Variant& getKeyValue() const noexcept { return mKeyValue; }
    void setKeyValue(const System::Variant& value);
    /// The place of the chosen record in the list, from 0; -1 if there is none.
    int GetChosenIndex() const noexcept { return mChosen; }
    /// How many records the list has; 0 while it is closed.
    int GetListCount() const noexcept;
    /// The text of a record of the list; empty out of range.
    System::UnicodeString GetListText(int index) const;
    /// As the user does it: puts the key into the field, or holds it, and calls `OnClick`. False out of
    /// range, and if the field can't be changed.
    bool Choose(int index);

    /// What is shown for the chosen record. It can't be set.
    System::UnicodeString GetText() const override { return mShownText; }
    void SetText(const System::UnicodeString& text) override;

protected:
    bool WantsKey(System::Word key, Classes::TShiftState shift) const override;
    bool ActOnKey(System::Word key, Classes::TShiftState shift) override;
    void MouseDown(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y) override;
    /// The record at a place of the client area; -1 for none.
    virtual int IndexAt(int y) const;
    /// How many records the arrow keys for pages pass over.
    virtual int PageSize() const { return 1; }
    /// Another record is chosen, or shown otherwise.
    virtual void ChosenChanged() { Invalidate(); }
    void Paint() override;
    /// The height of a record that is shown.
    int LineHeight() const;

private:
    class CListLink;

    void ListChanged();
    void ShowField(System::TObject* sender);
    System::Variant GetListValue(const Db::CFieldReference& reference, int index) const;
    int FindKey(const System::Variant& key) const;

    TFieldDataLink mLink;
    std::unique_ptr<CListLink> mList;
    Db::CFieldReference mKeyField;
    Db::CFieldReference mListField;
    System::Variant mKeyValue = System::Variant::Null();
    System::UnicodeString mShownText;
    int mChosen = -1;
};

/// Shows the record that is chosen; the arrow keys choose another one.
class TRS8_BTL_API TDBLookupComboBox : public TDBLookupControl
{
    TRS8_BTL_CLASS(TDBLookupComboBox, TDBLookupControl)

public:
    explicit TDBLookupComboBox(Classes::TComponent* owner = nullptr);
    ~TDBLookupComboBox() override;
};

/// Shows the records of the list from one on; a click or the arrow keys choose one.
class TRS8_BTL_API TDBLookupListBox : public TDBLookupControl
{
    TRS8_BTL_CLASS(TDBLookupListBox, TDBLookupControl)

public:
    explicit TDBLookupListBox(Classes::TComponent* owner = nullptr);
    ~TDBLookupListBox() override;

    /// How many records are seen whole; at least 1.
    int getRowCount() const;
    /// The text of the chosen record.
    System::UnicodeString getSelectedItem() const { return GetText(); }

protected:
    int IndexAt(int y) const override;
    int PageSize() const override { return getRowCount(); }
    /// Scrolls it to sight.
    void ChosenChanged() override;
    void Paint() override;

private:
    int mFirst = 0;
};

} // namespace Dbctrls
