// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_FormResource.h"

#include "platform/runtime/filer/FilerSupport.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <gtest/gtest.h>

using namespace Classes;
using namespace FilerTest;
using System::ClassOf;
using System::GClassBuilder;
using System::TMetaClass;

namespace
{

/// A class whose resource is in its description.
class TDescribed : public TBox
{
    TRS8_BTL_CLASS(TDescribed, TBox)

public:
    explicit TDescribed(TComponent* owner = nullptr) : TBox(owner)
    {
        InitInheritedComponent(this, ClassOf<TBox>());
    }
};

TMetaClass* TDescribed::ClassRecord()
{
    static const std::string bytes = [] {
        RegisterClasses();
        return Compiled(
            "object Described: TDescribed\n  Width = 1\n  Height = 2\n  object A: TBox\n  end\nend");
    }();
    static TMetaClass* const record =
        GClassBuilder<TDescribed>(u"TDescribed")
            .Resource({reinterpret_cast<const System::Byte*>(bytes.data()), bytes.size()})
            .Build();
    return record;
}

/// Has none of its own.
class TPlain : public TDescribed
{
    TRS8_BTL_CLASS(TPlain, TDescribed)

public:
    TPlain() { mHadResource = InitInheritedComponent(this, ClassOf<TDescribed>()); }

    bool HadResource() const { return mHadResource; }

private:
    bool mHadResource = true;
};

TMetaClass* TPlain::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TPlain>(u"TPlain").Build();
    return record;
}

/// Changes what it inherits.
class TDerived : public TPlain
{
    TRS8_BTL_CLASS(TDerived, TPlain)

public:
    TDerived() { InitInheritedComponent(this, ClassOf<TPlain>()); }
};

TMetaClass* TDerived::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TDerived>(u"TDerived").Build();
    return record;
}

TEST(FormResourceTest, EachLevelIsLaidOverItsParents)
{
    const std::string design =
        Compiled("inherited Derived: TDerived\n  Height = 3\n  inherited A: TBox\n    Width = 4\n  "
                 "end\nend");
    Detail::RegisterForm("TDerived", design.data(), design.size());
    {
        const TDerived made;
        EXPECT_EQ(made.getName(), u"Derived");
        EXPECT_EQ(made.Width, 1);
        EXPECT_EQ(made.Height, 3);
        EXPECT_FALSE(made.HadResource());
        ASSERT_EQ(made.Children().size(), 1U);
        EXPECT_EQ(made.Children()[0]->Width, 4);
    }
    Detail::UnregisterForm("TDerived", design.data(), design.size());
    EXPECT_EQ(TDerived().Height, 2);
    EXPECT_EQ(BoxCount(), 0);
}

TEST(FormResourceTest, AllLevelsAreReadIntoAnObjectFromOutside)
{
    TBox box;
    box.SetClassType(ClassOf<TPlain>());
    EXPECT_TRUE(InitInheritedComponent(&box, ClassOf<TBox>()));
    EXPECT_EQ(box.Height, 2);
    EXPECT_EQ(box.LoadedCount, 1);
    EXPECT_FALSE(InitInheritedComponent(&box, ClassOf<TDescribed>()));
    EXPECT_FALSE(InitInheritedComponent(nullptr, ClassOf<TBox>()));
}

TEST(FormResourceTest, ReadsAResourceByNameOrClass)
{
    RegisterClasses();
    const std::string design = Compiled("object Any: TBox\n  Width = 5\nend");
    Detail::RegisterForm("ANY_FORM", design.data(), design.size());
    const std::unique_ptr<TComponent> made(ReadComponentRes(u"any_form", nullptr));
    EXPECT_EQ(dynamic_cast<TBox&>(*made).Width, 5);
    TBox box;
    EXPECT_EQ(ReadComponentRes(u"ANY_FORM", &box), &box);
    EXPECT_EQ(box.Width, 5);
    Detail::UnregisterForm("ANY_FORM", design.data(), design.size());
    EXPECT_THROW(ReadComponentRes(u"ANY_FORM", nullptr), EResNotFound);
    EXPECT_EQ(ReadComponentRes(ClassOf<TDescribed>(), &box), &box);
    EXPECT_EQ(box.Width, 1);
    EXPECT_THROW(ReadComponentRes(ClassOf<TBox>(), &box), EResNotFound);
    EXPECT_THROW(TResourceStream(static_cast<TMetaClass*>(nullptr)), EResNotFound);
}

} // namespace
