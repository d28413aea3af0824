// SPDX-License-Identifier: MIT
#include <cstdlib>

// The tests show no windows on the screen of whoever starts them, unless the variable says so.

namespace
{

struct THeadless
{
    THeadless() { setenv("TRS8_BTL_TOOLKIT", "headless", 0); }
};

const THeadless headless;

} // namespace
