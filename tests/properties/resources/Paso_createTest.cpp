// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_create.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "properties/resources/Designs.h"

namespace
{

using namespace Designs;
using PasoCreateTest = DesignTest;
using System::ClassOf;

TEST_F(PasoCreateTest, AnotherConstructorRunsInTheStorageOfAClass)
{
    Classes::TComponent owner;
    Classes::TComponent* const form =
        PASO::CreateComponent(ClassOf<TFineForm>(), ClassOf<Forms::TForm>(), &owner);
    EXPECT_EQ(form->ClassType(), ClassOf<Forms::TForm>());
    EXPECT_EQ(form->getOwner(), &owner);
    EXPECT_EQ(TBenchForm::Calls, 0);
    delete form;
    EXPECT_EQ(TBenchForm::Calls, 0);
}

TEST_F(PasoCreateTest, WithoutAnotherClassItIsWhole)
{
    const std::unique_ptr<Classes::TComponent> form(PASO::CreateComponent(ClassOf<TBenchForm>(), nullptr));
    EXPECT_NE(dynamic_cast<TBenchForm*>(form.get()), nullptr);
    EXPECT_FALSE(form->HasSetClass());

    const std::unique_ptr<System::TObject> list(PASO::CreateObject(ClassOf<Classes::TStringList>(), nullptr));
    EXPECT_NE(dynamic_cast<Classes::TStringList*>(list.get()), nullptr);
    const std::unique_ptr<System::TObject> plain(
        PASO::CreateObject(ClassOf<Classes::TStringList>(), ClassOf<System::TObject>()));
    EXPECT_EQ(plain->ClassType(), ClassOf<System::TObject>());
}

TEST_F(PasoCreateTest, WhatCannotBeCreatedLeavesNothing)
{
    EXPECT_EQ(PASO::CreateObject(nullptr, ClassOf<Forms::TForm>()), nullptr);
    EXPECT_EQ(PASO::CreateComponent(nullptr, nullptr, nullptr), nullptr);
    EXPECT_THROW(static_cast<void>(PASO::CreateObject(ClassOf<Forms::TForm>(), ClassOf<TFineForm>())),
                 Classes::EInvalidOperation)
        << "too large";
    EXPECT_THROW(PASO::CreateComponent(ClassOf<TLimits>(), nullptr), Classes::EInvalidOperation);
}

} // namespace
