// SPDX-License-Identifier: MIT
#include "environment/BTL_ENV_ApplicationIni.h"

#include "environment/folders/BTL_ENV_Folders.h"
#include "platform/host/Host_Path.h"
#include "platform/visual/Forms.h"
#include "platform/visual/graphics/Graphics_Icon.h"
#include "support/ChildProgram.h"
#include "support/IconFiles.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <thread>

namespace
{

namespace fs = std::filesystem;
using BTL::CApplicationIni;
using System::UnicodeString;

// The product folder follows from the place of the program, so each case runs as a program of its own.
class ApplicationIniTest : public testing::Test
{
protected:
    ApplicationIniTest()
    {
        fs::create_directories(Root() / "Bin");
        fs::create_directories(Product());
    }

    fs::path Root() const { return mTemp.Path() / "A"; }
    fs::path Product() const { return Root() / "ProgramData/Product"; }
    void Describe(const std::string& lines) const
    {
        std::ofstream(Product() / "Application.ini") << "[Application]\n" << lines;
    }
    std::string Run(const std::string& test) const
    {
        return Support::RunChildTest(test, Root() / "Bin/program");
    }

    Support::TempFolder mTemp;
};

TEST(ApplicationIniChild, DISABLED_Defaults)
{
    const CApplicationIni application;
    EXPECT_EQ(application.getTitle(), u"");
    EXPECT_EQ(application.VendorNo, 0);
    EXPECT_EQ(application.MainFormOnTaskBar, -1);
    EXPECT_EQ(application.UserDataLocation, 0);
    EXPECT_EQ(application.getIB_ErrorHelpFile(), BTL::GetHelpPath() + u"IB_Error.chm");
    EXPECT_EQ(application.RemoteControlCaption, u"TeamViewer");
    EXPECT_FALSE(application.RemoteControlExe.IsEmpty());
    EXPECT_EQ(application.ExternalAppInstallPath, u"");

    EXPECT_TRUE(Forms::Application->getIcon()->getEmpty());
    Forms::Application->setMainFormOnTaskBar(true);
    application.AssignToCurrApplication();
    EXPECT_TRUE(Forms::Application->getMainFormOnTaskBar()) << "left as it was";
    Support::PrintResult("");
}

TEST_F(ApplicationIniTest, HasDefaultsWithoutAFile)
{
    EXPECT_EQ(Run("ApplicationIniChild.DISABLED_Defaults"), "");
}

TEST(ApplicationIniChild, DISABLED_Described)
{
    const CApplicationIni application;
    EXPECT_EQ(application.KernelName, u"Kernel");
    EXPECT_EQ(application.VendorNo, 12);
    EXPECT_EQ(application.AppVersion, 0) << "no number";
    EXPECT_EQ(application.getAppName(), u"Station");
    EXPECT_EQ(application.UserDataLocation, 38) << "hexadecimal";
    EXPECT_EQ(application.getIB_ErrorHelpFile(), u"") << "an empty value is a value";
    EXPECT_EQ(application.getHelpFileEx(), BTL::GetHelpPath() + u"station.chm");
    EXPECT_EQ(application.getDefaultDBFileEx(), BTL::GetRootPath() + u"UserData\\DB\\main.db");
    EXPECT_EQ(application.ExternalAppInstallPath, u"\\opt\\tool\\");
    EXPECT_EQ(application.ExternalAppCaption, u"Tool");

    application.AssignToCurrApplication();
    EXPECT_EQ(Forms::Application->getTitle(), u"The station");
    EXPECT_EQ(Forms::Application->getHelpFile(), application.getHelpFileEx());
    EXPECT_TRUE(Forms::Application->getMainFormOnTaskBar());
    EXPECT_EQ(Forms::Application->getIcon()->getWidth(), 3);
    Support::PrintResult("");
}

TEST_F(ApplicationIniTest, ReadsTheFile)
{
    const auto icon = Support::IconFile({Support::IconImage(3, 3, 0xFF)});
    std::ofstream(Product() / "station.ico", std::ios::binary)
        .write(reinterpret_cast<const char*>(icon.data()), static_cast<std::streamsize>(icon.size()));
    Describe("KernelName=Kernel\nVendorNo=12\nAppVersion=new\nAppName=Station\nTitle=The station\n"
             "UserDataLocation=26\nIB_ErrorHelpFile=\nHelpFile=station.chm\nDefaultDBFile=main.db\n"
             "MainFormOnTaskBar=2\nIconFile=station.ico\nExternalAppExe="
             "\\opt\\tool\\tool\nExternalAppCaption=Tool\n");
    EXPECT_EQ(Run("ApplicationIniChild.DISABLED_Described"), "");
}

TEST(ApplicationIniChild, DISABLED_Instances)
{
    const CApplicationIni* const builtIn = CApplicationIni::Get();
    CApplicationIni other;
    other.AppName = u"other";
    CApplicationIni::Set(&other);
    EXPECT_EQ(CApplicationIni::Get(), &other);
    CApplicationIni::Set(nullptr);
    EXPECT_EQ(CApplicationIni::Get(), builtIn);

    other.Load();
    EXPECT_EQ(other.AppName, u"") << "read anew";
    Support::PrintResult("");
}

TEST_F(ApplicationIniTest, GivesTheInstanceThatWasSet)
{
    EXPECT_EQ(Run("ApplicationIniChild.DISABLED_Instances"), "");
}

TEST(ApplicationIniChild, DISABLED_OpenTool)
{
    CApplicationIni::Get()->OpenExternalApp();
    Support::PrintResult("");
}

/// Waits for what a program writes that nobody waits for.
std::string AwaitText(const fs::path& file)
{
    std::string text;
    for (int round = 0; round < 500 && !text.ends_with("\nend\n"); ++round) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        std::ifstream stream(file);
        text.assign(std::istreambuf_iterator<char>(stream), {});
    }
    return text;
}

TEST_F(ApplicationIniTest, OpensTheExternalProgramInItsFolder)
{
    const fs::path folder = mTemp.Path() / "a tool";
    fs::create_directories(folder);
    const fs::path tool = folder / "tool.sh";
    std::ofstream(tool)
        << "#!/bin/sh\n{ pwd; printf '%s\\n' \"$@\"; echo end; } > result.new\nmv result.new result.txt\n";
    fs::permissions(tool, fs::perms::owner_all);
    Describe("ExternalAppExe=" + System::ToUtf8(Sysutils::FromHostPath(tool.string())) +
             "\nExternalAppParams=-a \"b c\"\n");
    EXPECT_EQ(Run("ApplicationIniChild.DISABLED_OpenTool"), "");
    EXPECT_EQ(AwaitText(folder / "result.txt"), folder.string() + "\n-a\nb c\nend\n");
}

TEST_F(ApplicationIniTest, OpensNothingWithoutAProgram)
{
    Describe("ExternalAppParams=-a\n");
    EXPECT_EQ(Run("ApplicationIniChild.DISABLED_OpenTool"), "");
}

} // namespace
