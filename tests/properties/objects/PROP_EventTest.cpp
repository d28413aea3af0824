// SPDX-License-Identifier: MIT
#include "properties/objects/PROP_Event.h"

#include "platform/visual/stdctrls/buttons/Stdctrls_Button.h"
#include "properties/objects/Gauges.h"

#include <gtest/gtest.h>

namespace
{

using Gauges::TGauge;
using PROP::CEvents;

/// Counts what its events tell it.
struct TListener
{
    void Hear(System::TObject* /*sender*/) { ++count; }
    Classes::TNotifyEvent AsEvent() { return Classes::TNotifyEvent(this, &TListener::Hear); }

    int count = 0;
};

/// A gauge with one below it, both bound to a listener.
struct TDesk
{
    TDesk()
    {
        gauge.OnChange = listener.AsEvent();
        below->OnChange = listener.AsEvent();
    }

    int CountBound() const { return (gauge.OnChange ? 1 : 0) + (below->OnChange ? 1 : 0); }

    TListener listener;
    TGauge gauge;
    TGauge* below = new TGauge(&gauge);
};

TEST(EventsTest, GoBackToTheirMethods)
{
    TDesk desk;
    const CEvents events(&desk.gauge);
    ASSERT_EQ(events.size(), 2);
    EXPECT_EQ(events.begin()->getComponent(), &desk.gauge);
    EXPECT_EQ(events.begin()->getPropInfo()->getName(), u"OnChange");
    EXPECT_EQ(events.begin()->getMethod(), desk.gauge.OnChange.AsMethod());
    events.ClearMethodProp();
    EXPECT_EQ(desk.CountBound(), 0);
    const CEvents copy = events;
    copy.SetMethodProp();
    EXPECT_EQ(desk.CountBound(), 2);
    desk.below->OnChange(nullptr);
    EXPECT_EQ(desk.listener.count, 1);
}

TEST(EventsTest, AreTakenAnew)
{
    TDesk desk;
    CEvents events(&desk.gauge);
    events.SetEvents(desk.below);
    EXPECT_EQ(events.size(), 1);
    events.SetEvents(nullptr);
    EXPECT_TRUE(events.empty());
    events.SetEvents(&desk.gauge);
    events.Clear();
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(desk.CountBound(), 2);
}

TEST(EventsTest, BindAnotherComponentWhereItHasThem)
{
    TDesk desk;
    new Stdctrls::TButton(&desk.gauge);
    const CEvents events(&desk.gauge);
    TGauge other;
    events.SetMethodProp(&other);
    EXPECT_EQ(other.OnChange, desk.gauge.OnChange);
    Classes::TComponent bare;
    events.SetMethodProp(&bare);
    events.SetMethodProp(nullptr);
    EXPECT_EQ(desk.CountBound(), 2);
}

/// Publishes the event of its base again.
class TRepeating : public TGauge
{
    TRS8_BTL_CLASS(TRepeating, TGauge)

public:
    using TGauge::TGauge;
};

System::TMetaClass* TRepeating::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TRepeating>(u"TRepeating").Property(u"OnChange", &TGauge::OnChange).Build();
    return record;
}

TEST(EventsTest, BindADerivedComponentThatPublishesThemAgain)
{
    TDesk desk;
    TRepeating derived;
    CEvents(&desk.gauge).SetMethodProp(&derived);
    EXPECT_EQ(derived.OnChange, desk.gauge.OnChange);
    derived.OnChange = nullptr;
    CEvents(&derived).SetMethodProp(&desk.gauge);
    EXPECT_TRUE(desk.gauge.OnChange) << "the record isn't one of the base";
}

TEST(EventsTest, AreQuietForAScope)
{
    TDesk desk;
    {
        const PROP::CClearEvents quiet(&desk.gauge);
        EXPECT_EQ(desk.CountBound(), 0);
    }
    EXPECT_EQ(desk.CountBound(), 2);
}

TEST(EventsTest, AreClearedOfOneOrOfAll)
{
    TDesk desk;
    PROP::ClearEvents(&desk.gauge, false);
    EXPECT_FALSE(desk.gauge.OnChange);
    EXPECT_TRUE(desk.below->OnChange);
    PROP::ClearEvents(&desk.gauge, true);
    EXPECT_EQ(desk.CountBound(), 0);
    PROP::ClearEvents(nullptr, true);
}

TEST(EventsTest, AreNotChangedByACopy)
{
    TDesk first;
    TDesk second;
    second.gauge.OnChange = nullptr;
    PROP::CopyEvents(&first.gauge, &second.gauge);
    EXPECT_EQ(first.CountBound(), 2);
    EXPECT_EQ(second.CountBound(), 1);
}

TEST(EventTest, OfNothingDoesNothing)
{
    const PROP::CEvent none;
    none.SetMethodProp();
    none.ClearMethodProp();
    TDesk desk;
    none.SetMethodProp(&desk.gauge);
    PROP::CEvent(nullptr, nullptr).ClearMethodProp();
    EXPECT_EQ(desk.CountBound(), 2);
}

} // namespace
