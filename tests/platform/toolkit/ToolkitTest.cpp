// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"

#include "support/ScopedVariable.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace
{

TEST(ToolkitTest, TellsWhyAPlugInIsntTaken)
{
    using TCase = std::pair<const char*, const char*>;
    for (const auto& [name, reason] : {TCase("missing", "there is no plug-in libTRS8_BTL_missing.so"),
                                       {"../qt", "that is no name of one"},
                                       {"foreign", " belongs to version 0.0.1"}}) {
        const Support::ScopedVariable wish("TRS8_BTL_TOOLKIT", name);
        auto former = Toolkits::ExchangeToolkit(nullptr);
        testing::internal::CaptureStderr();
        Toolkits::Toolkit& toolkit = Toolkits::CurrentToolkit();
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_EQ(toolkit.GetInputPlayer(), nullptr);
        EXPECT_EQ(told.find("TRS8_BTL: the toolkit '" + std::string(name) +
                            "' is not available, running headless: "),
                  0U)
            << told;
        EXPECT_NE(told.find(reason), std::string::npos) << told;
        Toolkits::ExchangeToolkit(std::move(former));
    }
}

} // namespace
