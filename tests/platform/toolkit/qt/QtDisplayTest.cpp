// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "support/ChildProgram.h"
#include "support/ScopedVariable.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <memory>
#include <string>

// Which programs get windows. Each is a process of its own, since there is one application object of Qt.

namespace
{

using Toolkits::CurrentToolkit;

/// Tells, in a child, whether there is a screen now, and what the standard error stream says of it.
std::string NeedScreen()
{
    testing::internal::CaptureStderr();
    const bool hasWindows = CurrentToolkit().GetInputPlayer() != nullptr;
    return (hasWindows ? "windows " : "none ") + testing::internal::GetCapturedStderr();
}

/// A desktop without a wish for a toolkit.
class QtDisplayTest : public testing::Test
{
    Support::ScopedVariable mWish{"TRS8_BTL_TOOLKIT", ""};
    Support::ScopedVariable mDisplay{"DISPLAY", ":9999"};
    Support::ScopedVariable mOtherDisplay{"WAYLAND_DISPLAY", nullptr};
};

TEST(QtDisplayChild, DISABLED_NeedsAScreen)
{
    const bool wasThere = QCoreApplication::instance() != nullptr;
    Support::PrintResult((wasThere ? "early " : "late ") + NeedScreen());
}

TEST_F(QtDisplayTest, ADesktopHasWindowsOnceTheyAreNeeded)
{
    EXPECT_EQ(Support::RunChildTest("QtDisplayChild.DISABLED_NeedsAScreen"), "late windows ");
}

TEST_F(QtDisplayTest, ADisplayThatCantBeReachedLeavesTheProgramHeadless)
{
    for (const char* const platform : {"", "xcb", "wayland", "nothing"}) {
        const Support::ScopedVariable variable("QT_QPA_PLATFORM", platform);
        const std::string told = Support::RunChildTest("QtDisplayChild.DISABLED_NeedsAScreen");
        EXPECT_EQ(
            told.find(
                "late none TRS8_BTL: the toolkit 'qt' is not available, running headless: Qt reaches no "),
            0U)
            << told;
        EXPECT_NE(told.find("DISPLAY=':9999'"), std::string::npos) << told;
    }
}

TEST(QtDisplayChild, DISABLED_HasAnApplicationWithoutWindows)
{
    int count = 0;
    QCoreApplication application(count, nullptr);
    Support::PrintResult(NeedScreen());
}

TEST_F(QtDisplayTest, AnApplicationWithoutWindowsLeavesTheProgramHeadless)
{
    EXPECT_EQ(Support::RunChildTest("QtDisplayChild.DISABLED_HasAnApplicationWithoutWindows"),
              "none TRS8_BTL: the toolkit 'qt' is not available, running headless: the program's own "
              "QCoreApplication shows no widgets, which takes a QApplication\n");
}

TEST(QtDisplayChild, DISABLED_HasItsOwnApplication)
{
    int count = 0;
    auto own = std::make_unique<QApplication>(count, nullptr);
    auto form = std::make_unique<Forms::TForm>();
    Stdctrls::TEdit edit(form.get());
    edit.setParent(form.get());
    form->Show();
    const auto timer = CurrentToolkit().StartTimer(1, [] {});
    EXPECT_EQ(QCoreApplication::instance(), own.get());
    EXPECT_NE(form->GetWindow()->NativeObject(), nullptr);
    Forms::Application->ProcessMessages();
    // The end of the program's object is no end of what the library still has.
    own.reset();
    form->setCaption(u"later");
    CurrentToolkit().Post([&] { form->Hide(); });
    Forms::Application->ProcessMessages();
    CurrentToolkit().StopTimer(timer);
    Support::PrintResult(form->getVisible() ? "shown" : "hidden");
}

TEST_F(QtDisplayTest, AnApplicationOfTheProgramsOwnServesAndMayEndFirst)
{
    EXPECT_EQ(Support::RunChildTest("QtDisplayChild.DISABLED_HasItsOwnApplication"), "hidden");
}

} // namespace
