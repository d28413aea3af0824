// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/System_Closure.h"

#include "platform/runtime/typinfo/System_ObjectSupport.h"

#include <functional>
#include <memory>

#include <gtest/gtest.h>

using namespace System;
using namespace Support;

namespace
{

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
