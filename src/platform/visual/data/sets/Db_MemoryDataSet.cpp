// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_MemoryDataSet.h"

#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/data/sets/Db_Field.h"

#include <algorithm>

namespace Db
{

System::TMetaClass* TMemoryDataSet::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TMemoryDataSet>(u"TMemoryDataSet").Build();
    return record;
}

TMemoryDataSet::TMemoryDataSet(Classes::TComponent* owner) : TDataSet(owner) {}

TMemoryDataSet::~TMemoryDataSet()
{
    CloseForEnd();
}

void TMemoryDataSet::EmptyDataSet()
{
    if (!getActive()) {
        mKept.clear();
        return;
    }
    Cancel();
    if (getState() == dsBrowse) {
        mKept.clear();
        mColumns.clear();
        ReplaceRecords({});
    }
}

void TMemoryDataSet::DefineByFields()
{
    for (int i = 0; i < getFieldCount(); ++i) {
        const TField& field = *getFields(i);
        if (!field.getCalculated()) {
            getFieldDefs()->Add(field.getFieldName(), field.getDataType(), field.getSize());
        }
    }
}

void TMemoryDataSet::FitKeptRecords()
{
    std::vector<System::UnicodeString> columns;
    for (int i = 0; i < getFieldDefs()->GetCount(); ++i) {
        columns.push_back(getFieldDefs()->getItems(i)->getName());
    }
    if (columns == mColumns) {
        return;
    }
    std::vector<std::size_t> sources;
    std::transform(columns.begin(), columns.end(), std::back_inserter(sources), [&](const auto& name) {
        const auto isSame = [&](const auto& old) { return Sysutils::AnsiSameText(old, name); };
        return static_cast<std::size_t>(std::find_if(mColumns.begin(), mColumns.end(), isSame) -
                                        mColumns.begin());
    });
    for (const auto& record : mKept) {
        const auto old = std::exchange(record->values, std::vector<System::Variant>(columns.size()));
        std::transform(sources.begin(), sources.end(), record->values.begin(), [&](std::size_t source) {
            return source < old.size() ? old[source] : System::Variant();
        });
    }
    mColumns = std::move(columns);
}

void TMemoryDataSet::OpenStore()
{
    if (getFieldDefs()->empty()) {
        DefineByFields();
    }
    if (getFieldDefs()->empty()) {
        RaiseError(u"A data set without columns can't be opened.");
    }
    FitKeptRecords();
}

TRecords TMemoryDataSet::ReadStore()
{
    return getActive() ? GetRecords() : std::exchange(mKept, {});
}

void TMemoryDataSet::CloseStore(TRecords records) noexcept
{
    // A set that failed to open may not have taken them yet.
    if (mKept.empty()) {
        mKept = std::move(records);
    }
}

void TMemoryDataSet::InsertIntoStore(TRecord& record)
{
    record.key = ++mLastKey;
}

void TMemoryDataSet::UpdateInStore(TRecord&, const TRecord&) {}

void TMemoryDataSet::DeleteFromStore(const TRecord&) {}

} // namespace Db
