// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>

using namespace System;

namespace
{

class Counter : public TObject
{
    TRS8_BTL_CLASS(Counter, TObject)

public:
    void Count(TObject*) { ++count; }
    void Reset(TObject*) { count = 0; }
    int Add(int value) { return count += value; }
    int Get() const { return count; }

    int count = 0;
};

TMetaClass* Counter::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<Counter>(u"Counter")
                                          .Method(u"Count", &Counter::Count)
                                          .Method(u"Add", &Counter::Add)
                                          .Build();
    return record;
}

class Gauge : public Counter
{
    TRS8_BTL_CLASS(Gauge, Counter)

public:
    explicit Gauge(int start) { count = start; }
};

TMetaClass* Gauge::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<Gauge>(u"Gauge").Method(u"Reset", &Gauge::Reset).Build();
    return record;
}

/// Something with methods that is no object of ours, in front of one that is.
struct Plain
{
    virtual ~Plain() = default;
    void Note(TObject* sender) { last = sender; }
    TObject* last = nullptr;
};

class Mixed : public Plain, public Counter
{
};

using Notify = Classes::TNotifyEvent;

TEST(ObjectTest, KnowsItsClassAndItsParents)
{
    const Gauge gauge(1);
    EXPECT_EQ(gauge.ClassName(), u"Gauge");
    EXPECT_EQ(gauge.ClassParent(), ClassOf<Counter>());
    EXPECT_TRUE(gauge.InheritsFrom(ClassOf<TObject>()));
    EXPECT_FALSE(Counter().InheritsFrom(ClassOf<Gauge>()));
    EXPECT_FALSE(gauge.InheritsFrom(nullptr));
    EXPECT_EQ(ClassOf<TObject>()->getParent(), nullptr);
    EXPECT_EQ(gauge.ClassInfo()->ClassType, ClassOf<Gauge>());
    EXPECT_EQ(ClassOf<Gauge>()->ClassName(), u"TMetaClass");
}

TEST(ObjectTest, AppearsAsTheClassThatIsSet)
{
    Counter counter;
    counter.SetClassType(ClassOf<Gauge>());
    EXPECT_EQ(counter.ClassName(), u"Gauge");
    EXPECT_NE(counter.MethodAddress(u"Reset"), nullptr);
    counter.SetClassType(nullptr);
    EXPECT_EQ(counter.ClassType(), ClassOf<Counter>());
}

TEST(ObjectTest, IsMadeByItsClassRecord)
{
    const auto made = ClassOf<Counter>()->Create();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->ClassType(), ClassOf<Counter>());
    EXPECT_EQ(ClassOf<Gauge>()->Create(), nullptr) << "needs an argument";
}

TEST(ObjectTest, FindsPublishedMethodsByName)
{
    Gauge gauge(1);
    const TMethodAddress count = gauge.MethodAddress(u"COUNT");
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(gauge.MethodName(count), u"Count");
    EXPECT_EQ(gauge.MethodAddress(u"Get"), nullptr);
    EXPECT_EQ(Counter().MethodAddress(u"Reset"), nullptr);
    EXPECT_EQ(gauge.MethodName(nullptr), u"");

    const Notify event(TMethod::Of(count, &gauge));
    event(&gauge);
    EXPECT_EQ(gauge.count, 2);
    EXPECT_EQ(event, Notify(&gauge, &Counter::Count));
}

TEST(ClosureTest, ComparesByMethodAndObject)
{
    Counter a;
    Counter b;
    const Notify event(&a, &Counter::Count);
    EXPECT_EQ(event, Notify(&a, &Counter::Count));
    EXPECT_FALSE(event == Notify(&b, &Counter::Count));
    EXPECT_FALSE(event == Notify(&a, &Counter::Reset));
    EXPECT_FALSE(event == nullptr);

    int calls = 0;
    const Notify lambda([&calls](TObject*) { ++calls; });
    const Notify copy = lambda;
    EXPECT_EQ(copy, lambda);
    copy(nullptr);
    EXPECT_EQ(calls, 1);
}

TEST(ClosureTest, IsEmptyWithoutAMethod)
{
    EXPECT_FALSE(Notify());
    EXPECT_FALSE(Notify(nullptr));
    EXPECT_FALSE(Notify(static_cast<Counter*>(nullptr), &Counter::Count));
    EXPECT_FALSE(Notify(std::function<void(TObject*)>()));
    EXPECT_THROW(Notify()(nullptr), Sysutils::Exception);
}

TEST(ClosureTest, PassesArgumentsAndResults)
{
    Counter counter;
    const TClosure<int(int)> add(&counter, &Counter::Add);
    EXPECT_EQ(add(4), 4);
    EXPECT_EQ(add(3), 7);
    const TClosure<int()> get(&counter, &Counter::Get);
    EXPECT_EQ(get(), 7);
    const TClosure<int(std::unique_ptr<int>)> moves([](std::unique_ptr<int> value) { return *value; });
    EXPECT_EQ(moves(std::make_unique<int>(5)), 5);
}

TEST(ClosureTest, RefusesAMethodOfAnotherSignatureOrClass)
{
    Counter counter;
    const TMethod add = TMethod::Of(counter.MethodAddress(u"Add"), &counter);
    EXPECT_FALSE(Notify::Fits(add));
    EXPECT_THROW(Notify{add}, Sysutils::EInvalidCast);

    TObject other;
    const Notify wrong(TMethod::Of(counter.MethodAddress(u"Count"), &other));
    EXPECT_THROW(wrong(nullptr), Sysutils::EInvalidCast);
    const Notify none(TMethod::Of(counter.MethodAddress(u"Count"), nullptr));
    EXPECT_THROW(none(nullptr), Sysutils::EInvalidCast);
}

TEST(ClosureTest, FindsTheObjectBehindOtherBases)
{
    Mixed mixed;
    Notify(&mixed, &Counter::Count)(nullptr);
    EXPECT_EQ(mixed.count, 1);
    Notify(&mixed, &Plain::Note)(&mixed);
    EXPECT_EQ(mixed.last, static_cast<TObject*>(&mixed));
}

TEST(ClosureTest, MayBeReplacedByWhatItCalls)
{
    Notify event;
    const auto calls = std::make_shared<int>(0);
    event = [&event, calls](TObject*) {
        event = nullptr;
        ++*calls;
    };
    event(nullptr);
    EXPECT_EQ(*calls, 1);
    EXPECT_FALSE(event);
}

} // namespace
