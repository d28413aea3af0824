// SPDX-License-Identifier: MIT
#include <cstdlib>

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

} // namespace
