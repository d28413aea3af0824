// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Classes_DataModule.h"

#include "platform/runtime/filer/FilerSupport.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using Classes::TComponent;
using System::GClassBuilder;
using System::TMetaClass;
using System::TObject;

class TStore : public Classes::TDataModule
{
    TRS8_BTL_CLASS(TStore, Classes::TDataModule)

public:
    explicit TStore(TComponent* owner = nullptr) : TDataModule(owner) { ReadDesign(); }

    void Count(TObject*) { ++made; }

    Extctrls::TTimer* Saver = nullptr;
    int made = 0;
};

TMetaClass* TStore::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TStore>(u"TStore")
                                          .Field(u"Saver", &TStore::Saver)
                                          .Method(u"Count", &TStore::Count)
                                          .Build();
    return record;
}

class DataModuleTest : public testing::Test
{
protected:
    FilerTest::CRegisteredDesign mStore{
        "TStore", "object Store: TStore\n  OnCreate = Count\n  Height = 150\n  Width = 215\n"
                  "  object Saver: TTimer\n    Interval = 9\n    Enabled = False\n  end\nend"};
};

TEST_F(DataModuleTest, AModuleIsToldWhenItIsWhole)
{
    TStore* store = nullptr;
    Forms::Application->CreateForm(store);
    EXPECT_EQ(store->made, 1);
    store->AfterConstruction();
    EXPECT_EQ(store->made, 1);
    EXPECT_EQ(store->Saver->getInterval(), 9U);
    EXPECT_EQ(store->getDesignSize(), (Types::TPoint{215, 150}));
    EXPECT_EQ(Forms::Application->getMainForm(), nullptr);
    bool wasAsked = false;
    store->OnDestroy = [&wasAsked](TObject*) {
        wasAsked = true;
        throw Sysutils::EAbort(u"late");
    };
    delete store;
    EXPECT_TRUE(wasAsked);
}

TEST_F(DataModuleTest, IsWrittenWithWhatItOwns)
{
    TStore store;
    const std::string text = FilerTest::WrittenText(store);
    EXPECT_NE(text.find("object Saver: TTimer"), std::string::npos) << text;
    EXPECT_NE(text.find("Height = 150"), std::string::npos) << text;
    EXPECT_EQ(text.find("Offset"), std::string::npos) << text;
}

} // namespace
