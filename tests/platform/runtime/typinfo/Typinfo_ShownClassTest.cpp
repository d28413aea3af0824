// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>

using namespace System;
using namespace Typinfo;

namespace
{

enum EWing
{
    wnOne = 1,
    wnTwo,
    wnFour = 4
};

/// What is really made.
class TBird : public TObject
{
    TRS8_BTL_CLASS(TBird, TObject)

public:
    int Age = 1;
    int Calls = 0;
    int Eggs = 0;
    void Sing(int times) { Calls += times; }
    /// No property before a derived class publishes it.
    UnicodeString getNest() const { return mNest; }
    void setNest(const UnicodeString& nest) { mNest = nest; }

private:
    UnicodeString mNest;
};

/// What isn't found again from a `TObject`.
class MFlying
{
public:
    void Fly() {}
};

/// What objects appear as.
class TOwl : public TBird, public MFlying
{
    TRS8_BTL_CLASS(TOwl, TBird)

public:
    int Hoot(int times)
    {
        Calls += times;
        return Calls;
    }
    static int Count(TBird* bird, int step) { return bird->Calls += step; }

    int Eyes = 2;
    EWing Wing = wnTwo;
    double Weight = 1.5;
    float Span = 1;
    std::string Call = "hoo";
    Variant Note;
    TObject* Mate = nullptr;
    TClosure<int(int)> OnHoot;
    Classes::TStrings* Lines = nullptr;
};

class TStone : public TObject
{
    TRS8_BTL_CLASS(TStone, TObject)

public:
    void Turn() {}

    int Weight = 5;
};

} // namespace

template <>
struct Typinfo::GEnumType<EWing>
{
    static TTypeInfo Make() { return EnumType(u"EWing", {u"wnOne", u"wnTwo"}, wnOne); }
};

namespace
{

TMetaClass* TBird::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TBird>(u"TBird")
                                          .Property(u"Age", &TBird::Age, {.defaultValue = 1})
                                          .Method(u"Sing", &TBird::Sing)
                                          .Build();
    return record;
}

TMetaClass* TOwl::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TOwl>(u"TOwl")
            .Property(
                u"Eyes", &TOwl::Eyes,
                {.defaultValue = 2,
                 .stored =
                     [](const TObject* object) { return dynamic_cast<const TOwl&>(*object).Eyes != 2; }})
            .Property(u"Wing", &TOwl::Wing)
            .Property(u"Weight", &TOwl::Weight)
            .Property(u"Span", &TOwl::Span)
            .Property(
                u"Nest", &TOwl::getNest, &TOwl::setNest,
                {.stored = [](const TObject* object) { return dynamic_cast<const TOwl&>(*object).Eyes > 0; }})
            .Property(u"Eggs", &TOwl::Eggs)
            .Property(u"HasNest", &TOwl::getNest)
            .Property(u"Call", &TOwl::Call)
            .Property(u"Note", &TOwl::Note)
            .Property(u"Mate", &TOwl::Mate)
            .Property(u"OnHoot", &TOwl::OnHoot)
            .Property(u"Lines", &TOwl::Lines)
            .Property(u"Age", &TOwl::Age, {.defaultValue = 3})
            .Method(u"Hoot", &TOwl::Hoot)
            .Method(u"Count", &TOwl::Count)
            .Build();
    return record;
}

TMetaClass* TStone::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TStone>(u"TStone").Property(u"Weight", &TStone::Weight).Build();
    return record;
}

class ShownClassTest : public testing::Test
{
protected:
    ShownClassTest() { mBird.SetClassType(ClassOf<TOwl>()); }

    TBird mBird;
};

TEST_F(ShownClassTest, PropertiesBeginWithTheirDefaults)
{
    EXPECT_EQ(GetOrdProp(&mBird, u"Eyes"), 2);
    EXPECT_EQ(GetOrdProp(&mBird, u"Wing"), wnOne) << "0 is none of its values";
    EXPECT_EQ(GetFloatProp(&mBird, u"Weight"), 0);
    EXPECT_EQ(GetStrProp(&mBird, u"Call"), u"");
    EXPECT_TRUE(GetVariantProp(&mBird, u"Note").IsEmpty());
    EXPECT_EQ(GetObjectProp(&mBird, u"Mate"), nullptr);
    EXPECT_FALSE(GetMethodProp(&mBird, u"OnHoot"));
    EXPECT_TRUE(IsStoredProp(&mBird, GetPropInfo(&mBird, u"Eyes")));
    EXPECT_TRUE(IsDefaultProp(&mBird, GetPropInfo(&mBird, u"Eyes")));
}

TEST_F(ShownClassTest, WhatIsWrittenIsKeptUntilTheClassGoes)
{
    TBird mate;
    SetOrdProp(&mBird, u"eyes", 5);
    SetOrdProp(&mBird, u"Wing", wnTwo);
    SetFloatProp(&mBird, u"Weight", 2.5);
    SetStrProp(&mBird, u"Call", u"coo");
    SetVariantProp(&mBird, u"Note", 7);
    SetObjectProp(&mBird, u"Mate", &mate);
    SetMethodProp(&mBird, u"OnHoot", TMethod::Of(mBird.MethodAddress(u"Hoot"), &mBird));
    mBird.SetClassType(ClassOf<TBird>());
    mBird.SetClassType(ClassOf<TOwl>());
    EXPECT_EQ(GetOrdProp(&mBird, u"Eyes"), 5);
    EXPECT_EQ(GetOrdProp(&mBird, u"Wing"), wnTwo);
    EXPECT_EQ(GetFloatProp(&mBird, u"Weight"), 2.5);
    EXPECT_EQ(GetStrProp(&mBird, u"Call"), u"coo");
    EXPECT_EQ(GetVariantProp(&mBird, u"Note"), Variant(7));
    EXPECT_EQ(GetObjectProp(&mBird, u"Mate"), &mate);
    EXPECT_EQ(mBird.MethodName(GetMethodProp(&mBird, u"OnHoot").Code), u"Hoot");

    mBird.SetClassType(nullptr);
    mBird.SetClassType(ClassOf<TOwl>());
    EXPECT_EQ(GetOrdProp(&mBird, u"Eyes"), 2);
    EXPECT_EQ(GetStrProp(&mBird, u"Call"), u"");
}

TEST_F(ShownClassTest, WhatTheObjectHasItselfIsThat)
{
    SetOrdProp(&mBird, u"Age", 8);
    EXPECT_EQ(mBird.Age, 8);
    EXPECT_EQ(GetPropInfo(&mBird, u"Age")->getDefault(), 3) << "described by the class it appears as";
}

TEST_F(ShownClassTest, WhatAParentHasIsThatOfTheObjectThoughADerivedClassPublishesIt)
{
    SetStrProp(&mBird, u"Nest", u"hollow tree");
    SetOrdProp(&mBird, u"Eggs", 3);
    EXPECT_EQ(mBird.getNest(), u"hollow tree");
    EXPECT_EQ(mBird.Eggs, 3);
    EXPECT_EQ(GetStrProp(&mBird, u"HasNest"), u"hollow tree");
    EXPECT_TRUE(IsStoredProp(&mBird, GetPropInfo(&mBird, u"Nest"))) << "only an owl can be asked";
    mBird.SetClassType(nullptr);
    EXPECT_THROW(GetPropInfo(ClassOf<TOwl>(), u"Nest")->Read(&mBird), EPropertyError) << "a bird has none";
}

TEST_F(ShownClassTest, NumbersAreKeptInTheWidthOfTheirType)
{
    TOwl owl;
    const TPropInfo* const span = GetPropInfo(&owl, u"Span");
    SetFloatProp(&owl, span, 0.1L);
    SetFloatProp(&mBird, span, 0.1L);
    EXPECT_EQ(GetFloatProp(&mBird, span), GetFloatProp(&owl, span));
}

TEST_F(ShownClassTest, AMethodOfOtherArgumentsIsRefused)
{
    const TMethod sing = TMethod::Of(mBird.MethodAddress(u"Sing"), &mBird);
    EXPECT_THROW(SetMethodProp(&mBird, u"OnHoot", sing), EPropertyConvertError);
    EXPECT_FALSE(GetMethodProp(&mBird, u"OnHoot"));
    SetMethodProp(&mBird, u"OnHoot", {});
}

template <class Member>
concept PublishedByOwl = requires(GClassBuilder<TOwl> builder, Member member)
{
    builder.Method(u"Name", member);
};

static_assert(PublishedByOwl<decltype(&TOwl::Hoot)> && PublishedByOwl<decltype(&TOwl::Sing)>);
static_assert(!PublishedByOwl<decltype(&TOwl::Fly)>, "its object would be taken for another one");
static_assert(!PublishedByOwl<decltype(&TStone::Turn)>);

TEST_F(ShownClassTest, APartIsMadeAndTakesOverWhatIsWritten)
{
    auto* const lines = dynamic_cast<Classes::TStrings*>(GetObjectProp(&mBird, u"Lines"));
    ASSERT_NE(lines, nullptr);
    EXPECT_EQ(GetObjectProp(&mBird, u"Lines"), lines);
    Classes::TStringList other;
    other.Add(u"line");
    SetObjectProp(&mBird, u"Lines", &other);
    EXPECT_EQ(GetObjectProp(&mBird, u"Lines"), lines);
    EXPECT_EQ(lines->getCommaText(), u"line");
    EXPECT_THROW(SetObjectProp(&mBird, u"Lines", &mBird), EPropertyConvertError);
    EXPECT_THROW(SetObjectProp(&mBird, u"Lines", nullptr), Sysutils::Exception);
}

TEST_F(ShownClassTest, ValuesThatDoNotFitAreRefused)
{
    EXPECT_THROW(GetPropInfo(&mBird, u"Eyes")->Write(&mBird, UnicodeString(u"two")), EPropertyConvertError);
    EXPECT_THROW(SetOrdProp(&mBird, u"Wing", 9), EPropertyConvertError);
    const TPropInfo* const weight = GetPropInfo(ClassOf<TStone>(), u"Weight");
    EXPECT_THROW(weight->Read(&mBird), EPropertyError) << "of a class that is no kin";
    EXPECT_THROW(weight->Write(&mBird, Int64{1}), EPropertyError);
}

TEST_F(ShownClassTest, AMethodThatTheObjectLacksDoesNothing)
{
    const TClosure<int(int)> hoot(TMethod::Of(mBird.MethodAddress(u"Hoot"), &mBird));
    EXPECT_EQ(hoot(3), 0);
    EXPECT_EQ(mBird.Calls, 0);
    TClosure<void(int)>(TMethod::Of(mBird.MethodAddress(u"Sing"), &mBird))(3);
    EXPECT_EQ(mBird.Calls, 3);
    const TClosure<int(int)> count(TMethod::Of(mBird.MethodAddress(u"Count"), &mBird));
    EXPECT_EQ(count(4), 7) << "a function takes what the object is";
    EXPECT_EQ(mBird.MethodName(count.AsMethod().Code), u"Count");

    mBird.SetClassType(nullptr);
    EXPECT_THROW(hoot(1), Sysutils::EInvalidCast);
}

TEST_F(ShownClassTest, AnObjectKnowsWhatItIsMadeOf)
{
    EXPECT_TRUE(mBird.HasSetClass());
    EXPECT_TRUE(mBird.IsMadeOf(ClassOf<TBird>()));
    EXPECT_TRUE(mBird.IsMadeOf(ClassOf<TObject>()));
    EXPECT_FALSE(mBird.IsMadeOf(ClassOf<TOwl>()));
    EXPECT_FALSE(mBird.IsMadeOf(nullptr));
    EXPECT_FALSE(TOwl().HasSetClass());
}

TEST(MetaClassStorageTest, AnObjectMayLieInTheStorageOfALargerOne)
{
    const TMetaClass& owl = *ClassOf<TOwl>();
    EXPECT_GE(owl.InstanceSize(), sizeof(TOwl));
    void* const storage = ::operator new(owl.InstanceSize());
    TObject* const bare = owl.InitInstance(storage);
    EXPECT_EQ(TMetaClass::StorageOf(*bare), &owl);
    EXPECT_EQ(bare->ClassType(), &owl);
    bare->~TObject();
    const std::unique_ptr<TObject> bird(ClassOf<TBird>()->Construct(storage));
    EXPECT_EQ(TMetaClass::StorageOf(*bird), nullptr);
    EXPECT_EQ(bird->ClassType(), ClassOf<TBird>());
}

TEST(MetaClassStorageTest, ObjectsAreMadeInEachForm)
{
    const std::unique_ptr<TBird> plain(new TBird);
    const std::unique_ptr<TBird> quiet(new (std::nothrow) TBird);
    ASSERT_NE(quiet, nullptr);
    alignas(TBird) std::byte place[sizeof(TBird)];
    TBird* const placed = new (place) TBird;
    EXPECT_EQ(placed->Age + plain->Age + quiet->Age, 3);
    placed->~TBird();
}

} // namespace
