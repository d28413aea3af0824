// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ClassRegister.h"

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/runtime/typinfo/Typinfo.h"

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

} // namespace
