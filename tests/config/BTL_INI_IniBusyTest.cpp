// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniBusy.h"

#include "BTL_INI_MapStore.h"
#include "config/BTL_INI_Ini.h"
#include "platform/base/Sysutils_Exception.h"

#include <gtest/gtest.h>

namespace
{

using Support::MapStore;

class CIniBusyTest : public testing::Test
{
protected:
    MapStore* store = new MapStore;
    BTL::AIni ini{store};
};

TEST_F(CIniBusyTest, WriterSaves)
{
    BTL::CIniWriteBusy busy(&ini);
    EXPECT_EQ(store->calls, "begin load ");
    busy.End();
    busy.End();
    EXPECT_EQ(store->calls, "begin load save end ");
}

TEST_F(CIniBusyTest, ReaderSavesNothing)
{
    {
        BTL::CIniReadBusy busy(&ini);
        busy.End();
    }
    EXPECT_EQ(store->calls, "begin load end ");
}

TEST_F(CIniBusyTest, ErrorIsToldWhereTheWorkDoesNotEnd)
{
    {
        const BTL::CIniWriteBusy busy(&ini);
    }
    EXPECT_EQ(store->calls, "begin load error ");
}

TEST_F(CIniBusyTest, ErrorIsToldOfAStoreThatIsNotLoaded)
{
    store->failsToLoad = true;
    EXPECT_THROW(BTL::CIniReadBusy busy(&ini), Sysutils::Exception);
    EXPECT_EQ(store->calls, "begin load error ");
}

TEST(CIniNoBusyTest, NullHasNoWork)
{
    BTL::CIniWriteBusy busy(nullptr);
    busy.End();
    BTL::CIniReadBusy reader(nullptr);
    reader.End();
}

} // namespace
