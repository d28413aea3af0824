// SPDX-License-Identifier: MIT
#include "platform/host/Host_Error.h"
#include "platform/runtime/classes/Classes.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <array>
#include <fstream>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace Classes;
using System::UnicodeString;

namespace
{

std::string FileContent(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(FileStreamTest, FilesAreCreatedOpenedAndResized)
{
    const Support::TempFolder folder;
    const std::filesystem::path file = folder.Path() / "data ä.bin";
    const UnicodeString path = System::FromUtf8(file.string());
    EXPECT_THROW(TFileStream(path, fmOpenRead), EFOpenError);
    {
        TFileStream stream(path, fmCreate | fmShareDenyNone);
        EXPECT_EQ(stream.getFileName(), path);
        stream.WriteBuffer("0123456789", 10);
        EXPECT_EQ(stream.getSize(), 10);
        EXPECT_EQ(stream.getPosition(), 10);
        stream.setPosition(4);
        char byte = 0;
        stream.ReadBuffer(&byte, 1);
        EXPECT_EQ(byte, '4');
        stream.setSize(6);
        EXPECT_EQ(stream.getSize(), 6);
        EXPECT_THROW(stream.ReadBuffer(std::array<char, 9>().data(), 9), EReadError);
    }
    {
        TFileStream stream(path, fmOpenReadWrite | fmShareDenyWrite);
        EXPECT_EQ(stream.Seek(0, soEnd), 6);
        stream.WriteBuffer("x", 1);
        stream.setPosition(1);
        EXPECT_EQ(stream.Seek(-5, soCurrent), -1) << "in front of the beginning";
        EXPECT_EQ(stream.getPosition(), 1);
    }
    EXPECT_EQ(FileContent(file), "012345x");
    {
        TFileStream stream(path, fmOpenRead | fmShareDenyNone);
        EXPECT_EQ(stream.Write("y", 1), 0);
        EXPECT_THROW(stream.WriteBuffer("y", 1), EWriteError);
        EXPECT_THROW(stream.setSize(1), EStreamError);
    }
    {
        TFileStream stream(path, fmCreate);
    }
    EXPECT_EQ(FileContent(file), "");
}

TEST(FileStreamTest, FileErrorsTellTheFileAndTheReason)
{
    const Support::TempFolder folder;
    const UnicodeString missing = System::FromUtf8((folder.Path() / "missing").string());
    try {
        TFileStream stream(missing, fmOpenRead);
        FAIL();
    } catch (const EFOpenError& error) {
        const UnicodeString start = u"Cannot open file \"" + missing + u"\". ";
        EXPECT_EQ(error.getMessage().Pos(start), 1) << error.getMessage();
        EXPECT_GT(error.getMessage().Length(), start.Length());
    }
    try {
        TFileStream stream(missing + u"/x", fmCreate);
        FAIL();
    } catch (const EFCreateError& error) {
        EXPECT_EQ(error.getMessage().Pos(u"Cannot create file \""), 1) << error.getMessage();
    }
    EXPECT_THROW(TFileStream(u"", fmCreate), EFCreateError);
    for (const unsigned mode : {unsigned{fmOpenRead}, unsigned{fmOpenWrite}}) {
        try {
            const TFileStream stream(System::FromUtf8(folder.Path().string()),
                                     static_cast<System::Word>(mode));
            FAIL() << mode;
        } catch (const EFOpenError& error) {
            EXPECT_NE(error.getMessage().Pos(u"\". It is a folder"), 0) << error.getMessage();
        }
    }
}

TEST(FileStreamTest, WriteErrorsTellTheFileAndTheReason)
{
    const auto message = [](Classes::TStream& stream) {
        try {
            stream.WriteBuffer("x", 1);
        } catch (const EWriteError& error) {
            return error.getMessage();
        }
        return UnicodeString();
    };
    TFileStream full(u"/dev/full", fmOpenWrite);
    const UnicodeString reason = Sysutils::SysErrorMessage(ERROR_DISK_FULL);
    EXPECT_EQ(message(full), u"Stream write error in file \"/dev/full\". " + reason);
    Classes::THandleStream sameHandle(full.getHandle());
    EXPECT_EQ(message(sameHandle), u"Stream write error. " + reason);
}

TEST(FileStreamTest, FilesAreSharedAsTheirOpenersAllow)
{
    const Support::TempFolder folder;
    const UnicodeString path = System::FromUtf8((folder.Path() / "shared").string());
    const TFileStream first(path, fmCreate | fmShareDenyWrite);
    EXPECT_THROW(TFileStream(path, fmOpenWrite | fmShareDenyNone), EFOpenError);
    EXPECT_THROW(TFileStream(path, fmCreate | fmShareDenyNone), EFCreateError);
    EXPECT_NO_THROW(TFileStream(path, fmOpenRead | fmShareDenyNone));
}

TEST(FileStreamTest, DevicesWithoutAnEndAreReadAsFarAsTold)
{
    TMemoryStream target;
    for (const UnicodeString device : {u"\\dev\\zero", u"\\dev\\urandom"}) {
        TFileStream source(device, fmOpenRead | fmShareDenyNone);
        EXPECT_EQ(target.CopyFrom(&source, 100'000), 100'000) << device;
        EXPECT_THROW(target.CopyFrom(&source, 0), EReadError) << device;
        EXPECT_EQ(target.getSize(), 100'000) << device;
        EXPECT_THROW(TMemoryStream().LoadFromFile(device), EReadError) << device;
        TStringList list{u"kept"};
        EXPECT_THROW(list.LoadFromFile(device), EReadError) << device;
        EXPECT_EQ(list.getCount(), 1);
        target.Clear();
    }
    TFileStream nothing(u"\\dev\\null", fmOpenRead | fmShareDenyNone);
    EXPECT_EQ(target.CopyFrom(&nothing, 0), 0);
    TMemoryStream status;
    status.LoadFromFile(u"\\proc\\self\\status");
    EXPECT_GT(status.getSize(), 100) << "a file whose size tells nothing";
}

} // namespace
