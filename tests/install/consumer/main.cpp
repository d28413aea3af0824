// SPDX-License-Identifier: MIT
#include <TRS8_BTL/platform/Version.h>

#include <cstdio>

#if __has_include("platform/Version.h")
#error "the rooms of the library lie open in the user's include space"
#endif

int main()
{
    std::puts(System::LibraryVersion());
}
