// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_FindFile.h"

#include "platform/host/Host_FileSupport.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace Sysutils;
using System::UnicodeString;

namespace
{

using Names = std::vector<UnicodeString>;

class SysutilsFindFileTest : public Support::FolderTest
{
protected:
    std::vector<UnicodeString> Find(const UnicodeString& mask, int attributes) const
    {
        std::vector<UnicodeString> names;
        TSearchRec found;
        for (int error = FindFirst(Name(mask), attributes, found); error == 0; error = FindNext(found)) {
            names.push_back(found.Name);
        }
        FindClose(found);
        return names;
    }
};

TEST_F(SysutilsFindFileTest, FindsByMaskAndAttributes)
{
    for (const char* name : {"a.txt", "b.TXT", "c", ".h.txt", "d.txt.bak"}) {
        Write(name, "123");
    }
    std::filesystem::create_directory(Host("e.txt"));
    EXPECT_EQ(Find(u"*.*", faAnyFile),
              (Names{u".", u"..", u".h.txt", u"a.txt", u"b.TXT", u"c", u"d.txt.bak", u"e.txt"}));
    EXPECT_EQ(Find(u"*.txt", 0), (Names{u"a.txt"}));
    EXPECT_EQ(Find(u"*.txt", faDirectory), (Names{u"a.txt", u"e.txt"}));
    EXPECT_EQ(Find(u"*", 4), (Names{u"a.txt", u"b.TXT", u"c", u"d.txt.bak"}));
    EXPECT_EQ(Find(u"?.t*t*", faHidden), (Names{u"a.txt", u"d.txt.bak"}));
    EXPECT_EQ(Find(u"c.*", 0), (Names{u"c"}));
    EXPECT_EQ(Find(u"a.txt", 0), (Names{u"a.txt"}));
    EXPECT_EQ(Find(u"A.txt", 0), Names{});

    TSearchRec found;
    EXPECT_EQ(FindFirst(Name(u"a.txt"), faAnyFile, found), 0);
    EXPECT_EQ(found.Size, 3);
    EXPECT_EQ(found.Attr, faNormal);
    EXPECT_EQ(found.Time, FileAge(Name(u"a.txt")));
    EXPECT_EQ(FindNext(found), 18);
    FindClose(found);
    EXPECT_EQ(FindNext(found), 6);
    EXPECT_EQ(FindFirst(Name(u"e.txt"), 0, found), 18);
    EXPECT_EQ(FindFirst(Name(u"x*"), faAnyFile, found), 2);
    EXPECT_EQ(FindFirst(Name(u"gone\\*"), faAnyFile, found), 3);
    EXPECT_EQ(FindFirst(Name(u""), faAnyFile, found), 2);
}

TEST_F(SysutilsFindFileTest, ATreeGoesWhileItIsSearched)
{
    for (int i = 0; i < 300; ++i) {
        Write("f" + std::to_string(i), "");
    }
    TSearchRec found;
    int deleted = 0;
    for (int error = FindFirst(Name(u"*"), 0, found); error == 0; error = FindNext(found)) {
        deleted += DeleteFile(Name(found.Name)) ? 1 : 0;
    }
    EXPECT_EQ(deleted, 300);
}

TEST_F(SysutilsFindFileTest, ReachesFilesWithStrangeNames)
{
    for (const char* name : {"b\xFF.txt", "b\\c", "C:d"}) {
        Write(name, "x");
    }
    const Names names = Find(u"*", 0);
    ASSERT_EQ(names.size(), 3U);
    for (const UnicodeString& name : names) {
        EXPECT_EQ(ExtractFileName(Name(name)), name);
        EXPECT_TRUE(DeleteFile(Name(name)));
    }
    EXPECT_EQ(Find(u"*", 0), Names{});
}

TEST_F(SysutilsFindFileTest, MasksStayQuickOnLongTexts)
{
    const UnicodeString name = UnicodeString::StringOfChar(u'a', 255);
    UnicodeString mask;
    for (int i = 0; i < 100; ++i) {
        mask += u"a*";
    }
    EXPECT_TRUE(FileNameFits(name, mask));
    EXPECT_FALSE(FileNameFits(name, mask + u"b"));
    EXPECT_TRUE(FileNameFits(u"", u"*.*"));
    EXPECT_FALSE(FileNameFits(u"", u"?"));
}

} // namespace
