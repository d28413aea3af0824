// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Persistent.h"

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/runtime/typinfo/Typinfo.h"

#include <gmock/gmock.h>

using namespace Classes;

namespace
{

TEST(PersistentTest, RefusesWhatItDoesNotKnow)
{
    TComponent a;
    TComponent b;
    try {
        a.Assign(&b);
        FAIL() << "nothing raised";
    } catch (const Sysutils::EConvertError& error) {
        EXPECT_EQ(error.getMessage(), u"Cannot assign a TComponent to a TComponent");
    }
    EXPECT_THROW(a.Assign(nullptr), Sysutils::EConvertError);
}

} // namespace
