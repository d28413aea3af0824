// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Collection.h"

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/runtime/typinfo/Typinfo.h"

#include <gmock/gmock.h>
#include <memory>

using namespace Classes;
using System::ClassOf;
using System::GClassBuilder;
using System::TMetaClass;
using testing::ElementsAre;

namespace
{

class Column : public TCollectionItem
{
    TRS8_BTL_CLASS(Column, TCollectionItem)

public:
    explicit Column(TCollection* collection = nullptr) : TCollectionItem(collection) {}
    void Assign(TPersistent* source) override { width = dynamic_cast<Column&>(*source).width; }
    void setWidth(int value)
    {
        width = value;
        Changed(false);
    }
    int width = 0;
};

TMetaClass* Column::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<Column>(u"Column").Build();
    return record;
}

class Columns : public TOwnedCollection
{
    TRS8_BTL_CLASS(Columns, TOwnedCollection)

public:
    using TOwnedCollection::TOwnedCollection;
    ~Columns() override = default;
    std::vector<TCollectionItem*> updates;

protected:
    void Update(TCollectionItem* item) override { updates.push_back(item); }
};

TMetaClass* Columns::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<Columns>(u"Columns").Build();
    return record;
}

class Grid : public TComponent
{
    TRS8_BTL_CLASS(Grid, TComponent)

public:
    Columns* getItems() const { return columns.get(); }
    std::unique_ptr<Columns> columns = std::make_unique<Columns>(this, ClassOf<Column>());
};

TMetaClass* Grid::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<Grid>(u"Grid").Property(u"Items", &Grid::getItems).Build();
    return record;
}

TEST(CollectionTest, OwnsAndOrdersItsItems)
{
    TCollection columns(ClassOf<Column>());
    TCollectionItem* a = columns.Add();
    TCollectionItem* b = columns.Insert(0);
    EXPECT_EQ(a->ClassName(), u"Column");
    EXPECT_EQ(b->getIndex(), 0);
    EXPECT_EQ(columns.FindItemID(a->getID()), a);
    a->setIndex(-5);
    EXPECT_EQ(columns.GetItem(0), a);
    delete a;
    EXPECT_EQ(columns.GetCount(), 1);
    EXPECT_THROW(columns.GetItem(1), EListError);
    EXPECT_THROW(columns.Insert(2), EListError);
    EXPECT_EQ(columns.Add()->getID(), 2) << "a number is never used again";

    TCollection others(ClassOf<Column>());
    b->setCollection(&others);
    EXPECT_EQ(others.GetCount(), 1);
    b->setCollection(nullptr);
    delete b;
    EXPECT_EQ(others.GetCount(), 0);
}

TEST(CollectionTest, TakesOnlyItemsOfItsClass)
{
    TCollection columns(ClassOf<Column>());
    TCollectionItem plain;
    EXPECT_THROW(plain.setCollection(&columns), EInvalidOperation);
    EXPECT_THROW(TCollection(ClassOf<TComponent>()), EInvalidOperation);
    EXPECT_THROW(TCollection(nullptr), EInvalidOperation);
}

TEST(CollectionTest, TellsOfChangesOnceForAnUpdate)
{
    Grid owner;
    owner.setName(u"Grid1");
    Columns& columns = *owner.columns;
    auto* a = dynamic_cast<Column*>(columns.Add());
    columns.updates.clear();
    a->setWidth(3);
    EXPECT_THAT(columns.updates, ElementsAre(a));

    Columns copy(nullptr, ClassOf<Column>());
    copy.Add();
    EXPECT_EQ(copy.GetItem(0)->GetNamePath(), u"Columns[0]");
    copy.updates.clear();
    copy.Assign(&columns);
    EXPECT_EQ(copy.updates.size(), 1U);
    ASSERT_EQ(copy.GetCount(), 1);
    EXPECT_EQ(dynamic_cast<Column*>(copy.GetItem(0))->width, 3);
    EXPECT_EQ(a->GetNamePath(), u"Grid1.Items[0]");
}

TEST(CollectionTest, IsARangeOfItsItems)
{
    TCollection collection(ClassOf<Column>());
    EXPECT_TRUE(collection.empty());
    EXPECT_EQ(collection.begin(), collection.end());
    TCollectionItem* const first = collection.Add();
    TCollectionItem* const second = collection.Add();
    EXPECT_EQ(collection.size(), 2U);
    EXPECT_THAT(std::vector(collection.begin(), collection.end()), ElementsAre(first, second));
}

} // namespace
