// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/typinfo/System_Closure.h"
#include "platform/runtime/typinfo/Typinfo.h"

namespace Db
{

class TDataSet;
class TField;

/// What a data set, its fields and its database can't do. The message names the field or the database, and
/// has the database's own words.
class TRS8_BTL_API EDatabaseError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EDatabaseError() override;
};

/// What a data set is about. It is closed, shows its records, changes one or a new one, or takes the values
/// of a search; the others stand while it calls for values of calculated fields, for its filter and while it
/// opens. Numbers that nothing here sets are there for those who know them.
enum TDataSetState
{
    dsInactive,
    dsBrowse,
    dsEdit,
    dsInsert,
    dsSetKey,
    dsCalcFields,
    dsFilter,
    dsNewValue,
    dsOldValue,
    dsCurValue,
    dsBlockRead,
    dsInternalCalc,
    dsOpening
};

/// Whether the field of a record can be changed in this state.
constexpr bool IsEditState(TDataSetState state) noexcept
{
    return state == dsEdit || state == dsInsert || state == dsSetKey;
}

/// The type of a field's values.
enum TFieldType
{
    ftUnknown,
    ftString,
    ftWideString,
    ftInteger,
    ftLargeint,
    ftFloat,
    ftBoolean,
    ftDate,
    ftTime,
    ftDateTime,
    ftBlob,
    ftMemo,
    ftWideMemo
};

/// Where a field's values come from: from the records, or from `TDataSet::OnCalcFields`.
enum TFieldKind
{
    fkData,
    fkCalculated
};

/// What a data set tells its data sources.
enum TDataEvent
{
    /// The value of a field changed, which may be null for several.
    deFieldChange,
    /// The current record has other values.
    deRecordChange,
    /// The records are others, or in another order.
    deDataSetChange,
    /// Another record is the current one.
    deDataSetScroll,
    /// The fields, or how they look, changed.
    deLayoutChange,
    /// What controls hold has to go into the fields.
    deUpdateRecord,
    deUpdateState,
    /// The record at hand has to be posted, before another one becomes the current one.
    deCheckBrowseMode
};

/// What is done about a failure.
enum TDataAction
{
    daFail,
    /// Ends quietly, by `Sysutils::EAbort`.
    daAbort,
    daRetry
};

/// How texts are compared in a search.
enum TLocateOption
{
    loCaseInsensitive,
    /// The begin of a text is enough.
    loPartialKey
};
/// All that holds for a search.
using TLocateOptions = System::Set<TLocateOption, loCaseInsensitive, loPartialKey>;

/// A record of a data set to come back to, valid until the record is deleted or the set is closed.
struct TBookmark
{
    System::Int64 key = 0;

    /// Whether it was ever taken of a record.
    explicit operator bool() const noexcept { return key != 0; }
    friend bool operator==(const TBookmark&, const TBookmark&) = default;
};

/// The closure of most events of data sets.
using TDataSetNotifyEvent = System::TClosure<void(TDataSet* dataSet)>;
/// What to do about a failure; `action` is `daFail` at first.
using TDataSetErrorEvent =
    System::TClosure<void(TDataSet* dataSet, const EDatabaseError& error, TDataAction& action)>;
/// Whether the current record is to be seen; it is at first.
using TFilterRecordEvent = System::TClosure<void(TDataSet* dataSet, bool& accept)>;
/// The closure of the events of fields.
using TFieldNotifyEvent = System::TClosure<void(TField* sender)>;
/// Gives the text to show for a value, or with `displayText` off the one to edit.
using TFieldGetTextEvent =
    System::TClosure<void(TField* sender, System::UnicodeString& text, bool displayText)>;
/// Sets the value by the text of a control.
using TFieldSetTextEvent = System::TClosure<void(TField* sender, const System::UnicodeString& text)>;

} // namespace Db

namespace Typinfo
{

// The enumerations of data sets, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Db::TFieldType>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Db::TFieldKind>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
