// SPDX-License-Identifier: MIT
#include "properties/resources/Pasu_create.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "properties/resources/Designs.h"

namespace
{

using namespace Designs;
using PasuCreateTest = DesignTest;
using System::ClassOf;
using System::TObject;

/// Its constructor raises.
class TFailing : public TObject
{
    TRS8_BTL_CLASS(TFailing, System::TObject)

public:
    TFailing() { throw Classes::EInvalidOperation(u"no"); }
};

System::TMetaClass* TFailing::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TFailing>(u"TFailing").Build();
    return record;
}

/// Nothing but a number, which is behind the root.
class TPair : public TObject
{
    TRS8_BTL_CLASS(TPair, System::TObject)

public:
    long First = 1;
    long Second = 2;
};

System::TMetaClass* TPair::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TPair>(u"TPair").Build();
    return record;
}

TEST_F(PasuCreateTest, AnInstanceIsBareUntilItIsConstructed)
{
    std::unique_ptr<TObject> bare(Pasu_create::NewInstance(ClassOf<TPair>()));
    EXPECT_EQ(bare->ClassType(), ClassOf<TPair>());
    EXPECT_EQ(dynamic_cast<TPair*>(bare.get()), nullptr);

    const std::unique_ptr<TObject> made(Pasu_create::Create(bare.release()));
    const auto* const pair = dynamic_cast<TPair*>(made.get());
    ASSERT_NE(pair, nullptr);
    EXPECT_EQ(pair->Second, 2);
    EXPECT_FALSE(pair->HasSetClass());
}

TEST_F(PasuCreateTest, NullStaysNull)
{
    EXPECT_EQ(Pasu_create::NewInstance(nullptr), nullptr);
    EXPECT_EQ(Pasu_create::Create(nullptr), nullptr);
    EXPECT_EQ(Pasu_create::Create(nullptr, nullptr), nullptr);
    EXPECT_EQ(Pasu_create::CreateNew(nullptr, nullptr), nullptr);
}

TEST_F(PasuCreateTest, WhatCannotBeMadeLeavesTheBareObject)
{
    for (System::TMetaClass* const type :
         {ClassOf<TFailing>(), ClassOf<Classes::TStrings>(), ClassOf<TRows>()}) {
        const std::unique_ptr<TObject> bare(Pasu_create::NewInstance(type));
        EXPECT_THROW(Pasu_create::Create(bare.get()), Classes::EInvalidOperation);
        EXPECT_EQ(bare->ClassType(), type);
    }
    const std::unique_ptr<TObject> pair(Pasu_create::NewInstance(ClassOf<TPair>()));
    EXPECT_THROW(Pasu_create::Create(pair.get(), nullptr), Classes::EInvalidOperation) << "no component";
    EXPECT_THROW(Pasu_create::CreateNew(pair.get(), nullptr), Classes::EInvalidOperation) << "no form";
}

TEST_F(PasuCreateTest, AnObjectIsMadeOnceAndWhereItFits)
{
    TPair whole;
    EXPECT_THROW(Pasu_create::Create(&whole), Classes::EInvalidOperation);
    const std::unique_ptr<TObject> small(Pasu_create::NewInstance(ClassOf<TObject>()));
    small->SetClassType(ClassOf<Forms::TForm>());
    EXPECT_THROW(Pasu_create::Create(small.get()), Classes::EInvalidOperation);
    EXPECT_EQ(small->ClassType(), ClassOf<Forms::TForm>());
}

TEST_F(PasuCreateTest, AComponentIsMadeInPlaceForItsOwner)
{
    Classes::TComponent owner;
    TObject* const bare = Pasu_create::NewInstance(ClassOf<TBenchForm>());
    Classes::TComponent* const form = Pasu_create::Create(bare, &owner);
    EXPECT_EQ(form->getOwner(), &owner);
    EXPECT_EQ(dynamic_cast<TBenchForm*>(form)->getLevel(), 7);
    EXPECT_EQ(TBenchForm::Calls, 1);
}

TEST_F(PasuCreateTest, ANewFormHasNoDesign)
{
    TObject* const bare = Pasu_create::NewInstance(ClassOf<TBenchForm>());
    const std::unique_ptr<Forms::TCustomForm> form(Pasu_create::CreateNew(bare, nullptr));
    EXPECT_EQ(form->ClassType(), ClassOf<TBenchForm>());
    EXPECT_EQ(form->GetComponentCount(), 0);
    EXPECT_EQ(TBenchForm::Calls, 0);
    EXPECT_NE(dynamic_cast<Forms::TForm*>(form.get()), nullptr);
}

} // namespace
