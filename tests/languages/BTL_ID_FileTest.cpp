// SPDX-License-Identifier: MIT
#include "languages/BTL_ID_File.h"

#include "environment/folders/BTL_ENV_Folders.h"
#include "foundation/logs/UTL_LOG_Log.h"
#include "languages/LanguageFile.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ChildProgram.h"
#include "support/ScriptedBoxes.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace
{

using BTL::AIDSFile;
using Support::LanguageFile;
using System::UnicodeString;

constexpr int Ids[] = {100000000, 7, 100000002, -1, 100000003};

/// Lets the notices of a test go to a file of its own.
class CTestLog
{
public:
    CTestLog()
    {
        BTL::SetLogFile(File());
        BTL::SetLogForm({.encoding = UTL::ELogEncoding::Utf8});
    }
    CTestLog(const CTestLog&) = delete;
    CTestLog& operator=(const CTestLog&) = delete;
    ~CTestLog() { BTL::SetLogFile(u""); }

    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        std::ifstream file(mFolder.Path() / "log.txt");
        for (std::string line; std::getline(file, line);) {
            while (!line.empty() && line.back() == '\r') {
                line.pop_back();
            }
            lines.push_back(line);
        }
        return lines;
    }

private:
    UnicodeString File() const { return Sysutils::FromHostPath((mFolder.Path() / "log.txt").string()); }

    Support::TempFolder mFolder;
};

class IdFileTest : public testing::Test
{
protected:
    CTestLog mLog;
};

UnicodeString MissingText(const UnicodeString& key, const UnicodeString& file)
{
    return u"Der Text '" + key + u"' fehlt in der Sprachdatei \n'" + file + u"'.";
}

TEST_F(IdFileTest, ReadsTheTextsOfItsTable)
{
    const LanguageFile file(
        "[IDS]\n100000000=two\\nlines\n000000007=a\\tb\n100000002=\n100000003=behind the end\n");
    AIDSFile texts(file.Name(), Ids);
    EXPECT_EQ(texts.GetString(0), u"two\nlines");
    EXPECT_EQ(texts.GetString(1), u"a\tb");
    EXPECT_EQ(texts.GetString(2), u"") << "an empty text is one";
    EXPECT_EQ(texts.GetStringDef(0, u"none"), u"two\nlines");
    EXPECT_EQ(texts.GetStringDef(1, u"none"), u"none") << "its key is the number without leading zeros";
    EXPECT_EQ(texts.GetStringDef(2, u"none"), u"");
    for (const int index : {-1, 3, 1000}) {
        SCOPED_TRACE(index);
        EXPECT_THROW(texts.GetString(index), Classes::EStringListError);
        EXPECT_THROW(texts.GetString_VA(index, 5), Classes::EStringListError);
        EXPECT_EQ(texts.GetStringDef(index, u"a\\nb"), u"a\nb");
    }
    EXPECT_TRUE(mLog.Lines().empty());
}

TEST_F(IdFileTest, ReadsEveryEncodingOfItsFile)
{
    const std::pair<std::string_view, const char*> cases[] = {
        {"[IDS]\n100000000=\xC4\xA4\x80\n", "code page"},
        {"\xEF\xBB\xBF[IDS]\r\n100000000=\xC3\x84\xC2\xA4\xE2\x82\xAC\r\n", "UTF-8"},
        {std::string_view("\xFF\xFE[\0I\0D\0S\0]\0\n\0001\0000\0000\0000\0000\0000\0000\0000\0000\0="
                          "\0\xC4\0\xA4\0\xAC\x20\n\0",
                          42),
         "UTF-16"},
    };
    for (const auto& [content, encoding] : cases) {
        SCOPED_TRACE(encoding);
        const LanguageFile file(content);
        EXPECT_EQ(AIDSFile(file.Name(), Ids).GetString(0), u"\u00C4\u00A4\u20AC");
    }
}

TEST_F(IdFileTest, TellsOfWhatIsMissing)
{
    const LanguageFile file("[IDS]\n100000000=text\n");
    AIDSFile texts(file.Name(), Ids);
    EXPECT_EQ(texts.GetString(1), MissingText(u"000000007", file.Name()));
    EXPECT_EQ(texts.GetString_VA(2, 5), MissingText(u"100000002", file.Name()))
        << "no format, whatever its name has";
    texts.Clear();
    EXPECT_EQ(texts.GetString(1), MissingText(u"000000007", file.Name()));
    const std::string name = System::ToUtf8(file.Name());
    EXPECT_EQ(mLog.Lines(), (std::vector{"Der Text '000000007' fehlt in der Sprachdatei '" + name + "'.",
                                         "Der Text '100000002' fehlt in der Sprachdatei '" + name + "'."}))
        << "each once";

    file.Remove();
    texts.Clear();
    EXPECT_EQ(texts.GetString(0), MissingText(u"100000000", file.Name()));
    EXPECT_EQ(mLog.Lines().size(), 3U) << "one line for the file";
    EXPECT_EQ(mLog.Lines()[2], "Die Sprachdatei '" + name + "' fehlt.");
    EXPECT_EQ(texts.GetStringDef(0, u"none"), u"none");
    EXPECT_EQ(mLog.Lines().size(), 3U);
}

TEST_F(IdFileTest, TellsOfAMissingFileInABox)
{
    const LanguageFile file("[IDS]\n");
    AIDSFile texts(file.Name(), Ids);
    EXPECT_TRUE(texts.Exists());
    EXPECT_TRUE(texts.ExistsCheck());
    file.Remove();
    EXPECT_FALSE(texts.Exists());
    Support::ScriptedBoxes boxes({IDOK});
    EXPECT_FALSE(texts.ExistsCheck());
    const auto shown = boxes.TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].box.flags, MB_ICONSTOP);
    EXPECT_EQ(shown[0].box.text, u"Die Sprachdatei \n'" + file.Name() + u"'\n fehlt.");
}

TEST_F(IdFileTest, TellsWhereAPlaceholderIsWrong)
{
    const LanguageFile file("[IDS]\n100000000=%s of %s\n000000007=%d %s %n\n");
    AIDSFile texts(file.Name(), Ids);
    EXPECT_EQ(texts.GetString_VA(0, "one"),
              u"IDS-Key '100000000' in File '" + file.Name() + u"' has wrong placeholders: %s of %s");
    EXPECT_EQ(texts.GetString_VA(1, 5, "text", 6),
              u"IDS-Key '000000007' in File '" + file.Name() + u"' has wrong placeholders: %d %s %n");
    EXPECT_EQ(mLog.Lines().size(), 3U) << "these two and a missing key";
}

TEST_F(IdFileTest, ReadsAnewWhenCleared)
{
    const LanguageFile file("[IDS]\n100000000=old\n[Other]\n100000000=other\n");
    AIDSFile texts(file.Name(), Ids);
    EXPECT_EQ(texts.GetString(0), u"old");
    file.Write("[IDS]\n100000000=newer\n[Other]\n100000000=other\n");
    EXPECT_EQ(texts.GetString(0), u"old");
    EXPECT_EQ(texts.GetStringDef(0, u""), u"newer") << "keeps nothing";
    texts.Clear();
    EXPECT_EQ(texts.GetString(0), u"newer");
    texts.Init(u"Other", u"new 100%d.ids", file.Path());
    EXPECT_EQ(texts.GetString(0), u"other");
    texts.Init(u"Other", u"100%d.ids", u"new ");
    texts.InitWithPath(file.Path(), false);
    EXPECT_EQ(texts.GetString(0), u"other");
    Support::ScriptedBoxes boxes({IDOK});
    texts.InitWithPath(u"a\\", true);
    EXPECT_NE(boxes.TakeShown().at(0).box.text.Pos(u"'a\\" + file.Path()), 0) << "in front again";
}

TEST_F(IdFileTest, IsMadeWithEveryFormOfAName)
{
    const LanguageFile file("[IDS]\n100000000=text\n[Own]\n100000000=own\n");
    EXPECT_EQ(AIDSFile(file.Path(), u"new 100%d.ids", u"Own", Ids).GetString(0), u"own");
    EXPECT_EQ(AIDSFile(BTL::EIDS_Path::None, file.Name(), Ids).GetString(0), u"text");
    EXPECT_EQ(AIDSFile(static_cast<BTL::EIDS_Path>(9), file.Name(), Ids).GetString(0), u"text");
    const auto inProgram = [](BTL::EIDS_Path where) { return AIDSFile(where, u"n.ids", Ids).GetString(0); };
    EXPECT_EQ(inProgram(BTL::EIDS_Path::ProgramIDS),
              MissingText(u"100000000", BTL::GetProgramIDSPath() + u"n.ids"));
    EXPECT_EQ(inProgram(BTL::EIDS_Path::Bin), MissingText(u"100000000", BTL::GetBinPath() + u"n.ids"));
    AIDSFile later(Ids);
    later.Init(u"IDS", file.Name(), u"");
    EXPECT_EQ(later.GetString(0), u"text");
}

TEST_F(IdFileTest, BearsAnEmptyTable)
{
    constexpr int none[] = {-1};
    for (const int* const ids : {none, static_cast<const int*>(nullptr)}) {
        AIDSFile texts(u"none.ids", ids);
        EXPECT_THROW(texts.GetString(0), Classes::EStringListError);
        EXPECT_EQ(texts.GetStringDef(0, u"none"), u"none");
    }
}

TEST_F(IdFileTest, ServesThreadsWhileItIsCleared)
{
    const LanguageFile file("[IDS]\n100000000=zero\n000000007=%s\n100000002=two\n");
    AIDSFile texts(file.Name(), Ids);
    std::vector<std::thread> threads;
    std::atomic<int> wrong = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int count = 0; count < 200; ++count) {
                wrong += texts.GetString(0) != u"zero" || texts.GetString_VA(1, "one") != u"one" ||
                         texts.GetStringDef(2, u"") != u"two";
            }
        });
    }
    for (int count = 0; count < 50; ++count) {
        texts.Clear();
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
}

} // namespace
