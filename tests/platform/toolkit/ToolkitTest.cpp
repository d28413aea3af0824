// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"

#include "platform/runtime/classes/Classes_Thread.h"
#include "platform/toolkit/MessageWindow.h"
#include "platform/visual/Forms.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"
#include "support/ChildProgram.h"
#include "support/ScopedVariable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
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
                                       {"foreign", " belongs to version 0.0.1"},
                                       {"text", "libTRS8_BTL_text.so"},
                                       {"bare", " is no plug-in of this library"},
                                       {"incomplete", "aLibraryThatIsMissing"}}) {
        SCOPED_TRACE(name);
        const Support::ScopedVariable wish("TRS8_BTL_TOOLKIT", name);
        auto former = Toolkits::ExchangeToolkit(nullptr);
        testing::internal::CaptureStderr();
        Toolkits::Toolkit& toolkit = Toolkits::CurrentToolkit();
        EXPECT_EQ(toolkit.GetInputPlayer(), nullptr);
        EXPECT_EQ(toolkit.DesktopRect().Width(), 1920);
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_EQ(told.find("TRS8_BTL: the toolkit '" + std::string(name) +
                            "' is not available, running headless: "),
                  0U)
            << told;
        EXPECT_NE(told.find(reason), std::string::npos) << told;
        EXPECT_EQ(std::ranges::count(told, '\n'), 1) << told;
        Toolkits::ExchangeToolkit(std::move(former));
    }
}

/// Whether a library of Qt, or the plug-in, is in the memory of this process.
bool HasQt()
{
    std::ifstream file("/proc/self/maps");
    const std::string maps((std::istreambuf_iterator<char>(file)), {});
    return maps.find("libQt") != std::string::npos || maps.find("TRS8_BTL_qt") != std::string::npos;
}

class TSquare final : public Classes::TThread
{
public:
    explicit TSquare(int& result) : TThread(true), mResult(result) {}

protected:
    void Execute() override
    {
        Synchronize([this] { mResult = 49; });
    }

private:
    int& mResult;
};

TEST(ToolkitTest, DISABLED_ShowsNothing)
{
    int square = 0;
    TSquare thread(square);
    thread.Start();
    int ticks = 0;
    Extctrls::TTimer timer(nullptr);
    timer.setInterval(1);
    timer.setOnTimer([&ticks](System::TObject*) { ++ticks; });
    const Toolkits::MessageWindow window(u"TRS8_BTL ToolkitTest", [](const auto&) { return 1; });
    Toolkits::CurrentToolkit().SetCursor(-11);
    while (ticks < 3 || square == 0) {
        Forms::Application->HandleMessage();
    }
    thread.WaitFor();
    Support::PrintResult(HasQt() ? "Qt is there" : "no Qt");
}

TEST(ToolkitTest, AProgramThatShowsNothingLoadsNoQtOnADesktop)
{
    const Support::ScopedVariable display("DISPLAY", ":0");
    for (const char* const wish : {"", "qt"}) {
        const Support::ScopedVariable toolkit("TRS8_BTL_TOOLKIT", wish);
        EXPECT_EQ(Support::RunChildTest("ToolkitTest.DISABLED_ShowsNothing"), "no Qt");
    }
}

} // namespace
