// SPDX-License-Identifier: MIT
#include "properties/classes/BTL_ClassModules.h"

#include "platform/host/Host_Module.h"
#include "platform/host/Host_Path.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/Forms.h"

#include <gmock/gmock.h>

#include <dlfcn.h>
#include <memory>
#include <vector>

namespace
{

using BTL::CClassModule;
using BTL::CClassModules;
using Classes::TStringList;
using System::ClassOf;
using System::TMetaClass;
using System::UnicodeString;
using testing::IsSupersetOf;

class TOwnForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TOwnForm, Forms::TForm)
};

TMetaClass* TOwnForm::ClassRecord()
{
    static TMetaClass* const record = System::GClassBuilder<TOwnForm>(u"TOwnForm").Build();
    return record;
}

UnicodeString FileOf(const char* path)
{
    return Sysutils::ExtractFileName(Sysutils::FromHostPath(path));
}

const UnicodeString gauges = FileOf(CLASS_GAUGES);
const UnicodeString panels = FileOf(CLASS_PANELS);
const UnicodeString library = Sysutils::ExtractFileName([] {
    std::vector<System::WideChar> path(1000);
    GetModuleFileNameW(ClassOf<Forms::TForm>()->ModuleAddress(), path.data(), 1000);
    return UnicodeString(path.data());
}());

std::vector<UnicodeString> Lines(const TStringList& list)
{
    std::vector<UnicodeString> lines;
    for (int i = 0; i < list.getCount(); ++i) {
        lines.push_back(list.getStrings(i));
    }
    return lines;
}

UnicodeString ClassesOf(const UnicodeString& module)
{
    TStringList list;
    list.Add(u"former");
    BTL::GetClasses(module, &list);
    return list.getCommaText();
}

/// The modules are loaded, tell their classes, and are closed again.
class ClassModulesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const char* const path : {CLASS_PANELS, CLASS_GAUGES}) {
            void* const module = dlopen(path, RTLD_NOW | RTLD_LOCAL);
            ASSERT_NE(module, nullptr) << dlerror();
            dlclose(module);
        }
    }
};

TEST_F(ClassModulesTest, EachModuleHasItsClasses)
{
    EXPECT_EQ(ClassesOf(gauges), u"TAboutForm,TGaugeForm,TStoreModule");
    EXPECT_EQ(ClassesOf(panels), u"TAboutForm,TPanelFrame") << "a parent is of the module that declares it";
    EXPECT_EQ(ClassesOf(library),
              u"TComponent,TControl,TCustomControl,TCustomFrame,TFrame,TObject,TPersistent,TWinControl");
    EXPECT_EQ(ClassesOf(u"unknown"), u"");

    TStringList all;
    BTL::GetClasses(&all);
    EXPECT_THAT(Lines(all), IsSupersetOf({u"TAboutForm", u"TGaugeForm", u"TPanelFrame", u"TFrame"}));
    EXPECT_NE(BTL::GetComponentClass(u"TProbe"), nullptr);
}

TEST_F(ClassModulesTest, ModulesAreFoundInAnyCase)
{
    TMetaClass* const first = BTL::FindClass(gauges, u"TAboutForm");
    TMetaClass* const second = BTL::FindClass(panels, u"TAboutForm");
    ASSERT_NE(first, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(BTL::FindClass(gauges.UpperCase(), u"TAboutForm"), first);
    EXPECT_EQ(BTL::FindClass(gauges, u"taboutform"), nullptr) << "case matters in the names of classes";
    EXPECT_EQ(BTL::FindClass(u"", u"TAboutForm"), nullptr);
    EXPECT_EQ(first->getParent(), second->getParent());
}

TEST_F(ClassModulesTest, ListsOfModulesBearThem)
{
    TStringList list;
    BTL::GetClassModules(&list);
    EXPECT_THAT(Lines(list), IsSupersetOf({gauges, panels, library}));
    for (int i = 0; i < list.getCount(); ++i) {
        const auto* const module = System::CheckedCast<CClassModule>(list.getObjects(i));
        EXPECT_EQ(module->getModuleName(), list.getStrings(i));
        EXPECT_EQ(Sysutils::ExtractFileName(module->getModulePath()), module->getModuleName());
        EXPECT_EQ(module->getClasses().getName(), module->getModuleName());
    }
}

/// The modules have been closed, yet what they registered works.
TEST_F(ClassModulesTest, ModulesStayMapped)
{
    for (const auto& [module, caption] : {std::pair(gauges, u"Gauges"), {panels, u"Panels"}}) {
        TMetaClass* const type = BTL::FindClass(module, u"TAboutForm");
        ASSERT_NE(Host::ModuleOf(type->ModuleAddress()), nullptr);
        Classes::TComponent owner;
        EXPECT_EQ(System::CheckedCast<Forms::TForm>(type->Create(&owner))->getCaption(), caption);
    }
}

TEST(ClassModulesOwnTest, TheKindOfAClassDecides)
{
    const auto count = [] {
        TStringList list;
        BTL::GetClasses(&list);
        return list.getCount();
    };
    const int before = count();
    for (TMetaClass* const type : {static_cast<TMetaClass*>(nullptr), ClassOf<Forms::TForm>(),
                                   ClassOf<Forms::TCustomForm>(), ClassOf<Classes::TComponent>()}) {
        BTL::RegisterFormClass(type);
    }
    BTL::RegisterFrameClass(ClassOf<Forms::TFrame>());
    BTL::RegisterFrameClass(ClassOf<TOwnForm>());
    BTL::RegisterDataModuleClass(ClassOf<Classes::TDataModule>());
    BTL::RegisterDataModuleClass(ClassOf<TOwnForm>());
    EXPECT_EQ(count(), before);
}

TEST(ClassModulesOwnTest, AProgramIsAModule)
{
    CClassModules modules;
    modules.AddClass(ClassOf<TOwnForm>(), true);
    modules.AddClass(ClassOf<TOwnForm>(), true);
    modules.AddClass(nullptr, true);
    const UnicodeString name = Sysutils::ExtractFileName(Host::ProgramPath());
    const CClassModule* const program = modules.FindClassModule(name.UpperCase());
    ASSERT_NE(program, nullptr);
    EXPECT_EQ(program->getModulePath(), Host::ProgramPath());
    EXPECT_EQ(program->getClasses().getCount(), 1);
    EXPECT_EQ(program->FindClass(u"TOwnForm"), ClassOf<TOwnForm>());
    modules.GetClasses(nullptr);
    modules.GetClassModules(nullptr);
}

TEST(ClassModulesOwnTest, NamesOfModulesHaveAnOrder)
{
    const BTL::CClassModuleLess less;
    for (const auto& [a, b, isLess] : {std::tuple(u"", u"", false),
                                       {u"", u"a.so", true},
                                       {u"a.so", u"", false},
                                       {u"Tools.BPL", u"tools.bpl", false},
                                       {u"tools.bpl", u"Tools.BPL", false},
                                       {u"a.so", u"B.so", true},
                                       {u"B.so", u"a.so", false}}) {
        EXPECT_EQ(less(a, b), isLess) << System::ToUtf8(a) << ' ' << System::ToUtf8(b);
    }
}

} // namespace
