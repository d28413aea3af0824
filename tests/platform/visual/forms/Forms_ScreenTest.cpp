// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Forms_Screen.h"

#include "platform/runtime/filer/Classes_Fixups.h"
#include "platform/runtime/filer/FilerSupport.h"
#include "platform/visual/Dbctrls.h"
#include "platform/visual/Forms.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

using Classes::FindGlobalComponent;
using Classes::TDataModule;
using Forms::Screen;
using Forms::TForm;

namespace
{

class ScreenTest : public testing::Test
{
protected:
    template <class Root>
    static std::unique_ptr<Root> Read(const char* text)
    {
        auto root = std::make_unique<Root>();
        FilerTest::StreamOf(FilerTest::Compiled(text))->ReadComponent(root.get());
        return root;
    }

    static std::unique_ptr<TForm> ReadForm()
    {
        return Read<TForm>(
            "object Main: TForm\n  object Edit1: TDBEdit\n    DataSource = Store.Source1\n  end\nend");
    }

    static std::unique_ptr<TDataModule> ReadStore()
    {
        return Read<TDataModule>("object Store: TDataModule\n  object Source1: TDataSource\n  end\nend");
    }

    static Db::TDataSource* SourceOf(const TForm& form)
    {
        return dynamic_cast<Dbctrls::TDBEdit&>(*form.FindComponent(u"Edit1")).getDataSource();
    }

    Support::ScriptedBoxes mToolkit;
};

TEST_F(ScreenTest, AReferenceIsSetAtOnceIfItsModuleIsThere)
{
    const auto store = ReadStore();
    const auto form = ReadForm();
    EXPECT_EQ(SourceOf(*form), store->FindComponent(u"Source1"));
    EXPECT_FALSE(form->getComponentState().Contains(Classes::csFixups));
}

TEST_F(ScreenTest, AReferenceWaitsForItsModule)
{
    const auto form = ReadForm();
    {
        const auto gone = ReadForm();
        EXPECT_EQ(gone->getName(), u"Main_1");
    }
    EXPECT_EQ(SourceOf(*form), nullptr);
    Classes::TStringList names;
    Classes::GetFixupReferenceNames(form.get(), &names);
    EXPECT_EQ(names.getCommaText(), u"Store");
    auto store = ReadStore();
    EXPECT_EQ(SourceOf(*form), store->FindComponent(u"Source1"));
    names.Clear();
    Classes::GetFixupReferenceNames(nullptr, &names);
    EXPECT_EQ(names.getCount(), 0);
    store.reset();
    EXPECT_EQ(SourceOf(*form), nullptr);
}

TEST_F(ScreenTest, FindsWhatIsNotAtItsEndInItsThread)
{
    auto form = std::make_unique<TForm>();
    form->setName(u"Plain");
    EXPECT_EQ(FindGlobalComponent(u"plain"), form.get());
    const Classes::TComponent* seen = form.get();
    std::thread([&seen] { seen = FindGlobalComponent(u"Plain"); }).join();
    EXPECT_EQ(seen, nullptr);
    seen = form.get();
    form->OnDestroy = [&seen](System::TObject*) { seen = FindGlobalComponent(u"Plain"); };
    form->AfterConstruction();
    form.reset();
    EXPECT_EQ(seen, nullptr);
    EXPECT_EQ(FindGlobalComponent(u"Plain"), nullptr);
}

TEST_F(ScreenTest, HasTheDataModulesOfTheMainThread)
{
    const int count = Screen->getDataModuleCount();
    {
        const TDataModule module;
        std::thread([count] {
            const TDataModule other;
            EXPECT_EQ(Screen->getDataModuleCount(), count + 1);
        }).join();
        EXPECT_EQ(Screen->getDataModules(count), &module);
        EXPECT_THROW(Screen->getDataModules(count + 1), Classes::EListError);
        EXPECT_THROW(Screen->getDataModules(-1), Classes::EListError);
    }
    EXPECT_EQ(Screen->getDataModuleCount(), count);
}

} // namespace
