// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ClassRegister.h"

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/runtime/typinfo/Typinfo.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"

#include <gmock/gmock.h>

using namespace Classes;
using System::ClassOf;
using System::GClassBuilder;
using System::TMetaClass;

namespace
{

class Probe : public TComponent
{
    TRS8_BTL_CLASS(Probe, TComponent)
};

TMetaClass* Probe::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<Probe>(u"Probe").Build();
    return record;
}

TEST(ClassRegisterTest, FindsClassesByName)
{
    RegisterClass(ClassOf<Probe>());
    RegisterClass(ClassOf<Probe>());
    EXPECT_EQ(GetClass(u"PROBE"), ClassOf<Probe>());
    EXPECT_EQ(FindClass(u"Probe"), ClassOf<Probe>());
    UnRegisterClass(ClassOf<Probe>());
    EXPECT_EQ(GetClass(u"Probe"), nullptr);
    EXPECT_THROW(FindClass(u"Probe"), EClassNotFound);
}

/// Bears the name of one of the library's own.
class TOtherLabel : public TComponent
{
    TRS8_BTL_CLASS(TOtherLabel, TComponent)
};

TMetaClass* TOtherLabel::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TOtherLabel>(u"TLabel").Build();
    return record;
}

TEST(ClassRegisterTest, FindsTheLibrarysOwnBehindThoseOfTheProgram)
{
    EXPECT_EQ(GetClass(u"tlabel"), ClassOf<Stdctrls::TLabel>());
    RegisterClass(ClassOf<TOtherLabel>());
    EXPECT_EQ(GetClass(u"TLabel"), ClassOf<TOtherLabel>());
    UnRegisterClass(ClassOf<TOtherLabel>());
    EXPECT_EQ(FindClass(u"TLabel"), ClassOf<Stdctrls::TLabel>());
    EXPECT_EQ(GetClass(u"TCustomLabel"), nullptr) << "stands in no design";
}

} // namespace
