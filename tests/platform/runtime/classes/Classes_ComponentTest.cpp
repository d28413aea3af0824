// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Component.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/runtime/typinfo/Typinfo.h"

#include <gmock/gmock.h>

using namespace Classes;
using System::ClassOf;
using System::GClassBuilder;
using System::TMetaClass;
using System::UnicodeString;
using testing::ElementsAre;

namespace
{

/// Writes down what happens to it.
class Probe : public TComponent
{
    TRS8_BTL_CLASS(Probe, TComponent)

public:
    explicit Probe(TComponent* owner = nullptr, std::vector<int>* log = nullptr, int number = 0)
        : TComponent(owner), mLog(log), mNumber(number)
    {
    }
    ~Probe() override
    {
        if (mLog != nullptr) {
            mLog->push_back(mNumber);
        }
    }

    void Notification(TComponent* component, TOperation operation) override
    {
        TComponent::Notification(component, operation);
        notes.emplace_back(component, operation);
        if (component == friendOf && operation == opRemove) {
            friendOf = nullptr;
        }
    }

    std::vector<std::pair<TComponent*, TOperation>> notes;
    TComponent* friendOf = nullptr;

private:
    std::vector<int>* mLog;
    int mNumber;
};

TMetaClass* Probe::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<Probe>(u"Probe").Build();
    return record;
}

class Form : public TComponent
{
    TRS8_BTL_CLASS(Form, TComponent)

public:
    Probe* Edit1 = nullptr;
};

TMetaClass* Form::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<Form>(u"Form").Field(u"Edit1", &Form::Edit1).Build();
    return record;
}

TEST(ComponentTest, OwnerDestroysInReverseOrder)
{
    std::vector<int> log;
    {
        TComponent owner;
        for (int i = 1; i <= 3; ++i) {
            new Probe(&owner, &log, i);
        }
        delete owner.GetComponent(1);
        EXPECT_EQ(owner.GetComponentCount(), 2);
    }
    EXPECT_THAT(log, ElementsAre(2, 3, 1));
}

TEST(ComponentTest, NamesAreUniqueIdentifiersWithinTheOwner)
{
    TComponent owner;
    auto* first = new TComponent(&owner);
    auto* second = new TComponent(&owner);
    first->setName(u"Edit1");
    EXPECT_EQ(owner.FindComponent(u"EDIT1"), first);
    EXPECT_THROW(second->setName(u"eDIT1"), EComponentError);
    for (const auto* bad : {u"1a", u"a b", u"a.b", u"-"}) {
        EXPECT_THROW(second->setName(bad), EComponentError) << UnicodeString(bad);
    }
    EXPECT_EQ(second->getName(), u"");
    second->setName(u"_Größe2");
    EXPECT_EQ(owner.FindComponent(u"_GRÖSSE2"), nullptr);
    EXPECT_EQ(owner.FindComponent(u"_GRÖßE2"), second);

    first->setName(u"EDIT1");
    EXPECT_EQ(first->getName(), u"EDIT1") << "a change of case alone is no conflict";
    first->setName(u"");
    EXPECT_EQ(owner.FindComponent(u"Edit1"), nullptr);
    EXPECT_EQ(owner.FindComponent(u""), nullptr);
    second->setName(u"Edit1");
    EXPECT_EQ(owner.FindComponent(u"Edit1"), second);
}

TEST(ComponentTest, ChangesItsOwner)
{
    TComponent a;
    TComponent b;
    auto* item = new TComponent(&a);
    item->setName(u"Item");
    b.InsertComponent(item);
    EXPECT_EQ(item->getOwner(), &b);
    EXPECT_EQ(a.GetComponentCount(), 0);
    EXPECT_EQ(a.FindComponent(u"Item"), nullptr);
    EXPECT_EQ(b.FindComponent(u"Item"), item);

    auto* rival = new TComponent(&a);
    rival->setName(u"ITEM");
    EXPECT_THROW(b.InsertComponent(rival), EComponentError);
    EXPECT_EQ(rival->getOwner(), &a) << "a refusal changes nothing";

    EXPECT_THROW(item->InsertComponent(&b), EComponentError) << "a ring of owners";
    EXPECT_THROW(b.InsertComponent(&b), EComponentError);
    b.InsertComponent(nullptr);
    a.RemoveComponent(item);
    EXPECT_EQ(item->getOwner(), &b);
    b.RemoveComponent(item);
    EXPECT_EQ(item->getOwner(), nullptr);
    delete item;
}

TEST(ComponentTest, KeepsAnOrderAndChecksIndices)
{
    TComponent owner;
    auto* a = new TComponent(&owner);
    auto* b = new TComponent(&owner);
    auto* c = new TComponent(&owner);
    c->SetComponentIndex(0);
    EXPECT_EQ(owner.GetComponent(0), c);
    EXPECT_EQ(owner.GetComponent(1), a);
    c->SetComponentIndex(99);
    EXPECT_EQ(c->GetComponentIndex(), 2);
    EXPECT_EQ(b->GetComponentIndex(), 1);
    EXPECT_EQ(owner.GetComponentIndex(), -1);
    EXPECT_THROW(owner.GetComponent(3), EListError);
    EXPECT_THROW(owner.GetComponent(-1), EListError);
}

TEST(ComponentTest, TellsOfComingAndGoing)
{
    Probe owner;
    auto* witness = new Probe(&owner);
    owner.notes.clear();
    auto* item = new Probe(&owner);
    delete item;
    EXPECT_THAT(witness->notes, ElementsAre(std::pair(item, opInsert), std::pair(item, opRemove)));
    EXPECT_EQ(owner.notes.size(), 2U);
}

/// Of a class that says that it ignores what comes.
class Deaf : public Probe
{
    TRS8_BTL_CLASS(Deaf, Probe)

public:
    using Probe::Probe;
};

TMetaClass* Deaf::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<Deaf>(u"Deaf").HearsInsertions(false).Build();
    return record;
}

/// Derived from one, without a record of its own.
class Hearing : public Deaf
{
public:
    using Deaf::Deaf;
};

TEST(ComponentTest, SparesClassesThatIgnoreWhatComes)
{
    Probe owner;
    auto* const deaf = new Deaf(&owner);
    auto* const hearing = new Hearing(&owner);
    auto* const inner = new Probe(deaf);
    for (Probe* const probe : {&owner, static_cast<Probe*>(deaf), static_cast<Probe*>(hearing), inner}) {
        probe->notes.clear();
    }
    auto* const item = new TComponent(&owner);
    const auto coming = std::pair(item, opInsert);
    EXPECT_THAT(owner.notes, ElementsAre(coming));
    EXPECT_THAT(hearing->notes, ElementsAre(coming));
    // It passes the news, since one within it hears them.
    EXPECT_THAT(inner->notes, ElementsAre(coming));
    delete inner;
    deaf->notes.clear();
    auto* const next = new TComponent(&owner);
    EXPECT_THAT(deaf->notes, ElementsAre());
    new Probe(deaf);
    deaf->notes.clear();
    delete next;
    EXPECT_THAT(deaf->notes, ElementsAre(std::pair(next, opRemove)));
    auto* const last = new TComponent(&owner);
    EXPECT_THAT(deaf->notes, ElementsAre(std::pair(next, opRemove), std::pair(last, opInsert)));
}

TEST(ComponentTest, TellsItsFriendsOfItsEnd)
{
    Probe watcher;
    auto* target = new TComponent;
    watcher.friendOf = target;
    target->FreeNotification(&watcher);
    EXPECT_TRUE(target->getComponentState().Contains(csFreeNotification));
    delete target;
    EXPECT_EQ(watcher.friendOf, nullptr);

    // The watcher may go first.
    TComponent late;
    {
        Probe brief;
        late.FreeNotification(&brief);
        late.FreeNotification(&late);
        late.FreeNotification(nullptr);
    }
    // Both under one owner that destroys them.
    TComponent owner;
    auto* first = new Probe(&owner);
    auto* second = new Probe(&owner);
    first->friendOf = second;
    second->FreeNotification(first);
    delete second;
    EXPECT_EQ(first->friendOf, nullptr);
}

TEST(ComponentTest, FlagsReachTheOwned)
{
    TComponent owner;
    auto* middle = new TComponent(&owner);
    auto* leaf = new TComponent(middle);
    owner.SetDesigning(true);
    EXPECT_TRUE(leaf->getComponentState().Contains(csDesigning));
    EXPECT_TRUE((new TComponent(leaf))->getComponentState().Contains(csDesigning)) << "and the new ones";
    owner.SetDesigning(false, false);
    EXPECT_TRUE(middle->getComponentState().Contains(csDesigning));
    middle->SetAncestor(true);
    EXPECT_TRUE(leaf->getComponentState().Contains(csAncestor));
    EXPECT_FALSE(owner.getComponentState().Contains(csAncestor));
    owner.Destroying();
    EXPECT_TRUE(leaf->getComponentState().Contains(csDestroying));
}

TEST(ComponentTest, BindsPublishedFieldsByName)
{
    Form form;
    auto* edit = new Probe(&form);
    edit->setName(u"edit1");
    EXPECT_EQ(form.Edit1, edit);
    edit->setName(u"Edit2");
    EXPECT_EQ(form.Edit1, nullptr);
    edit->setName(u"Edit1");
    delete edit;
    EXPECT_EQ(form.Edit1, nullptr);
    (new TComponent(&form))->setName(u"Edit1");
    EXPECT_EQ(form.Edit1, nullptr) << "of another class";
    EXPECT_EQ(ClassOf<Form>()->Fields().at(0).FieldClass(), ClassOf<Probe>());
}

TEST(ComponentTest, IsMadeByItsClassWithAnOwner)
{
    TComponent owner;
    TComponent* made = ClassOf<Probe>()->Create(&owner);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->getOwner(), &owner);
    EXPECT_EQ(made->ClassName(), u"Probe");
    EXPECT_EQ(ClassOf<TStringList>()->Create(&owner), nullptr);
    made->setTag(5);
    EXPECT_EQ(Typinfo::GetInt64Prop(made, u"Tag"), 5);
    Typinfo::SetStrProp(made, u"Name", u"Made");
    EXPECT_EQ(owner.FindComponent(u"Made"), made);
}

} // namespace
