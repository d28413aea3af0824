// SPDX-License-Identifier: MIT
#include "platform/host/profile/Host_Profile.h"

#include "../Host_FileSupport.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_File.h"
#include "support/AccessList.h"
#include "support/ChildProgram.h"
#include "support/ScopedVariable.h"
#include "support/SecondProcess.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

using System::UnicodeString;
using namespace std::string_literals;

class HostProfileTest : public Support::FolderTest
{
protected:
    UnicodeString mFile = Name(u"a.ini");

    bool Set(const UnicodeString& section, const UnicodeString& key, const UnicodeString& value) const
    {
        return WritePrivateProfileStringW(section.c_str(), key.c_str(), value.c_str(), mFile.c_str());
    }
    UnicodeString Get(const UnicodeString& section, const UnicodeString& key) const
    {
        return Host::ReadProfileValue(mFile, section, key).value_or(u"<none>");
    }
};

TEST_F(HostProfileTest, ReadsWhatStandsInTheFile)
{
    Write("a.ini", "lost=0\r\n"
                   "[ One ]\r\n"
                   "a=1\r\n"
                   "; a=2\r\n"
                   "  Sp ace \t=  x y \t\r\n"
                   "empty=\r\n"
                   "=nameless\r\n"
                   "word\r\n"
                   "a=3\r\n"
                   "eq=b=c\r\n"
                   "hash#=#5 ;no comment\r\n"
                   "\r\n"
                   "[two\n"
                   "unix=1\n"
                   "[ONE] rest\r"
                   "mac=\xE4\r"
                   "[]\n"
                   "none=5\n"
                   "[last]\n"
                   "k=end");
    const struct
    {
        const char16_t* section;
        const char16_t* key;
        const char16_t* value;
    } cases[] = {
        {u"One", u"a", u"1"},         {u"oNE", u"A", u"1"},        {u" one\t", u" a ", u"1"},
        {u"one", u"SP ACE", u"x y"},  {u"one", u"empty", u""},     {u"one", u"", u"<none>"},
        {u"one", u"word", u"<none>"}, {u"one", u"eq", u"b=c"},     {u"one", u"hash#", u"#5 ;no comment"},
        {u"two", u"unix", u"1"},      {u"one", u"MAC", u"\u00E4"}, {u"", u"none", u"5"},
        {u"last", u"k", u"end"},      {u"", u"lost", u"<none>"},   {u"one", u"; a", u"<none>"},
        {u"three", u"a", u"<none>"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(UnicodeString(row.section) + u'/' + row.key);
        EXPECT_EQ(Get(row.section, row.key), row.value);
    }
    EXPECT_EQ(Host::ListProfileSections(mFile), (std::vector<UnicodeString>{u"One", u"two", u"", u"last"}));
    EXPECT_EQ(Host::ListProfileKeys(mFile, u"one"),
              (std::vector<UnicodeString>{u"a", u"Sp ace", u"empty", u"eq", u"hash#", u"mac"}));
    const auto entries = Host::ReadProfileSection(mFile, u"LAST");
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].key + u'=' + entries[0].value, u"k=end");
}

TEST_F(HostProfileTest, TakesOnePairOfQuotesAway)
{
    for (const auto& [text, value] : {std::pair("\"x\"", u"x"),
                                      {"'x'", u"x"},
                                      {"\" x \"", u" x "},
                                      {"\"it's\"", u"it's"},
                                      {"\"a\",\"b\"", u"\"a\",\"b\""},
                                      {"\"\"a\",\"b\"\"", u"\"a\",\"b\""},
                                      {"\"\"a\"\"", u"\"a\""},
                                      {"\"\"", u""},
                                      {"\"", u"\""},
                                      {"\"x'", u"\"x'"},
                                      {"\"\"\"", u"\"\"\""}}) {
        SCOPED_TRACE(text);
        Write("a.ini", "[s]\nk="s + text + "\n");
        EXPECT_EQ(Get(u"s", u"k"), value);
    }
}

TEST_F(HostProfileTest, ReadsBackEachValueOfOneLine)
{
    const std::u16string_view pieces[] = {u"",  u" ", u"\t", u"x",      u"\"",     u"'",   u"=",
                                          u"]", u"#", u";",  u"\u20AC", u"\u0416", u"\x01"};
    std::vector<UnicodeString> values;
    for (const auto a : pieces) {
        for (const auto b : pieces) {
            for (const auto c : pieces) {
                values.push_back(UnicodeString(a) + b + c);
                values.push_back(UnicodeString(a) + b + c + u'"');
                values.push_back(UnicodeString(a) + b + c + u' ');
            }
        }
    }
    Host::ProfileBundle bundle(mFile);
    for (std::size_t i = 0; i < values.size(); ++i) {
        ASSERT_TRUE(Set(u"s", UnicodeString(i), values[i])) << values[i];
        ASSERT_EQ(Get(u"s", UnicodeString(i)), values[i]);
    }
    ASSERT_TRUE(bundle.End());
    // Another file, so that it is read and parsed.
    Write("b.ini", Read("a.ini"));
    for (std::size_t i = 0; i < values.size(); ++i) {
        ASSERT_EQ(Host::ReadProfileValue(Name(u"b.ini"), u"s", UnicodeString(i)), values[i]);
    }
    EXPECT_EQ(Host::ListProfileSections(Name(u"b.ini")).size(), 1U);
    EXPECT_EQ(Host::ListProfileKeys(Name(u"b.ini"), u"s").size(), values.size());
    const UnicodeString large = UnicodeString::StringOfChar(u'v', 1 << 20);
    ASSERT_TRUE(Set(u"s", UnicodeString::StringOfChar(u'k', 1 << 20), large));
    EXPECT_EQ(Get(u"s", UnicodeString::StringOfChar(u'K', 1 << 20)), large);
}

TEST_F(HostProfileTest, ChangesOnlyWhatIsConcerned)
{
    const struct
    {
        const char* before;
        const char16_t* section;
        const char16_t* key;
        const char16_t* value;
        const char* after;
    } cases[] = {
        {"", u"s", u"k", u"v", "[s]\r\nk=v\r\n"},
        {"[s]\nk=1\n", u"s", u"k", u"v", "[s]\nk=v\n"},
        {"[S]\n K =  1  \n;c\n", u"s", u"k", u"v", "[S]\n K =  v\n;c\n"},
        {"[s]\nk=1", u"s", u"l", u"v", "[s]\nk=1\nl=v\n"},
        {"[s]\r\nk=1\r\n;c\r\n\r\n\r\n[t]\r\n", u"s", u"l", u"v",
         "[s]\r\nk=1\r\n;c\r\nl=v\r\n\r\n\r\n[t]\r\n"},
        {"[s]", u"s", u"l", u"v", "[s]\r\nl=v\r\n"},
        {"[s]\n\n[t]\n", u"s", u"l", u"v", "[s]\nl=v\n\n[t]\n"},
        {"x\ry", u"s", u"l", u"v", "x\ry\r[s]\rl=v\r"},
        {"\n\n;c\n[s]\na=1", u"T", u"Key", u" v", "\n\n;c\n[s]\na=1\n[T]\nKey=\" v\"\n"},
        {"[s]\na=1\nb=2\nA=3\n", u"s", u"a", nullptr, "[s]\nb=2\n"},
        {"[s]\na=1\n[t]\nb=2\n[S]\na=3\nc=4\n", u"s", u"a", nullptr, "[s]\n[t]\nb=2\n[S]\nc=4\n"},
        {";1\n[s]\n;2\na=1\n\n[t]\n;3\n", u"s", nullptr, nullptr, ";1\n[t]\n;3\n"},
        {"[s]\na=1\n[t]\nb=2\n[S]\na=3", u"s", nullptr, nullptr, "[t]\nb=2\n"},
        {"[s]\na=1\n", u"t", nullptr, nullptr, "[s]\na=1\n"},
        {"[s]\na=1\n", u"s", u"x", nullptr, "[s]\na=1\n"},
        {"[s]\na=\x81\xE4\n", u"s", u"b", u"\u00FC", "[s]\na=\x81\xE4\nb=\xFC\n"},
        {"[s]\na=\xE4\n", u"s", u"b", u"\u0416?", "\xEF\xBB\xBF[s]\na=\xC3\xA4\nb=\xD0\x96?\n"},
        {"[s]\n", u"\u0416", u"b", u"1", "\xEF\xBB\xBF[s]\n[\xD0\x96]\nb=1\n"},
        {"\xEF\xBB\xBF[s]\na=\xE4\xC3\xA4\xF0\x9F\x98\x80\n", u"s", u"b", u"\u00FC\U0001F600",
         "\xEF\xBB\xBF[s]\na=\xE4\xC3\xA4\xF0\x9F\x98\x80\nb=\xC3\xBC\xF0\x9F\x98\x80\n"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.before);
        Write("a.ini", row.before);
        EXPECT_TRUE(WritePrivateProfileStringW(row.section, row.key, row.value, mFile.c_str()));
        EXPECT_EQ(Read("a.ini"), row.after);
        if (row.value != nullptr) {
            EXPECT_EQ(Get(row.section, row.key), row.value);
        }
    }
}

TEST_F(HostProfileTest, KeepsUtf16)
{
    const auto wide = [](std::u16string_view text) {
        return std::string(reinterpret_cast<const char*>(text.data()), text.size() * 2);
    };
    Write("a.ini", "\xFF\xFE" + wide(u"[s]\na=\u0416\n") + "x");
    EXPECT_EQ(Get(u"S", u"A"), u"\u0416");
    EXPECT_TRUE(Set(u"s", u"b", u"\U0001F600"));
    EXPECT_EQ(Read("a.ini"), "\xFF\xFE" + wide(u"[s]\na=\u0416\nb=\U0001F600\n") + "x");

    Write("a.ini", "\xFE\xFF\0[\0s\0]\0\n\0a\0=\x04\x16"s);
    EXPECT_EQ(Get(u"s", u"a"), u"\u0416");
    EXPECT_TRUE(Set(u"s", u"b", u"1"));
    EXPECT_EQ(Read("a.ini"), "\xFE\xFF\0[\0s\0]\0\n\0a\0=\x04\x16\0\n\0b\0=\0"
                             "1\0\n"s);
}

TEST_F(HostProfileTest, RefusesWhatWouldBecomeAnotherLine)
{
    Write("a.ini", "[s]\r\nk=1\r\n");
    const struct
    {
        const char16_t* section;
        const char16_t* key;
        const char16_t* value;
    } cases[] = {
        {u"s", u"k", u"a\nb"}, {u"s", u"k", u"a\rb"},   {u"s", u"k", u"\n"},     {u"s", u"k=", u"v"},
        {u"s", u"k\nl", u"v"}, {u"s", u"", u"v"},       {u"s", u" ", u"v"},      {u"s", u";k", u"v"},
        {u"s", u" [t]", u"v"}, {u"s]", u"k", u"v"},     {u"s\n[t]", u"k", u"v"}, {u"", u"k", u"v"},
        {nullptr, u"k", u"v"}, {u"s", u"k", u"\xD800"}, {u"s", u"\xDC80", u"v"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(UnicodeString(row.section) + u'/' + row.key + u'/' + row.value);
        SetLastError(0);
        EXPECT_FALSE(WritePrivateProfileStringW(row.section, row.key, row.value, mFile.c_str()));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
    EXPECT_FALSE(Host::WriteProfileValue(mFile, u"s", u"k", {u"a\0b", 3}));
    EXPECT_EQ(Read("a.ini"), "[s]\r\nk=1\r\n");
    EXPECT_TRUE(WritePrivateProfileStringW(nullptr, nullptr, nullptr, mFile.c_str()));
}

TEST_F(HostProfileTest, FillsTheBufferByItsRules)
{
    Write("a.ini", "[one]\nab=1234\nc=\n[two]\n");
    const struct
    {
        const char16_t* section;
        const char16_t* key;
        System::LongWord size;
        std::u16string_view text;
        unsigned long count;
    } cases[] = {
        {u"one", u"ab", 5, {u"1234\0", 5}, 4},
        {u"one", u"ab", 4, {u"123\0", 4}, 3},
        {u"one", u"ab", 1, {u"\0", 1}, 0},
        {u"one", u"ab", 0, {u"", 0}, 0},
        {u"one", u"x", 9, {u"def\0", 4}, 3},
        {u"one", u"c", 9, {u"\0", 1}, 0},
        {u"one", nullptr, 6, {u"ab\0c\0\0", 6}, 5},
        {u"one", nullptr, 5, {u"ab\0\0\0", 5}, 3},
        {u"one", nullptr, 4, {u"ab\0\0", 4}, 2},
        {nullptr, u"ab", 9, {u"one\0two\0\0", 9}, 8},
        {nullptr, nullptr, 8, {u"one\0tw\0\0", 8}, 6},
        {nullptr, nullptr, 2, {u"\0\0", 2}, 0},
        {nullptr, nullptr, 1, {u"\0", 1}, 0},
        {u"three", nullptr, 9, {u"\0", 1}, 0},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(UnicodeString(row.section) + u'/' + row.key + u'/' + UnicodeString(row.size));
        std::array<char16_t, 20> wide;
        wide.fill(u'#');
        EXPECT_EQ(
            GetPrivateProfileStringW(row.section, row.key, u"def", wide.data(), row.size, mFile.c_str()),
            row.count);
        EXPECT_EQ(std::u16string_view(wide.data(), row.text.size()), row.text);
        EXPECT_EQ(wide[std::max<std::size_t>(row.text.size(), row.size)], u'#');
        // An 8-bit text has as many characters.
        std::array<char, 20> narrow;
        const auto name = [](const char16_t* text) { return System::AnsiString(UnicodeString(text)); };
        EXPECT_EQ(GetPrivateProfileStringA(row.section == nullptr ? nullptr : name(row.section).c_str(),
                                           row.key == nullptr ? nullptr : name(row.key).c_str(), "def",
                                           narrow.data(), row.size, System::AnsiString(mFile).c_str()),
                  row.count);
        EXPECT_TRUE(std::equal(row.text.begin(), row.text.end(), narrow.begin()));
    }
    EXPECT_EQ(GetPrivateProfileStringW(u"one", u"ab", u"", nullptr, 10, mFile.c_str()), 0U);
}

TEST_F(HostProfileTest, ReadsTheNumberAtTheBegin)
{
    for (const auto& [text, number] : {std::pair("12", 12),
                                       {" \t-7 V", -7},
                                       {"+5x", 5},
                                       {"\" 3\"", 3},
                                       {"0x10", 0},
                                       {"12.9", 12},
                                       {"", 99},
                                       {"x1", 99},
                                       {"- 1", 99},
                                       {"2147483648", 2147483647},
                                       {"-2147483648", -2147483647 - 1},
                                       {"-99999999999999999999999", -2147483647 - 1}}) {
        SCOPED_TRACE(text);
        Write("a.ini", "[s]\nk="s + text + "\n");
        EXPECT_EQ(GetPrivateProfileIntW(u"s", u"k", 99, mFile.c_str()), number);
        EXPECT_EQ(GetPrivateProfileIntA("s", "k", 99, System::AnsiString(mFile).c_str()), number);
    }
    EXPECT_EQ(GetPrivateProfileIntW(u"s", u"none", 99, mFile.c_str()), 99);
    EXPECT_EQ(GetPrivateProfileIntW(nullptr, u"k", 99, mFile.c_str()), 99);
}

TEST_F(HostProfileTest, SeesWhatOthersWroteAtTheNextCall)
{
    for (int i = 0; i < 100; ++i) {
        // As long as before and within the tick of the host's clock.
        Write("a.ini", "[s]\nk=" + std::to_string(100 + i) + "\n");
        ASSERT_EQ(Get(u"s", u"k"), UnicodeString(100 + i));
    }
    ASSERT_TRUE(Set(u"s", u"k", u"1"));
    std::filesystem::remove(Host("a.ini"));
    EXPECT_EQ(Get(u"s", u"k"), u"<none>");
    ASSERT_TRUE(Set(u"s", u"l", u"1"));
    EXPECT_EQ(Read("a.ini"), "[s]\r\nl=1\r\n");
}

TEST_F(HostProfileTest, SeesEachWriteOfAnotherWhileItReadsOften)
{
    ASSERT_TRUE(Set(u"s", u"k", u"0"));
    Support::SecondProcess writer([&](int tell) {
        for (int i = 1; i <= 50; ++i) {
            static_cast<void>(Set(u"s", u"k", UnicodeString(i)));
            Support::SecondProcess::Tell(tell);
            // By turns in place of the former one, before its times have settled and behind that.
            usleep(i % 2 == 0 ? 0 : 40'000);
        }
    });
    for (int i = 1; i <= 50; ++i) {
        for (int k = 0; k < 100; ++k) {
            ASSERT_GE(Host::ReadProfileNumber(mFile, u"s", u"k", -1), i - 1);
        }
        ASSERT_TRUE(writer.Await());
        ASSERT_GE(Host::ReadProfileNumber(mFile, u"s", u"k", -1), i);
    }
}

TEST_F(HostProfileTest, HoldsNoOtherFileThanTheOneThatIsRead)
{
    const auto openings = [this](const std::string& name) {
        const std::filesystem::directory_iterator descriptors("/proc/self/fd");
        return std::count_if(begin(descriptors), end(descriptors), [&](const auto& descriptor) {
            std::error_code isGone;
            return read_symlink(descriptor.path(), isGone) == Host(name);
        });
    };
    const auto readOften = [this](const UnicodeString& name) {
        for (int i = 0; i < 1000; ++i) {
            static_cast<void>(Host::ReadProfileValue(Name(name), u"s", u"k"));
        }
    };
    Write("a.ini", "[s]\nk=1\n");
    Write("b.ini", "[s]\nk=1\n");
    usleep(40'000);
    readOften(u"a.ini");
    EXPECT_LE(openings("a.ini"), 1);
    readOften(u"b.ini");
    EXPECT_EQ(openings("a.ini"), 0);
    EXPECT_LE(openings("b.ini"), 1);
    EXPECT_TRUE(Host::WriteProfileValue(Name(u"b.ini"), u"s", u"k", u"2"));
    EXPECT_EQ(openings("b.ini"), 0);
}

TEST_F(HostProfileTest, FindsKeysInAnyOrder)
{
    const char* const texts[] = {"[s]\na=1\nb=2\n;c=0\n\nc=3\nd=4\n[t]\na=5\nb=6\n",
                                 "[s]\na=1\nb=2\nA=0\nc=3\n[t]\na=5\n[S]\nd=4\nb=0\n[T]\nb=6\n"};
    const std::pair<const char16_t*, const char16_t*> keys[] = {{u"s", u"a"}, {u"s", u"b"}, {u"s", u"c"},
                                                                {u"s", u"d"}, {u"t", u"a"}, {u"t", u"b"}};
    for (const char* const text : texts) {
        SCOPED_TRACE(text);
        Write("a.ini", text);
        for (std::size_t first = 0; first < std::size(keys); ++first) {
            for (std::size_t second = 0; second < std::size(keys); ++second) {
                EXPECT_EQ(Get(keys[first].first, keys[first].second), UnicodeString(first + 1));
                EXPECT_EQ(Get(keys[first].first, u""), u"<none>");
                EXPECT_EQ(Get(keys[second].first, keys[second].second), UnicodeString(second + 1));
                EXPECT_EQ(Get(keys[second].first, u"x"), u"<none>");
            }
        }
    }
    Host::ProfileBundle bundle(mFile);
    EXPECT_EQ(Get(u"s", u"a"), u"1");
    EXPECT_TRUE(Host::DeleteProfileSection(mFile, u"s"));
    EXPECT_EQ(Get(u"s", u"b"), u"<none>");
    EXPECT_TRUE(Set(u"s", u"b", u"7"));
    EXPECT_EQ(Get(u"s", u"b"), u"7");
}

TEST_F(HostProfileTest, CountsABareNameFromTheCurrentFolder)
{
    const UnicodeString former = Host::CurrentDirectory();
    ASSERT_TRUE(SetCurrentDirectoryW(Name(u"")));
    EXPECT_TRUE(WritePrivateProfileStringW(u"s", u"k", u"v", u"b.ini"));
    EXPECT_EQ(Host::ReadProfileValue(Name(u"b.ini"), u"s", u"k"), UnicodeString(u"v"));
    ASSERT_TRUE(CreateDirectoryW(u"sub"));
    ASSERT_TRUE(SetCurrentDirectoryW(u"sub"));
    EXPECT_EQ(Host::ReadProfileValue(u"b.ini", u"s", u"k"), std::nullopt);
    ASSERT_TRUE(SetCurrentDirectoryW(former));
}

TEST_F(HostProfileTest, AFileThatIsDeletedWhileItGrowsIsGone)
{
    const std::filesystem::path file = Host("a.ini");
    // So long that it mostly grows while it is read.
    const std::string text = "[s]\nk=1\n" + std::string(1 << 20, ';');
    for (int i = 0; i < 10; ++i) {
        Write("a.ini", text);
        std::atomic<bool> isOver = false;
        std::thread writer([&] {
            std::ofstream stream(file, std::ios::app | std::ios::binary);
            while (!isOver) {
                stream << ';' << std::flush;
            }
        });
        while (std::filesystem::file_size(file) == text.size()) {
            std::this_thread::yield();
        }
        EXPECT_EQ(Get(u"s", u"k"), u"1");
        std::filesystem::remove(file);
        EXPECT_EQ(Get(u"s", u"k"), u"<none>");
        isOver = true;
        writer.join();
    }
}

TEST_F(HostProfileTest, HasAProfileOfTheUser)
{
    const Support::ScopedVariable user("XDG_CONFIG_HOME", Host("config"));
    EXPECT_EQ(Host::SystemProfile(), Name(u"config\\win.ini"));
    EXPECT_TRUE(WriteProfileStringW(u"s", u"k", u"5"));
    EXPECT_TRUE(WritePrivateProfileStringA("s", "l", "6", nullptr));
    EXPECT_EQ(Read("config/win.ini"), "[s]\r\nk=5\r\nl=6\r\n");
    EXPECT_EQ(GetProfileIntW(u"s", u"k", 0), 5);
    EXPECT_EQ(GetProfileIntA("s", "l", 0), 6);
    char16_t wide[4];
    EXPECT_EQ(GetProfileStringW(u"s", nullptr, nullptr, wide, 4), 2U);
    char narrow[4];
    EXPECT_EQ(GetProfileStringA("s", "l", nullptr, narrow, 4), 1U);
    EXPECT_TRUE(WriteProfileStringA("s", nullptr, nullptr));
    EXPECT_EQ(Read("config/win.ini"), "");
}

TEST_F(HostProfileTest, RefusesFilesThatMayNotBeReplaced)
{
    Write("a.ini", "[s]\nk=1\n");
    ASSERT_EQ(chmod(Host("a.ini").c_str(), 0444), 0);
    std::filesystem::create_directory(Host("folder.ini"));
    symlink("circle.ini", Host("circle.ini").c_str());
    mkfifo(Host("pipe.ini").c_str(), 0600);
    for (const auto& [name, error] : {std::pair(u"a.ini", ERROR_ACCESS_DENIED),
                                      {u"folder.ini", ERROR_ACCESS_DENIED},
                                      {u"pipe.ini", ERROR_ACCESS_DENIED},
                                      {u"circle.ini", ERROR_CANT_RESOLVE_FILENAME},
                                      {u"none\\a.ini", ERROR_PATH_NOT_FOUND},
                                      {u"a.ini\\b.ini", ERROR_PATH_NOT_FOUND}}) {
        SCOPED_TRACE(UnicodeString(name));
        EXPECT_FALSE(WritePrivateProfileStringW(u"s", u"k", u"2", Name(name).c_str()));
        EXPECT_EQ(GetLastError(), error);
        Host::ProfileBundle bundle(Name(name));
        const bool isEnded = Host::WriteProfileValue(Name(name), u"s", u"k", u"2") && bundle.End();
        EXPECT_FALSE(isEnded);
        EXPECT_EQ(GetLastError(), error);
        EXPECT_EQ(Host::ReadProfileValue(Name(name), u"x", u"k"), std::nullopt);
    }
    EXPECT_EQ(Read("a.ini"), "[s]\nk=1\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Host("")), {}), 4);
}

TEST_F(HostProfileTest, KeepsOwnerModeAccessListAndLink)
{
    std::filesystem::create_directory(Host("real"));
    Write("real/b.ini", "[s]\nk=1\n");
    const std::filesystem::path real = Host("real/b.ini");
    ASSERT_EQ(chmod(real.c_str(), 0640), 0);
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        ASSERT_EQ(chown(real.c_str(), 65534, 65533), 0);
    }
    Support::GiveAccessList(real);
    const std::string list = Support::AccessListOf(real);
    symlink("real/b.ini", Host("link").c_str());
    symlink(Host("link").c_str(), Host("a.ini").c_str());
    EXPECT_TRUE(Set(u"s", u"k", u"2"));
    EXPECT_EQ(Read("real/b.ini"), "[s]\nk=2\n");
    EXPECT_TRUE(std::filesystem::is_symlink(Host("a.ini")));
    struct stat status;
    ASSERT_EQ(stat(real.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    EXPECT_EQ(status.st_uid, isRoot ? 65534 : geteuid());
    EXPECT_EQ(Support::AccessListOf(real), list);
}

TEST_F(HostProfileTest, SeesAtEachReadWhereItsNameLeads)
{
    Write("one.ini", "[s]\nk=1\n");
    Write("two.ini", "[s]\nk=2\n");
    symlink("one.ini", Host("a.ini").c_str());
    const auto readAgain = [&] {
        EXPECT_EQ(Host::ReadProfileNumber(mFile, u"s", u"k", 0),
                  Host::ReadProfileNumber(mFile, u"s", u"k", 0));
        return Get(u"s", u"k");
    };
    EXPECT_EQ(readAgain(), u"1");
    std::filesystem::remove(Host("a.ini"));
    symlink("two.ini", Host("a.ini").c_str());
    EXPECT_EQ(readAgain(), u"2") << "a link that leads elsewhere";
    Write("new.ini", "[s]\nk=3\n");
    std::filesystem::rename(Host("new.ini"), Host("a.ini"));
    EXPECT_EQ(readAgain(), u"3") << "a file in the place of the link";
    {
        Host::ProfileBundle bundle(Name(u"one.ini"));
        EXPECT_TRUE(Host::WriteProfileValue(Name(u"one.ini"), u"s", u"k", u"4"));
        EXPECT_EQ(readAgain(), u"3");
        std::filesystem::remove(Host("a.ini"));
        symlink("one.ini", Host("a.ini").c_str());
        EXPECT_EQ(readAgain(), u"4") << "what another name has bundled";
    }
    EXPECT_EQ(readAgain(), u"4");
}

TEST_F(HostProfileTest, BundlesWrites)
{
    Write("a.ini", "[s]\nk=1\n");
    symlink("a.ini", Host("other.ini").c_str());
    {
        Host::ProfileBundle outer(mFile);
        Host::ProfileBundle inner(Name(u"other.ini"));
        EXPECT_TRUE(Set(u"s", u"k", u"2"));
        EXPECT_FALSE(Set(u"s", u"k", u"\n"));
        EXPECT_TRUE(Host::WriteProfileValue(Name(u"other.ini"), u"s", u"l", u"3"));
        EXPECT_EQ(Get(u"s", u"l"), u"3");
        EXPECT_EQ(Host::ReadProfileValue(Name(u"other.ini"), u"s", u"k"), UnicodeString(u"2"));
        EXPECT_EQ(Read("a.ini"), "[s]\nk=1\n");
        // Another program doesn't wait for the end of the bundle.
        Write("a.ini", "[s]\nk=1\nm=4\n");
        EXPECT_EQ(Get(u"s", u"m") + Get(u"s", u"k"), u"42");
        EXPECT_TRUE(inner.End());
        EXPECT_EQ(Read("a.ini"), "[s]\nk=1\nm=4\n");
        EXPECT_TRUE(outer.End());
        EXPECT_TRUE(outer.End());
        EXPECT_EQ(Read("a.ini"), "[s]\nk=2\nm=4\nl=3\n");
        EXPECT_TRUE(Set(u"s", u"m", u"5"));
        EXPECT_EQ(Read("a.ini"), "[s]\nk=2\nm=5\nl=3\n");
    }
    const Host::ProfileBundle nowhere(u"");
    const Host::ProfileBundle unused(Name(u"none.ini"));
    EXPECT_FALSE(std::filesystem::exists(Host("none.ini")));
}

TEST_F(HostProfileTest, TriesTheEndOfABundleAgain)
{
    Write("a.ini", "[s]\nk=1\n");
    Host::ProfileBundle bundle(mFile);
    EXPECT_TRUE(Set(u"s", u"k", u"2"));
    chmod(Host("a.ini").c_str(), 0444);
    EXPECT_FALSE(bundle.End());
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Get(u"s", u"k"), u"2");
    chmod(Host("a.ini").c_str(), 0644);
    EXPECT_TRUE(bundle.End());
    EXPECT_EQ(Read("a.ini"), "[s]\nk=2\n");
    {
        const Host::ProfileBundle lost(mFile);
        EXPECT_TRUE(Set(u"s", u"k", u"3"));
        chmod(Host("a.ini").c_str(), 0444);
    }
    EXPECT_EQ(Get(u"s", u"k"), u"2");
}

TEST_F(HostProfileTest, HoldsManyKeysAndFiles)
{
    constexpr int count = 5000;
    {
        Host::ProfileBundle bundle(mFile);
        for (int i = 0; i < count; ++i) {
            ASSERT_TRUE(Host::WriteProfileValue(mFile, UnicodeString(i % 100), u"Key" + UnicodeString(i),
                                                UnicodeString(i)));
        }
        for (int i = 0; i < count; i += 2) {
            ASSERT_TRUE(WritePrivateProfileStringW(
                UnicodeString(i % 100).c_str(), (u"KEY" + UnicodeString(i)).c_str(), nullptr, mFile.c_str()));
        }
        ASSERT_TRUE(bundle.End());
    }
    for (int i = 0; i < count; ++i) {
        ASSERT_EQ(GetPrivateProfileIntW(UnicodeString(i % 100).c_str(), (u"key" + UnicodeString(i)).c_str(),
                                        -1, mFile.c_str()),
                  i % 2 == 0 ? -1 : i);
    }
    for (int i = 0; i < 80; ++i) {
        ASSERT_TRUE(
            Host::WriteProfileValue(Name(UnicodeString(i % 40) + u".ini"), u"s", UnicodeString(i), u"v"));
    }
    EXPECT_EQ(Read("7.ini"), "[s]\r\n7=v\r\n47=v\r\n");
}

} // namespace
