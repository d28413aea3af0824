// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string_view>

// The tests of the plug-in run on it, whoever starts them.

namespace
{

struct TEnvironment
{
    TEnvironment()
    {
        setenv("TRS8_BTL_TOOLKIT", "qt", 0);
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
    }
};

const TEnvironment environment;

/// Has the plug-in there from the first test on, whatever that begins with; not in children that are about
/// its loading.
class CLoadedPlugin final : public testing::Environment
{
public:
    void SetUp() override
    {
        if (std::string_view(std::getenv("TRS8_BTL_TOOLKIT")) == "qt") {
            ASSERT_NE(Toolkits::CurrentToolkit().GetInputPlayer(), nullptr);
        }
    }
};

const testing::Environment* const loadedPlugin = testing::AddGlobalTestEnvironment(new CLoadedPlugin);

} // namespace
