// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/visual/data/sets/Db_Types.h"

namespace Db
{

/// A column of a data set as its store has it.
class TRS8_BTL_API TFieldDef : public Classes::TCollectionItem
{
    TRS8_BTL_CLASS(TFieldDef, Classes::TCollectionItem)

public:
    using TCollectionItem::TCollectionItem;
    ~TFieldDef() override;

    const System::UnicodeString& getName() const noexcept { return mName; }
    void setName(const System::UnicodeString& name) { mName = name; }
    /// `ftUnknown` at first.
    TFieldType getDataType() const noexcept { return mDataType; }
    void setDataType(TFieldType type) noexcept { mDataType = type; }
    /// The most characters of a text; 0, as at first, for any number.
    int getSize() const noexcept { return mSize; }
    void setSize(int size) noexcept { mSize = size; }
    /// Whether a record can't be without a value in it; off at first.
    bool getRequired() const noexcept { return mRequired; }
    void setRequired(bool isRequired) noexcept { mRequired = isRequired; }

    void Assign(Classes::TPersistent* source) override;
    System::UnicodeString GetDisplayName() const override { return mName; }

private:
    System::UnicodeString mName;
    TFieldType mDataType = ftUnknown;
    int mSize = 0;
    bool mRequired = false;
};

/// The columns of a data set.
///
///     auto* const defs = dataSet->getFieldDefs();
///     defs->Add(u"Time", Db::ftDateTime);
///     defs->Add(u"Channel", Db::ftWideString, 20);
///     defs->Add(u"Voltage", Db::ftFloat);
class TRS8_BTL_API TFieldDefs : public Classes::TOwnedCollection
{
    TRS8_BTL_CLASS(TFieldDefs, Classes::TOwnedCollection)

public:
    explicit TFieldDefs(Classes::TPersistent* owner);
    ~TFieldDefs() override;

    /// The column at the 0-based index; `Classes::EListError` for one out of range.
    TFieldDef* getItems(int index) const;
    /// `EDatabaseError` if there is a column of that name, case aside, or the name is empty.
    TFieldDef* Add(const System::UnicodeString& name, TFieldType type, int size = 0, bool required = false);
    /// The index of the column of that name, case aside; -1 if there is none.
    int IndexOf(const System::UnicodeString& name) const;
};

} // namespace Db
