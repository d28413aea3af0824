// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <QApplication>

#include <cstdlib>

// A program of Qt, whose own application object serves the library.

int main(int count, char** arguments)
{
    setenv("TRS8_BTL_TOOLKIT", "qt", 0);
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    testing::InitGoogleMock(&count, arguments);
    const QApplication application(count, arguments);
    return RUN_ALL_TESTS();
}
