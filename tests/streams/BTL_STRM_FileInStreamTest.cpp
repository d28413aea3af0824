// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_FileInStream.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "streams/ForwardOnlySupport.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using System::UnicodeString;

namespace
{

TEST(FileStreamsTest, ReadADataFile)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "file").string());
    BTL::SaveStringToFile(path, "head\nT;*N;12;-34 x56;text,until<>rest\nlast line\n99");
    BTL::CFileInStreamEx file(path);
    file.SkipLine();
    EXPECT_EQ(file.getCurrLine(), 1);
    EXPECT_EQ(file.ReadTypeChar(), 'T');
    char type = 0;
    EXPECT_TRUE(file.ReadTypeCharEx(type, '*'));
    EXPECT_EQ(type, 'N');
    EXPECT_EQ(file.ReadInteger(';'), 12);
    EXPECT_EQ(file.ReadInteger(), -34);
    EXPECT_FALSE(file.ReadTypeCharEx(type, '*')) << type;
    EXPECT_EQ(file.ReadInteger(), 6);
    EXPECT_EQ(file.ReadUntil(','), "text");
    EXPECT_EQ(file.ReadUntil("<>"), "until");
    EXPECT_EQ(file.ReadString(), "rest");
    file.SkipUntil('\n');
    EXPECT_EQ(file.ReadBytes(4), "last");
    EXPECT_EQ(file.ReadIntegerUnget(5), 5);
    file.SkipBytes(1);
    EXPECT_EQ(file.ReadOpChar(), 'l');
    EXPECT_THROW(file.ReadInt64('\n'), Sysutils::EConvertError);
    EXPECT_EQ(file.ReadInt64(), 99);
    EXPECT_EQ(file.getPosition(), file.getSize());
    EXPECT_EQ(file.ReadInt64Unget(3), 3);
    EXPECT_TRUE(file.good());
}

class FileOfForwardOnlyTest : public Support::ForwardOnlyTest
{
};

INSTANTIATE_TEST_SUITE_P(NamedPipe, FileOfForwardOnlyTest, testing::Values(Support::EForwardKind::NamedPipe));

TEST_P(FileOfForwardOnlyTest, ADataFileMayBeANamedPipe)
{
    BTL::CFileInStreamEx file(NamedPipe("t,12,word rest;of\nlast"));
    EXPECT_EQ(file.ReadTypeChar(), 't');
    EXPECT_EQ(file.ReadInteger(','), 12);
    EXPECT_EQ(file.ReadString(), "word");
    EXPECT_EQ(file.ReadUntil(';'), " rest");
    file.SkipLine();
    System::AnsiString word;
    EXPECT_TRUE(file >> word);
    EXPECT_EQ(word, "last");
    EXPECT_FALSE(file >> word);
    EXPECT_EQ(file.getPosition(), -1);
    EXPECT_THROW(file.getCurrLine(), Classes::EStreamError);
}

} // namespace
