// SPDX-License-Identifier: MIT
#include "platform/host/objects/Host_Security.h"

#include "platform/host/Host_Error.h"

#include <gtest/gtest.h>

namespace
{

TEST(SecurityTest, OnlyAListThatIsNullIsForEverybody)
{
    SECURITY_DESCRIPTOR descriptor;
    EXPECT_FALSE(SetSecurityDescriptorDacl(&descriptor, true, nullptr, false));
    EXPECT_EQ(GetLastError(), ERROR_UNKNOWN_REVISION);
    EXPECT_FALSE(InitializeSecurityDescriptor(&descriptor, 2));
    ASSERT_TRUE(InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION));
    const SECURITY_ATTRIBUTES attributes{12, &descriptor, false};
    EXPECT_FALSE(Host::IsForEverybody(nullptr));
    EXPECT_FALSE(Host::IsForEverybody(&attributes));
    ASSERT_TRUE(SetSecurityDescriptorDacl(&descriptor, true, nullptr, false));
    EXPECT_TRUE(Host::IsForEverybody(&attributes));
    ASSERT_TRUE(SetSecurityDescriptorDacl(&descriptor, true, &attributes, false));
    EXPECT_FALSE(Host::IsForEverybody(&attributes));
    ASSERT_TRUE(SetSecurityDescriptorDacl(&descriptor, false, nullptr, false));
    EXPECT_FALSE(Host::IsForEverybody(&attributes));
}

} // namespace
