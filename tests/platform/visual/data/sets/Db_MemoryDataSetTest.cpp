// SPDX-License-Identifier: MIT
#include "platform/visual/data/sets/Db_MemoryDataSet.h"

#include "platform/runtime/variants/Variants.h"
#include "platform/visual/data/sets/Db_DataSource.h"
#include "platform/visual/data/sets/Db_FieldTypes.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using namespace Db;
using System::UnicodeString;
using System::Variant;

class MemoryDataSetTest : public testing::Test
{
protected:
    MemoryDataSetTest()
    {
        mSet->getFieldDefs()->Add(u"Channel", ftWideString, 10);
        mSet->getFieldDefs()->Add(u"Count", ftInteger);
        mSet->Open();
    }
    ~MemoryDataSetTest() override { delete mSet; }

    void Fill(std::initializer_list<const char16_t*> names)
    {
        int count = 0;
        for (const char16_t* name : names) {
            const Variant values[] = {name, ++count};
            mSet->AppendRecord(values);
        }
        mSet->First();
    }
    UnicodeString Names()
    {
        UnicodeString names;
        for (mSet->First(); !mSet->getEof(); mSet->Next()) {
            names += mSet->FieldByName(u"channel")->getAsString();
        }
        return names;
    }
    UnicodeString Here() { return mSet->FieldByName(u"Channel")->getAsString(); }
    void SetHere(const UnicodeString& name) { mSet->FieldByName(u"Channel")->setAsString(name); }

    TMemoryDataSet* mSet = new TMemoryDataSet;
};

TEST_F(MemoryDataSetTest, GoesFromRecordToRecord)
{
    EXPECT_TRUE(mSet->getBof() && mSet->getEof());
    EXPECT_EQ(mSet->getRecNo(), 0);
    Fill({u"a", u"b", u"c"});
    EXPECT_TRUE(mSet->getBof());
    EXPECT_EQ(mSet->MoveBy(2), 2);
    EXPECT_FALSE(mSet->getEof());
    EXPECT_EQ(mSet->MoveBy(5), 0);
    EXPECT_TRUE(mSet->getEof());
    EXPECT_EQ(Here(), u"c");
    EXPECT_EQ(mSet->MoveBy(INT_MIN), -2);
    EXPECT_TRUE(mSet->getBof());
    mSet->setRecNo(2);
    EXPECT_EQ(Here(), u"b");
    EXPECT_THROW(mSet->setRecNo(4), EDatabaseError);
    EXPECT_THROW(mSet->setRecNo(0), EDatabaseError);
    mSet->Last();
    EXPECT_TRUE(mSet->getEof());
    mSet->Prior();
    EXPECT_EQ(mSet->getRecNo(), 2);
    EXPECT_EQ(mSet->getRecordCount(), 3);
}

TEST_F(MemoryDataSetTest, PutsNewRecordsWhereTheyAreAskedFor)
{
    Fill({u"a", u"b"});
    mSet->Last();
    mSet->Insert();
    EXPECT_EQ(mSet->getState(), dsInsert);
    EXPECT_EQ(mSet->getRecNo(), 2);
    EXPECT_EQ(mSet->GetShownCount(), 3);
    SetHere(u"i");
    mSet->Post();
    mSet->Append();
    SetHere(u"z");
    mSet->Prior(); // posts
    EXPECT_EQ(Names(), u"aibz");
    mSet->Insert();
    mSet->First(); // cancels, since nothing was changed
    EXPECT_EQ(Names(), u"aibz");
    while (!mSet->IsEmpty()) {
        mSet->Delete();
    }
    mSet->Edit();
    EXPECT_EQ(mSet->getState(), dsInsert);
    mSet->Delete();
    EXPECT_EQ(mSet->getState(), dsBrowse);
    EXPECT_THROW(mSet->Delete(), EDatabaseError);
}

TEST_F(MemoryDataSetTest, ChangesACopyUntilItIsPosted)
{
    Fill({u"a", u"b"});
    EXPECT_THROW(SetHere(u"x"), EDatabaseError);
    mSet->Edit();
    EXPECT_FALSE(mSet->getModified());
    SetHere(u"x");
    EXPECT_TRUE(mSet->getModified());
    EXPECT_EQ(Here(), u"x");
    EXPECT_EQ(mSet->FieldByName(u"Channel")->getOldValue(), Variant(u"a"));
    mSet->Cancel();
    EXPECT_EQ(Here(), u"a");
    mSet->Edit();
    SetHere(u"y");
    mSet->Delete();
    EXPECT_EQ(Names(), u"b");
    mSet->Edit();
    SetHere(u"z");
    mSet->Close();
    EXPECT_EQ(mSet->getFieldCount(), 0);
    mSet->Open();
    EXPECT_EQ(Names(), u"b");
}

TEST_F(MemoryDataSetTest, RefusesWhatItsStateDoesntAllow)
{
    EXPECT_THROW(mSet->Post(), EDatabaseError);
    EXPECT_THROW(mSet->UpdateRecord(), EDatabaseError);
    EXPECT_THROW(mSet->GotoKey(), EDatabaseError);
    EXPECT_THROW(mSet->setReadOnly(true), EDatabaseError);
    EXPECT_THROW(mSet->FieldByName(u"Voltage"), EDatabaseError);
    EXPECT_THROW(mSet->getFields(2), Classes::EListError);
    EXPECT_EQ(mSet->FindField(u"Voltage"), nullptr);
    mSet->Close();
    for (const auto act : {&TDataSet::First, &TDataSet::Next, &TDataSet::Edit, &TDataSet::Append,
                           &TDataSet::Post, &TDataSet::Delete, &TDataSet::Refresh}) {
        EXPECT_THROW((mSet->*act)(), EDatabaseError);
    }
    mSet->setReadOnly(true);
    mSet->Open();
    EXPECT_THROW(mSet->Append(), EDatabaseError);
    EXPECT_FALSE(mSet->getCanModify());
}

TEST_F(MemoryDataSetTest, FindsRecordsByTheirValues)
{
    Fill({u"Anode", u"Cathode", u"Grid"});
    EXPECT_TRUE(mSet->Locate(u"Channel", u"Grid"));
    EXPECT_EQ(mSet->getRecNo(), 3);
    EXPECT_FALSE(mSet->Locate(u"Channel", u"cat"));
    EXPECT_EQ(mSet->getRecNo(), 3);
    EXPECT_TRUE(mSet->Locate(u"Channel", u"cat", {loCaseInsensitive, loPartialKey}));
    EXPECT_TRUE(mSet->Locate(u"Channel; Count", Variants::VarArrayOf({u"Anode", 1})));
    EXPECT_FALSE(mSet->Locate(u"Channel;Count", Variants::VarArrayOf({u"Anode", 2})));
    EXPECT_THROW(mSet->Locate(u"Channel;Count", u"Anode"), EDatabaseError);
    EXPECT_EQ(mSet->Lookup(u"Count", 2, u"Channel"), Variant(u"Cathode"));
    EXPECT_TRUE(mSet->Lookup(u"Count", 9, u"Channel").IsNull());
    EXPECT_EQ(mSet->getRecNo(), 1);
    mSet->SetKey();
    EXPECT_EQ(mSet->getState(), dsSetKey);
    SetHere(u"Grid");
    EXPECT_TRUE(mSet->GotoKey());
    EXPECT_EQ(mSet->getRecNo(), 3);
    mSet->SetKey();
    SetHere(u"None");
    EXPECT_FALSE(mSet->GotoKey());
    EXPECT_EQ(mSet->getState(), dsBrowse);
    EXPECT_EQ(Names(), u"AnodeCathodeGrid");
}

TEST_F(MemoryDataSetTest, ComesBackToBookmarks)
{
    Fill({u"a", u"b", u"c"});
    EXPECT_FALSE(TBookmark());
    mSet->Next();
    const TBookmark second = mSet->GetBookmark();
    mSet->Last();
    const TBookmark third = mSet->GetBookmark();
    EXPECT_LT(mSet->CompareBookmarks(second, third), 0);
    mSet->GotoBookmark(second);
    EXPECT_EQ(Here(), u"b");
    mSet->Delete();
    EXPECT_FALSE(mSet->BookmarkValid(second));
    EXPECT_THROW(mSet->GotoBookmark(second), EDatabaseError);
    EXPECT_TRUE(mSet->BookmarkValid(third));
}

TEST_F(MemoryDataSetTest, ShowsWhatTheFilterAccepts)
{
    Fill({u"a", u"b", u"c", u"d"});
    mSet->setRecNo(4);
    mSet->OnFilterRecord = [this](TDataSet* set, bool& accept) {
        EXPECT_EQ(mSet->getState(), dsFilter);
        EXPECT_THROW(set->Close(), EDatabaseError);
        EXPECT_THROW(set->Next(), EDatabaseError);
        accept = set->FieldByName(u"Count")->getAsInteger() % 2 == 0;
    };
    mSet->setFiltered(true);
    EXPECT_EQ(Here(), u"d");
    EXPECT_EQ(Names(), u"bd");
    mSet->First();
    mSet->Insert();
    SetHere(u"n");
    mSet->FieldByName(u"Count")->setAsInteger(8);
    mSet->Post();
    mSet->Edit();
    mSet->FieldByName(u"Count")->setAsInteger(9);
    mSet->Post();
    EXPECT_EQ(Names(), u"bd");
    mSet->setFiltered(false);
    EXPECT_EQ(Names(), u"anbcd");
    mSet->OnFilterRecord = [](TDataSet*, bool&) { throw Sysutils::Exception(u"no"); };
    EXPECT_THROW(mSet->setFiltered(true), Sysutils::Exception);
    EXPECT_EQ(Names(), u"anbcd");
}

TEST_F(MemoryDataSetTest, CalculatesFieldsWhenTheyAreAskedFor)
{
    mSet->Close();
    Classes::TComponent form;
    auto* const count = new TIntegerField(&form);
    count->setFieldName(u"Count");
    auto* const twice = new TIntegerField(&form);
    twice->setFieldName(u"Twice");
    twice->setFieldKind(fkCalculated);
    for (TField* field : {static_cast<TField*>(count), static_cast<TField*>(twice)}) {
        field->setDataSet(mSet);
    }
    int calls = 0;
    mSet->OnCalcFields = [&](TDataSet*) {
        ++calls;
        EXPECT_THROW(count->setAsInteger(1), EDatabaseError);
        twice->setAsInteger(2 * count->getAsInteger());
    };
    mSet->Open();
    EXPECT_EQ(mSet->getFieldCount(), 2);
    const Variant values[] = {21};
    mSet->AppendRecord(values);
    EXPECT_EQ(twice->getAsInteger(), 42);
    EXPECT_EQ(twice->getAsInteger(), 42);
    EXPECT_EQ(calls, 1);
    mSet->Edit();
    EXPECT_THROW(twice->setAsInteger(1), EDatabaseError);
    count->setAsInteger(4);
    EXPECT_EQ(twice->getAsInteger(), 8);
    mSet->Cancel();
    EXPECT_EQ(twice->getAsInteger(), 42);
    mSet->Close();
}

TEST_F(MemoryDataSetTest, NamesTheFieldThatDoesntFit)
{
    struct TCase
    {
        const char16_t* name;
        TFieldType type;
        const char16_t* message;
    };
    for (const auto& [name, type, message] :
         {TCase{u"Missing", ftInteger, u"Set: There is no column \"Missing\" for the field of that name."},
          {u"Count", ftWideString,
           u"Set: Field \"Count\" is of the type ftWideString, but its column of ftInteger."}}) {
        mSet->Close();
        mSet->setName(u"Set");
        Classes::TComponent form;
        TField* const field = NewField(type, &form);
        field->setFieldName(name);
        field->setDataSet(mSet);
        try {
            mSet->Open();
            ADD_FAILURE() << UnicodeString(name);
        } catch (const EDatabaseError& error) {
            EXPECT_EQ(error.getMessage(), message);
        }
        EXPECT_EQ(mSet->getState(), dsInactive);
    }
    mSet->Open();
    EXPECT_EQ(mSet->getFieldCount(), 2);
}

TEST_F(MemoryDataSetTest, CallsItsEventsAroundEachStep)
{
    UnicodeString log;
    const auto note = [&](const char16_t* what) {
        return [&log, what](TDataSet* set) {
            log += what + UnicodeString(static_cast<int>(set->getState())) + u" ";
        };
    };
    mSet->BeforeInsert = note(u"bi");
    mSet->AfterInsert = note(u"ai");
    mSet->OnNewRecord = note(u"new");
    mSet->BeforePost = note(u"bp");
    mSet->AfterPost = note(u"ap");
    mSet->BeforeEdit = note(u"be");
    mSet->AfterEdit = note(u"ae");
    mSet->BeforeCancel = note(u"bc");
    mSet->AfterCancel = note(u"ac");
    mSet->BeforeDelete = note(u"bd");
    mSet->AfterDelete = note(u"ad");
    mSet->BeforeClose = note(u"bcl");
    mSet->AfterClose = note(u"acl");
    mSet->BeforeOpen = note(u"bo");
    mSet->AfterOpen = note(u"ao");
    mSet->BeforeRefresh = note(u"br");
    mSet->AfterRefresh = note(u"ar");
    mSet->Append();
    SetHere(u"a");
    mSet->Post();
    mSet->Edit();
    mSet->Cancel();
    mSet->Refresh();
    mSet->Delete();
    mSet->Close();
    mSet->Open();
    EXPECT_EQ(log, u"bi1 new3 ai3 bp3 ap1 be1 ae2 bc2 ac1 br1 ar1 bd1 ad1 bcl1 acl0 bo0 ao1 ");
}

TEST_F(MemoryDataSetTest, KeepsItsStateWhereAnEventRaises)
{
    Fill({u"a"});
    const auto refuse = [](TDataSet*) { throw Sysutils::Exception(u"no"); };
    mSet->BeforeEdit = refuse;
    EXPECT_THROW(mSet->Edit(), Sysutils::Exception);
    EXPECT_EQ(mSet->getState(), dsBrowse);
    mSet->BeforeEdit = nullptr;
    mSet->BeforePost = refuse;
    mSet->Edit();
    SetHere(u"x");
    EXPECT_THROW(mSet->Next(), Sysutils::Exception);
    EXPECT_EQ(mSet->getState(), dsEdit);
    mSet->BeforePost = nullptr;
    mSet->AfterPost = refuse;
    EXPECT_THROW(mSet->Post(), Sysutils::Exception);
    EXPECT_EQ(mSet->getState(), dsBrowse);
    EXPECT_EQ(Here(), u"x");
    mSet->BeforeDelete = refuse;
    EXPECT_THROW(mSet->Delete(), Sysutils::Exception);
    mSet->BeforeClose = refuse;
    EXPECT_THROW(mSet->Close(), Sysutils::Exception);
    EXPECT_TRUE(mSet->getActive());
    mSet->BeforeClose = nullptr;
    mSet->Close();
    mSet->BeforeOpen = refuse;
    EXPECT_THROW(mSet->Open(), Sysutils::Exception);
    EXPECT_FALSE(mSet->getActive());
}

using TDataSetEvent = TDataSetNotifyEvent TDataSet::*;

/// Each event with what calls it.
struct TCause
{
    TDataSetEvent event;
    void (*act)(TDataSet& set);
};

constexpr auto Insert = [](TDataSet& set) { set.Insert(); };
constexpr auto Edit = [](TDataSet& set) { set.Edit(); };
constexpr auto Post = [](TDataSet& set) {
    set.Edit();
    set.getFields(1)->setAsInteger(5);
    set.Post();
};
constexpr auto Cancel = [](TDataSet& set) {
    set.Edit();
    set.Cancel();
};
constexpr auto Next = [](TDataSet& set) { set.Next(); };
constexpr auto Delete = [](TDataSet& set) { set.Delete(); };
constexpr auto Refresh = [](TDataSet& set) { set.Refresh(); };
constexpr auto Close = [](TDataSet& set) { set.Close(); };

const TCause Causes[] = {
    {&TDataSet::BeforeInsert, Insert},  {&TDataSet::AfterInsert, Insert},
    {&TDataSet::OnNewRecord, Insert},   {&TDataSet::BeforeEdit, Edit},
    {&TDataSet::AfterEdit, Edit},       {&TDataSet::BeforePost, Post},
    {&TDataSet::AfterPost, Post},       {&TDataSet::BeforeCancel, Cancel},
    {&TDataSet::AfterCancel, Cancel},   {&TDataSet::BeforeScroll, Next},
    {&TDataSet::AfterScroll, Next},     {&TDataSet::BeforeDelete, Delete},
    {&TDataSet::AfterDelete, Delete},   {&TDataSet::BeforeRefresh, Refresh},
    {&TDataSet::AfterRefresh, Refresh}, {&TDataSet::BeforeClose, Close},
    {&TDataSet::AfterClose, Close},
};

std::unique_ptr<TMemoryDataSet> MakeSet()
{
    auto set = std::make_unique<TMemoryDataSet>();
    set->getFieldDefs()->Add(u"Channel", ftWideString, 10);
    set->getFieldDefs()->Add(u"Count", ftInteger);
    set->Open();
    for (int i = 0; i < 3; ++i) {
        const Variant values[] = {u"a", i};
        set->AppendRecord(values);
    }
    set->First();
    return set;
}

TEST(DataSetEventsTest, MayCloseOrDestroyTheDataSet)
{
    for (const bool destroys : {false, true}) {
        for (const TCause& cause : Causes) {
            SCOPED_TRACE(&cause - Causes);
            std::unique_ptr<TMemoryDataSet> set = MakeSet();
            int calls = 0;
            (*set).*cause.event = [&](TDataSet* sender) {
                ++calls;
                sender->*cause.event = nullptr;
                if (destroys) {
                    set.reset();
                } else {
                    sender->Close();
                }
            };
            cause.act(*set);
            EXPECT_EQ(calls, 1);
            EXPECT_TRUE(destroys || !set->getActive());
        }
    }
}

/// Whatever was begun, the records are there and the set goes on.
TEST(DataSetEventsTest, MayRaiseInEachEvent)
{
    for (const TCause& cause : Causes) {
        SCOPED_TRACE(&cause - Causes);
        const std::unique_ptr<TMemoryDataSet> set = MakeSet();
        (*set).*cause.event = [&](TDataSet* sender) {
            sender->*cause.event = nullptr;
            throw Sysutils::Exception(u"no");
        };
        EXPECT_THROW(cause.act(*set), Sysutils::Exception);
        set->Open();
        set->Cancel();
        set->Append();
        set->getFields(1)->setAsInteger(77);
        set->Post();
        EXPECT_EQ(set->getState(), dsBrowse);
        EXPECT_EQ(set->getFields(1)->getAsInteger(), 77);
        EXPECT_GE(set->getRecordCount(), 3);
        set->Close();
        EXPECT_FALSE(set->getActive());
    }
}

TEST_F(MemoryDataSetTest, AsksWhatToDoAboutAFailure)
{
    class TFailing : public TMemoryDataSet
    {
    public:
        int mFailures = 0;

    protected:
        void InsertIntoStore(TRecord& record) override
        {
            if (mFailures-- > 0) {
                throw EDatabaseError(u"full");
            }
            TMemoryDataSet::InsertIntoStore(record);
        }
    } set;
    set.getFieldDefs()->Add(u"Count", ftInteger);
    set.Open();
    TDataAction answer = daFail;
    UnicodeString told;
    set.OnPostError = [&](TDataSet*, const EDatabaseError& error, TDataAction& action) {
        told += error.getMessage();
        action = answer;
    };
    set.Append();
    set.FieldByName(u"Count")->setAsInteger(1);
    set.mFailures = 2;
    EXPECT_THROW(set.Post(), EDatabaseError);
    answer = daAbort;
    EXPECT_THROW(set.Post(), Sysutils::EAbort);
    EXPECT_EQ(set.getState(), dsInsert);
    set.mFailures = 2;
    answer = daRetry;
    set.Post();
    EXPECT_EQ(set.getRecordCount(), 1);
    EXPECT_EQ(told, u"fullfullfullfull");
}

TEST_F(MemoryDataSetTest, KeepsValuesOfColumnsThatStay)
{
    Fill({u"a"});
    mSet->Close();
    mSet->getFieldDefs()->Clear();
    mSet->getFieldDefs()->Add(u"New", ftFloat);
    mSet->getFieldDefs()->Add(u"channel", ftWideString);
    EXPECT_THROW(mSet->getFieldDefs()->Add(u"NEW", ftFloat), EDatabaseError);
    mSet->Open();
    EXPECT_EQ(Here(), u"a");
    EXPECT_TRUE(mSet->FieldByName(u"New")->getIsNull());
    mSet->EmptyDataSet();
    EXPECT_TRUE(mSet->IsEmpty());
}

} // namespace
