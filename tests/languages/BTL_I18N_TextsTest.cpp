// SPDX-License-Identifier: MIT
#include "languages/BTL_I18N_Texts.h"

#include "config/BTL_INI_Texts.h"
#include "config/BTL_INI_WinIniFile.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "languages/LanguageFile.h"
#include "os/WIN_TickCount.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ChildProgram.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{

namespace fs = std::filesystem;
using BTL::EIDS;
using BTL::Gi18n;
using System::UnicodeString;

constexpr int Count = static_cast<int>(EIDS::AlreadyRunning) + 1;

/// Switches the table to a file, and back in the end.
class CTable
{
public:
    CTable(const UnicodeString& file, const UnicodeString& path) { Gi18n::Init(u"IDS", file, path); }
    CTable(const CTable&) = delete;
    CTable& operator=(const CTable&) = delete;
    ~CTable() { Gi18n::Init(u"IDS", u"BTL_German.ids", BTL::GetProgramIDSPath()); }
};

TEST(TextsTest, AreThereInEveryLanguage)
{
    EXPECT_EQ(Gi18n::GetString(EIDS::AlreadyRunning), u"Das Programm l\u00E4uft bereits.");
    for (const char16_t* language : {u"German\\", u"English\\"}) {
        SCOPED_TRACE(UnicodeString(language));
        const CTable table(u"BTL_German.ids", BTL::GetProgramIDSPath() + language);
        EXPECT_TRUE(Gi18n::Exists());
        for (int i = 0; i < Count; ++i) {
            const UnicodeString text = Gi18n::GetString(static_cast<EIDS>(i));
            EXPECT_FALSE(text.IsEmpty()) << i;
            EXPECT_EQ(text.Pos(u"BTL_German"), 0) << i << text;
        }
        EXPECT_EQ(Gi18n::GetString_VA(EIDS::CurrencyUnit), u"\u20AC");
    }
    const CTable table(u"BTL_German.ids", BTL::GetProgramIDSPath() + u"English\\");
    EXPECT_EQ(Gi18n::GetString_VA(EIDS::FileNotFound, "a\\new"), u"The file 'a\\new' doesn't exist.");
}

TEST(TextsTest, TellTheKeyAndFileOfAMissingOne)
{
    const Support::LanguageFile file("[IDS]\n100000101=%s|%s\n");
    const CTable table(file.Name(), u"");
    EXPECT_EQ(Gi18n::GetString(EIDS::AlreadyRunning), u"200020000|" + file.Name());
    file.Write("[IDS]\n100000101=%d\n");
    Gi18n::Init(u"IDS", file.Name(), u"");
    EXPECT_EQ(Gi18n::GetString(EIDS::AlreadyRunning),
              u"IDS-Key '200020000' is missing in File \n'" + file.Name() + u"'.")
        << "a wrong format gives way";
    file.Remove();
    Gi18n::Init(u"IDS", file.Name(), u"");
    EXPECT_EQ(Gi18n::GetString(EIDS::AlreadyRunning),
              u"IDS-Key '200020000' is missing in File \n'" + file.Name() + u"'.");
}

TEST(TextsTest, ServeTheRoomsBelow)
{
    EXPECT_EQ(WIN::GetRemainingTimeText(), u"Restzeit: ");
    EXPECT_EQ(BTL::GetIniText(BTL::EIniText::CannotWrite), u"Die Datei '%s' kann nicht geschrieben werden.");
    const CTable table(u"BTL_German.ids", BTL::GetProgramIDSPath() + u"English\\");
    EXPECT_EQ(WIN::GetRemainingTimeText(), u"Remaining time: ");
    EXPECT_EQ(BTL::GetIniText(BTL::EIniText::ReadOnly),
              u"The file \n'%s'\n is read-only. Changes will not be saved.");
}

TEST(TextsTest, AreThoseOfIniFiles)
{
    const Support::LanguageFile file("[Run]\nChannels=4\n");
    file.SetReadOnly();
    BTL::CWIN_IniFile ini(file.Name(), u"Run");
    Support::ScriptedBoxes boxes({IDOK});
    EXPECT_TRUE(ini.ShowReadOnlyWarinig());
    EXPECT_EQ(boxes.TakeShown().at(0).box.text,
              u"Die Datei \n'" + file.Name() +
                  u"'\n ist schreibgesch\u00FCtzt. \u00C4nderungen werden nicht gespeichert.");
    try {
        ini.WriteInt("Channels", 5);
        ADD_FAILURE();
    } catch (const Sysutils::Exception& fault) {
        EXPECT_EQ(fault.getMessage(), u"Die Datei '" + file.Name() + u"' kann nicht geschrieben werden.");
    }
}

TEST(TextsTest, KeepWhatIsWrongWithThemThroughEscapesAndFilling)
{
    const Support::LanguageFile file("[IDS]\n100000900=%d %\n100000101=%s missing in %s\n");
    const CTable table(file.Name(), u"");
    UnicodeString name = file.Name();
    for (int i = 1; i <= name.Length(); ++i) {
        name[i] = name[i] == u'\\' ? u'/' : name[i];
    }
    EXPECT_EQ(System::Printf(BTL::GetIniText(BTL::EIniText::CannotWrite), "a.ini"),
              u"IDS-Key '100000900' in File '" + name + u"' has wrong placeholders: %d %");
    EXPECT_EQ(System::Printf(BTL::GetIniText(BTL::EIniText::ReadOnly), "a.ini"),
              u"100000901 missing in " + name);

    file.Write("[IDS]\n100000901=%s %d\n100005000=%s \n");
    Gi18n::Init(u"IDS", file.Name(), u"");
    file.SetReadOnly();
    BTL::CWIN_IniFile ini(file.Name(), u"IDS");
    Support::ScriptedBoxes boxes({IDOK});
    EXPECT_TRUE(ini.ShowReadOnlyWarinig());
    EXPECT_EQ(boxes.TakeShown().at(0).box.text,
              u"IDS-Key '100000901' in File '" + name + u"' has wrong placeholders: %s %d");
    EXPECT_EQ(WIN::CTickCount().GetDuartionInfo(1, 1).Pos(u"%s"), 1) << "it is no format";
}

TEST(TextsChild, DISABLED_PrintFirstTextOfThreads)
{
    UnicodeString texts[4];
    std::thread threads[4];
    for (int i = 0; i < 4; ++i) {
        threads[i] = std::thread([&text = texts[i]] { text = Gi18n::GetString(EIDS::CurrencyUnit); });
    }
    std::string result;
    for (int i = 0; i < 4; ++i) {
        threads[i].join();
        result += System::ToUtf8(texts[i]);
    }
    Support::PrintResult(result);
}

TEST(TextsTest, AreReadByTheFirstThreadThatAsks)
{
    const Support::TempFolder temp;
    fs::create_directories(temp.Path() / "Bin");
    fs::create_directories(temp.Path() / "ProgramData" / "IDS");
    std::ofstream(temp.Path() / "ProgramData" / "IDS" / "BTL_German.ids") << "[IDS]\n100000200=Taler\n";
    EXPECT_EQ(
        Support::RunChildTest("TextsChild.DISABLED_PrintFirstTextOfThreads", temp.Path() / "Bin" / "program"),
        "TalerTalerTalerTaler");
}

} // namespace
