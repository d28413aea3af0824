// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtDisplay.h"

#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/toolkit/MessageBox.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Edit.h"
#include "support/ChildProgram.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"
#include "support/VirtualCompositor.h"
#include "support/VirtualScreen.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include <sys/wait.h>

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
        EXPECT_TRUE(told.starts_with("late none ")) << told;
        // The libraries of a platform may tell of it too.
        EXPECT_NE(told.find("TRS8_BTL: the toolkit 'qt' is not available, running headless: Qt reaches no "),
                  std::string::npos)
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

void Append(const std::string& text)
{
    std::ofstream(std::getenv("TRS8_BTL_SAVED"), std::ios::app) << text;
}

TEST(QtScreenLossChild, DISABLED_ShowsAForm)
{
    Forms::TForm form;
    form.Show();
    Forms::Application->ProcessMessages();
    // What a stream has gathered comes to the disk as well.
    Classes::TFileStream gathered(
        System::UnicodeString(std::filesystem::path(std::getenv("TRS8_BTL_GATHERED"))), Classes::fmCreate);
    gathered.WriteBuffer("gathered", 8);
    form.OnClose = [](System::TObject*, Forms::TCloseAction&) { Append("closed "); };
    form.OnDestroy = [](System::TObject*) { Append("destroyed "); };
    Forms::Application->OnScreenLost = [](System::TObject*) {
        Append("saved ");
        Forms::Application->MessageBox(u"Saved", nullptr, MB_OK);
        // Nothing can be shown any more, and nothing harms.
        Forms::TForm other;
        other.Show();
        throw Sysutils::Exception(u"a fault meanwhile");
    };
    // From within the loop as it waits.
    Toolkits::CurrentToolkit().Post([] { kill(std::atoi(std::getenv("TRS8_BTL_SERVER")), SIGKILL); });
    Forms::Application->Run();
    Append("went on ");
}

std::string ContentOf(const std::filesystem::path& path)
{
    std::ifstream file(path);
    return std::string((std::istreambuf_iterator<char>(file)), {});
}

/// What a program has saved whose display, the process `server`, ends.
void ExpectSaved(pid_t serverProcess)
{
    const Support::TempFolder folder;
    const auto saved = folder.Path() / "saved";
    const auto gathered = folder.Path() / "gathered";
    const auto told = folder.Path() / "told";
    const Support::ScopedVariable server("TRS8_BTL_SERVER", std::to_string(serverProcess));
    const Support::ScopedVariable savedPath("TRS8_BTL_SAVED", saved.string());
    const Support::ScopedVariable gatheredPath("TRS8_BTL_GATHERED", gathered.string());
    const std::string program = std::filesystem::read_symlink("/proc/self/exe");
    const int status = std::system(
        ("'" + program + "' --gtest_also_run_disabled_tests --gtest_filter=QtScreenLossChild.* 2>'" +
         told.string() + "'")
            .c_str());
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(ContentOf(saved), "saved closed ");
    EXPECT_EQ(ContentOf(gathered), "gathered");
    const std::string messages = ContentOf(told);
    EXPECT_NE(messages.find("TRS8_BTL: the connection to the display is lost, the program ends\n"),
              std::string::npos)
        << messages;
    EXPECT_NE(messages.find("a fault meanwhile"), std::string::npos) << messages;
    EXPECT_EQ(messages.find("Sanitizer"), std::string::npos) << messages;
}

TEST(QtScreenLossTest, TheEndOfTheDisplayLetsTheProgramSaveItsData)
{
    const Support::VirtualScreen screen;
    if (!screen.IsThere()) {
        GTEST_SKIP() << "Xvfb isn't installed.";
    }
    const Support::ScopedVariable display("DISPLAY", screen.Display());
    const Support::ScopedVariable platform("QT_QPA_PLATFORM", "xcb");
    ExpectSaved(screen.Process());
}

TEST(QtScreenLossTest, TheEndOfTheCompositorLetsTheProgramSaveItsData)
{
    // Also where nobody wants to hear what Qt warns of.
    for (const char* const rules : {"", "*.warning=false"}) {
        SCOPED_TRACE(rules);
        const Support::VirtualCompositor compositor;
        if (!compositor.IsThere()) {
            GTEST_SKIP() << "weston, or the part of Qt for it, isn't installed.";
        }
        const Support::ScopedVariable runtime("XDG_RUNTIME_DIR", compositor.Folder().string());
        const Support::ScopedVariable display("WAYLAND_DISPLAY", Support::VirtualCompositor::Display());
        const Support::ScopedVariable platform("QT_QPA_PLATFORM", "wayland");
        const Support::ScopedVariable logging("QT_LOGGING_RULES", rules);
        ExpectSaved(compositor.Process());
    }
}

} // namespace
