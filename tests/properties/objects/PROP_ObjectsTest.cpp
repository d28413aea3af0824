// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/toolkit/MessageBox.h"
#include "properties/components/BTL_Components.h"
#include "properties/objects/Gauges.h"
#include "properties/objects/PROP_Object.h"
#include "properties/values/PROP_Filter.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{

using Gauges::Lines;
using Gauges::TGauge;
using PROP::CFilter;
using PROP::CObject;
using PROP::CObjects;
using System::UnicodeString;

std::string Names(const CObjects& objects)
{
    std::string names;
    for (const auto& object : objects) {
        names += System::ToUtf8(object->getName()) + ' ';
    }
    return names;
}

TGauge* Make(Classes::TComponent* owner, const char16_t* name)
{
    auto* const made = new TGauge(owner);
    made->setName(name);
    return made;
}

/// "Desk", which owns "B" (which owns "C"), one without a name and "A".
struct TDesk
{
    TDesk()
    {
        desk.setName(u"Desk");
        filter.getProperties().setCommaText(u"Count,Text");
    }

    TGauge desk;
    TGauge* b = Make(&desk, u"B");
    TGauge* c = Make(b, u"C");
    TGauge* nameless = Make(&desk, u"");
    TGauge* a = Make(&desk, u"A");
    CFilter filter;
};

TEST(ObjectsTest, HaveTwoOrders)
{
    CObjects objects;
    objects.AddObject(new CObject(u"b"));
    objects.AddObject(new CObject(u"a"));
    objects.AddObject(new CObject(u"B"));
    EXPECT_EQ(Names(objects), "b a B ");
    std::string sorted;
    std::for_each(objects.sbegin(), objects.send(),
                  [&](const auto& entry) { sorted += System::ToUtf8(entry.second->getName()) + ' '; });
    EXPECT_EQ(sorted, "B a b ");
    EXPECT_EQ(objects.Find(u"a")->getName(), u"a");
    EXPECT_EQ(objects.Find(u"A"), nullptr);
    EXPECT_EQ(objects.size(), 3);
    objects.clear();
    EXPECT_TRUE(objects.empty());
    EXPECT_EQ(objects.Find(u"a"), nullptr);
}

TEST(ObjectsTest, ShareTheirObjects)
{
    const UTL::GAutoPtr<CObject> object = new CObject(u"a");
    {
        CObjects objects;
        objects.AddObject(object.get());
        EXPECT_EQ(objects.Find(u"a"), object.get());
    }
    EXPECT_EQ(object->getRefCount(), 1);
}

TEST(ObjectsTest, AddEachNameOnce)
{
    CObjects objects;
    objects.AddObject(new CObject(u"a"));
    EXPECT_THROW(objects.AddObject(nullptr), UTL::XAssert);
    const auto faultOf = [&](const char16_t* name) {
        try {
            objects.AddObject(new CObject(name));
        } catch (const UTL::XAssert& fault) {
            return fault.getExpression();
        }
        return UnicodeString();
    };
    EXPECT_EQ(faultOf(u""), u"Object Name is empty.");
    EXPECT_EQ(faultOf(u"a"), u"Ambiguous Object : a");
    EXPECT_EQ(Names(objects), "a ");
    Support::ScriptedBoxes boxes({IDNO, IDNO, IDNO});
    objects.AddObject(nullptr);
    objects.AddObject(new CObject(u""));
    objects.AddObject(new CObject(u"a"));
    EXPECT_EQ(Names(objects), "a ");
}

TEST(ObjectsTest, TakeATreeOfComponents)
{
    TDesk desk;
    CObjects all;
    all.AddObjects(&desk.desk, nullptr);
    EXPECT_EQ(Names(all), "Desk B B.C A ");
    CObjects of;
    desk.filter.getNotClasses() << u"TGauge";
    of.AddObjects(&desk.desk, &desk.filter);
    EXPECT_TRUE(of.empty());
    EXPECT_EQ(all.Find(desk.c)->getName(), u"B.C");
    EXPECT_EQ(all.Find(desk.nameless), nullptr);
    EXPECT_THROW(static_cast<void>(all.Find(desk.c->getFont())), UTL::XAssert);

    desk.desk.setName(u"");
    CObjects below;
    EXPECT_THROW(below.AddObjects(&desk.desk, nullptr), UTL::XAssert);
    below.AddObjects(BTL::CComponents(&desk.desk), nullptr);
    EXPECT_EQ(Names(below), "B C A ");
}

TEST(ObjectsTest, AreAppliedToTheComponentsOfTheirNames)
{
    TDesk desk;
    CObjects objects;
    objects.AddObject(new CObject(u"B.C", UnicodeString(u"Count(3)")));
    objects.AddObject(new CObject(u"A", UnicodeString(u"Count(1)")));
    objects.AddObject(new CObject(u"Desk", UnicodeString(u"Count(9)")));
    objects.AddObject(new CObject(u"Nobody", UnicodeString(u"Count(9)")));
    objects.ApplyProperties(BTL::CComponents(&desk.desk));
    EXPECT_EQ(desk.c->Count, 3);
    EXPECT_EQ(desk.a->Count, 1);
    EXPECT_EQ(desk.b->Count, 0);
    EXPECT_EQ(desk.desk.Count, 0);
}

TEST(ObjectsTest, TellWhatChanged)
{
    TDesk desk;
    CObjects former;
    former.AddObjects(&desk.desk, &desk.filter);
    desk.a->Count = 5;
    desk.a->Text = u"new";
    desk.c->Count = 6;
    delete desk.nameless;
    Make(&desk.desk, u"New")->Count = 7;
    CObjects present;
    present.AddObjects(&desk.desk, &desk.filter);
    CObjects changes;
    changes.AddObject(new CObject(u"former"));
    former.GetDifferenceOf(present, changes);
    EXPECT_EQ(Names(changes), "B.C A ");
    EXPECT_EQ(Lines(changes.Find(u"A")->getProperties()), "Text=new\nCount=5\n");
    former.GetDifferenceOf(former, former);
    EXPECT_TRUE(former.empty());
}

/// Tells of each write to it.
class TBell : public TGauge
{
    TRS8_BTL_CLASS(TBell, TGauge)

public:
    using TGauge::TGauge;

    int getHits() const { return 0; }
    void setHits(int /*count*/) { ring(); }

    std::function<void()> ring;
};

System::TMetaClass* TBell::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TBell>(u"TBell").Property(u"Hits", &TBell::getHits, &TBell::setHits).Build();
    return record;
}

/// "First", which rings, and two others.
struct TTower
{
    TTower()
    {
        first->setName(u"First");
        for (const char16_t* const name : {u"First", u"Second", u"Third"}) {
            objects.AddObject(new CObject(name, UnicodeString(u"\"Hits(1)\",\"Count(2)\"")));
        }
    }

    TGauge desk;
    TBell* first = new TBell(&desk);
    TGauge* second = Make(&desk, u"Second");
    TGauge* third = Make(&desk, u"Third");
    CObjects objects;
};

TEST(ObjectsTest, PassOverComponentsThatAreGone)
{
    TTower tower;
    tower.first->ring = [&] { delete tower.second; };
    tower.objects.ApplyProperties(BTL::CComponents(&tower.desk));
    EXPECT_EQ(tower.desk.GetComponentCount(), 2);
    EXPECT_EQ(tower.first->Count, 2);
    EXPECT_EQ(tower.third->Count, 2);
}

TEST(ObjectsTest, AreAppliedToTheEndIfAHandlerDropsThem)
{
    TTower tower;
    auto objects = std::make_unique<CObjects>();
    objects->Assign(tower.objects);
    EXPECT_EQ(objects->size(), 3);
    EXPECT_EQ(objects->Find(tower.third), tower.objects.Find(tower.third));
    tower.objects.clear();
    tower.first->ring = [&] { objects = nullptr; };
    objects->ApplyProperties(BTL::CComponents(&tower.desk));
    EXPECT_EQ(objects, nullptr);
    EXPECT_EQ(tower.first->Count, 2);
    EXPECT_EQ(tower.third->Count, 2);
}

TEST(ObjectsTest, HoldVeryMany)
{
    constexpr int count = 50'000;
    TGauge desk;
    auto* const last = Make(&desk, u"N49999");
    CObjects objects;
    for (int i = 0; i < count; ++i) {
        objects.AddObject(new CObject(u"N" + UnicodeString(i), UnicodeString(u"Count(1)")));
    }
    objects.ApplyProperties(BTL::CComponents(&desk));
    EXPECT_EQ(last->Count, 1);
    CObjects changes;
    objects.GetDifferenceOf(objects, changes);
    EXPECT_TRUE(changes.empty());
}

} // namespace
