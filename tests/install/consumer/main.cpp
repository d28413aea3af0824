// SPDX-License-Identifier: MIT
#include <TRS8_BTL/platform/Version.h>

#include <cstdio>

int main()
{
    std::puts(System::LibraryVersion());
}
